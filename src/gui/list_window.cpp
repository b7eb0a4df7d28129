#include "gui/list_window.h"

#include <algorithm>
#include <utility>

#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

long StyleOf(const ListView& record) {
  const long selection = record.severalSelectable ? 0L : long{wxLC_SINGLE_SEL};
  return wxLC_REPORT | wxLC_VIRTUAL | wxBORDER_NONE | selection;
}

constexpr int narrowestColumn = 40;

}  // namespace

ListWindow::ListWindow(wxWindow* parent, const ListView& record, std::function<int(const ListRow&)> pictureOf)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, parent->GetClientSize(), StyleOf(record)),
      record_(record),
      pictureOf_(std::move(pictureOf)) {
  for (std::size_t i = 0; i < record.columns.size(); ++i) {
    const ListColumn& column = record.columns[i];
    AppendColumn(ToScreen(column.heading), column.number ? wxLIST_FORMAT_RIGHT : wxLIST_FORMAT_LEFT);
    shares_.push_back(1.0 / static_cast<double>(record.columns.size()));
  }
  EnableAlternateRowColours();
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ShareWidth();
    // Whether there is a scroll bar beside the columns is settled only after this event.
    CallAfter([this] { ShareWidth(); });
  });
  Bind(wxEVT_LIST_COL_END_DRAG, [this](wxListEvent& event) {
    event.Skip();
    CallAfter([this] { KeepShares(); });
  });
}

const ListRow* ListWindow::RowAt(long row) const {
  // While a long action rebuilds the rows, the window may still draw the old ones.
  const auto index = static_cast<std::size_t>(row);
  return row >= 0 && index < record_.rows.size() ? &record_.rows[index] : nullptr;
}

wxString ListWindow::OnGetItemText(long row, long column) const {
  const ListRow* shown = RowAt(row);
  const auto index = static_cast<std::size_t>(column);
  if (shown == nullptr || column < 0 || index >= shown->texts.size()) return {};
  return ToScreen(shown->texts[index]);
}

int ListWindow::OnGetItemImage(long row) const {
  const ListRow* shown = RowAt(row);
  return shown != nullptr && pictureOf_ ? pictureOf_(*shown) : -1;
}

void ListWindow::ShareWidth() {
  const int whole = GetMainWindowOfCompositeControl()->GetClientSize().GetWidth();
  int left = whole;
  for (std::size_t i = 0; i < shares_.size(); ++i) {
    const bool last = i + 1 == shares_.size();
    const int wanted = last ? left : static_cast<int>(shares_[i] * whole);
    const int width = std::max(wanted, FromDIP(narrowestColumn));
    const int column = static_cast<int>(i);
    if (GetColumnWidth(column) != width) SetColumnWidth(column, width);
    left -= width;
  }
}

void ListWindow::KeepShares() {
  double whole = 0;
  for (int i = 0; i < GetColumnCount(); ++i) whole += GetColumnWidth(i);
  for (int i = 0; i < GetColumnCount(); ++i) shares_[static_cast<std::size_t>(i)] = GetColumnWidth(i) / whole;
}

}  // namespace oravin::gui
