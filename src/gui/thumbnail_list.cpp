#include "gui/thumbnail_list.h"

#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "gui/picture_pane.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int pictureSide = 64;
constexpr int cellWidth = 112;
constexpr int cellMargin = 6;
constexpr int smallestList = 200;

constexpr std::chrono::milliseconds atATime(8);  ///< so that a click never waits for long

/// Room for the pictures of all textures that a cache can hold, 12 KB each.
constexpr std::size_t mostBytes = std::size_t{16} << 20U;
constexpr std::size_t bytesOfOne = std::size_t{3} * pictureSide * pictureSide;

void SelectRange(ListView& record, std::size_t from, std::size_t to) {
  const auto [first, last] = std::minmax(from, to);
  for (std::size_t i = 0; i < record.rows.size(); ++i) record.rows[i].selected = i >= first && i <= last;
  ++record.revision;
}

wxColour Faded(const wxColour& colour, const wxColour& ground) {
  const auto between = [](unsigned char a, unsigned char b) { return static_cast<unsigned char>((a + 3 * b) / 4); };
  return {between(colour.Red(), ground.Red()), between(colour.Green(), ground.Green()),
          between(colour.Blue(), ground.Blue())};
}

int CellHeight(const wxWindow& window) { return window.FromDIP(pictureSide + 3 * cellMargin) + window.GetCharHeight(); }

}  // namespace

ThumbnailList::ThumbnailList(wxWindow* parent, ListView& record, ThumbnailSource source)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxBORDER_NONE | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE),
      record_(record),
      source_(std::move(source)),
      shownRevision_(record.revision - 1) {
  pictures_.mostBytes = mostBytes;
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetScrollRate(0, CellHeight(*this) / 4);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    Arrange();
  });
  Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    if (MakeSomePictures()) event.RequestMore();
  });
  Bind(wxEVT_LEFT_DOWN, &ThumbnailList::OnMouse, this);
  Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
    if (RowAt(event.GetPosition()) && activated) activated();
  });
  Bind(wxEVT_KEY_DOWN, &ThumbnailList::OnKey, this);
  for (const auto& focus : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
    Bind(focus, [this](wxFocusEvent& event) {
      event.Skip();
      Refresh();  // the keyboard's mark
    });
  }
}

wxSize ThumbnailList::DoGetBestSize() const { return FromDIP(wxSize(smallestList, smallestList)); }

void ThumbnailList::ShowRecord() {
  std::string contents = source_.contents();
  if (contents != contents_) {
    contents_ = std::move(contents);
    ForgetPictures(pictures_);
    without_.clear();
    next_ = 0;
    current_ = 0;
    anchor_ = 0;
  } else if (shownRevision_ == record_.revision) {
    return;
  }
  shownRevision_ = record_.revision;
  Arrange();
  Refresh();
}

void ThumbnailList::ShowChosenRow() {
  const auto row = SelectedRow(record_);
  if (!row) return;
  current_ = *row;
  anchor_ = *row;
  EnsureVisible(*row);
}

std::size_t ThumbnailList::Columns() const {
  return static_cast<std::size_t>(std::max(1, GetClientSize().GetWidth() / FromDIP(cellWidth)));
}

void ThumbnailList::Arrange() {
  const std::size_t columns = Columns();
  const auto lines = static_cast<int>((record_.rows.size() + columns - 1) / columns);
  const wxSize whole(FromDIP(cellWidth), std::max(1, lines * CellHeight(*this)));
  if (GetVirtualSize().y != std::max(whole.y, GetClientSize().y) || shownRows_ != record_.rows.size()) {
    SetVirtualSize(whole);
  }
  shownRows_ = record_.rows.size();
}

ThumbnailList::Range ThumbnailList::RowsInSight() const {
  const int height = CellHeight(*this);
  const int top = CalcUnscrolledPosition(wxPoint(0, 0)).y;
  const int bottom = top + GetClientSize().GetHeight();
  const std::size_t rows = record_.rows.size();
  const std::size_t first = static_cast<std::size_t>(top / height) * Columns();
  const std::size_t end = static_cast<std::size_t>((bottom + height - 1) / height) * Columns();
  return {std::min(first, rows), std::min(end, rows)};
}

wxRect ThumbnailList::RowRectangle(std::size_t row) const {
  // What room is left over is shared out among the columns.
  const std::size_t columns = Columns();
  const int wide = GetClientSize().GetWidth() / static_cast<int>(columns);
  const int height = CellHeight(*this);
  const wxPoint at(static_cast<int>(row % columns) * wide, static_cast<int>(row / columns) * height);
  return {CalcScrolledPosition(at), wxSize(wide, height)};
}

std::optional<std::size_t> ThumbnailList::RowAt(const wxPoint& point) const {
  const Range seen = RowsInSight();
  for (std::size_t row = seen.first; row < seen.end; ++row) {
    if (RowRectangle(row).Contains(point)) return row;
  }
  return std::nullopt;
}

bool ThumbnailList::HasPicture(std::size_t row) const {
  return row < record_.rows.size() && pictures_.items.contains(record_.rows[row].item);
}

bool ThumbnailList::IsMade(std::size_t row) const {
  return HasPicture(row) || without_.contains(record_.rows[row].item);
}

/// The row whose picture is wanted most: one in sight, else the next of all while there is room to keep it.
std::optional<std::size_t> ThumbnailList::NextToMake() {
  const Range seen = RowsInSight();
  for (std::size_t row = seen.first; row < seen.end; ++row) {
    if (!IsMade(row)) return row;
  }
  for (; next_ < record_.rows.size() && pictures_.bytes + bytesOfOne <= pictures_.mostBytes; ++next_) {
    if (!IsMade(next_)) return next_;
  }
  return std::nullopt;
}

/// Returns whether any was made; then there may be more.
bool ThumbnailList::MakeSomePictures() {
  if (!IsShownOnScreen() || shownRevision_ != record_.revision) return false;
  const auto end = std::chrono::steady_clock::now() + atATime;
  bool made = false;
  while (const auto row = NextToMake()) {
    made = true;
    const int number = record_.rows[*row].item;
    std::optional<Picture> picture = source_.pictureOf(record_.rows[*row], pictureSide);
    if (picture) {
      KeepPicture(pictures_, number, std::move(*picture));
    } else {
      without_.insert(number);
    }
    RefreshRect(RowRectangle(*row), false);
    if (std::chrono::steady_clock::now() >= end) break;
  }
  return made;
}

void ThumbnailList::Paint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX)));
  dc.Clear();
  dc.SetFont(GetFont());
  const Range seen = RowsInSight();
  const wxRegion due = GetUpdateRegion();
  for (std::size_t row = seen.first; row < seen.end; ++row) {
    if (due.Contains(RowRectangle(row)) != wxOutRegion) PaintRow(dc, row);
  }
}

void ThumbnailList::PaintRow(wxDC& dc, std::size_t row) {
  const ListRow& shown = record_.rows[row];
  const wxRect cell = RowRectangle(row).Deflate(FromDIP(cellMargin / 3));
  if (shown.selected) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)));
    dc.DrawRoundedRectangle(cell, FromDIP(cellMargin / 2));
  }
  const int side = FromDIP(pictureSide);
  const int margin = FromDIP(cellMargin);
  PaintPicture(dc, row, {cell.x + (cell.width - side) / 2, cell.y + margin, side, side});
  const wxRect name(cell.x + margin, cell.y + 2 * margin + side, cell.width - 2 * margin, GetCharHeight());
  dc.SetTextForeground(
      wxSystemSettings::GetColour(shown.selected ? wxSYS_COLOUR_HIGHLIGHTTEXT : wxSYS_COLOUR_LISTBOXTEXT));
  const wxString text = wxControl::Ellipsize(ToScreen(TextAt(record_, shown, 0)), dc, wxELLIPSIZE_MIDDLE, name.width,
                                             wxELLIPSIZE_FLAGS_NONE);
  dc.DrawLabel(text, name, wxALIGN_CENTRE_HORIZONTAL);
  if (row == current_ && HasFocus()) wxRendererNative::Get().DrawFocusRect(this, dc, cell, 0);
}

void ThumbnailList::PaintPicture(wxDC& dc, std::size_t row, const wxRect& place) {
  const int number = record_.rows[row].item;
  const Picture* picture = FindPicture(pictures_, number);
  if (picture != nullptr) {
    const double scale = GetContentScaleFactor();
    const double times = static_cast<double>(place.width) * scale / pictureSide;
    const auto grown = [times](int pixels) { return static_cast<int>(pixels * times); };
    const wxBitmap bitmap = times > 1.0
                                ? BitmapOf(Scaled(*picture, grown(picture->width), grown(picture->height)), scale)
                                : BitmapOf(*picture, scale);
    const wxSize size(static_cast<int>(bitmap.GetWidth() / scale), static_cast<int>(bitmap.GetHeight() / scale));
    dc.DrawBitmap(bitmap, place.x + (place.width - size.x) / 2, place.y + (place.height - size.y) / 2);
    return;
  }
  const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOXTEXT);
  dc.SetPen(wxPen(Faded(text, wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX))));
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRectangle(place);
  if (!without_.contains(number)) return;  // it is still to come
  dc.DrawLine(place.GetTopLeft(), place.GetBottomRight());
  dc.DrawLine(place.GetBottomLeft(), place.GetTopRight());
}

void ThumbnailList::EnsureVisible(std::size_t row) {
  const wxRect place = RowRectangle(row);
  const int room = GetClientSize().GetHeight();
  int step = 0;
  GetScrollPixelsPerUnit(nullptr, &step);
  if (step <= 0) return;
  const int top = CalcUnscrolledPosition(place.GetTopLeft()).y;
  if (place.y < 0) Scroll(-1, top / step);
  if (place.GetBottom() >= room) Scroll(-1, (top + place.height - room + step - 1) / step);
}

/// @param extends the range from the anchor to the row is selected
/// @param keeps the selection stays as it is
void ThumbnailList::GoTo(std::size_t row, bool extends, bool keeps) {
  current_ = row;
  EnsureVisible(row);
  Refresh();
  if (extends) {
    SelectRange(record_, std::min(anchor_, record_.rows.size() - 1), row);
  } else if (keeps) {
    return;
  } else {
    anchor_ = row;
    SelectOnly(record_, row);
  }
  if (selectionChanged) selectionChanged();
}

void ThumbnailList::ToggleRow(std::size_t row) {
  current_ = row;
  anchor_ = row;
  record_.rows[row].selected = !record_.rows[row].selected;
  ++record_.revision;
  Refresh();
  if (selectionChanged) selectionChanged();
}

void ThumbnailList::OnMouse(wxMouseEvent& event) {
  SetFocus();
  const auto row = RowAt(event.GetPosition());
  if (row && event.ControlDown()) return ToggleRow(*row);
  if (row) return GoTo(*row, event.ShiftDown(), false);
  if (event.ControlDown() || event.ShiftDown() || !SelectedRow(record_)) return;
  SelectOnly(record_, std::nullopt);
  Refresh();
  if (selectionChanged) selectionChanged();
}

/// The row to which a key leads from the one with the mark; nothing for a key that leads nowhere.
std::optional<std::size_t> ThumbnailList::TargetOf(int key) const {
  const auto last = static_cast<std::ptrdiff_t>(record_.rows.size()) - 1;
  const auto columns = static_cast<std::ptrdiff_t>(Columns());
  const auto lines = std::max<std::ptrdiff_t>(1, GetClientSize().GetHeight() / CellHeight(*this));
  const auto from = std::min(static_cast<std::ptrdiff_t>(current_), last);
  std::ptrdiff_t step = 0;
  switch (key) {
    case WXK_LEFT:
      step = -1;
      break;
    case WXK_RIGHT:
      step = 1;
      break;
    case WXK_UP:
      step = -columns;
      break;
    case WXK_DOWN:
      step = columns;
      break;
    case WXK_PAGEUP:
      step = -columns * lines;
      break;
    case WXK_PAGEDOWN:
      step = columns * lines;
      break;
    case WXK_HOME:
      return 0;
    case WXK_END:
      return static_cast<std::size_t>(last);
    default:
      return std::nullopt;
  }
  const bool byLine = std::abs(step) == columns && columns > 1;
  if (byLine && (from + step < 0 || from + step > last)) return static_cast<std::size_t>(from);
  return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(from + step, 0, last));
}

void ThumbnailList::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (key == WXK_TAB && !event.ControlDown()) {
    Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
    return;
  }
  if (record_.rows.empty() || event.AltDown()) return event.Skip();
  current_ = std::min(current_, record_.rows.size() - 1);
  if (const auto target = TargetOf(key)) {
    GoTo(*target, event.ShiftDown(), event.ControlDown());
  } else if (key == WXK_SPACE && event.ControlDown()) {
    ToggleRow(current_);
  } else if (key == WXK_SPACE) {
    GoTo(current_, event.ShiftDown(), false);
  } else if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) {
    if (activated) activated();
  } else {
    event.Skip();
  }
}

}  // namespace oravin::gui
