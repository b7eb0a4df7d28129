#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "demo/archive_writer.h"
#include "files/file.h"
#include "session.h"

/// The list of an archive with as many entries as there may be.
namespace oravin::test {

namespace {

constexpr std::size_t entries = 100000;
constexpr const char* list = "hog.hogList";

enum Column : std::size_t { nameColumn, offsetColumn, sizeColumn, extensionColumn };

/// Names and sizes whose order is not the table's.
std::vector<demo::ArchiveFile> ManyFiles() {
  constexpr std::array<const char*, 3> extensions = {".wav", ".shp", ".txt"};
  constexpr std::size_t step = 7919;  // prime, so that each number comes once
  constexpr std::size_t sizes = 97;
  std::vector<demo::ArchiveFile> files;
  files.reserve(entries);
  for (std::size_t i = 0; i < entries; ++i) {
    const std::string number = std::to_string(entries + (i * step + 13) % entries);
    files.push_back({"unit_" + number + extensions.at(i % extensions.size()), Bytes(1 + i * 31 % sizes)});
  }
  return files;
}

std::string ExtensionIn(const std::string& name) { return name.substr(name.rfind('.') + 1); }

struct ListSession : Session {
  ListSession() : files(ManyFiles()) {
    WriteFileAt(folder.Native("many.hog"), demo::BuildArchive(files));
    if (!ChooseTab(*this, "Hog Editor")) throw std::runtime_error("no tab");
    if (!TypeInto(*this, "hog.txtHogPath", folder.Windows("many.hog"))) throw std::runtime_error("no path");
    PressKey(desktop, "Return");
    if (!CaptionHolds(*this, "hog.lblShown", "100,000 of 100,000 listed")) throw std::runtime_error("not opened");
  }

  std::vector<demo::ArchiveFile> files;
};

Json RowInSight(const Session& session, std::size_t place) { return Control(session, list)["rows"][place]; }

Point PlaceOf(const Session& session, std::size_t place) { return MiddleOf(RowInSight(session, place)["rectangle"]); }

testing::AssertionResult FirstNameBecomes(const Session& session, const std::string& name) {
  std::string now;
  const auto is = [&] {
    const Json rows = Control(session, list)["rows"];
    now = rows.empty() ? "nothing" : rows[0]["texts"][0].get<std::string>();
    return now == name;
  };
  if (Eventually(is)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "first is " << now << ", not " << name;
}

/// The first file of an order, in which equal ones stay in table order.
template <typename Before>
std::string First(const std::vector<demo::ArchiveFile>& files, Before before) {
  return std::min_element(files.begin(), files.end(), before)->name;
}

testing::AssertionResult SortedIs(const Session& session, std::size_t column, bool descending) {
  const Json expected = {{"column", column}, {"descending", descending}};
  return Becomes(session, list, "sorted", expected);
}

}  // namespace

TEST(HogList, EveryHeadingSortsUpAndDown) {
  const ListSession session;
  EXPECT_TRUE(Control(session, list)["sorted"].is_null());
  using File = demo::ArchiveFile;
  const auto byName = [](const File& a, const File& b) { return a.name < b.name; };
  const auto bySize = [](const File& a, const File& b) { return a.bytes.size() < b.bytes.size(); };
  const auto byExtension = [](const File& a, const File& b) { return ExtensionIn(a.name) < ExtensionIn(b.name); };
  const auto reversed = [](auto before) { return [before](const File& a, const File& b) { return before(b, a); }; };
  const auto& files = session.files;
  const std::array<std::array<std::string, 2>, 4> expected = {
      {{First(files, byName), First(files, reversed(byName))},
       {files.front().name, files.back().name},
       {First(files, bySize), First(files, reversed(bySize))},
       {First(files, byExtension), First(files, reversed(byExtension))}}};
  for (const std::size_t column : {sizeColumn, nameColumn, offsetColumn, extensionColumn}) {
    for (const bool descending : {false, true}) {
      ClickHeading(session, list, column);
      ASSERT_TRUE(SortedIs(session, column, descending));
      EXPECT_TRUE(FirstNameBecomes(session, expected.at(column).at(descending ? 1 : 0)));
    }
  }
  EXPECT_TRUE(SaveScreenshot(session.desktop, "hog_sorted"));
}

TEST(HogList, FilterListsWhileItIsTypedAndEscapeClearsIt) {
  const ListSession session;
  const auto matching = [&](const std::string& text) {
    return std::count_if(session.files.begin(), session.files.end(),
                         [&](const auto& file) { return file.name.find(text) != std::string::npos; });
  };
  PressKey(session.desktop, "alt+f");
  ASSERT_TRUE(FocusIs(session, "hog.txtFilter"));
  TypeText(session.desktop, "1234");
  ASSERT_TRUE(Becomes(session, list, "rowCount", matching("1234")));
  TypeText(session.desktop, "5");
  ASSERT_TRUE(Becomes(session, list, "rowCount", matching("12345")));
  EXPECT_TRUE(FocusIs(session, "hog.txtFilter")) << "typing goes on";
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(Becomes(session, "hog.txtFilter", "text", ""));
  EXPECT_TRUE(Becomes(session, list, "rowCount", entries));
}

TEST(HogList, SelectionStaysThroughFilterAndSorting) {
  const ListSession session;
  ASSERT_TRUE(TypeInto(session, "hog.txtFilter", ".shp"));
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", "33,333 of 100,000 listed"));
  ClickOn(session, "hog.cmdSelectAll");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", "33,333 selected"));
  ASSERT_TRUE(TypeInto(session, "hog.txtFilter", ""));
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", "100,000 of 100,000 listed"));
  ClickHeading(session, list, nameColumn);
  ASSERT_TRUE(SortedIs(session, nameColumn, false));
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", "33,333 selected"));
  const Json rows = Control(session, list)["rows"];
  ASSERT_FALSE(rows.empty());
  for (const Json& row : rows) EXPECT_EQ(row["selected"], row["texts"][3] == "shp") << row["texts"].dump();
}

TEST(HogList, SelectionByMouseAndKeyboardIsCounted) {
  const ListSession session;
  Click(session.desktop, PlaceOf(session, 1));
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 1 selected"));
  ClickHolding(session.desktop, PlaceOf(session, 5), "shift");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 5 selected"));
  ClickHolding(session.desktop, PlaceOf(session, 3), "ctrl");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 4 selected"));
  EXPECT_EQ(RowInSight(session, 3)["selected"], false);
  Click(session.desktop, PlaceOf(session, 5));
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 1 selected")) << "a click on a selected row selects it alone";
  PressKey(session.desktop, "shift+Down");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 2 selected"));
  PressKey(session.desktop, "shift+End");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 99,995 selected"));
  PressKey(session.desktop, "ctrl+a");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 100,000 selected"));
  PressKey(session.desktop, "alt+f");  // the keyboard is elsewhere now
  ClickOn(session, "hog.cmdSelectNone");
  EXPECT_TRUE(CaptionHolds(session, "hog.lblShown", " 0 selected"));
}

TEST(HogList, SelectionByMouseIsCountedAmongManySelected) {
  const ListSession session;
  PressKey(session.desktop, "alt+s");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 100,000 selected"));
  ClickHolding(session.desktop, PlaceOf(session, 2), "ctrl");
  ASSERT_TRUE(CaptionHolds(session, "hog.lblShown", " 99,999 selected"));
  Click(session.desktop, PlaceOf(session, 4));
  EXPECT_TRUE(CaptionHolds(session, "hog.lblShown", " 1 selected"));
}

}  // namespace oravin::test
