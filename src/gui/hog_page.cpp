#include "gui/pages.h"

namespace oravin::gui {

wxWindow* NewHogPage(wxWindow* parent, const Surroundings& surroundings) {
  return NewPurposePage(parent, surroundings, "hog.purpose", surroundings.main.hog.purpose,
                        ArchivePicture({purposePictureSize, purposePictureSize}));
}

}  // namespace oravin::gui
