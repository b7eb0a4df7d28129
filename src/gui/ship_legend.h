#pragma once

#include <wx/bmpbndl.h>
#include <wx/window.h>

#include <vector>

namespace oravin::gui {

/// Draws the meaning of the lists' pictures, side by side. One window for all: more windows make the start slower.
class ShipLegend : public wxWindow {
 public:
  explicit ShipLegend(wxWindow* parent);

 private:
  struct Entry {
    std::vector<wxBitmapBundle> pictures;
    wxString meaning;
  };

  wxSize DoGetBestSize() const override;
  bool AcceptsFocus() const override { return false; }
  void Paint();

  std::vector<Entry> entries_;
};

}  // namespace oravin::gui
