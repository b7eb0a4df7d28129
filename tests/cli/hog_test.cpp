// The commands of the group "hog": over an archive alone, without an installation.

#include "demo/archive_writer.h"
#include "demo/compressor.h"
#include "sample_runs.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

struct HogRuns : testing::Test {
  HogRuns() {
    WriteFileAt(folder.Native("a.hog"), archive);
    MakeFolderAt(folder.Native("out"));
  }
  Outcome Run(std::vector<std::string> words) { return RunWords(words); }
  FolderImage Out() const { return ImageOf(folder.Native("out")); }
  Bytes Archive() const { return ReadFileAt(folder.Native("a.hog")); }

  TemporaryFolder folder;
  // Nothing of this machine's own configuration is looked at.
  Environment configuration{"XDG_CONFIG_HOME", folder.Native("config").string()};
  Environment prefix{"WINEPREFIX", folder.Native("prefix").string()};
  const std::string text = std::string(200, 't');
  const Bytes archive = demo::BuildArchive(
      {{"ships\\One.shp", demo::Compress(BytesOf(text))}, {"two.txt", BytesOf("2")}, {"..\\bad", BytesOf("3")}});
  const std::string hog = folder.Native("a.hog").string();
  const std::string out = folder.Native("out").string();
};

TEST_F(HogRuns, ListTellsEveryEntryAsJson) {
  const Outcome outcome = Run({"hog", "list", hog, "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const Json entries = outcome.Document();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0], (Json{{"name", "ships\\One.shp"},
                              {"offset", BigEndian32(&archive[16])},
                              {"size", BigEndian32(&archive[20])},
                              {"fatPosition", 16},
                              {"extension", "shp"},
                              {"kind", "packed"}}));
  EXPECT_EQ(entries[1]["kind"], "stored");
  EXPECT_EQ(entries[1]["fatPosition"], 16 + 9 + 13);
}

TEST_F(HogRuns, ListIsATableOfText) {
  const Outcome outcome = Run({"hog", "list", hog});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.substr(0, outcome.out.find('\n')),
            "Name           Offset  Size  FAT position  Ext.  Stored as");
  EXPECT_NE(outcome.out.find("two.txt"), std::string::npos);
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 4);
}

TEST_F(HogRuns, ListMarksAnEntryThatLiesPastTheEnd) {
  Bytes damaged = archive;
  PutBigEndian32(&damaged[20], 0xFFFFFFF0);
  WriteFileAt(folder.Native("a.hog"), damaged);
  EXPECT_EQ(Run({"hog", "list", hog, "--json"}).Document()[0]["kind"], "damaged");
}

TEST_F(HogRuns, ExtractWithoutNamesTakesAllAndTellsWhatWasNotWritten) {
  const Outcome outcome = Run({"hog", "extract", hog, "--to", out});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "Oravin: These files were not extracted:\n  ..\\bad: it would leave the destination\n"
            "Oravin: Extraction Complete\n");
  EXPECT_EQ(outcome.out, "2 files extracted.\n");
  EXPECT_TRUE(
      SameImage({{"ships/", {}}, {"ships/One.shp", demo::Compress(BytesOf(text))}, {"two.txt", BytesOf("2")}}, Out()));
}

TEST_F(HogRuns, ExtractTakesNamesAndPatternsWithoutRegardToCase) {
  const Outcome outcome = Run({"hog", "extract", hog, "--to", out, "TWO.txt", "*.SHP"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(Out().size(), 3U);
}

TEST_F(HogRuns, ANameThatMatchesNothingIsSaidAndTheOthersAreDone) {
  const Outcome outcome = Run({"hog", "extract", hog, "--to", out, "none", "n?ne*", "two.txt"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "oravin-cli: there is no file \"none\" in this archive\n"
            "oravin-cli: there is no file \"n?ne*\" in this archive\nOravin: Extraction Complete\n");
  EXPECT_TRUE(SameImage({{"two.txt", BytesOf("2")}}, Out()));
}

TEST_F(HogRuns, UnpackWritesDecompressedFiles) {
  const Outcome outcome = Run({"hog", "unpack", hog, "--to", out, "ships\\*", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document()["files"], 1);
  EXPECT_EQ(outcome.Document()["done"], true);
  EXPECT_TRUE(SameImage({{"ships/", {}}, {"ships/One.shp", BytesOf(text)}}, Out()));
}

TEST_F(HogRuns, UnpackAsksAboutStoredOnesAndTheAnswersDecide) {
  EXPECT_EQ(Run({"hog", "unpack", hog, "--to", out, "*.*", "--no"}).status, 1) << "..\\bad matches too";
  EXPECT_EQ(Out().count("two.txt"), 0U);
  EXPECT_EQ(Run({"hog", "unpack", hog, "--to", out, "two.txt", "--yes"}).status, 0);
  EXPECT_EQ(Out().count("two.txt"), 1U);
}

TEST_F(HogRuns, UnpackThatEndsEarlyIsAFailure) {
  const Outcome outcome = Run({"hog", "unpack", hog, "--to", out, "two.txt"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("oravin-cli: not all files were extracted"), std::string::npos);
}

TEST_F(HogRuns, UnpackKeepsAnOlderFileWhenNobodyAnswersAboutAStoredOne) {
  WriteFileAt(folder.Native("out/two.txt"), "an older one");
  const FolderImage before = Out();
  const Outcome outcome = Run({"hog", "unpack", hog, "--to", out, "two.txt"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "Oravin: Error unpacking two.txt file not compressed. Do you want to extract?\n  [yes/no/cancel] cancel\n"
            "Oravin: Exiting unpack / extract function\noravin-cli: not all files were extracted\n");
  EXPECT_TRUE(SameImage(before, Out()));
}

TEST_F(HogRuns, UnpackKeepsAnOlderFileWhenTheAnswersHaveRunOut) {
  WriteFileAt(folder.Native("a.hog"), demo::BuildArchive({{"one.txt", BytesOf("1")}, {"two.txt", BytesOf("2")}}));
  for (const char* name : {"one.txt", "two.txt"}) WriteFileAt(folder.Native("out") / name, "an older one");
  const Outcome outcome = Run({"hog", "unpack", hog, "--to", out, "--answers", "no"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(SameImage({{"two.txt", BytesOf("an older one")}}, Out()));
}

TEST_F(HogRuns, UnpackDeletesAnOlderFileWhenNoOrCancelIsAnswered) {
  for (const std::vector<std::string>& answer :
       {std::vector<std::string>{"--no"}, {"--answers", "no"}, {"--answers", "cancel"}}) {
    WriteFileAt(folder.Native("out/two.txt"), "an older one");
    std::vector<std::string> words = {"hog", "unpack", hog, "--to", out, "two.txt"};
    words.insert(words.end(), answer.begin(), answer.end());
    Run(words);
    EXPECT_TRUE(Out().empty()) << answer.back();
  }
}

TEST_F(HogRuns, ADestinationThatIsMissingIsAFailure) {
  const Outcome outcome = Run({"hog", "extract", hog, "--to", folder.Native("nowhere").string()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("Destination path doesn't exist"), std::string::npos);
}

TEST_F(HogRuns, TheDestinationMustBeNamed) {
  EXPECT_EQ(Run({"hog", "extract", hog}).status, 2);
  EXPECT_EQ(Run({"hog", "list"}).status, 2);
}

TEST_F(HogRuns, AnArchiveThatIsMissingOrNoneIsTold) {
  const Outcome missing = Run({"hog", "list", hog + "x"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err, "File path error: File not found\n");
  WriteFileAt(folder.Native("b.hog"), std::string_view("RIFF"));
  const Outcome none = Run({"hog", "list", folder.Native("b.hog").string()});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "Extractor: This file is not a valid SL Hog file\n");
}

TEST_F(HogRuns, BackupAndRestoreOfTheTable) {
  EXPECT_EQ(Run({"hog", "restore-fat", hog, "--yes"}).status, 1) << "there is no backup yet";
  const Outcome backup = Run({"hog", "backup-fat", hog});
  EXPECT_EQ(backup.status, 0);
  EXPECT_NE(backup.out.find("The table was saved as "), std::string::npos);
  EXPECT_EQ(ReadFileAt(folder.Native("a.FAT")).size(), BigEndian32(&archive[12]));
  EXPECT_EQ(Run({"hog", "backup-fat", hog}).out, "Nothing was done.\n") << "the safe answer keeps the old one";
  EXPECT_EQ(Run({"hog", "edit", hog, "two.txt", "--name", "one.txt"}).status, 0);
  EXPECT_FALSE(Archive() == archive);
  EXPECT_EQ(Run({"hog", "restore-fat", hog}).out, "Nothing was done.\n");
  EXPECT_FALSE(Archive() == archive);
  EXPECT_EQ(Run({"hog", "restore-fat", hog, "--yes"}).status, 0);
  EXPECT_TRUE(SameBytes(archive, Archive()));
}

TEST_F(HogRuns, EditChangesOneEntry) {
  const Outcome outcome =
      Run({"hog", "edit", hog, "TWO.TXT", "--name", "2wo.txt", "--offset", "1f", "--size", "A", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document()["name"], "2wo.txt");
  EXPECT_EQ(outcome.Document()["offset"], 0x1F);
  EXPECT_EQ(outcome.Document()["size"], 10);
  Bytes expected = archive;
  const std::size_t at = 16 + 9 + 13;
  PutBigEndian32(&expected[at], 0x1F);
  PutBigEndian32(&expected[at + 4], 10);
  expected[at + 8] = '2';
  EXPECT_TRUE(SameBytes(expected, Archive()));
}

TEST_F(HogRuns, EditRefusesWhatTheFormRefuses) {
  for (const auto& [option, value, title] : {std::tuple{"--name", "longer.txt", "Table Editor"},
                                             {"--offset", "12G4", "Table Editor"},
                                             {"--size", "x", "Table Editor"}}) {
    const Outcome outcome = Run({"hog", "edit", hog, "two.txt", option, value});
    EXPECT_EQ(outcome.status, 1) << option;
    EXPECT_EQ(outcome.err.substr(0, 12), title);
    EXPECT_TRUE(SameBytes(archive, Archive()));
  }
}

TEST_F(HogRuns, EditRefusesANameWithALetterOutsideTheCodePage) {
  const std::string zhe = "\xD0\x96";
  for (const std::string& name : {zhe + "wo.txt", "two.tx" + zhe, std::string("two\ttxt"), std::string("two\xE4txt")}) {
    const Outcome outcome = Run({"hog", "edit", hog, "two.txt", "--name", name, "--size", "1"});
    EXPECT_EQ(outcome.status, 1) << name;
    EXPECT_NE(outcome.err.find("cannot be used"), std::string::npos) << outcome.err;
    EXPECT_TRUE(SameBytes(archive, Archive()));
  }
  EXPECT_EQ(Run({"hog", "edit", hog, "two.txt", "--name", "tw\xC3\xB6.txt"}).status, 0);
  Bytes expected = archive;
  expected[16 + 9 + 13 + 8 + 2] = 0xF6;
  EXPECT_TRUE(SameBytes(expected, Archive()));
}

TEST_F(HogRuns, ALetterOutsideTheCodePageIsNoPatternForEveryLetter) {
  WriteFileAt(folder.Native("a.hog"), demo::BuildArchive({{"a.txt", BytesOf("1")}, {"b.txt", BytesOf("2")}}));
  const Outcome outcome = Run({"hog", "extract", hog, "--to", out, "\xD0\x96.txt"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "oravin-cli: there is no file \"\xEF\xBF\xBD.txt\" in this archive\n");
  EXPECT_TRUE(Out().empty());
}

TEST_F(HogRuns, EditNeedsAnEntryAndSomethingToChange) {
  EXPECT_EQ(Run({"hog", "edit", hog, "two.txt"}).err,
            "oravin-cli: nothing is to be changed: give --name, --offset or --size\n");
  EXPECT_EQ(Run({"hog", "edit", hog, "none", "--size", "1"}).err,
            "oravin-cli: there is no file \"none\" in this archive\n");
}

TEST_F(HogRuns, EditingAReadOnlyArchiveIsRefused) {
  std::filesystem::permissions(folder.Native("a.hog"), std::filesystem::perms::owner_read);
  const Outcome outcome = Run({"hog", "edit", hog, "two.txt", "--size", "1"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("it is read-only"), std::string::npos);
  EXPECT_TRUE(SameBytes(archive, Archive()));
}

TEST_F(HogRuns, HelpShowsTheOptions) {
  const Outcome outcome = Run({"hog", "edit", "--help"});
  EXPECT_EQ(outcome.status, 0);
  for (const char* part :
       {"\nUsage: oravin-cli hog edit [options] FILE NAME\n", "  --name NEW  ", "  --offset HEX  ", "  --size HEX  "}) {
    EXPECT_NE(outcome.out.find(part), std::string::npos) << part;
  }
  const std::string unpack = Run({"hog", "unpack", "--help"}).out;
  EXPECT_NE(unpack.find("hog unpack [options] FILE [NAME...]\n"), std::string::npos);
  EXPECT_NE(unpack.find("  --to DIR REQUIRED"), std::string::npos);
}

}  // namespace
}  // namespace oravin::test
