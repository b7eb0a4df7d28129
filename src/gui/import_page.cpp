#include "gui/pages.h"

namespace oravin::gui {

wxWindow* NewImportPage(wxWindow* parent, const Surroundings& surroundings) {
  return NewPurposePage(parent, surroundings, "imports.purpose", surroundings.main.imports.purpose,
                        ImportPicture({purposePictureSize, purposePictureSize}));
}

}  // namespace oravin::gui
