#pragma once

#include <wx/listctrl.h>

#include <functional>
#include <string>
#include <vector>

#include "desk/controls.h"

namespace oravin::gui {

/// A list with columns that stores no rows: it draws them straight from a record, so that a hundred thousand rows open
/// as fast as ten. Columns keep their shares of the width when the window is resized. The heading line is hidden if no
/// column has a heading.
class ListWindow : public wxListCtrl {
 public:
  /// @param record the rows; must outlive the window
  /// @param pictureOf a row's picture among those set by SetSmallImages, -1 for none; may be empty
  ListWindow(wxWindow* parent, const ListView& record, std::function<int(const ListRow&)> pictureOf);

  /// Computes the row height and the scroll bars now, once; by default that happens when the window is shown.
  void Settle();

  /// Gives each column its share of the width; initially all are equal.
  void SetShares(const std::vector<double>& shares);

  /// Shows the rows, the selection and the order of the record if it has changed, with the fewest updates, so that it
  /// is fast even with a hundred thousand selected rows.
  void ShowRecord();

  /// Position of the last requested context menu: the mouse pointer, or for the keyboard the focused row.
  [[nodiscard]] wxPoint MenuPlace() const;

  /// The height of the heading line.
  [[nodiscard]] int HeadingHeight() const;

  /// The background colour of a row.
  [[nodiscard]] wxColour GroundOf(long row) const;

  /// The selection on the screen.
  const std::vector<bool>& Selection();

  /// Called when the right mouse button is released over the list or the Menu key is pressed.
  std::function<void()> menuAsked;

  /// Called when other rows may have become visible.
  std::function<void()> scrolled;

  /// Called once after each change of the selection by the user, however many rows it affects. Not called for changes
  /// by the record.
  std::function<void()> selectionChanged;

  /// True if the last input was a click on a check box. The toolkit would take a second click there for one on the
  /// text.
  [[nodiscard]] bool BoxPressed() const { return boxPressed_; }

 private:
  wxSize DoGetBestClientSize() const override;
  wxString OnGetItemText(long row, long column) const override;
  int OnGetItemImage(long row) const override;
  bool OnGetItemIsChecked(long row) const override;
  wxItemAttr* OnGetItemAttr(long row) const override;
  const ListRow* RowAt(long row) const;
  const wxWindow* Heading() const;
  void ShareWidth();
  void KeepShares();
  void BindParts();
  void Touch();
  void ReadSelection();
  void ShowSelection();
  void ShowOrder();
  void Select(long row, bool selected);
  void SelectForMenu(long row);
  void AskForMenu();
  void AskForScrolled(wxEvent& event);
  void ShowTooltipOfRow();
  [[nodiscard]] bool IsOnBox(const wxMouseEvent& event);
  void TakeDoubleClick(wxWindow* part, wxMouseEvent& event);
  void ShowChosenRow();

  const ListView& record_;
  std::function<int(const ListRow&)> pictureOf_;
  std::vector<double> shares_;   ///< of the total width, one per column
  unsigned shownRevision_ = 0;   ///< revision of the record on the screen
  std::vector<bool> selection_;  ///< a copy, because the toolkit is slow with many selected rows
  bool settled_ = false;
  bool touched_ = false;  ///< the user may have changed the selection since it was read
  bool lookIsDue_ = false;
  mutable wxItemAttr marked_;  ///< attributes of the last requested row, if its text is bold or coloured
  bool menuByKeyboard_ = false;
  bool boxPressed_ = false;   ///< the last input was a mouse button pressed on a check box
  bool menuIsDue_ = false;    ///< the menu opens when the right button is released
  bool menuIsAsked_ = false;  ///< the menu opens after the pending events
  bool selecting_ = false;    ///< a selection of many rows is in progress; ignore its events
};

/// The text that a list shows in one column of a row, truncated if very long.
std::string ShownText(const ListView& record, const ListRow& row, std::size_t column);

/// On a click on a heading, stores its column in the record and calls `clicked`.
void OnHeadingClick(ListWindow& list, ListView& record, const std::function<void()>& clicked);

/// Lets a list become smaller than its columns, so that its window can shrink.
/// @param least its minimum size in pixels at 100 %
void LetShrink(ListWindow& list, const wxSize& least);

/// Lets the user edit a row's first text in place, by F2 or a second click on it. Stores the new text in the record and
/// calls `edited`, which decides what is shown. Not called if the text is unchanged.
void OnLabelEdited(ListWindow& list, ListView& record, const std::function<void()>& edited);

/// Lets the user check and uncheck a row by a click on its box or by the space bar. The record is updated before
/// `toggled` is called.
void OnChecked(ListWindow& list, ListView& record, const std::function<void()>& toggled);

}  // namespace oravin::gui
