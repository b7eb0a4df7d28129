#pragma once

#include <wx/window.h>

#include <functional>
#include <optional>
#include <string>

#include "tabs/stats_tab.h"

namespace oravin::gui {

/// Draws where the selected ship's weapons are, seen from above with the front on top: guns as discs, missile points as
/// triangles, the selected ones filled.
class TopViewPane : public wxWindow {
 public:
  /// @param record must outlive the window
  TopViewPane(wxWindow* parent, const StatsTab& record);

  /// Shows the record's picture.
  void ShowRecord();

  [[nodiscard]] const TopView& View() const { return record_.topView; }

  /// What it says where there is no weapon to draw; empty where there is one.
  [[nodiscard]] std::string Words() const;

  /// Where a point is drawn, in the window's own coordinates.
  [[nodiscard]] wxRect PointRectangle(const TopViewPoint& point) const;

  /// Called with the row of shipWeaponsList whose weapon was clicked.
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
