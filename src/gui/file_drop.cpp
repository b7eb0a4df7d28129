#include "gui/file_drop.h"

#include <wx/dnd.h>

#include <utility>

#include "files/path.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

class FileDrop : public wxFileDropTarget {
 public:
  FileDrop(wxWindow* window, std::function<bool(const std::string&)> takes,
           std::function<void(const std::string&)> dropped)
      : window_(window), takes_(std::move(takes)), dropped_(std::move(dropped)) {}

 private:
  bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override {
    for (const wxString& file : files) {
      const std::string path = FromDialogPath(file);
      if (!takes_(path)) continue;
      window_->CallAfter([dropped = dropped_, path] { dropped(path); });
      return true;
    }
    return false;
  }

  wxWindow* window_;
  std::function<bool(const std::string&)> takes_;
  std::function<void(const std::string&)> dropped_;
};

}  // namespace

void OnFileDropped(wxWindow* window, const std::function<bool(const std::string& path)>& takes,
                   const std::function<void(const std::string& path)>& dropped) {
  window->SetDropTarget(new FileDrop(window, takes, dropped));  // owned by the window
}

bool IsShipFile(const std::string& path) {
  const std::string extension = ExtensionOf(path);
  return extension == "shp" || extension == "pak";
}

}  // namespace oravin::gui
