#include "desk/controls.h"

#include <algorithm>

namespace oravin {

void ClearRows(ListView& list) {
  list.rows.clear();
  ++list.revision;
}

void AddRow(ListView& list, ListRow row) {
  list.rows.push_back(std::move(row));
  ++list.revision;
}

void SetText(ListView& list, std::size_t row, std::size_t column, const std::string& text) {
  if (row >= list.rows.size()) return;
  std::vector<std::string>& texts = list.rows[row].texts;
  if (texts.size() <= column) texts.resize(column + 1);
  texts[column] = text;
  ++list.revision;
}

std::string TextAt(const ListView& list, const ListRow& row, std::size_t column) {
  if (column < row.texts.size()) return row.texts[column];
  return list.textOf ? list.textOf(row, column) : std::string();
}

void SelectAll(ListView& list, bool selected) {
  for (ListRow& row : list.rows) row.selected = selected;
  ++list.revision;
}

SortOrder NextOrder(const ListView& list) {
  const bool again = list.sorted && list.sorted->column == list.clickedColumn;
  return {list.clickedColumn, again && !list.sorted->descending};
}

void SelectOnly(ListView& list, std::optional<std::size_t> row) {
  for (std::size_t i = 0; i < list.rows.size(); ++i) list.rows[i].selected = row == i;
  ++list.revision;
}

void SetChecked(ListView& list, std::size_t row, bool checked) {
  if (row >= list.rows.size()) return;
  list.rows[row].checked = checked;
  ++list.revision;
}

std::optional<std::size_t> SelectedRow(const ListView& list) {
  for (std::size_t i = 0; i < list.rows.size(); ++i) {
    if (list.rows[i].selected) return i;
  }
  return std::nullopt;
}

std::optional<std::size_t> OnlySelectedRow(const ListView& list) {
  const auto selected =
      std::count_if(list.rows.begin(), list.rows.end(), [](const ListRow& row) { return row.selected; });
  return selected == 1 ? SelectedRow(list) : std::nullopt;
}

int SelectedItem(const ListView& list) {
  const auto row = SelectedRow(list);
  return row ? list.rows[*row].item : -1;
}

int OnlySelectedItem(const ListView& list) {
  const auto row = OnlySelectedRow(list);
  return row ? list.rows[*row].item : -1;
}

}  // namespace oravin
