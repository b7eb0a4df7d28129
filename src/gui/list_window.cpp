#include "gui/list_window.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int narrowestColumn = 40;
constexpr std::size_t longestShown = 300;

long StyleOf(const ListView& record) {
  const long selection = record.severalSelectable ? 0L : long{wxLC_SINGLE_SEL};
  return wxLC_REPORT | wxLC_VIRTUAL | wxBORDER_NONE | selection;
}

void SelectRow(ListWindow& list, std::size_t row, bool selected) {
  list.SetItemState(static_cast<long>(row), selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

/// Selects all rows or none at once.
void SelectEveryRow(ListWindow& list, bool selected) {
  list.SetItemState(-1, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

/// Rows in all, rows to be selected, and rows that are the other way round on the screen.
struct Tally {
  std::size_t rows = 0;
  std::size_t selected = 0;
  std::size_t differing = 0;
};

Tally TallyOf(const ListWindow& list, const ListView& record) {
  Tally tally{record.rows.size(), 0, 0};
  for (std::size_t i = 0; i < tally.rows; ++i) {
    const bool wanted = record.rows[i].selected;
    if (wanted) ++tally.selected;
    if (IsSelected(list, i) != wanted) ++tally.differing;
  }
  return tally;
}

/// Brings the selection to the record's, from whatever is nearest: what there is, none, or all.
void ShowSelection(ListWindow& list, const ListView& record, const Tally& tally) {
  const std::size_t unselected = tally.rows - tally.selected;
  list.textless = true;
  if (tally.differing > std::min(tally.selected, unselected)) SelectEveryRow(list, tally.selected > unselected);
  for (std::size_t i = 0; i < tally.rows; ++i) {
    const bool wanted = record.rows[i].selected;
    if (IsSelected(list, i) != wanted) SelectRow(list, i, wanted);
  }
  list.textless = false;
}

/// Brings a row into sight that the record selected alone.
void ShowChosenRow(ListWindow& list, const ListView& record) {
  const auto row = SelectedRow(record);
  if (!row) return;
  const auto item = static_cast<long>(*row);
  list.SetItemState(item, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
  list.EnsureVisible(item);
}

void ShowOrder(ListWindow& list, const ListView& record) {
  const int column = record.sorted ? static_cast<int>(record.sorted->column) : -1;
  const bool ascending = !record.sorted || !record.sorted->descending;
  const bool same = list.GetSortIndicator() == column && (column < 0 || list.IsAscendingSortIndicator() == ascending);
  if (!same) list.ShowSortIndicator(column, ascending);
}

}  // namespace

ListWindow::ListWindow(wxWindow* parent, const ListView& record, std::function<int(const ListRow&)> pictureOf)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, parent->GetClientSize(), StyleOf(record)),
      record_(record),
      pictureOf_(std::move(pictureOf)) {
  for (const ListColumn& column : record.columns) {
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

void ListWindow::SetShares(const std::vector<double>& shares) {
  shares_ = shares;
  ShareWidth();
}

const ListRow* ListWindow::RowAt(long row) const {
  // While a long action rebuilds the rows, the window may still draw the old ones.
  const auto index = static_cast<std::size_t>(row);
  return row >= 0 && index < record_.rows.size() ? &record_.rows[index] : nullptr;
}

wxString ListWindow::OnGetItemText(long row, long column) const {
  const ListRow* shown = RowAt(row);
  if (textless || shown == nullptr || column < 0) return {};
  return ToScreen(ShownText(record_, *shown, static_cast<std::size_t>(column)));
}

int ListWindow::OnGetItemImage(long row) const {
  const ListRow* shown = RowAt(row);
  return shown != nullptr && pictureOf_ ? pictureOf_(*shown) : -1;
}

bool ListWindow::SelectionDiffers() const {
  const auto items = static_cast<std::size_t>(std::max(0, GetItemCount()));
  for (std::size_t i = 0; i < record_.rows.size() && i < items; ++i) {
    if (IsSelected(*this, i) != record_.rows[i].selected) return true;
  }
  return false;
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

std::string ShownText(const ListView& record, const ListRow& row, std::size_t column) {
  std::string text = TextAt(record, row, column);
  if (text.size() > longestShown) text = text.substr(0, longestShown) + "...";
  return text;
}

bool IsSelected(const ListWindow& list, std::size_t row) {
  return list.GetItemState(static_cast<long>(row), wxLIST_STATE_SELECTED) != 0;
}

void ShowRows(ListWindow& list, const ListView& record) {
  if (list.shownRevision == record.revision) return;
  list.shownRevision = record.revision;
  list.SetItemCount(static_cast<long>(record.rows.size()));
  const Tally tally = TallyOf(list, record);
  ShowSelection(list, record, tally);
  if (tally.differing > 0 && tally.selected == 1) ShowChosenRow(list, record);
  ShowOrder(list, record);
  list.Refresh();
}

void TakeSelection(const ListWindow& list, ListView& record) {
  const auto items = static_cast<std::size_t>(std::max(0, list.GetItemCount()));
  for (std::size_t i = 0; i < record.rows.size(); ++i) record.rows[i].selected = i < items && IsSelected(list, i);
}

void OnHeadingClick(ListWindow& list, ListView& record, const std::function<void()>& clicked) {
  list.Bind(wxEVT_LIST_COL_CLICK, [&record, clicked](wxListEvent& event) {
    if (event.GetColumn() < 0) return;  // beside the columns
    record.clickedColumn = static_cast<std::size_t>(event.GetColumn());
    clicked();
  });
}

void OnSelectionChange(ListWindow& list, const std::function<void()>& changed) {
  const auto look = [&list, changed, due = std::make_shared<bool>(false)](wxEvent& event) {
    event.Skip();
    if (*due) return;
    *due = true;
    list.CallAfter([&list, changed, due] {
      *due = false;
      if (list.SelectionDiffers()) changed();
    });
  };
  list.Bind(wxEVT_LIST_ITEM_SELECTED, look);
  list.Bind(wxEVT_LIST_ITEM_DESELECTED, look);
  // A range is selected without an event for its rows.
  wxWindow* rows = list.GetMainWindowOfCompositeControl();
  for (const auto& mouse : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_RIGHT_DOWN}) rows->Bind(mouse, look);
  rows->Bind(wxEVT_KEY_DOWN, look);
}

}  // namespace oravin::gui
