#include "desk/controls.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

TEST(ListView, EveryChangeCounts) {
  ListView list;
  AddRow(list, {0, {"One"}, 0, false});
  EXPECT_EQ(list.revision, 1U);
  SetText(list, 0, 0, "Uno");
  EXPECT_EQ(list.revision, 2U);
  SelectOnly(list, 0);
  EXPECT_EQ(list.revision, 3U);
  ClearRows(list);
  EXPECT_EQ(list.revision, 4U);
  EXPECT_TRUE(list.rows.empty());
}

TEST(ListView, ATextBehindTheLastOneMakesEmptyOnesBetween) {
  ListView list;
  AddRow(list, {0, {"One"}, 0, false});
  SetText(list, 0, 2, "three");
  EXPECT_EQ(list.rows[0].texts, (std::vector<std::string>{"One", "", "three"}));
}

TEST(ListView, ATextOfARowThatIsNotThereDoesNotMatter) {
  ListView list;
  SetText(list, 0, 0, "x");
  EXPECT_TRUE(list.rows.empty());
  EXPECT_EQ(list.revision, 0U);
}

TEST(ListView, OneRowAloneIsSelectedOrNone) {
  ListView list;
  for (const int item : {0, 1, 2}) AddRow(list, {item, {}, 0, true});
  EXPECT_EQ(SelectedRow(list), 0U);
  SelectOnly(list, 1);
  EXPECT_EQ(SelectedRow(list), 1U);
  EXPECT_FALSE(list.rows[0].selected);
  EXPECT_FALSE(list.rows[2].selected);
  SelectOnly(list, std::nullopt);
  EXPECT_EQ(SelectedRow(list), std::nullopt);
}

TEST(ListView, OneOfSeveralSelectedRowsIsNotTheOnlyOne) {
  ListView list;
  EXPECT_EQ(OnlySelectedRow(list), std::nullopt);
  for (const int item : {0, 1, 2}) AddRow(list, {item, {}, 0, false});
  EXPECT_EQ(OnlySelectedRow(list), std::nullopt);
  list.rows[1].selected = true;
  EXPECT_EQ(OnlySelectedRow(list), 1U);
  list.rows[2].selected = true;
  EXPECT_EQ(OnlySelectedRow(list), std::nullopt);
}

TEST(SetChecked, ChecksOneRowAndCountsAsAChange) {
  ListView list;
  AddRow(list, {0, {"a"}});
  AddRow(list, {1, {"b"}});
  const unsigned before = list.revision;
  SetChecked(list, 1, true);
  SetChecked(list, 2, true);
  EXPECT_FALSE(list.rows[0].checked);
  EXPECT_TRUE(list.rows[1].checked);
  EXPECT_EQ(list.revision, before + 1);
  SetChecked(list, 1, false);
  EXPECT_FALSE(list.rows[1].checked);
}

TEST(SelectedItem, IsWhatTheSelectedRowShows) {
  ListView list;
  EXPECT_EQ(SelectedItem(list), -1);
  for (const int item : {7, 5}) AddRow(list, {item, {}, 0, false});
  EXPECT_EQ(SelectedItem(list), -1);
  EXPECT_EQ(OnlySelectedItem(list), -1);
  list.rows[1].selected = true;
  EXPECT_EQ(SelectedItem(list), 5);
  EXPECT_EQ(OnlySelectedItem(list), 5);
  list.rows[0].selected = true;
  EXPECT_EQ(SelectedItem(list), 7);
  EXPECT_EQ(OnlySelectedItem(list), -1);
}

}  // namespace
}  // namespace oravin
