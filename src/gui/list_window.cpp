#include "gui/list_window.h"

#include <wx/renderer.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

#include "gui/drawing.h"
#include "gui/native_window.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

constexpr int narrowestColumn = 40;
constexpr std::size_t longestShown = 300;

long StyleOf(const ListView& record) {
  const long selection = record.severalSelectable ? 0L : long{wxLC_SINGLE_SEL};
  const long editing = record.labelsEditable ? long{wxLC_EDIT_LABELS} : 0L;
  const bool headings = std::any_of(record.columns.begin(), record.columns.end(),
                                    [](const ListColumn& column) { return !column.heading.empty(); });
  const long heading = headings ? 0L : long{wxLC_NO_HEADER};
  return wxLC_REPORT | wxLC_VIRTUAL | wxBORDER_NONE | selection | editing | heading;
}

/// The width of a row's check box.
int BoxWidth(ListWindow& list) {
  constexpr int aroundBox = 7;
  return wxRendererNative::Get().GetCheckBoxSize(&list).GetWidth() + list.FromDIP(aroundBox);
}

/// Moves the edit field of a row away from its check box.
void KeepOffBox(ListWindow& list) {
  wxTextCtrl* text = list.GetEditControl();
  if (text == nullptr) return;
  const int box = BoxWidth(list);
  wxRect place = text->GetRect();
  place.x += box;
  place.width -= box;
  text->SetSize(place);
}

}  // namespace

ListWindow::ListWindow(wxWindow* parent, const ListView& record, std::function<int(const ListRow&)> pictureOf)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, parent->GetClientSize(), StyleOf(record)),
      record_(record),
      pictureOf_(std::move(pictureOf)) {
  HoldList(this);
  CallAfter([this] { Settle(); });
  for (const ListColumn& column : record.columns) {
    AppendColumn(ToScreen(column.heading), column.number ? wxLIST_FORMAT_RIGHT : wxLIST_FORMAT_LEFT);
    shares_.push_back(1.0 / static_cast<double>(record.columns.size()));
  }
  if (record.checkBoxes) EnableCheckBoxes();
  EnableAlternateRowColours();
  SetAlternateRowColour(Between(ListText(), ListGround(), 0.04));  // the toolkit's default is too light for light text
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ShareWidth();
    // The scroll bar is shown or hidden only after this event.
    CallAfter([this] { ShareWidth(); });
  });
  Bind(wxEVT_LIST_COL_END_DRAG, [this](wxListEvent& event) {
    event.Skip();
    CallAfter([this] { KeepShares(); });
  });
  const auto touch = [this](wxEvent& event) {
    event.Skip();
    Touch();
  };
  Bind(wxEVT_LIST_ITEM_SELECTED, touch);
  Bind(wxEVT_LIST_ITEM_DESELECTED, touch);
  Bind(wxEVT_LIST_ITEM_RIGHT_CLICK, [this](wxListEvent& event) {
    event.Skip();
    SelectForMenu(event.GetIndex());
  });
  // Some systems ask for the menu when the button is pressed.
  Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
    menuByKeyboard_ = event.GetPosition() == wxDefaultPosition;
    menuIsDue_ = wxGetMouseState().RightIsDown();
    if (!menuIsDue_) AskForMenu();
  });
  BindParts();
}

void ListWindow::Settle() {
  if (!std::exchange(settled_, true)) SettleList(this);
}

/// On some systems the list has two windows, headings and rows; on others it is one.
void ListWindow::BindParts() {
  std::vector<wxWindow*> parts(GetChildren().begin(), GetChildren().end());
  parts.push_back(this);
  for (wxWindow* part : parts) {
    // Selecting a range sends no event per row.
    for (const auto& mouse : {wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN}) {
      part->Bind(mouse, [this](wxMouseEvent& event) {
        event.Skip();
        Touch();
      });
    }
    part->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
      event.Skip();
      boxPressed_ = IsOnBox(event);
    });
    part->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
      event.Skip();
      boxPressed_ = false;
      Touch();
    });
    part->Bind(wxEVT_RIGHT_UP, [this](wxMouseEvent& event) {
      event.Skip();
      if (std::exchange(menuIsDue_, false)) AskForMenu();
    });
    part->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
      event.Skip();
      ShowTooltipOfRow();
    });
    part->Bind(wxEVT_LEFT_DCLICK, [this, part](wxMouseEvent& event) { TakeDoubleClick(part, event); });
    for (const auto& scrolling :
         {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP, wxEVT_SCROLLWIN_LINEDOWN,
          wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN, wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE}) {
      part->Bind(scrolling, &ListWindow::AskForScrolled, this);
    }
    part->Bind(wxEVT_MOUSEWHEEL, &ListWindow::AskForScrolled, this);
    part->Bind(wxEVT_KEY_DOWN, &ListWindow::AskForScrolled, this);
    part->Bind(wxEVT_SIZE, &ListWindow::AskForScrolled, this);
  }
}

bool ListWindow::IsOnBox(const wxMouseEvent& event) { return record_.checkBoxes && event.GetX() < BoxWidth(*this); }

/// Two quick clicks on a heading or a check box count as two clicks; the toolkit would drop the second. On a row they
/// are a double click.
void ListWindow::TakeDoubleClick(wxWindow* part, wxMouseEvent& event) {
  // Not known before layout, so asked here.
  const bool onHeading = part == Heading();
  if (part == nullptr || (!onHeading && !IsOnBox(event))) return event.Skip();
  wxMouseEvent again(event);
  again.SetEventType(wxEVT_LEFT_DOWN);
  part->GetEventHandler()->ProcessEvent(again);
}

/// The window of the headings, if it is a separate one.
const wxWindow* ListWindow::Heading() const {
  if (HasFlag(wxLC_NO_HEADER)) return nullptr;
  const auto& parts = GetChildren();
  const auto heading =
      std::find_if(parts.begin(), parts.end(), [](const wxWindow* part) { return part->GetPosition().y == 0; });
  return heading == parts.end() ? nullptr : *heading;
}

int ListWindow::HeadingHeight() const {
  const wxWindow* heading = Heading();
  return heading == nullptr ? 0 : heading->GetSize().GetHeight();
}

/// The list scrolls after this event.
void ListWindow::AskForScrolled(wxEvent& event) {
  event.Skip();
  if (scrolled) CallAfter([this] { scrolled(); });
}

void ListWindow::SetShares(const std::vector<double>& shares) {
  shares_ = shares;
  ShareWidth();
}

/// Without headings the toolkit's best width is wrong.
wxSize ListWindow::DoGetBestClientSize() const {
  const int least = FromDIP(narrowestColumn);
  return HasFlag(wxLC_NO_HEADER) ? wxSize(least, least) : wxListCtrl::DoGetBestClientSize();
}

const ListRow* ListWindow::RowAt(long row) const {
  // The window may draw old rows while a long action rebuilds them.
  const auto index = static_cast<std::size_t>(row);
  return row >= 0 && index < record_.rows.size() ? &record_.rows[index] : nullptr;
}

wxString ListWindow::OnGetItemText(long row, long column) const {
  const ListRow* shown = RowAt(row);
  if (selecting_ || shown == nullptr || column < 0) return {};
  return ToScreen(ShownText(record_, *shown, static_cast<std::size_t>(column)));
}

int ListWindow::OnGetItemImage(long row) const {
  const ListRow* shown = RowAt(row);
  return shown != nullptr && pictureOf_ ? pictureOf_(*shown) : -1;
}

bool ListWindow::OnGetItemIsChecked(long row) const {
  const ListRow* shown = RowAt(row);
  return shown != nullptr && shown->checked;
}

void ListWindow::ShowRecord() {
  if (shownRevision_ == record_.revision) return;
  shownRevision_ = record_.revision;
  ShowSelection();
  ShowOrder();
  Refresh();
}

wxItemAttr* ListWindow::OnGetItemAttr(long row) const {
  wxItemAttr* plain = wxListCtrl::OnGetItemAttr(row);
  const ListRow* shown = RowAt(row);
  if (shown == nullptr || (!shown->bold && shown->colour == 0)) return plain;
  marked_ = plain == nullptr ? wxItemAttr() : *plain;
  if (shown->bold) marked_.SetFont(GetFont().Bold());
  if (shown->colour != 0) marked_.SetTextColour(wxColour(shown->colour));  // same byte order as the toolkit
  return &marked_;
}

wxColour ListWindow::GroundOf(long row) const {
  const wxItemAttr* attributes = OnGetItemAttr(row);
  const bool own = attributes != nullptr && attributes->HasBackgroundColour();
  return own ? attributes->GetBackgroundColour() : GetBackgroundColour();
}

/// Sets the list's tooltip to that of the row under the mouse.
void ListWindow::ShowTooltipOfRow() {
  // Not the event's position: it may be relative to either of the list's two windows.
  const wxPoint mouse = ScreenToClient(wxGetMousePosition());
  wxString tooltip;
  const long first = GetTopItem();
  for (long row = first; row <= first + GetCountPerPage() && row < GetItemCount(); ++row) {
    wxRect rectangle;
    const ListRow* shown = RowAt(row);
    if (shown == nullptr || !GetItemRect(row, rectangle) || !rectangle.Contains(mouse)) continue;
    tooltip = ToScreen(shown->tooltip);
  }
  if (GetToolTipText() == tooltip) return;
  UnsetToolTip();  // setting an empty one would keep the last one
  if (!tooltip.empty()) SetToolTip(tooltip);
}

const std::vector<bool>& ListWindow::Selection() {
  if (touched_) ReadSelection();
  touched_ = false;
  return selection_;
}

/// Checks for a changed selection after the toolkit has handled the input.
void ListWindow::Touch() {
  if (selecting_) return;
  touched_ = true;
  if (lookIsDue_) return;
  lookIsDue_ = true;
  CallAfter([this] {
    lookIsDue_ = false;
    const std::vector<bool>& selection = Selection();
    const bool same = std::equal(selection.begin(), selection.end(), record_.rows.begin(), record_.rows.end(),
                                 [](bool selected, const ListRow& row) { return selected == row.selected; });
    if (!same && selectionChanged) selectionChanged();
  });
}

/// Opens the menu after the list has handled the click, and only once, even if both of its windows send an event.
void ListWindow::AskForMenu() {
  if (std::exchange(menuIsAsked_, true)) return;
  CallAfter([this] {
    menuIsAsked_ = false;
    if (menuAsked) menuAsked();
  });
}

wxPoint ListWindow::MenuPlace() const {
  const long row = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
  wxRect rectangle;
  if (!menuByKeyboard_ || row < 0 || !GetItemRect(row, rectangle)) return wxDefaultPosition;
  const int lowest = GetClientSize().GetHeight();
  return {rectangle.x + FromDIP(narrowestColumn), std::clamp(rectangle.GetBottom(), 0, lowest)};
}

/// A right click selects the row under the mouse, unless it is already selected.
void ListWindow::SelectForMenu(long row) {
  SetFocus();
  if (row < 0 || GetItemState(row, wxLIST_STATE_SELECTED) != 0) return;
  if (record_.severalSelectable) Select(-1, false);
  Select(row, true);
  SetItemState(row, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
}

void ListWindow::ReadSelection() {
  // Asking for a row's state is slow with many selected rows, so stop as soon as the rest is known. Even a
  // single-selection list may have no selected row: a click on a heading or Tab selects nothing.
  const std::size_t rows = selection_.size();
  const auto selected = static_cast<std::size_t>(std::max(0, GetSelectedItemCount()));
  std::size_t found = 0;
  std::size_t row = 0;
  for (; row < rows && found < selected && row - found < rows - selected; ++row) {
    selection_[row] = GetItemState(static_cast<long>(row), wxLIST_STATE_SELECTED) != 0;
    if (selection_[row]) ++found;
  }
  for (; row < rows; ++row) selection_[row] = found < selected;
}

/// Selects a row; row -1 means all.
void ListWindow::Select(long row, bool selected) {
  SetItemState(row, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

/// Applies the record's selection with the fewest changes.
void ListWindow::ShowSelection() {
  const std::size_t rows = record_.rows.size();
  selecting_ = true;
  Selection();
  if (rows != selection_.size()) {
    Select(-1, false);
    SetItemCount(static_cast<long>(rows));
    selection_.assign(rows, false);
  }
  std::size_t selected = 0;
  std::size_t differing = 0;
  for (std::size_t i = 0; i < rows; ++i) {
    if (record_.rows[i].selected) ++selected;
    if (record_.rows[i].selected != selection_[i]) ++differing;
  }
  if (differing > std::min(selected, rows - selected)) {
    const bool all = selected > rows - selected;
    Select(-1, all);
    selection_.assign(rows, all);
  }
  for (std::size_t i = 0; i < rows; ++i) {
    if (record_.rows[i].selected == selection_[i]) continue;
    selection_[i] = record_.rows[i].selected;
    Select(static_cast<long>(i), selection_[i]);
  }
  if (differing > 0 && selected == 1) ShowChosenRow();
  selecting_ = false;
}

/// Scrolls to the row if the record has selected only that one.
void ListWindow::ShowChosenRow() {
  const auto row = SelectedRow(record_);
  if (!row) return;
  const auto item = static_cast<long>(*row);
  SetItemState(item, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
  EnsureVisible(item);
}

void ListWindow::ShowOrder() {
  const int column = record_.sorted ? static_cast<int>(record_.sorted->column) : -1;
  const bool ascending = !record_.sorted || !record_.sorted->descending;
  const bool same = GetSortIndicator() == column && (column < 0 || IsAscendingSortIndicator() == ascending);
  if (!same) ShowSortIndicator(column, ascending);
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

void OnHeadingClick(ListWindow& list, ListView& record, const std::function<void()>& clicked) {
  list.Bind(wxEVT_LIST_COL_CLICK, [&record, clicked](wxListEvent& event) {
    if (event.GetColumn() < 0) return;  // right of the last column
    record.clickedColumn = static_cast<std::size_t>(event.GetColumn());
    clicked();
  });
}

void LetShrink(ListWindow& list, const wxSize& least) { list.SetMinSize(list.FromDIP(least)); }

void OnLabelEdited(ListWindow& list, ListView& record, const std::function<void()>& edited) {
  list.Bind(wxEVT_LIST_KEY_DOWN, [&list](wxListEvent& event) {
    const long row = list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    if (event.GetKeyCode() == WXK_F2 && row >= 0 && list.GetEditControl() == nullptr) {
      list.EditLabel(row);
    } else {
      event.Skip();
    }
  });
  list.Bind(wxEVT_LIST_BEGIN_LABEL_EDIT, [&list, &record](wxListEvent& event) {
    if (list.BoxPressed()) return event.Veto();
#ifndef __WXMSW__
    // The edit of a second click starts with a delay and may find that of F2 open: it would restart and drop the typed
    // text.
    if (list.GetEditControl() != nullptr) return event.Veto();
#endif
    event.Skip();
    // The toolkit does not expect a check box before the text.
    if (record.checkBoxes) list.CallAfter([&list] { KeepOffBox(list); });
  });
  list.Bind(wxEVT_LIST_END_LABEL_EDIT, [&list, &record, edited](wxListEvent& event) {
    event.Veto();  // the list stores no texts
    const auto row = static_cast<std::size_t>(event.GetIndex());
    if (event.IsEditCancelled() || event.GetIndex() < 0 || row >= record.rows.size()) return;
    if (event.GetLabel() == ToScreen(TextAt(record, record.rows[row], 0))) return;
    record.edited = {row, FromScreen(event.GetLabel())};
    list.CallAfter(edited);  // a message box must not open while the edit field is open
  });
}

void OnChecked(ListWindow& list, ListView& record, const std::function<void()>& toggled) {
  const auto toggle = [&list, &record, toggled](long row) {
    const auto index = static_cast<std::size_t>(row);
    if (row < 0 || index >= record.rows.size()) return;
    SetChecked(record, index, !record.rows[index].checked);
    list.RefreshItem(row);
    list.CallAfter(toggled);  // after the click has changed the selection
  };
  // The list stores no check marks, so both events just toggle the row's mark.
  for (const auto& click : {wxEVT_LIST_ITEM_CHECKED, wxEVT_LIST_ITEM_UNCHECKED}) {
    list.Bind(click, [toggle](wxListEvent& event) { toggle(event.GetIndex()); });
  }
  list.GetMainWindowOfCompositeControl()->Bind(wxEVT_CHAR, [&list, toggle](wxKeyEvent& event) {
    if (event.GetKeyCode() != WXK_SPACE || event.HasModifiers()) return event.Skip();
    toggle(list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED));
  });
}

}  // namespace oravin::gui
