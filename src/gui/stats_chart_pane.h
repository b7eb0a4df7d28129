#pragma once

#include <wx/window.h>

#include <string>

#include "gui/list_window.h"
#include "tabs/stats_tab.h"

namespace oravin::gui {

/// Draws a ship's statistics as bars beside the list of their values, each in the line of its row and scrolled with
/// it: the selected ship's bar, the compared ship's mark, and on the axis a tick each for the smallest, the middle and
/// the largest value of all ships.
class StatsChartPane : public wxWindow {
 public:
  /// @param record what the chart shows; must outlive the window
  /// @param list the rows to draw beside; its top is the pane's own
  StatsChartPane(wxWindow* parent, const StatsTab& record, ListWindow& list);

  /// Shows the chart of the record.
  void ShowRecord();

  [[nodiscard]] const StatsChart& Chart() const { return record_.chart; }

  /// What it says where there is no chart; empty where there is one.
  [[nodiscard]] std::string Words() const;

  /// Where a row is drawn, in the window's own coordinates; it may lie out of sight.
  [[nodiscard]] wxRect RowRectangle(std::size_t row) const;

 private:
  wxSize DoGetBestSize() const override;
  bool AcceptsFocus() const override { return false; }
  [[nodiscard]] wxRect RowsRectangle() const;
  void Paint();
  void PaintHeading(wxDC& dc, const wxRect& heading);
  void PaintRow(wxDC& dc, const ChartRow& row, const wxRect& place) const;
  void ShowTooltip(const wxPoint& mouse);

  const StatsTab& record_;
  ListWindow& list_;
};

/// The line that tells whose the chart's bars and marks are.
class StatsChartLegend : public wxWindow {
 public:
  /// @param record must outlive the window
  StatsChartLegend(wxWindow* parent, const StatsTab& record);

  /// Shows the names of the record's chart.
  void ShowRecord();

 private:
  wxSize DoGetBestSize() const override;
  bool AcceptsFocus() const override { return false; }
  void Paint();

  const StatsTab& record_;
};

/// What a row of the chart shows, in words: each value on a line of its own.
std::string InWords(const StatsChart& chart, const ChartRow& row);

}  // namespace oravin::gui
