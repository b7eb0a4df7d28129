#pragma once

#include <wx/listctrl.h>

#include <functional>
#include <string>
#include <vector>

#include "desk/controls.h"

namespace oravin::gui {

/// A list with columns that holds no rows of its own: it draws them straight out of a record, so that a hundred
/// thousand rows open as fast as ten. Its columns keep their shares of the width when the window is resized.
class ListWindow : public wxListCtrl {
 public:
  /// @param record the rows; must outlive the window
  /// @param pictureOf a row's picture among those set by SetSmallImages, -1 for none; may be empty
  ListWindow(wxWindow* parent, const ListView& record, std::function<int(const ListRow&)> pictureOf);

  /// Gives each column its share of the width; at first all have the same.
  void SetShares(const std::vector<double>& shares);

  /// True while the selection on the screen is another than the record's.
  [[nodiscard]] bool SelectionDiffers() const;

  /// The record's revision that is on the screen.
  unsigned shownRevision = 0;

  /// True while rows are selected: an event comes for each, for which its texts need not be made.
  bool textless = false;

 private:
  wxString OnGetItemText(long row, long column) const override;
  int OnGetItemImage(long row) const override;
  const ListRow* RowAt(long row) const;
  void ShareWidth();
  void KeepShares();

  const ListView& record_;
  std::function<int(const ListRow&)> pictureOf_;
  std::vector<double> shares_;  ///< of the whole width, one a column
};

/// What a list shows in one column of a row: a very long text is cut, as none has room for it.
std::string ShownText(const ListView& record, const ListRow& row, std::size_t column);

/// True for a row that the list has as selected.
bool IsSelected(const ListWindow& list, std::size_t row);

/// Shows the rows, the selection and the order of the record, if it has changed since. As much is done as differs, so
/// that a list with all of a hundred thousand rows selected takes no longer.
void ShowRows(ListWindow& list, const ListView& record);

/// Reads which rows are selected.
void TakeSelection(const ListWindow& list, ListView& record);

/// Has a click on a heading tell the record which, and call `clicked`.
void OnHeadingClick(ListWindow& list, ListView& record, const std::function<void()>& clicked);

/// Has `changed` called once after each thing that a person does to the selection, by mouse or keyboard, however many
/// rows that selects. What the record itself changed is not told.
void OnSelectionChange(ListWindow& list, const std::function<void()>& changed);

}  // namespace oravin::gui
