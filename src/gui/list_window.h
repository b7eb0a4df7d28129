#pragma once

#include <wx/listctrl.h>

#include <functional>
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

  /// The record's revision that is on the screen.
  unsigned shownRevision = 0;

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

}  // namespace oravin::gui
