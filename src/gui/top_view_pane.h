#pragma once

#include <wx/window.h>

#include <functional>
#include <optional>
#include <string>

#include "tabs/stats_tab.h"

namespace oravin::gui {

/// Draws the positions of the selected ship's weapons, seen from above with the front on top: guns as discs, missile
/// points as triangles, the selected ones filled.
class TopViewPane : public wxWindow {
 public:
  /// @param record must outlive the window
  TopViewPane(wxWindow* parent, const StatsTab& record);

  /// Shows the record's picture.
  void ShowRecord();

  [[nodiscard]] const TopView& View() const { return record_.topView; }

  /// The text shown if there is no weapon to draw; else empty.
  [[nodiscard]] std::string Words() const;

  /// A point's position in the window's coordinates.
  [[nodiscard]] wxRect PointRectangle(const TopViewPoint& point) const;

  /// Called with the row of the clicked weapon in shipWeaponsList.
  std::function<void(std::size_t row)> clicked;

 private:
  wxSize DoGetBestSize() const override;
  bool AcceptsFocus() const override { return false; }
  [[nodiscard]] std::optional<std::size_t> RowAt(const wxPoint& mouse) const;
  void Paint();
  void PaintPoint(wxDC& dc, const TopViewPoint& point) const;
  void PaintKey(wxDC& dc) const;
  void ShowTooltip(const wxPoint& mouse);

  const StatsTab& record_;
};

}  // namespace oravin::gui
