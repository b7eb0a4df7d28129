#pragma once

#include <wx/listctrl.h>

#include <functional>
#include <string>
#include <vector>

#include "desk/controls.h"

namespace oravin::gui {

/// A list with columns that holds no rows of its own: it draws them straight out of a record, so that a hundred
/// thousand rows open as fast as ten. Its columns keep their shares of the width when the window is resized. Where no
/// column has a heading there is no line for them.
class ListWindow : public wxListCtrl {
 public:
  /// @param record the rows; must outlive the window
  /// @param pictureOf a row's picture among those set by SetSmallImages, -1 for none; may be empty
  ListWindow(wxWindow* parent, const ListView& record, std::function<int(const ListRow&)> pictureOf);

  /// Works its rows' height and its scroll bars out, once; by itself it does so when the window is in sight.
  void Settle();

  /// Gives each column its share of the width; at first all have the same.
  void SetShares(const std::vector<double>& shares);

  /// Shows the rows, the selection and the order of the record, if it has changed since. As much is done as differs,
  /// so that a list with all of a hundred thousand rows selected takes no longer.
  void ShowRecord();

  /// Where the menu is to come up that was asked for last: at the mouse, or by the keyboard at the row with its mark.
  [[nodiscard]] wxPoint MenuPlace() const;

  /// How high the line with the headings is.
  [[nodiscard]] int HeadingHeight() const;

  /// What is behind a row's texts.
  [[nodiscard]] wxColour GroundOf(long row) const;

  /// Which rows are selected on the screen.
  const std::vector<bool>& Selection();

  /// Called when the right mouse button has been let go over the list, or the Menu key pressed.
  std::function<void()> menuAsked;

  /// Called when other rows may have come into sight.
  std::function<void()> scrolled;

  /// Called once after each thing that a person does to the selection, by mouse or keyboard, however many rows that
  /// selects. What the record itself changed is not told.
  std::function<void()> selectionChanged;

  /// Whether what the toolkit makes of the person's last act comes from a click on a check box: it takes a second click
  /// there for one on the text.
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
  std::vector<double> shares_;   ///< of the whole width, one a column
  unsigned shownRevision_ = 0;   ///< the record's that is on the screen
  std::vector<bool> selection_;  ///< the toolkit takes long to tell which of many rows are selected
  bool settled_ = false;
  bool touched_ = false;  ///< a person may have changed the selection since it was read
  bool lookIsDue_ = false;
  mutable wxItemAttr marked_;  ///< of the row that was asked for last, where its text is bold or has a colour
  bool menuByKeyboard_ = false;
  bool boxPressed_ = false;   ///< the mouse went down on a check box, and no key since
  bool menuIsDue_ = false;    ///< when the right button is let go
  bool menuIsAsked_ = false;  ///< it comes up as soon as all else is done
  bool selecting_ = false;    ///< an event comes for each row, for which its texts need not be made
};

/// What a list shows in one column of a row: a very long text is cut, as none has room for it.
std::string ShownText(const ListView& record, const ListRow& row, std::size_t column);

/// Has a click on a heading tell the record which, and call `clicked`.
void OnHeadingClick(ListWindow& list, ListView& record, const std::function<void()>& clicked);

/// Lets a list become smaller than its columns are now, so that the window around it can.
/// @param least its least size in pixels at 100 %
void LetShrink(ListWindow& list, const wxSize& least);

/// Has a person edit a row's first text in its place, by F2 or a second click on it. The record is told what was
/// written, and `edited` called: what is shown then is the record's to say. A text that was left as it was is not told.
void OnLabelEdited(ListWindow& list, ListView& record, const std::function<void()>& edited);

/// Has a person check and uncheck a row by a click on its box or by the space bar. The record says so already when
/// `toggled` is called.
void OnChecked(ListWindow& list, ListView& record, const std::function<void()>& toggled);

}  // namespace oravin::gui
