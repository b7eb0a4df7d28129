#include "files/path.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

TEST(AddBackslash, ToTheTrimmedPath) { EXPECT_EQ(AddBackslash("  C:\\a "), "C:\\a\\"); }

TEST(AddBackslash, OneThatIsThereIsEnough) {
  std::string path = "C:\\a\\";
  EXPECT_EQ(AddBackslash(path), "C:\\a\\");
}

TEST(AddBackslash, AnEmptyPathStaysEmpty) { EXPECT_EQ(AddBackslash("   "), ""); }

TEST(ParentFolder, OfAFileAndOfAFolderAreTheSame) {
  EXPECT_EQ(ParentFolder("C:\\a\\b.txt"), "C:\\a\\");
  EXPECT_EQ(ParentFolder("C:\\a\\b\\"), "C:\\a\\");
}

TEST(ParentFolder, OfANameWithoutABackslashIsEmpty) {
  EXPECT_EQ(ParentFolder("ships.dat"), "");
  EXPECT_EQ(ParentFolder("ships\\"), "");
  EXPECT_EQ(ParentFolder("\\"), "");
  EXPECT_EQ(ParentFolder(""), "");
}

TEST(ParentFolder, SpacesAtTheEndsDoNotCount) {
  EXPECT_EQ(ParentFolder(" C:\\a\\b "), "C:\\a\\");
  EXPECT_EQ(ParentFolder("C:\\a\\b\\ "), "C:\\a\\");
}

TEST(FileNameOf, IsWhatStandsBehindTheLastBackslashOrColon) {
  EXPECT_EQ(FileNameOf("C:\\x\\ships.dat"), "ships.dat");
  EXPECT_EQ(FileNameOf("C:ships.dat"), "ships.dat");
  EXPECT_EQ(FileNameOf("C:\\x\\folder\\"), "folder\\");
}

TEST(FileNameOf, ABareNameGivesAnEmptyText) {
  EXPECT_EQ(FileNameOf("ships.dat"), "");
  EXPECT_EQ(FileNameOf(""), "");
}

TEST(FileNameOf, SpacesAtTheEndsDoNotCount) { EXPECT_EQ(FileNameOf(" C:\\a.b "), "a.b"); }

TEST(ExtensionOf, OneToThreeCharactersInLowerCase) {
  EXPECT_EQ(ExtensionOf("model.SHP"), "shp");
  EXPECT_EQ(ExtensionOf("C:\\x\\a.Gz"), "gz");
  EXPECT_EQ(ExtensionOf("make.C"), "c");
  EXPECT_EQ(ExtensionOf("  model.SHP "), "shp");
}

TEST(ExtensionOf, ALongerOneOrNoneIsEmpty) {
  EXPECT_EQ(ExtensionOf("archive.jpeg"), "");
  EXPECT_EQ(ExtensionOf("readme"), "");
  EXPECT_EQ(ExtensionOf("readme."), "");
  EXPECT_EQ(ExtensionOf(""), "");
}

TEST(ExtensionOf, TheFirstDotAmongTheLastFourCharactersCounts) { EXPECT_EQ(ExtensionOf("model.a.b"), "a.b"); }

TEST(ChangeExtension, ReplacesOneToThreeCharacters) {
  EXPECT_EQ(ChangeExtension("C:\\x\\model.SHP", ".org"), "C:\\x\\model.org");
  EXPECT_EQ(ChangeExtension("a.gz", ".bmp"), "a.bmp");
  EXPECT_EQ(ChangeExtension("a.c", ".bmp"), "a.bmp");
}

TEST(ChangeExtension, WhereThereIsNoneTheNewOneIsAppended) {
  EXPECT_EQ(ChangeExtension("readme", ".txt"), "readme.txt");
  EXPECT_EQ(ChangeExtension("archive.jpeg", ".bmp"), "archive.jpeg.bmp");
}

TEST(ChangeExtension, SpacesAtTheEndsDoNotCount) { EXPECT_EQ(ChangeExtension(" a.shp ", " .org "), "a.org"); }

TEST(ChangeExtension, AnEmptyPathStaysEmpty) { EXPECT_EQ(ChangeExtension("  ", ".org"), ""); }

TEST(IsPrintableText, CodesFrom32To127) {
  EXPECT_TRUE(IsPrintableText("a b~\x7F"));
  EXPECT_TRUE(IsPrintableText("  a "));
  EXPECT_FALSE(IsPrintableText(""));
  EXPECT_FALSE(IsPrintableText("  "));
  EXPECT_FALSE(IsPrintableText("a\tb"));
  EXPECT_FALSE(IsPrintableText("\x80"));
  EXPECT_FALSE(IsPrintableText("J\xE4ger"));
}

TEST(IsPlainFileName, NamesOfFilesInsideAFolder) {
  for (const char* name : {"tiger.shp", "a", "S47tiger.shp", "two words.shp", "COM10", "COMET.shp", "console"}) {
    EXPECT_TRUE(IsPlainFileName(name)) << name;
  }
}

TEST(IsPlainFileName, NothingThatTheFileSystemGivesAMeaningOfItsOwn) {
  for (const char* name :
       {"",   ".",  "..", "..\\a.shp", "a/b",   "C:a", "a*",      "a?",  "a|b",     "<a",  "a>",   "\"a\"",
        " a", "a ", "a.", "a\n",       "a\x7F", "CON", "con.shp", "NUL", "aux.txt", "Prn", "COM1", "lpt9.shp"}) {
    EXPECT_FALSE(IsPlainFileName(name)) << name;
  }
  EXPECT_FALSE(IsPlainFileName(std::string("a\0b", 3)));
}

TEST(IsPlainFileName, ADeviceWithSpacesBeforeTheDotIsTheDevice) {
  for (const char* name : {"nul .txt", "NUL   .a.b", "con .shp", "COM1 .log", "lpt9  .x", "CONIN$ .txt", "aux . .x"}) {
    EXPECT_FALSE(IsPlainFileName(name)) << name;
  }
  for (const char* name : {"nul x.txt", "n ul.txt", "com 1.log"}) EXPECT_TRUE(IsPlainFileName(name)) << name;
}

TEST(IsPlainFileName, ADeviceWithSeveralExtensionsIsTheDevice) {
  for (const char* name : {"aux.a.b", "aux .a.b", "nul.tar.gz", "com3.1.2", "conout$.a.b"}) {
    EXPECT_FALSE(IsPlainFileName(name)) << name;
  }
  EXPECT_TRUE(IsPlainFileName("a.aux.b"));
}

TEST(IsPlainFileName, TheConsolesTwoBuffersAreDevices) {
  for (const char* name : {"CONIN$", "conout$", "ConIn$.txt", "CONOUT$.txt"})
    EXPECT_FALSE(IsPlainFileName(name)) << name;
  for (const char* name : {"CONIN", "CONOUT$1", "CONERR$", "$CONIN$"}) EXPECT_TRUE(IsPlainFileName(name)) << name;
}

TEST(IsPlainFileName, PortsMayBeNumberedBySuperscriptDigits) {
  // One, two and three: in the game's code page, and in UTF-8, which Windows programs take such a name for.
  for (const char* digit : {"\xB9", "\xB2", "\xB3", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"}) {
    for (const char* port : {"com", "LPT"}) {
      const std::string name = std::string(port) + digit;
      EXPECT_FALSE(IsPlainFileName(name)) << name;
      EXPECT_FALSE(IsPlainFileName(name + ".txt")) << name;
      EXPECT_FALSE(IsPlainFileName(name + " .a.b")) << name;
    }
  }
  for (const char* name : {"com\xB4", "lpt\xB9\xB2", "com1\xB9", "con\xB9", "com\xC2\xB4", "co\xB9"}) {
    EXPECT_TRUE(IsPlainFileName(name)) << name;
  }
}

TEST(MatchesPattern, StarsAndQuestionMarks) {
  EXPECT_TRUE(MatchesPattern("Model.SHP", "*.shp"));
  EXPECT_TRUE(MatchesPattern("model.shp", "m*l.s?p"));
  EXPECT_TRUE(MatchesPattern("aXbXc", "a*X*c"));
  EXPECT_TRUE(MatchesPattern("abc", "abc**"));
  EXPECT_TRUE(MatchesPattern("", "*"));
  EXPECT_FALSE(MatchesPattern("model.shp", "model?.shp"));
  EXPECT_FALSE(MatchesPattern("model.shp", "*.sh"));
  EXPECT_FALSE(MatchesPattern("model.shp", "odel.shp"));
  EXPECT_FALSE(MatchesPattern("", "?"));
}

TEST(MatchesPattern, StarDotStarStandsForNamesWithoutAnExtensionToo) {
  EXPECT_TRUE(MatchesPattern("readme", "*.*"));
  EXPECT_TRUE(MatchesPattern("readme", "readme.*"));
  EXPECT_TRUE(MatchesPattern("readme.txt", "*.*"));
  EXPECT_FALSE(MatchesPattern("readme", "other.*"));
}

}  // namespace
}  // namespace oravin
