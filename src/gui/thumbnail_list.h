#pragma once

#include <wx/scrolwin.h>

#include <functional>
#include <optional>
#include <set>
#include <string>

#include "desk/controls.h"
#include "textures/picture.h"

namespace oravin::gui {

/// Where a list of pictures has them from.
struct ThumbnailSource {
  std::function<std::string()> contents;  ///< what the rows are of: once this changes, all pictures are made anew
  /// Makes a row's picture, at most `side` pixels wide and high; nothing for a row that has none.
  std::function<std::optional<Picture>(const ListRow& row, int side)> pictureOf;
};

/// A list whose rows are shown as pictures with their names below, in as many columns as there is room for. It shows
/// and changes the selection in the record. Only what is in sight is drawn; pictures are made when the program has
/// nothing else to do, a few at a time and those in sight first.
class ThumbnailList : public wxScrolledCanvas {
 public:
  /// @param record must outlive the window
  ThumbnailList(wxWindow* parent, ListView& record, ThumbnailSource source);

  /// Shows the rows and the selection of the record, if they have changed since.
  void ShowRecord();

  /// Brings the selected row into sight, if it is one.
  void ShowChosenRow();

  /// The rows that are in sight: the first, and the one behind the last.
  struct Range {
    std::size_t first = 0;
    std::size_t end = 0;
  };
  [[nodiscard]] Range RowsInSight() const;

  /// Where a row is, in the window's own coordinates.
  [[nodiscard]] wxRect RowRectangle(std::size_t row) const;

  /// Whether a row's picture has been made.
  [[nodiscard]] bool HasPicture(std::size_t row) const;

  /// How many pictures have been made.
  [[nodiscard]] std::size_t PicturesMade() const { return pictures_.items.size(); }

  [[nodiscard]] const ListView& Record() const { return record_; }

  std::function<void()> selectionChanged;  ///< called after a person has changed the selection in the record
  std::function<void()> activated;         ///< called after a double click on a row and the Enter key

 private:
  wxSize DoGetBestSize() const override;
  [[nodiscard]] std::size_t Columns() const;
  [[nodiscard]] std::optional<std::size_t> RowAt(const wxPoint& point) const;
  void Arrange();
  void Paint();
  void PaintRow(wxDC& dc, std::size_t row);
  void PaintPicture(wxDC& dc, std::size_t row, const wxRect& place);
  bool MakeSomePictures();
  [[nodiscard]] std::optional<std::size_t> NextToMake();
  [[nodiscard]] bool IsMade(std::size_t row) const;
  void OnMouse(wxMouseEvent& event);
  void OnKey(wxKeyEvent& event);
  [[nodiscard]] std::optional<std::size_t> TargetOf(int key) const;
  void GoTo(std::size_t row, bool extends, bool keeps);
  void ToggleRow(std::size_t row);
  void EnsureVisible(std::size_t row);

  ListView& record_;
  ThumbnailSource source_;
  unsigned shownRevision_;
  std::size_t shownRows_ = 0;
  std::string contents_;     ///< what the pictures are of
  PictureCache pictures_;    ///< by the number in a row's key
  std::set<int> without_;    ///< those of which there is no picture
  std::size_t next_ = 0;     ///< the row whose picture is made next, of those out of sight
  std::size_t current_ = 0;  ///< the row with the keyboard's mark
  std::size_t anchor_ = 0;   ///< where a range begins
};

}  // namespace oravin::gui
