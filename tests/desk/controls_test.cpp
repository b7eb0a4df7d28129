#include "desk/controls.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

TEST(ListView, EveryChangeCounts) {
  ListView list;
  AddRow(list, {"s1", {"One"}, 0, false});
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
  AddRow(list, {"s1", {"One"}, 0, false});
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
  for (const char* key : {"s1", "s2", "s3"}) AddRow(list, {key, {}, 0, true});
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
  for (const char* key : {"s1", "s2", "s3"}) AddRow(list, {key, {}, 0, false});
  EXPECT_EQ(OnlySelectedRow(list), std::nullopt);
  list.rows[1].selected = true;
  EXPECT_EQ(OnlySelectedRow(list), 1U);
  list.rows[2].selected = true;
  EXPECT_EQ(OnlySelectedRow(list), std::nullopt);
}

TEST(SetChecked, ChecksOneRowAndCountsAsAChange) {
  ListView list;
  AddRow(list, {"s1", {"a"}});
  AddRow(list, {"s2", {"b"}});
  const unsigned before = list.revision;
  SetChecked(list, 1, true);
  SetChecked(list, 2, true);
  EXPECT_FALSE(list.rows[0].checked);
  EXPECT_TRUE(list.rows[1].checked);
  EXPECT_EQ(list.revision, before + 1);
  SetChecked(list, 1, false);
  EXPECT_FALSE(list.rows[1].checked);
}

TEST(IndexOfKey, IsTheNumberBehindTheFirstCharacterMinusOne) {
  EXPECT_EQ(IndexOfKey("s1"), 0);
  EXPECT_EQ(IndexOfKey("s60"), 59);
}

TEST(IndexOfKey, WithoutANumberThereIsNone) {
  for (const char* key : {"", "s", "sx", "s1x", "s 1", "s99999999999"}) EXPECT_EQ(IndexOfKey(key), -1) << key;
}

}  // namespace
}  // namespace oravin
