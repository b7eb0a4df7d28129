// The archive's tab: opening, listing, sorting, filtering, selecting and closing.

#include "base/hex_text.h"
#include "support/archive_tab_stage.h"
#include "support/file_marks.h"
#include "support/held_file.h"

namespace oravin::test {
namespace {

struct OpeningAHog : HogTabStage {
  const std::vector<demo::ArchiveFile> files = {Stored("ships\\b.shp", "0123456789"),
                                                Packed("A.TXT", "aaaaaaaaaaaaaaaa"), Stored("readme", "x"),
                                                Stored("c.jpeg", "yy")};
  /// The controls that an open archive enables.
  std::vector<bool> Enabled() const {
    return {tab.cmdExtract.enabled,    tab.cmdUnpackExtract.enabled, tab.cmdSelectAll.enabled,
            tab.cmdSelectNone.enabled, tab.cmdBackupFAT.enabled,     tab.cmdCloseHog.enabled};
  }
  const std::vector<bool> all = std::vector<bool>(6, true);
  const std::vector<bool> none = std::vector<bool>(6, false);
};
using Words = std::vector<std::string>;

Bytes WithCount(Bytes archive, std::uint32_t count) {
  PutBigEndian32(&archive[8], count);
  return archive;
}

TEST_F(OpeningAHog, ListsItsEntriesInTableOrderWithHexadecimalPlaces) {
  Open(files);
  const auto& entries = tab.archive.entries;
  ASSERT_EQ(entries.size(), 4U);
  const std::vector<std::vector<std::string>> expected = {
      {"ships\\b.shp", DecToHex(entries[0].Offset), "A", "shp"},
      {"A.TXT", DecToHex(entries[1].Offset), DecToHex(entries[1].Size), "txt"},
      {"readme", DecToHex(entries[2].Offset), "1", ""},
      {"c.jpeg", DecToHex(entries[3].Offset), "2", ""}};
  EXPECT_EQ(Rows(), expected);
}

TEST_F(OpeningAHog, TellsItsSizeWithGroupedDigitsAndTheNumberOfFiles) {
  Bytes archive = demo::BuildArchive(files);
  PutBigEndian32(&archive[4], 1234567);
  Open(archive);
  EXPECT_EQ(tab.lblHogSize.caption, "Hog Size: 1,234,567 byte(s)");
  EXPECT_EQ(tab.lblHogFiles.caption, "4 file(s)");
}

TEST_F(OpeningAHog, ASizeOfZeroHasNoDigits) {
  Bytes archive = demo::BuildArchive(files);
  PutBigEndian32(&archive[4], 0);
  Open(archive);
  EXPECT_EQ(tab.lblHogSize.caption, "Hog Size:  byte(s)");
}

TEST_F(OpeningAHog, EnablesWhatNeedsAnOpenArchiveAndClosingDisablesIt) {
  EXPECT_EQ(Enabled(), none);
  EXPECT_FALSE(tab.cmdRestoreFAT.enabled);
  Open(files);
  EXPECT_EQ(Enabled(), all);
  EXPECT_FALSE(tab.cmdRestoreFAT.enabled);
  cmdCloseHog_Click(tab);
  EXPECT_EQ(Enabled(), none);
  EXPECT_FALSE(tab.cmdRestoreFAT.enabled);
  EXPECT_TRUE(tab.hogList.rows.empty());
  EXPECT_EQ(tab.lblHogSize.caption + tab.lblHogFiles.caption + tab.lblShown.caption, "");
}

TEST_F(OpeningAHog, RestoringIsEnabledWhereABackupLiesBesideTheArchive) {
  WriteFileAt(stage.Game("RESOURCE.fat"), BytesOf("BIGF"));
  Open(files);
  EXPECT_TRUE(tab.cmdRestoreFAT.enabled);
  cmdCloseHog_Click(tab);
  EXPECT_FALSE(tab.cmdRestoreFAT.enabled);
}

TEST_F(OpeningAHog, ClosingClosesTheFile) {
  Open(files);
  EXPECT_EQ(stage.host.files.open, 1);
  cmdCloseHog_Click(tab);
  EXPECT_EQ(stage.host.files.open, 0);
}

TEST_F(OpeningAHog, APathThatIsNoFileIsTold) {
  tab.txtHogPath.text = stage.gamePath + "other.hog";
  stage.desk.ExpectBox("File not found", "File path error");
  cmdOpen_Click(stage.host, tab);
  EXPECT_FALSE(IsArchiveOpen(tab));
}

TEST_F(OpeningAHog, AFileThatDoesNotBeginWithBIGFIsRefusedBeforeTheListChanges) {
  Open(files);
  const Words before = ShownNames();
  for (const char* start : {"bigf", "BIG", "", "RIFFxxxxxxxxxxxx"}) {
    WriteFileAt(stage.Game("other.hog"), BytesOf(start));
    tab.txtHogPath.text = stage.gamePath + "other.hog";
    stage.desk.ExpectBox("This file is not a valid SL Hog file", "Extractor");
    cmdOpen_Click(stage.host, tab);
    EXPECT_EQ(ShownNames(), before);
    EXPECT_EQ(Enabled(), all);
    EXPECT_EQ(tab.archive.path, stage.hogPath);
    EXPECT_TRUE(IsBIGF(tab.archive.file)) << "what the list shows is what is open";
  }
}

TEST_F(OpeningAHog, AFileThatIsRefusedIsClosedAgain) {
  stage.Write(BytesOf("bigf and more"));
  stage.desk.ExpectBox("This file is not a valid SL Hog file", "Extractor");
  cmdOpen_Click(stage.host, tab);
  EXPECT_EQ(stage.host.files.open, 0);
  EXPECT_EQ(Enabled(), none);
}

TEST_F(OpeningAHog, ADamagedCountWithABackupListsTheBackupsNumberOfEntries) {
  const Bytes archive = demo::BuildArchive(files);
  Bytes backup(archive.begin(), archive.begin() + static_cast<std::ptrdiff_t>(BigEndian32(&archive[12])));
  backup = WithCount(backup, 3);
  PutBigEndian32(&backup[4], 4321);
  WriteFileAt(stage.Game("resource.FAT"), backup);
  for (const std::uint32_t count : {0U, 100001U, 0xC7030000U, 0xFFFFFFFFU}) {
    stage.Write(WithCount(archive, count));
    cmdOpen_Click(stage.host, tab);
    EXPECT_EQ(ShownNames(), (Words{"ships\\b.shp", "A.TXT", "readme"}));
    EXPECT_EQ(tab.lblHogFiles.caption, "3 file(s)");
    EXPECT_EQ(tab.lblHogSize.caption, "Hog Size: 4,321 byte(s)");
    EXPECT_EQ(tab.archive.tableSize, BigEndian32(&archive[12]));
    cmdCloseHog_Click(tab);
    EXPECT_TRUE(SameBytes(WithCount(archive, count), stage.Archive())) << "looking repairs nothing";
  }
}

TEST_F(OpeningAHog, ADamagedCountWithoutABackupIsToldAndNothingIsListed) {
  Open(files);
  stage.Write(WithCount(demo::BuildArchive(files), 0));
  stage.desk.ExpectBox(
      "The table of this archive is damaged. It says that it holds 0 files.\n"
      "With a backup of the table beside it, " +
      stage.gamePath + "resource.FAT" +
      ",\n"
      "its files could be listed and the table be repaired. Nothing was changed.");
  cmdOpen_Click(stage.host, tab);
  EXPECT_TRUE(tab.hogList.rows.empty());
  EXPECT_EQ(stage.host.files.open, 0);
  EXPECT_EQ(Enabled(), none);
}

TEST_F(OpeningAHog, ADamagedCountWithADamagedBackupIsToldToo) {
  const Bytes archive = WithCount(demo::BuildArchive(files), 100001);
  stage.Write(archive);
  WriteFileAt(stage.Game("resource.fat"), archive);
  stage.desk.ExpectBox("The table of this archive is damaged, and so is its backup,\n" + stage.gamePath +
                       "resource.FAT. It says that it holds 100,001 files.\nNothing was changed.");
  cmdOpen_Click(stage.host, tab);
  EXPECT_FALSE(IsArchiveOpen(tab));
}

TEST_F(OpeningAHog, ACountOf100000IsNotDamagedButHasNoRoomHere) {
  stage.Write(WithCount(demo::BuildArchive(files), 100000));
  stage.desk.ExpectBox(
      "Error - could not read " + stage.hogPath + ": it says that it holds 100,000 files, more than it has room for",
      "cmdOpen_Click()");
  cmdOpen_Click(stage.host, tab);
  EXPECT_FALSE(IsArchiveOpen(tab));
  EXPECT_EQ(stage.host.files.open, 0);
}

TEST_F(OpeningAHog, ATableWhoseNamesAreLongerThanAnyArchivesIsRefused) {
  Bytes table = TableRow(1, 2, std::string(std::size_t{40} << 20, 'n'));
  stage.Write(HeaderAnd(1, table));
  stage.desk.ExpectBox("Error - could not read " + stage.hogPath + ": its table is damaged: it is too long",
                       "cmdOpen_Click()");
  cmdOpen_Click(stage.host, tab);
  EXPECT_FALSE(IsArchiveOpen(tab));
}

TEST_F(OpeningAHog, AnArchiveThatIsReadOnlyOpensForReadingAndSaysWhy) {
  stage.Write(files);
  WriteFileAt(stage.Game("resource.fat"), BytesOf("BIGF"));
  SetReadOnly(stage.Game("resource.hog"), true);
  cmdOpen_Click(stage.host, tab);
  EXPECT_EQ(ShownNames().size(), 4U);
  EXPECT_FALSE(tab.cmdRestoreFAT.enabled);
  EXPECT_TRUE(tab.cmdExtract.enabled);
  EXPECT_EQ(tab.lblFilePath.caption, "This archive can only be looked at and extracted from: it is read-only.");
  stage.desk.ExpectBox("This archive can only be looked at and extracted from: it is read-only.");
  cmdRestoreFAT_Click(stage.host, tab);
  Select({0});
  EXPECT_FALSE(tab.pldHogPaste.enabled);
  stage.desk.OnForm([&](const std::string&) {
    EXPECT_FALSE(form.cmdSave.enabled);
    EXPECT_TRUE(form.txtName.readOnly && form.txtOffset.readOnly && form.txtSize.readOnly);
  });
  pldHogProperties_Click(stage.host, tab, form);
  SetReadOnly(stage.Game("resource.hog"), false);
}

TEST_F(OpeningAHog, AnArchiveThatAnotherProgramHasOpenOpensForReading) {
  stage.Write(files);
  if (!KnowsHeldFiles(stage.Game(""))) GTEST_SKIP() << "this file system does not tell";
  const HeldFile held(stage.Game("resource.hog"));
  cmdOpen_Click(stage.host, tab);
  EXPECT_EQ(tab.archive.whyReadOnly, "another program has it open");
}

TEST_F(OpeningAHog, TheSameArchiveCanBeOpenedAgain) {
  Open(files);
  cmdOpen_Click(stage.host, tab);
  EXPECT_EQ(tab.archive.whyReadOnly, "") << "the tab's own hold on it does not count";
  EXPECT_EQ(ShownNames().size(), 4U);
}

TEST_F(OpeningAHog, TheDialogsFillTheTwoPaths) {
  stage.Write(files);
  stage.desk.AnswerFile(stage.hogPath);
  cmdBrowseHogPath_Click(stage.host, tab);
  EXPECT_EQ(tab.txtHogPath.text, stage.hogPath);
  EXPECT_EQ(stage.desk.fileQuestions.at(0).filter, "SL Hog File *.hog|*.hog|All Files *.*|*.*");
  stage.desk.AnswerFile("");
  cmdBrowseHogPath_Click(stage.host, tab);
  EXPECT_EQ(tab.txtHogPath.text, stage.hogPath);
  stage.desk.AnswerFolder(stage.folder.Windows("out"));
  cmdBrowseHogDest_Click(stage.host, tab);
  EXPECT_EQ(tab.txtHogDest.text, destination);
  stage.desk.AnswerFolder("");
  cmdBrowseHogDest_Click(stage.host, tab);
  EXPECT_EQ(tab.txtHogDest.text, destination);
}

TEST_F(OpeningAHog, CaptionsAndTooltips) {
  EXPECT_EQ(tab.lblHogPath.caption, "Hog &Location:");
  EXPECT_EQ(tab.cmdBrowseHogPath.caption, "Bro&wse");
  EXPECT_EQ(tab.lblHogDest.caption, "&Destination:");
  EXPECT_EQ(tab.cmdBrowseHogDest.caption, "Browse");
  EXPECT_EQ(tab.cmdOpen.caption, "&Open Hog");
  EXPECT_EQ(tab.cmdCloseHog.caption, "&Close Hog");
  EXPECT_EQ(tab.cmdExtract.caption, "&Extract");
  EXPECT_EQ(tab.cmdExtract.tooltip, "Extract files from open .hog to destination without decompressing the files");
  EXPECT_EQ(tab.cmdUnpackExtract.caption, "&Unpack");
  EXPECT_EQ(tab.cmdUnpackExtract.tooltip, "Extracts and unpacks selected files");
  EXPECT_EQ(tab.cmdSelectAll.caption, "&Select All");
  EXPECT_EQ(tab.cmdSelectAll.tooltip, "Selects all files");
  EXPECT_EQ(tab.cmdSelectNone.caption, "S&elect None");
  EXPECT_EQ(tab.cmdSelectNone.tooltip, "Unselects all files");
  EXPECT_EQ(tab.cmdBackupFAT.caption, "&Backup FAT");
  EXPECT_EQ(tab.cmdBackupFAT.tooltip, "Saves a copy of the FAT table from the hog");
  EXPECT_EQ(tab.cmdRestoreFAT.caption, "&Restore FAT");
  EXPECT_EQ(tab.cmdRestoreFAT.tooltip, "Repairs hog FAT table");
  EXPECT_EQ(tab.pldHogProperties.caption, "Properties");
  Words headings;
  for (const ListColumn& column : tab.hogList.columns) headings.push_back(column.heading);
  EXPECT_EQ(headings, (Words{"File Name:", "Offset (Hex):", "Size (Hex):", "Ext."}));
}

struct TheHogList : OpeningAHog {
  void Click(std::size_t column) {
    tab.hogList.clickedColumn = column;
    hogList_ColumnClick(tab);
  }
  /// Sizes whose order as text would be another one: 9, 10 and 255 bytes; offsets that fall.
  Bytes Odd() {
    Bytes table;
    for (const Bytes& row :
         {TableRow(0x100, 0xFF, "b.txt"), TableRow(0x20, 0x9, "C.shp"), TableRow(0x3, 0x10, "a.txt")}) {
      table.insert(table.end(), row.begin(), row.end());
    }
    return HeaderAnd(3, table);
  }
};

TEST_F(TheHogList, SortsByNameWithoutRegardToCaseAndTurnsRound) {
  Open(Odd());
  Click(hogNameColumn);
  EXPECT_EQ(ShownNames(), (Words{"a.txt", "b.txt", "C.shp"}));
  EXPECT_EQ(tab.hogList.sorted, (SortOrder{hogNameColumn, false}));
  Click(hogNameColumn);
  EXPECT_EQ(ShownNames(), (Words{"C.shp", "b.txt", "a.txt"}));
  EXPECT_EQ(tab.hogList.sorted, (SortOrder{hogNameColumn, true}));
  Click(hogNameColumn);
  EXPECT_EQ(tab.hogList.sorted, (SortOrder{hogNameColumn, false}));
}

TEST_F(TheHogList, SortsOffsetsAndSizesByTheirNumbers) {
  Open(Odd());
  Click(hogOffsetColumn);
  EXPECT_EQ(ShownNames(), (Words{"a.txt", "C.shp", "b.txt"}));
  Click(hogSizeColumn);
  EXPECT_EQ(ShownNames(), (Words{"C.shp", "a.txt", "b.txt"}));
  Click(hogSizeColumn);
  EXPECT_EQ(ShownNames(), (Words{"b.txt", "a.txt", "C.shp"}));
}

TEST_F(TheHogList, SortsByExtensionAndKeepsTheTablesOrderAmongEqualOnes) {
  Open(Odd());
  Click(hogExtensionColumn);
  EXPECT_EQ(ShownNames(), (Words{"C.shp", "b.txt", "a.txt"}));
  Click(hogExtensionColumn);
  EXPECT_EQ(ShownNames(), (Words{"b.txt", "a.txt", "C.shp"}));
}

TEST_F(TheHogList, OpeningListsInTableOrderAgain) {
  Open(Odd());
  Click(hogNameColumn);
  cmdOpen_Click(stage.host, tab);
  EXPECT_EQ(tab.hogList.sorted, std::nullopt);
  EXPECT_EQ(ShownNames(), (Words{"b.txt", "C.shp", "a.txt"}));
}

TEST_F(TheHogList, TheFilterTakesASubstringOrAPattern) {
  Open(files);
  const auto filtered = [&](const std::string& text) {
    tab.txtFilter.text = text;
    DisplayHog(tab);
    return ShownNames();
  };
  EXPECT_EQ(filtered("TXT"), (Words{"A.TXT"}));
  EXPECT_EQ(filtered(" hips\\B "), (Words{"ships\\b.shp"}));
  EXPECT_EQ(filtered("*.shp"), (Words{"ships\\b.shp"}));
  EXPECT_EQ(filtered("*e*"), (Words{"readme", "c.jpeg"}));
  EXPECT_EQ(filtered("?.txt"), (Words{"A.TXT"}));
  EXPECT_EQ(filtered("?????"), (Words{"A.TXT"}));
  EXPECT_EQ(filtered("none"), Words{});
  EXPECT_EQ(filtered("").size(), 4U);
}

TEST_F(TheHogList, TheFilterKeepsTheOrderAndWhatIsStillListedSelected) {
  Open(Odd());
  Click(hogNameColumn);
  Select({0, 1});
  tab.txtFilter.text = "txt";
  DisplayHog(tab);
  EXPECT_EQ(ShownNames(), (Words{"a.txt", "b.txt"}));
  EXPECT_EQ(tab.lblShown.caption, "2 of 3 listed (271 bytes), 1 selected (255 bytes)");
  tab.txtFilter.text.clear();
  DisplayHog(tab);
  EXPECT_EQ(tab.lblShown.caption, "3 of 3 listed (280 bytes), 1 selected (255 bytes)")
      << "what was not listed is no longer selected";
}

TEST_F(TheHogList, SelectAllAndNone) {
  Open(Odd());
  cmdSelectAll_Click(tab);
  EXPECT_EQ(tab.lblShown.caption, "3 of 3 listed (280 bytes), 3 selected (280 bytes)");
  cmdSelectNone_Click(tab);
  EXPECT_EQ(tab.lblShown.caption, "3 of 3 listed (280 bytes), 0 selected (0 bytes)");
  EXPECT_FALSE(SelectedEntry(tab).has_value());
}

TEST_F(TheHogList, TheMenuNeedsASelectionAndPasteSomethingRememberedOfThisArchive) {
  Open(files);
  EXPECT_FALSE(tab.pldHogCopy.enabled || tab.pldHogPaste.enabled || tab.pldHogProperties.enabled);
  Select({1});
  EXPECT_TRUE(tab.pldHogCopy.enabled && tab.pldHogProperties.enabled);
  EXPECT_FALSE(tab.pldHogPaste.enabled);
  pldHogCopy_Click(stage.host, tab);
  EXPECT_TRUE(tab.pldHogPaste.enabled);
  WriteFileAt(stage.Game("other.hog"), stage.Archive());
  tab.txtHogPath.text = stage.gamePath + "other.hog";
  cmdOpen_Click(stage.host, tab);
  Select({1});
  EXPECT_FALSE(tab.pldHogPaste.enabled);
}

}  // namespace
}  // namespace oravin::test
