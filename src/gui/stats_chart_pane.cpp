#include "gui/stats_chart_pane.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/renderer.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "base/number_text.h"
#include "gui/drawing.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int smallestWidth = 130;
constexpr int axisMargin = 12;  ///< left and right of the axes, so that a mark at an end is not cut off
constexpr int barHeight = 8;
constexpr int markSide = 5;  ///< from the centre of the compared ship's mark to its corners
constexpr int chartSpace = 6;
constexpr const char* howToCompare = "Copy Stats marks a ship to compare with.";

void FillRectangle(wxDC& dc, const wxColour& colour, const wxRect& rectangle) {
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(colour));
  dc.DrawRectangle(rectangle);
}

/// The selected ship's bar, or its sample in the legend.
void DrawBar(wxDC& dc, const wxRect& bar) { FillRectangle(dc, StandingOut(), bar); }

/// The compared ship's mark, with an outline to stand out from the bar.
void DrawMark(wxDC& dc, const wxPoint& middle, int side) {
  const std::array<wxPoint, 4> corners = {wxPoint(0, -side), wxPoint(side, 0), wxPoint(0, side), wxPoint(-side, 0)};
  dc.SetPen(wxPen(ListGround(), 1));
  dc.SetBrush(wxBrush(ListText()));
  dc.DrawPolygon(static_cast<int>(corners.size()), corners.data(), middle.x, middle.y);
}

/// A tick of the axis; the middle one is longer and thicker.
void DrawTick(wxDC& dc, const wxPoint& middle, int unit, bool isMiddle) {
  const int half = (barHeight / 2 + (isMiddle ? 4 : 2)) * unit;
  const int thick = isMiddle ? 2 * unit : unit;
  FillRectangle(dc, ListText(), {middle.x - thick / 2, middle.y - half, thick, 2 * half + 1});
}

}  // namespace

std::string InWords(const StatsChart& chart, const ChartRow& row) {
  std::string words = row.label;
  const auto add = [&words](const std::string& name, const std::optional<ChartMark>& mark) {
    if (mark) words += "\n" + name + ": " + NumberText(mark->value);
  };
  add(chart.selectedName, row.selected);
  if (!chart.comparedName.empty()) add(chart.comparedName, row.compared);
  add("Smallest of all ships", row.smallest);
  add("Middle of all ships", row.middle);
  add("Largest of all ships", row.largest);
  return words;
}

StatsChartPane::StatsChartPane(wxWindow* parent, const StatsTab& record, ListWindow& list)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      record_(record),
      list_(list) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    event.Skip();
    ShowTooltip(event.GetPosition());
  });
  list.scrolled = [this] { Refresh(); };
  ShowRecord();
}

void StatsChartPane::ShowRecord() {
  std::string words = Words();
  if (words.empty()) words = "Chart of the statistics of " + Chart().selectedName + " among those of all ships";
  if (GetLabel() != ToScreen(words)) SetLabel(ToScreen(words));  // for screen readers
  Refresh();
}

std::string StatsChartPane::Words() const {
  if (!Chart().selectedName.empty()) return "";
  if (record_.shipEditingList.rows.empty()) return "Press Enable to list the ships.";
  return SelectedShip(record_) < 0 ? "Choose a ship to compare it with the others."
                                   : "The ship's statistics cannot be shown.";
}

wxSize StatsChartPane::DoGetBestSize() const { return {FromDIP(smallestWidth), 4 * GetCharHeight()}; }

wxRect StatsChartPane::RowRectangle(std::size_t row) const {
  wxRect rectangle;
  if (!list_.GetItemRect(static_cast<long>(row), rectangle)) return {};
  const int top = ScreenToClient(list_.ClientToScreen(rectangle.GetTopLeft())).y;
  return {0, top, GetClientSize().GetWidth(), rectangle.height};
}

/// The area below the list's headings.
wxRect StatsChartPane::RowsRectangle() const {
  const int top = ScreenToClient(list_.ClientToScreen(wxPoint(0, list_.HeadingHeight()))).y;
  return {0, top, GetClientSize().GetWidth(), GetClientSize().GetHeight() - top};
}

void StatsChartPane::Paint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(ListGround()));
  dc.Clear();
  dc.SetFont(GetFont());
  const wxRect rows = RowsRectangle();
  PaintHeading(dc, {0, 0, rows.width, rows.y});
  const wxDCClipper clipper(dc, rows);
  if (const std::string words = Words(); !words.empty()) {
    dc.SetTextForeground(FadedText());
    wxString lines = ToScreen(words);
    if (dc.GetTextExtent(lines).GetWidth() > rows.width - 2 * FromDIP(chartSpace)) {
      lines.Replace(" to ", "\nto ", false);
      lines.Replace(" cannot ", "\ncannot ", false);
    }
    dc.DrawLabel(lines, rows, wxALIGN_CENTRE);
    return;
  }
  for (std::size_t i = 0; i < Chart().rows.size(); ++i) {
    const wxRect place = RowRectangle(i);
    if (!rows.Intersects(place)) continue;
    FillRectangle(dc, list_.GroundOf(static_cast<long>(i)), place);
    PaintRow(dc, Chart().rows.at(i), place);
  }
}

/// The heading, which continues the list's and explains the ticks.
void StatsChartPane::PaintHeading(wxDC& dc, const wxRect& heading) {
  if (heading.height <= 0) return;
  wxRendererNative::Get().DrawHeaderButton(this, dc, heading);
  const wxRect room = wxRect(heading).Deflate(FromDIP(chartSpace), 0);
  for (const char* text : {"All ships: smallest, middle, largest", "Smallest, middle, largest", "All ships:"}) {
    if (dc.GetTextExtent(text).GetWidth() > room.width) continue;
    dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    dc.DrawLabel(text, room, wxALIGN_CENTRE_VERTICAL);
    break;
  }
}

void StatsChartPane::PaintRow(wxDC& dc, const ChartRow& row, const wxRect& place) const {
  const int unit = Unit(*this);
  const int margin = axisMargin * unit;
  const int width = std::max(1, place.width - 2 * margin);
  const int middle = place.y + place.height / 2;
  const auto at = [&](double along) { return margin + static_cast<int>(std::lround(along * width)); };
  FillRectangle(dc, FaintLine(), {margin, middle, width, unit});
  if (row.selected) {
    const int from = std::min(at(row.zero), at(row.selected->place));
    const int to = std::max(at(row.zero), at(row.selected->place));
    const int height = barHeight * unit;
    DrawBar(dc, {from, middle - height / 2, std::max(to - from, 2 * unit), height});
  }
  for (const auto* tick : {&row.smallest, &row.middle, &row.largest}) {
    if (*tick) DrawTick(dc, {at((*tick)->place), middle}, unit, tick == &row.middle);
  }
  if (row.compared) DrawMark(dc, {at(row.compared->place), middle}, markSide * unit);
}

void StatsChartPane::ShowTooltip(const wxPoint& mouse) {
  std::string tooltip = "The selected ship's statistics, compared with those of all ships";
  const bool overRows = RowsRectangle().Contains(mouse);
  for (std::size_t i = 0; i < Chart().rows.size() && overRows && Words().empty(); ++i) {
    if (RowRectangle(i).Contains(mouse)) tooltip = InWords(Chart(), Chart().rows.at(i));
  }
  const wxString text = ToScreen(tooltip);
  if (GetToolTipText() != text) SetToolTip(text);
}

StatsChartLegend::StatsChartLegend(wxWindow* parent, const StatsTab& record)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      record_(record) {
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  ShowRecord();
}

void StatsChartLegend::ShowRecord() {
  const StatsChart& chart = record_.chart;
  std::string words = chart.selectedName;
  if (!chart.comparedName.empty()) words += ", compared with " + chart.comparedName;
  if (!words.empty() && !chart.remembered) words += ". " + std::string(howToCompare);
  const wxString text = ToScreen(words);
  if (GetLabel() == text) return;
  SetLabel(text);
  SetToolTip(text);
  Refresh();
}

wxSize StatsChartLegend::DoGetBestSize() const { return {FromDIP(smallestWidth), GetTextExtent("X").GetHeight()}; }

void StatsChartLegend::Paint() {
  wxPaintDC dc(this);
  const StatsChart& chart = record_.chart;
  if (chart.selectedName.empty()) return;
  dc.SetFont(GetFont());
  dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  const wxSize room = GetClientSize();
  const int unit = Unit(*this);
  const bool hint = chart.comparedName.empty() && !chart.remembered;
  const std::string second = hint ? howToCompare : chart.comparedName;
  const int between = FromDIP(chartSpace);
  const int sample = 3 * barHeight * unit;
  const int half = (room.x - 2 * between) / (hint ? 3 : 2);
  const auto name = [&](const std::string& text, int x, int width) {
    const wxString shown =
        wxControl::Ellipsize(ToScreen(text), dc, wxELLIPSIZE_END, std::max(0, width), wxELLIPSIZE_FLAGS_NONE);
    dc.DrawLabel(shown, wxRect(x, 0, width, room.y), wxALIGN_CENTRE_VERTICAL);
    return dc.GetTextExtent(shown).GetWidth();
  };
  const int height = barHeight * unit;
  DrawBar(dc, {0, (room.y - height) / 2, sample, height});
  int x = sample + between;
  x += name(chart.selectedName, x, (second.empty() ? room.x : half) - x) + 3 * between;
  if (second.empty()) return;
  const int side = markSide * unit;
  DrawMark(dc, {x + side, room.y / 2}, side);
  x += 2 * side + between;
  if (hint) dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
  name(second, x, room.x - x);
}

}  // namespace oravin::gui
