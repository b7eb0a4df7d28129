#include "gui/pages.h"

namespace oravin::gui {

wxWindow* NewTcachePage(wxWindow* parent, const Surroundings& surroundings) {
  return NewPurposePage(parent, surroundings, "tcache.purpose", surroundings.main.tcache.purpose,
                        TexturesPicture({purposePictureSize, purposePictureSize}));
}

}  // namespace oravin::gui
