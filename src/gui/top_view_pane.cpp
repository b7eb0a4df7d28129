#include "gui/top_view_pane.h"

#include <wx/dcbuffer.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "gui/drawing.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int smallestSide = 140;
constexpr int pointRadius = 4;
constexpr int selectedRadius = 6;
constexpr int margin = 10;
constexpr int keySpace = 4;

void DrawPoint(wxDC& dc, const wxPoint& middle, int radius, bool missile) {
  if (!missile) return dc.DrawCircle(middle, radius);
  const std::array<wxPoint, 3> corners = {wxPoint(0, -radius), wxPoint(radius, radius), wxPoint(-radius, radius)};
  dc.DrawPolygon(static_cast<int>(corners.size()), corners.data(), middle.x, middle.y);
}

wxPoint MiddleOf(const wxRect& rectangle) {
  return {rectangle.x + rectangle.width / 2, rectangle.y + rectangle.height / 2};
}

}  // namespace

TopViewPane::TopViewPane(wxWindow* parent, const StatsTab& record)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      record_(record) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    event.Skip();
    ShowTooltip(event.GetPosition());
  });
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    const auto row = RowAt(event.GetPosition());
    if (row && clicked) clicked(*row);
  });
  ShowRecord();
}

void TopViewPane::ShowRecord() {
  std::string words = Words();
  if (words.empty()) {
    words = "The ship's weapons from above";
    if (const auto row = SelectedRow(record_.shipWeaponsList)) {
      words += "; selected: " + TextAt(record_.shipWeaponsList, record_.shipWeaponsList.rows[*row], 0);
    }
  }
  if (GetLabel() != ToScreen(words)) SetLabel(ToScreen(words));  // for those who hear the window
  Refresh();
}

std::string TopViewPane::Words() const {
  if (!View().points.empty()) return "";
  return SelectedShip(record_) < 0 ? "No ship is chosen." : "No weapons";
}

wxSize TopViewPane::DoGetBestSize() const { return FromDIP(wxSize(smallestSide, smallestSide)); }

wxRect TopViewPane::PointRectangle(const TopViewPoint& point) const {
  const int key = GetCharHeight() + 2 * keySpace * Unit(*this);
  const wxRect room = wxRect(0, 0, GetClientSize().x, GetClientSize().y - key).Deflate(margin * Unit(*this));
  const int side = std::max(1, std::min(room.width, room.height));
  const wxPoint corner(room.x + (room.width - side) / 2, room.y + (room.height - side) / 2);
  const int radius = (point.selected ? selectedRadius : pointRadius) * Unit(*this);
  const wxPoint middle(corner.x + static_cast<int>(std::lround(point.across * side)),
                       corner.y + static_cast<int>(std::lround(point.along * side)));
  return {middle.x - radius, middle.y - radius, 2 * radius + 1, 2 * radius + 1};
}

/// The row of the weapon that is nearest to the mouse, if one is near.
std::optional<std::size_t> TopViewPane::RowAt(const wxPoint& mouse) const {
  const TopViewPoint* nearest = nullptr;
  int least = 2 * selectedRadius * Unit(*this);
  for (const TopViewPoint& point : View().points) {
    const wxPoint away = MiddleOf(PointRectangle(point)) - mouse;
    const int distance = static_cast<int>(std::hypot(away.x, away.y));
    if (distance >= least) continue;
    least = distance;
    nearest = &point;
  }
  if (nearest == nullptr || nearest->attachment >= record_.pairs.paired.size()) return std::nullopt;
  const bool paired = record_.pairs.paired[nearest->attachment];
  const int partner = paired ? static_cast<int>(record_.pairs.partner[nearest->attachment]) : -1;
  const auto& rows = record_.shipWeaponsList.rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int index = rows[i].item;
    if (index == static_cast<int>(nearest->attachment) || (paired && index == partner)) return i;
  }
  return std::nullopt;
}

void TopViewPane::Paint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(ListGround()));
  dc.Clear();
  dc.SetFont(GetFont());
  if (const std::string words = Words(); !words.empty()) {
    dc.SetTextForeground(FadedText());
    dc.DrawLabel(ToScreen(words), GetClientRect(), wxALIGN_CENTRE);
    return;
  }
  PaintKey(dc);
  // The selected ones last, so that none lies over them.
  for (const bool selected : {false, true}) {
    for (const TopViewPoint& point : View().points) {
      if (point.selected == selected) PaintPoint(dc, point);
    }
  }
}

void TopViewPane::PaintPoint(wxDC& dc, const TopViewPoint& point) const {
  const wxRect place = PointRectangle(point);
  dc.SetPen(wxPen(point.selected ? ListText() : FadedText(), Unit(*this)));
  dc.SetBrush(wxBrush(point.selected ? StandingOut() : ListGround()));
  DrawPoint(dc, MiddleOf(place), place.width / 2, point.missile);
}

/// The middle line with the front's end, and below what the points mean.
void TopViewPane::PaintKey(wxDC& dc) const {
  const wxSize room = GetClientSize();
  const int lineHeight = GetCharHeight();
  const int between = keySpace * Unit(*this);
  const int bottom = room.y - lineHeight - 2 * between;
  const int middle = room.x / 2;
  const int arrow = pointRadius * Unit(*this);
  dc.SetPen(wxPen(FaintLine(), Unit(*this)));
  dc.DrawLine(middle, between, middle, bottom);
  dc.DrawLine(middle, between, middle - arrow, between + arrow);
  dc.DrawLine(middle, between, middle + arrow, between + arrow);

  dc.SetTextForeground(FadedText());
  const wxString front = "Front";
  if (room.x > 2 * dc.GetTextExtent(front).GetWidth() + 8 * between) dc.DrawText(front, 2 * between, between);
  const int radius = pointRadius * Unit(*this);
  const int y = bottom + between;
  int x = 2 * between;
  for (const bool missile : {false, true}) {
    dc.SetPen(wxPen(FadedText(), Unit(*this)));
    dc.SetBrush(wxBrush(ListGround()));
    DrawPoint(dc, {x + radius, y + lineHeight / 2}, radius, missile);
    x += 2 * radius + between;
    const wxString name = missile ? "Missile" : "Gun";
    dc.DrawText(name, x, y);
    x += dc.GetTextExtent(name).GetWidth() + 4 * between;
  }
}

void TopViewPane::ShowTooltip(const wxPoint& mouse) {
  std::string tooltip = "Where the ship's weapons are, seen from above";
  if (const auto row = RowAt(mouse)) tooltip = TextAt(record_.shipWeaponsList, record_.shipWeaponsList.rows[*row], 0);
  const wxString text = ToScreen(tooltip);
  if (GetToolTipText() != text) SetToolTip(text);
}

}  // namespace oravin::gui
