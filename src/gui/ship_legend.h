#pragma once

#include <wx/bmpbndl.h>
#include <wx/window.h>

#include <vector>

namespace oravin::gui {

/// Draws what the lists' pictures mean, side by side. One window for all of them: each window of its own would make the
/// program start later.
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
