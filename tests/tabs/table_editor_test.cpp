// The form that edits one entry of the table; Copy and Paste of an entry's place; the view of its first bytes.

#include "base/hex_text.h"
#include "base/text.h"
#include "support/archive_tab_stage.h"

namespace oravin::test {
namespace {

struct TheFatEditor : HogTabStage {
  TheFatEditor() { Open(archive); }

  /// Opens the form for an entry, fills it in and presses Save.
  /// @return whether the form closed
  bool Save(std::size_t entry, const std::string& name, const std::string& offset, const std::string& size) {
    Select({entry});
    bool closed = false;
    stage.desk.OnForm([&](const std::string& which) {
      EXPECT_EQ(which, "FAT_Editor");
      EXPECT_TRUE(form.shown);
      form.txtName.text = name;
      form.txtOffset.text = offset;
      form.txtSize.text = size;
      cmdSave_Click(stage.host, tab, form);
      closed = !form.shown;
    });
    pldHogProperties_Click(stage.host, tab, form);
    return closed;
  }
  void ExpectRefused(const std::string& text) { stage.desk.ExpectBox(text, "Table Editor"); }
  void ExpectUnchanged() { EXPECT_TRUE(SameBytes(archive, stage.Archive())); }
  /// The archive with the second entry's bytes in the table replaced.
  Bytes WithSecond(std::uint32_t offset, std::uint32_t size, const std::string& name) const {
    Bytes changed = archive;
    const Bytes row = TableRow(offset, size, name);
    std::copy(row.begin(), row.end(), changed.begin() + second);
    return changed;
  }

  const Bytes archive = demo::BuildArchive(
      {Stored("ships\\a.shp", "0123456789"), Stored("b.txt", "xyz"), Packed("c", std::string(99, 'c'))});
  static constexpr std::ptrdiff_t second = 16 + 8 + 12;
  const std::string wrongLength =
      "The name of the file MUST be the same length or the\nentire .hog file will have to be rebuilt. Changes not "
      "saved";
};

TEST_F(TheFatEditor, ShowsNameOffsetAndSizeOfTheSelectedEntry) {
  Select({1});
  stage.desk.OnForm([&](const std::string&) {
    EXPECT_EQ(form.txtName.text, "b.txt");
    EXPECT_EQ(form.txtOffset.text, DecToHex(tab.archive.entries[1].Offset));
    EXPECT_EQ(form.txtSize.text, "3");
    EXPECT_TRUE(form.cmdSave.enabled);
    cmdCancel_Click(form);
    EXPECT_FALSE(form.shown);
  });
  pldHogProperties_Click(stage.host, tab, form);
  ExpectUnchanged();
}

TEST_F(TheFatEditor, WithoutASelectionNothingOpens) { pldHogProperties_Click(stage.host, tab, form); }

TEST_F(TheFatEditor, SavesNameOffsetAndSizeAndRefreshesTheRow) {
  EXPECT_TRUE(Save(1, "d.shp", "1a2b3c4d", "FF"));
  EXPECT_TRUE(SameBytes(WithSecond(0x1A2B3C4D, 0xFF, "d.shp"), stage.Archive()));
  EXPECT_EQ(Rows()[1], (std::vector<std::string>{"d.shp", "1A2B3C4D", "FF", "shp"}));
}

TEST_F(TheFatEditor, ANameOneCharacterLongerOrShorterIsRefusedAndNothingWritten) {
  for (const char* name : {"bb.txt", "b.tx", ""}) {
    ExpectRefused(wrongLength);
    EXPECT_FALSE(Save(1, name, "1", "2")) << name;
    ExpectUnchanged();
  }
}

TEST_F(TheFatEditor, ANameThatBlanksMakeAsLongIsRefusedToo) {
  // The table takes names without blanks at their ends, so the old characters would stay behind such a name.
  for (const char* name : {"b.tx ", " .txt", "     "}) {
    ExpectRefused(wrongLength);
    EXPECT_FALSE(Save(1, name, "1", "2")) << name;
    ExpectUnchanged();
  }
}

TEST_F(TheFatEditor, AnOffsetWithALetterBeyondFIsRefusedBeforeAnythingIsWritten) {
  for (const char* offset : {"12G4", "G", "-1", "0x10", "1 2"}) {
    ExpectRefused("The value entered for offset is an invalid hexadecimal number");
    EXPECT_FALSE(Save(1, "d.txt", offset, "2")) << offset;
    ExpectUnchanged();
  }
}

TEST_F(TheFatEditor, ASizeThatIsNoHexadecimalNumberIsRefusedBeforeAnythingIsWritten) {
  ExpectRefused("The value entered for size is an invalid hexadecimal number");
  EXPECT_FALSE(Save(1, "d.txt", "1", "2z"));
  ExpectUnchanged();
}

TEST_F(TheFatEditor, TheNameIsCheckedBeforeTheNumbersAndTheOffsetBeforeTheSize) {
  ExpectRefused(wrongLength);
  EXPECT_FALSE(Save(1, "longer name", "x", "x"));
  ExpectRefused("The value entered for offset is an invalid hexadecimal number");
  EXPECT_FALSE(Save(1, "b.txt", "x", "x"));
  ExpectUnchanged();
}

TEST_F(TheFatEditor, ASizeWithNineDigitsUsesOnlyItsLastEight) {
  EXPECT_TRUE(Save(1, "b.txt", "10", "987654321"));
  EXPECT_TRUE(SameBytes(WithSecond(0x10, 0x87654321, "b.txt"), stage.Archive()));
}

TEST_F(TheFatEditor, BlanksAndSmallLettersInANumberDoNotMatterAndAnEmptyOneIsZero) {
  EXPECT_TRUE(Save(1, "b.txt", "  abc ", ""));
  EXPECT_TRUE(SameBytes(WithSecond(0xABC, 0, "b.txt"), stage.Archive()));
}

TEST_F(TheFatEditor, AChangedNameWithALetterOutsideTheCodePageIsRefused) {
  for (const auto& [typed, shown] :
       {std::pair("\xD0\x96.txt", "?.txt"), {"b.tx\xE2\x88\x9E", "b.tx?"}, {"\xF0\x9F\x9A\x80.t?t", "?.t?t"}}) {
    ExpectRefused(CannotBeStored(shown));
    EXPECT_FALSE(Save(1, FromUtf8(typed), "1", "2")) << typed;
    ExpectUnchanged();
  }
  EXPECT_TRUE(Save(1, FromUtf8("\xC3\xA4.tx\xE2\x82\xAC"), "1", "2"));
  EXPECT_TRUE(SameBytes(WithSecond(1, 2, "\xE4.tx\x80"), stage.Archive()));
}

TEST_F(TheFatEditor, AChangedNameWithAControlCharacterIsRefused) {
  for (const std::string& name : {std::string("b\0xxx", 5), std::string("b\txxx"), std::string("b\x7Fxxx"),
                                  std::string("b\x81xxx"), std::string("b\nxxx")}) {
    ExpectRefused(CannotBeStored("b?xxx"));
    EXPECT_FALSE(Save(1, name, "1", "2")) << name;
    ExpectUnchanged();
  }
}

TEST_F(TheFatEditor, TheNamesLengthIsCheckedBeforeItsLetters) {
  ExpectRefused(wrongLength);
  EXPECT_FALSE(Save(1, "bb\x1A.txt", "x", "x"));
  ExpectRefused(CannotBeStored("?.txt"));
  EXPECT_FALSE(Save(1, "\x1A.txt", "x", "x"));
  ExpectUnchanged();
}

TEST_F(TheFatEditor, ANameThatStaysIsNotCheckedWhileTheNumbersChange) {
  const Bytes odd = HeaderAnd(1, TableRow(1, 2, "a\x1A\x81\tz"));
  Open(odd);
  EXPECT_TRUE(Save(0, "a\x1A\x81\tz", "5", "6"));
  Bytes expected = odd;
  PutBigEndian32(&expected[16], 5);
  PutBigEndian32(&expected[20], 6);
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
}

TEST_F(TheFatEditor, AnEmptyNameAndOneWithBlanksAtItsEndsStayWhileTheNumbersChange) {
  Bytes odd = HeaderAnd(2, [] {
    Bytes table = TableRow(1, 2, "");
    const Bytes more = TableRow(3, 4, " x ");
    table.insert(table.end(), more.begin(), more.end());
    return table;
  }());
  Open(odd);
  EXPECT_TRUE(Save(0, "", "5", "6"));
  EXPECT_TRUE(Save(1, " x ", "7", "8"));
  Bytes expected = odd;
  PutBigEndian32(&expected[16], 5);
  PutBigEndian32(&expected[20], 6);
  PutBigEndian32(&expected[25], 7);
  PutBigEndian32(&expected[29], 8);
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
}

TEST_F(TheFatEditor, ATableThatAnotherProgramChangedIsNotWritten) {
  Bytes changed = archive;
  changed[second + 8] = 'X';
  stage.Write(changed);
  // The tab still reads the archive that it opened; give it the changed one under the same list.
  tab.archive.file = File(stage.host.files, stage.hogPath, OpenFor::changing);
  ExpectRefused("Another program has changed the table of " + stage.hogPath +
                "\nsince it was opened. Open the archive again. Changes not saved");
  EXPECT_FALSE(Save(1, "d.txt", "1", "2"));
  EXPECT_TRUE(SameBytes(changed, stage.Archive()));
}

TEST_F(TheFatEditor, AMillionCharactersOfANameStayWhileTheNumbersChange) {
  const std::string name(1000000, 'n');
  const Bytes large = demo::BuildArchive({Stored(name, "1"), Stored("b", "2")});
  Open(large);
  Select({0});
  stage.desk.OnForm([&](const std::string&) {
    EXPECT_TRUE(form.txtName.readOnly);
    EXPECT_LT(form.txtName.text.size(), 200U);
    form.txtSize.text = "77";
    cmdSave_Click(stage.host, tab, form);
  });
  pldHogProperties_Click(stage.host, tab, form);
  Bytes expected = large;
  PutBigEndian32(&expected[20], 0x77);
  EXPECT_TRUE(SameBytes(expected, stage.Archive()));
}

TEST_F(TheFatEditor, CopyPutsNameOffsetAndSizeAsOneLineOnTheClipboard) {
  Select({1});
  pldHogCopy_Click(stage.host, tab);
  const HogEntry& entry = tab.archive.entries[1];
  ASSERT_EQ(stage.desk.clipboard.size(), 1U);
  EXPECT_EQ(stage.desk.clipboard[0], "b.txt\t" + Rows()[1][1] + "\t3");
  ASSERT_TRUE(tab.remembered.has_value());
  EXPECT_EQ(tab.remembered->offset, entry.Offset);
  EXPECT_EQ(tab.remembered->size, entry.Size);
  Select({0, 1});
  pldHogCopy_Click(stage.host, tab);
  EXPECT_EQ(std::count(stage.desk.clipboard[1].begin(), stage.desk.clipboard[1].end(), '\n'), 1);
}

TEST_F(TheFatEditor, PasteAsksAndLetsOneFileStandInForAnother) {
  Select({0});
  pldHogCopy_Click(stage.host, tab);
  const HogEntry first = tab.archive.entries[0];
  Select({1});
  const std::string question =
      "Do you want ships\\a.shp\nto stand in for b.txt?\n"
      "The table will then give the second file the place and the size of the first.";
  stage.desk.ExpectQuestion(question, Answer::no);
  pldHogPaste_Click(stage.host, tab);
  ExpectUnchanged();
  stage.desk.ExpectQuestion(question, Answer::yes);
  pldHogPaste_Click(stage.host, tab);
  EXPECT_TRUE(SameBytes(WithSecond(first.Offset, first.Size, "b.txt"), stage.Archive()));
  EXPECT_EQ(Rows()[1], (std::vector<std::string>{"b.txt", Rows()[0][1], "A", "txt"}));
}

TEST_F(TheFatEditor, PasteWithNothingRememberedDoesNothing) {
  Select({1});
  pldHogPaste_Click(stage.host, tab);
  ExpectUnchanged();
}

TEST(HexView, LinesOfSixteenBytesWithTheirCharacters) {
  EXPECT_EQ(HexView({}), "");
  EXPECT_EQ(HexView(BytesOf("A\x7F\x80z")), "0000   41 7F 80 7A                                        A..z");
  const std::string text = "0123456789ABCDEFG";
  EXPECT_EQ(HexView(BytesOf(text)),
            "0000   30 31 32 33 34 35 36 37  38 39 41 42 43 44 45 46   0123456789ABCDEF\n"
            "0010   47                                                 G");
}

TEST_F(TheFatEditor, TheFirstBytesOfTheSelectedEntryAreShown) {
  Select({1});
  hogList_ItemClick(tab);
  EXPECT_EQ(tab.txtFirstBytes.text, "b.txt, stored\n" + HexView(BytesOf("xyz")));
  Select({2});
  hogList_ItemClick(tab);
  EXPECT_EQ(tab.txtFirstBytes.text.substr(0, 9), "c, packed");
  Select({});
  hogList_ItemClick(tab);
  EXPECT_EQ(tab.txtFirstBytes.text, "");
}

TEST_F(TheFatEditor, TheViewOfTheFirstBytesFoldsAwayAndOutAgain) {
  Select({1});
  cmdFirstBytes_Click(tab);
  EXPECT_FALSE(tab.txtFirstBytes.shown);
  EXPECT_EQ(tab.txtFirstBytes.text, "");
  EXPECT_EQ(tab.cmdFirstBytes.caption, "Show first b&ytes");
  cmdFirstBytes_Click(tab);
  EXPECT_TRUE(tab.txtFirstBytes.shown);
  EXPECT_NE(tab.txtFirstBytes.text, "");
}

TEST_F(TheFatEditor, AnEntryPastTheEndHasNoFirstBytes) {
  EXPECT_TRUE(Save(1, "b.txt", "FFFFFFFF", "FFFFFFFF"));
  hogList_ItemClick(tab);
  EXPECT_EQ(tab.txtFirstBytes.text, "b.txt: its place in the archive lies past that file's end.");
}

}  // namespace
}  // namespace oravin::test
