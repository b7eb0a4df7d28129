#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The window's controls as plain records: what a person sees and nothing else. Handlers read and change them; the
/// window shows them. `&` in a caption marks the access key.
namespace oravin {

struct Label {
  std::string caption;
};

struct TextBox {
  std::string text;
  std::string tooltip;
  bool enabled = true;
  bool readOnly = false;
  bool shown = true;  ///< false while it is folded away
};

struct Button {
  std::string caption;
  std::string tooltip;
  bool enabled = true;
};

struct CheckBox {
  std::string caption;
  std::string tooltip;
  bool enabled = true;
  bool checked = false;
};

/// An item of a context menu.
struct MenuItem {
  std::string caption;
  bool enabled = true;
};

struct ListColumn {
  std::string heading;
  bool number = false;  ///< aligned to the right
};

struct ListRow {
  int item = -1;                   ///< the index of what the row shows, in the list that its tab keeps; -1 for nothing
  std::vector<std::string> texts;  ///< one a column; missing ones are empty
  int image = 0;                   ///< index into the window's images; 0 for none
  bool selected = false;
  bool bold = false;
  std::string tooltip = {};
  bool checked = false;      ///< in a list with check boxes
  std::uint32_t colour = 0;  ///< of its texts: red + 256 x green + 65536 x blue; 0 for the window's own
};

/// A row's first text as the user has edited it.
struct LabelEdit {
  std::size_t row = 0;
  std::string text;
  bool refused = false;  ///< the handler did not take it: the old text stays
};

/// What a list is sorted by.
struct SortOrder {
  std::size_t column = 0;
  bool descending = false;

  bool operator==(const SortOrder&) const = default;
};

/// A list with columns. Rows are shown straight out of the record.
struct ListView {
  std::vector<ListColumn> columns;
  std::vector<ListRow> rows;
  /// Makes a row's texts where the rows have none of their own: long lists need no second copy of what they show.
  std::function<std::string(const ListRow& row, std::size_t column)> textOf;
  bool severalSelectable = false;
  bool checkBoxes = false;          ///< every row has one before its first text
  std::optional<SortOrder> sorted;  ///< the column whose heading bears the arrow
  std::size_t clickedColumn = 0;    ///< the heading that was clicked last
  bool labelsEditable = false;      ///< the first column's texts can be edited in their place
  LabelEdit edited;                 ///< what was edited last
  unsigned revision = 0;  ///< counts the changes of rows, texts and selection, so that only what changed is drawn
};

struct TabStrip {
  std::vector<std::string> captions;
  int chosen = 1;  ///< counted from 1
};

/// Removes all rows.
void ClearRows(ListView& list);

/// Adds a row at the end.
void AddRow(ListView& list, ListRow row);

/// Sets the text of one column of one row; a row that is not there does not matter.
void SetText(ListView& list, std::size_t row, std::size_t column, const std::string& text);

/// What a list shows in one column of a row.
std::string TextAt(const ListView& list, const ListRow& row, std::size_t column);

/// Selects all rows, or none.
void SelectAll(ListView& list, bool selected);

/// The order that a click on a heading asks for: that column's, or the other way round where it is sorted by it
/// already.
SortOrder NextOrder(const ListView& list);

/// Selects one row alone, or none.
void SelectOnly(ListView& list, std::optional<std::size_t> row);

/// Checks or unchecks a row's box; a row that is not there does not matter.
void SetChecked(ListView& list, std::size_t row, bool checked);

/// The first selected row.
std::optional<std::size_t> SelectedRow(const ListView& list);

/// The selected row where exactly one is selected; nothing where none or several are.
std::optional<std::size_t> OnlySelectedRow(const ListView& list);

/// The index of what the selected row shows; -1 where no row is selected.
int SelectedItem(const ListView& list);

/// The same where exactly one row is selected; -1 where none or several are.
int OnlySelectedItem(const ListView& list);

}  // namespace oravin
