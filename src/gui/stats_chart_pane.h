#pragma once

#include <wx/window.h>

#include <string>

#include "gui/list_window.h"
#include "tabs/stats_tab.h"

namespace oravin::gui {

/// Draws a ship's statistics as bars next to the list of their values, scrolled with it: the selected ship's bar, the
/// compared ship's mark, and ticks for the smallest, the middle and the largest value of all ships.
class StatsChartPane : public wxWindow {
 public:
  /// @param record the chart; must outlive the window
  /// @param list the list with the rows; must have the same top edge as the pane
  StatsChartPane(wxWindow* parent, const StatsTab& record, ListWindow& list);

  /// Shows the chart of the record.
  void ShowRecord();

  [[nodiscard]] const StatsChart& Chart() const { return record_.chart; }

  /// The text shown instead of a chart; empty if there is a chart.
  [[nodiscard]] std::string Words() const;

  /// A row's rectangle in the window's coordinates; may be scrolled out of view.
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

/// The legend of the chart's bars and marks.
class StatsChartLegend : public wxWindow {
 public:
  /// @param record must outlive the window
  StatsChartLegend(wxWindow* parent, const StatsTab& record);

  /// Shows the names in the record's chart.
  void ShowRecord();

 private:
  wxSize DoGetBestSize() const override;
  bool AcceptsFocus() const override { return false; }
  void Paint();

  const StatsTab& record_;
};

/// A row of the chart as text, one value per line.
std::string InWords(const StatsChart& chart, const ChartRow& row);

}  // namespace oravin::gui
