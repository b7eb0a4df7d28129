// The player's manual, as far as a program can read it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

std::string Manual() { return test::ReadTextAt(ORAVIN_DATA "/readme.txt"); }

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

bool IsDigitAt(const std::string& line, std::size_t at) {
  return at < line.size() && std::isdigit(static_cast<unsigned char>(line[at])) != 0;
}

/// The numbered titles between the word "Contents" and the first heading.
std::vector<std::string> ContentsOf(const std::vector<std::string>& lines) {
  std::vector<std::string> titles;
  bool inContents = false;
  for (const std::string& line : lines) {
    inContents = inContents || line == "Contents";
    if (!inContents || line.empty() || line == "Contents") continue;
    if (line.front() != ' ') break;
    titles.push_back(line.substr(line.find_first_not_of(' ')));
  }
  return titles;
}

/// The numbered lines that are underlined to their whole length.
std::vector<std::string> HeadingsOf(const std::vector<std::string>& lines) {
  std::vector<std::string> headings;
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    if (IsDigitAt(lines[i], 0) && lines[i + 1] == std::string(lines[i].size(), '-')) headings.push_back(lines[i]);
  }
  return headings;
}

TEST(Manual, TheContentsNameItsSectionsInTheirOrder) {
  const auto lines = LinesOf(Manual());
  const auto contents = ContentsOf(lines);
  EXPECT_EQ(contents.size(), 18U);
  EXPECT_EQ(contents, HeadingsOf(lines));
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const std::string number = std::to_string(i + 1) + "  ";
    EXPECT_EQ(contents[i].substr(0, number.size()), number);
  }
}

TEST(Manual, EverySectionIsUnderlinedOnce) {
  std::size_t underlines = 0;
  for (const std::string& line : LinesOf(Manual())) {
    if (!line.empty() && line.find_first_not_of('-') == std::string::npos) ++underlines;
  }
  EXPECT_EQ(underlines, 18U);
}

TEST(Manual, IsPlainTextThatFitsAScreen) {
  for (const std::string& line : LinesOf(Manual())) {
    EXPECT_LE(line.size(), 79U) << line;
    for (const char c : line) EXPECT_TRUE(c >= ' ' && c <= '~') << line;
  }
}

TEST(Manual, TellsOfEveryCommand) {
  const std::string manual = Manual();
  for (const Command& command : Commands()) {
    EXPECT_NE(manual.find("    oravin-cli " + NameOf(command)), std::string::npos) << NameOf(command);
  }
}

}  // namespace
}  // namespace oravin
