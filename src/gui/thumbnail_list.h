#pragma once

#include <wx/scrolwin.h>

#include <functional>
#include <optional>
#include <set>
#include <string>

#include "desk/controls.h"
#include "textures/picture.h"

namespace oravin::gui {

/// The source of a list's pictures.
struct ThumbnailSource {
  std::function<std::string()> contents;  ///< identifies the rows' source: if it changes, all pictures are made again
  /// Makes a row's picture, at most `side` pixels wide and high; nothing if it has none.
  std::function<std::optional<Picture>(const ListRow& row, int side)> pictureOf;
};

/// A list whose rows are pictures with names below, in as many columns as fit. It shows and changes the selection in
/// the record. Only visible rows are drawn. Pictures are made while the program is idle, a few at a time, visible ones
/// first.
class ThumbnailList : public wxScrolledCanvas {
 public:
  /// @param record must outlive the window
  ThumbnailList(wxWindow* parent, ListView& record, ThumbnailSource source);

  /// Shows the rows and the selection of the record, if they have changed.
  void ShowRecord();

  /// Scrolls to the selected row, if exactly one is selected.
  void ShowChosenRow();

  /// The visible rows: the first, and the one after the last.
  struct Range {
    std::size_t first = 0;
    std::size_t end = 0;
  };
  [[nodiscard]] Range RowsInSight() const;

  /// A row's rectangle in the window's coordinates.
  [[nodiscard]] wxRect RowRectangle(std::size_t row) const;

  /// True if a row's picture has been made.
  [[nodiscard]] bool HasPicture(std::size_t row) const;

  /// The number of pictures made.
  [[nodiscard]] std::size_t PicturesMade() const { return pictures_.items.size(); }

  [[nodiscard]] const ListView& Record() const { return record_; }

  std::function<void()> selectionChanged;  ///< called after the user has changed the selection in the record
  std::function<void()> activated;         ///< called after a double click on a row or the Enter key

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
  std::string contents_;     ///< the source of the pictures
  PictureCache pictures_;    ///< by the number in a row's key
  std::set<int> without_;    ///< rows without a picture
  std::size_t next_ = 0;     ///< the next hidden row to get its picture
  std::size_t current_ = 0;  ///< the focused row
  std::size_t anchor_ = 0;   ///< start of a range selection
};

}  // namespace oravin::gui
