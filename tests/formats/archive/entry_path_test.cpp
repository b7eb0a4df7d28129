// Where an entry is written by its name, and which names are never written.

#include "archive/entry_path.h"

#include <gtest/gtest.h>

namespace oravin::test {
namespace {

using Words = std::vector<std::string>;

std::string WhyNot(const std::string& name) { return PathOfEntry(name).whyNot; }

constexpr const char* leaves = "it would leave the destination";
constexpr const char* noFile = "no file can bear its name";

TEST(EntryPath, ABareName) {
  const EntryPath path = PathOfEntry("readme.txt");
  EXPECT_EQ(path.folders, Words{});
  EXPECT_EQ(path.file, "readme.txt");
  EXPECT_EQ(path.whyNot, "");
}

TEST(EntryPath, FoldersBeforeTheName) {
  const EntryPath path = PathOfEntry("sounds\\radio\\Wing 1.wav");
  EXPECT_EQ(path.folders, (Words{"sounds", "radio"}));
  EXPECT_EQ(path.file, "Wing 1.wav");
  EXPECT_EQ(PathOfEntry("a/b.c").folders, Words{"a"});
}

TEST(EntryPath, ANameThatWouldLeaveTheDestination) {
  for (const char* name :
       {"..\\x", "a\\..\\x", "a\\..", "..", "../x", "\\x", "/x", "\\\\host\\x", "C:\\x", "C:x", "a\\b:c"}) {
    EXPECT_EQ(WhyNot(name), leaves) << name;
  }
}

TEST(EntryPath, DeviceNames) {
  for (const char* name : {"CON", "nul", "Prn.txt", "aux.tar.gz", "COM1", "lpt9.log", "a\\CON", "NUL\\x"}) {
    EXPECT_EQ(WhyNot(name), noFile) << name;
  }
  for (const char* name : {"CONE", "nullify.txt", "COM", "COM10", "a.con"}) EXPECT_EQ(WhyNot(name), "") << name;
}

TEST(EntryPath, DeviceNamesThatWindowsKnowsInOtherSpellings) {
  for (const char* name : {"nul .txt", "aux .a.b", "CONIN$", "CONOUT$.txt", "lpt\xB9", "com\xB2.shp", "LPT\xB3 .x",
                           "nul .x\\a.txt", "ships\\CONIN$.shp"}) {
    EXPECT_EQ(WhyNot(name), noFile) << name;
  }
}

TEST(EntryPath, ATrailingDotOrBlank) {
  for (const char* name : {"a.", "a ", "a.\\b", "a \\b", ".", ".\\a", "a\\.", "..."})
    EXPECT_EQ(WhyNot(name), noFile) << name;
}

TEST(EntryPath, EmptyNamesAndParts) {
  EXPECT_EQ(WhyNot(""), "it has no name");
  EXPECT_EQ(WhyNot("a\\\\b"), "a part of its path is empty");
  EXPECT_EQ(WhyNot("a\\"), "a part of its path is empty");
}

TEST(EntryPath, CharactersThatNoFileNameHolds) {
  for (int code = 1; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const std::string name = std::string("a") + c + "b";
    const bool separator = c == '\\' || c == '/';
    const bool refused = code < 32 || code == 127 || std::string("*?\"<>|:").find(c) != std::string::npos;
    EXPECT_EQ(WhyNot(name).empty(), separator || !refused) << code;
  }
}

TEST(EntryPath, NamesThatAreTooLong) {
  EXPECT_EQ(WhyNot(std::string(255, 'x')), "");
  EXPECT_EQ(WhyNot(std::string(256, 'x')), "its name is too long");
  EXPECT_EQ(WhyNot(std::string(128, '\xE4')), "its name is too long") << "such a letter takes two bytes on disk";
  EXPECT_EQ(WhyNot(std::string(1000000, 'x')), "its name is too long");
  std::string deep;
  for (int i = 0; i < 40; ++i) deep += std::string(100, 'd') + "\\";
  EXPECT_EQ(WhyNot(deep + "x"), "its name is too long");
}

TEST(EntryPath, TheNameOfAFileThatIsBeingWritten) {
  EXPECT_EQ(WhyNot("extracting.ORAVIN-new"), "Oravin gives such names to files it is writing");
}

}  // namespace
}  // namespace oravin::test
