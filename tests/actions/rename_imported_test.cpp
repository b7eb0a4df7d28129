// Renaming imported ships: what changes, what is refused, and what a stop in between leaves.

#include "actions/rename_imported.h"

#include "base/file_error.h"
#include "stats/ship_stats.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/imported_stage.h"

namespace oravin::test {
namespace {

constexpr const char* renameTrap = "lstImported_AfterLabelEdit()";

struct Renaming : testing::Test {
  bool Rename(int ship, const std::string& name) { return RenameImported(stage.host, stage.installation, ship, name); }
  void ExpectRefused(int ship, const std::string& name, const std::string& text,
                     const std::string& title = programTitle) {
    SCOPED_TRACE(name);
    const FolderImage before = stage.Image();
    const Ships ships = stage.installation.ships;
    stage.desk.ExpectBox(text, title);
    EXPECT_FALSE(Rename(ship, name));
    EXPECT_TRUE(stage.desk.Done());
    EXPECT_TRUE(SameImage(before, stage.Image()));
    EXPECT_EQ(stage.installation.ships, ships);
  }
  void ExpectTaken(int ship, const std::string& name, const std::string& shown) {
    ExpectRefused(ship, name, "The ship name '" + shown + "' has the same name as an existing ship.");
  }

  ImportedStage stage;
};

/// What renaming Manta, which flies as Alpha and Tiger, makes of an image.
FolderImage Renamed(FolderImage image, const std::string& name, const std::string& listed) {
  ChangeRecords(image, [&](Ships& ships) {
    ships[manta].ShipName.Set(name);
    for (const int target : {alpha, tiger, tigerVariant}) {
      if (ships[SwitcherStage::At(target)].Changed) ships[SwitcherStage::At(target)].ChangedToName.Set(name);
    }
  });
  ChangeList(image, "3,\"Manta\",", "3,\"" + listed + "\",");
  Bytes& defaults = image.at("game/shipstats.def");
  std::fill_n(defaults.begin() + 12 * 352, 64, std::uint8_t{0});
  std::copy(name.begin(), name.end(), defaults.begin() + 12 * 352);
  return image;
}

TEST_F(Renaming, ChangesTheRecordTheListAndTheBlockAndNothingElse) {
  const FolderImage expected = Renamed(stage.Image(), "Sting, the Ray", "Sting, the Ray");
  EXPECT_TRUE(Rename(manta, "  Sting, the Ray "));
  EXPECT_TRUE(SameImage(expected, stage.Image()));
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Sting, the Ray");
  EXPECT_EQ(stage.Record(wraith).ShipName.Trimmed(), "Wraith");
}

TEST_F(Renaming, ShipsThatAreSwappedToItHaveTheNewName) {
  stage.Swap("ALPHA", "MANTA");
  stage.Swap("TIGER", "MANTA");
  stage.Swap("BRAVO", "WRAITH");
  const FolderImage expected = Renamed(stage.Image(), "Ray", "Ray");
  EXPECT_TRUE(Rename(manta, "Ray"));
  EXPECT_TRUE(SameImage(expected, stage.Image()));
  EXPECT_EQ(stage.Record(alpha).ChangedToName.Trimmed(), "Ray");
  EXPECT_EQ(stage.Record(tiger).ChangedToName.Trimmed(), "Ray");
  EXPECT_EQ(stage.Record(bravo).ChangedToName.Trimmed(), "Wraith");
}

TEST_F(Renaming, ARecordThatIsNotChangedIsLeftAloneWhateverItsIndexSays) {
  stage.Record(bravo).ChangedToIndex = Int16Value(manta);
  PutShipRecord(stage.host.files, stage.installation.cataloguePath(), stage.installation.ships, bravo);
  const FolderImage expected = Renamed(stage.Image(), "Ray", "Ray");
  EXPECT_TRUE(Rename(manta, "Ray"));
  EXPECT_TRUE(SameImage(expected, stage.Image()));
  EXPECT_EQ(stage.Record(bravo).ChangedToName.Trimmed(), "");
}

TEST_F(Renaming, ARecordWhoseIndexIsOnlyInItsLowerBitsTheShipsIsLeftAlone) {
  stage.Record(bravo).Changed = true;
  stage.Record(bravo).ChangedToIndex = {TaggedValue::real, 4294967296.0 + static_cast<double>(manta), {}};
  PutShipRecord(stage.host.files, stage.installation.cataloguePath(), stage.installation.ships, bravo);
  EXPECT_TRUE(Rename(manta, "Ray"));
  EXPECT_EQ(stage.Record(bravo).ChangedToName.Trimmed(), "");
  EXPECT_EQ(stage.RecordOnDisk(bravo).ChangedToName.Trimmed(), "");
}

TEST_F(Renaming, AnUnswapAfterItPutsEverythingBack) {
  const FolderImage before = stage.Image();
  stage.Swap("ALPHA", "MANTA");
  EXPECT_TRUE(Rename(manta, "Ray"));
  stage.Unswap("ALPHA");
  EXPECT_TRUE(Rename(manta, "Manta"));
  FolderImage expected = before;
  ChangeRecords(expected, [](Ships& ships) { ships[alpha].ChangedToIndex = BooleanValue(false); });
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Renaming, TheNextEnableFindsTheShipAndItsBlockAgain) {
  EXPECT_TRUE(Rename(manta, "Ray"));
  const FolderImage before = stage.Image();
  EXPECT_TRUE(stage.Rebuild());
  EXPECT_EQ(stage.Record(manta).ShipName.Trimmed(), "Ray");
  EXPECT_EQ(stage.Record(manta).StatsIndex, Int16Value(12));
  EXPECT_TRUE(SameBytes(before.at("game/shipstats.def"), stage.Image().at("game/shipstats.def")));
}

TEST_F(Renaming, ANameThatAShipHasIsRefused) {
  ExpectTaken(manta, "Wraith", "Wraith");
  ExpectTaken(manta, "Alpha", "Alpha");
  ExpectTaken(manta, "Twin", "Twin");
}

TEST_F(Renaming, ANameThatDiffersBySpacesOrCaseAloneIsRefused) {
  ExpectTaken(manta, "  Wraith ", "Wraith");
  ExpectTaken(manta, "wRAITH", "wRAITH");
  ExpectTaken(manta, "TIGER", "TIGER");
}

TEST_F(Renaming, ItsOwnNameIsRefusedButMaySpellItsCaseAnew) {
  ExpectTaken(manta, " Manta", "Manta");
  const FolderImage expected = Renamed(stage.Image(), "MANTA", "MANTA");
  EXPECT_TRUE(Rename(manta, "MANTA"));
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Renaming, AnEmptyNameIsRefused) {
  ExpectRefused(manta, "", "A ship must have a name.");
  ExpectRefused(manta, "   ", "A ship must have a name.");
}

TEST_F(Renaming, ThirtyCharactersAreRightAndThirtyOneTooMany) {
  ExpectRefused(manta, std::string(31, 'x'), "A ship's name can have at most 30 characters.");
  const std::string longest(30, 'x');
  const FolderImage expected = Renamed(stage.Image(), longest, longest);
  EXPECT_TRUE(Rename(manta, " " + longest + " "));
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Renaming, QuotesAndControlCharactersAreRefused) {
  for (const std::string bad : {"a\"b", "a\rb", "a\nb", "a\tb",
                                "a\x7F"
                                "b"}) {
    ExpectRefused(manta, bad,
                  "A ship's name can hold no double quotes, no control characters and no letters outside the code page "
                  "Windows-1252.");
  }
  ExpectRefused(manta, std::string("a\0b", 3),
                "A ship's name can hold no double quotes, no control characters and no letters outside the code page "
                "Windows-1252.");
}

TEST_F(Renaming, BytesAbove127AreRight) {
  const FolderImage expected = Renamed(stage.Image(),
                                       "Gl\xFC"
                                       "ck",
                                       "Gl\xFC"
                                       "ck");
  EXPECT_TRUE(Rename(manta,
                     "Gl\xFC"
                     "ck"));
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Renaming, OnlyImportedShipsAreRenamed) {
  const FolderImage before = stage.Image();
  for (const int index : {-1, int{alpha}, 14, 99}) EXPECT_FALSE(Rename(index, "Ray")) << index;
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Renaming, AListWithoutTheShipIsReportedAndTheRenameHolds) {
  stage.files.ships[manta].name = "Somebody else";
  stage.files.WriteShipList();
  const Bytes list = ReadFileAt(stage.files.Program("shipsData.txt"));
  stage.desk.ExpectBox(
      "The ship is called \"Ray\" now, but shipsData.txt could not be changed: it does not list the ship.\nThe next "
      "\"Enable\" goes by that list.");
  EXPECT_TRUE(Rename(manta, "Ray"));
  EXPECT_EQ(stage.RecordOnDisk(manta).ShipName.Trimmed(), "Ray");
  EXPECT_TRUE(SameBytes(list, ReadFileAt(stage.files.Program("shipsData.txt"))));
}

TEST_F(Renaming, AMissingListIsReportedAndTheRenameHolds) {
  std::filesystem::remove(stage.files.Program("shipsData.txt"));
  stage.desk.ExpectBox(
      "The ship is called \"Ray\" now, but shipsData.txt could not be changed: it does not exist.\nThe next \"Enable\" "
      "goes by that list.");
  EXPECT_TRUE(Rename(manta, "Ray"));
  EXPECT_EQ(stage.RecordOnDisk(manta).ShipName.Trimmed(), "Ray");
  EXPECT_FALSE(exists(stage.files.Program("shipsData.txt")));
}

TEST_F(Renaming, AListThatTheSystemCannotSayIsThereRefusesIt) {
  const std::string list = stage.files.programPath + "shipsData.txt";
  stage.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::look && operation.path == list) {
      throw FileError("could not look for", list, faultReason);
    }
  };
  ExpectRefused(manta, "Ray", "Error - could not look for " + list + ": " + faultReason, renameTrap);
}

TEST_F(Renaming, ADamagedListRefusesIt) {
  WriteFileAt(stage.files.Program("shipsData.txt"), "2\nnonsense");
  ExpectRefused(
      manta, "Ray",
      "Error - could not read " + stage.files.programPath + "shipsData.txt: \"nonsense\" is no number (line 2)",
      renameTrap);
}

TEST_F(Renaming, WithoutTheCatalogueItSaysSoAndTouchesNothing) {
  std::filesystem::remove(stage.files.Program("ships.dat"));
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox("Error - ships.dat not found - Reinstall", renameTrap);
  EXPECT_FALSE(Rename(manta, "Ray"));
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Renaming, ABlockOfAnotherNameOrOfAnotherShipStays) {
  stage.Record(manta).StatsIndex = Int16Value(13);  // bears Wraith's name
  EXPECT_TRUE(Rename(manta, "Ray"));
  stage.Record(colossus).StatsIndex = Int16Value(3);  // the game's own
  EXPECT_TRUE(Rename(colossus, "Giant"));
  Bytes defaults = ReadFileAt(stage.files.Game("shipstats.def"));
  EXPECT_EQ(TextOf(std::span(defaults).subspan(12 * 352, 6)), std::string("Manta\0", 6));
  EXPECT_EQ(TextOf(std::span(defaults).subspan(13 * 352, 7)), std::string("Wraith\0", 7));
  EXPECT_EQ(TextOf(std::span(defaults).subspan(3 * 352, 6)), std::string("SHIP3\0", 6));
}

TEST_F(Renaming, WithoutTheDefaultsThereIsNoBlockToRename) {
  std::filesystem::remove(stage.files.Game("shipstats.def"));
  EXPECT_TRUE(Rename(manta, "Ray"));
  EXPECT_FALSE(exists(stage.files.Game("shipstats.def")));
}

TEST_F(Renaming, BothImportedPartsOfAShipAreRenamed) {
  stage.files.ships[wraith].name = "Manta";
  stage.files.WriteShipList();
  EXPECT_TRUE(stage.Rebuild());
  EXPECT_TRUE(Rename(manta, "Ray"));
  EXPECT_EQ(stage.RecordOnDisk(manta).ShipName.Trimmed(), "Ray");
  EXPECT_EQ(stage.RecordOnDisk(wraith).ShipName.Trimmed(), "Ray");
  const std::string list = ReadTextAt(stage.files.Program("shipsData.txt"));
  EXPECT_NE(list.find("3,\"Ray\",\"manta.shp\""), std::string::npos);
  EXPECT_NE(list.find("3,\"Ray\",\"wraith.shp\""), std::string::npos);
  stage.Reload();
  EXPECT_TRUE(stage.Record(manta).HasSecondPart);
}

TEST_F(Renaming, WhatCannotBeWrittenRefusesItBeforeTheFirstChange) {
  const std::vector<std::pair<std::filesystem::path, std::string>> files = {
      {stage.files.Program("ships.dat"), stage.files.programPath + "ships.dat"},
      {stage.files.Game("shipstats.def"), stage.files.gamePath + "shipstats.def"},
      {stage.files.Program("shipsData.txt"), stage.files.programPath + "shipsData.txt"},
      {stage.files.Program(""), stage.files.programPath}};
  for (const auto& [native, path] : files) {
    if (readOnlyFoldersTakeFiles && path == stage.files.programPath) continue;
    SetReadOnly(native, true);
    ExpectRefused(manta, "Ray",
                  path +
                      " cannot be written: it is read-only.\nTake the read-only mark away and try again. Nothing has "
                      "been changed.");
    SetReadOnly(native, false);
  }
  EXPECT_TRUE(Rename(manta, "Ray"));
}

/// Whatever fails or stops, the ship is there under one name, and the same rename done again finishes it.
void WalkRename(FaultKind kind) {
  const int operations = AtEachOperation(kind, [&](Fault& fault) {
    ImportedStage stage;
    stage.Swap("ALPHA", "MANTA");
    stage.Swap("TIGER", "MANTA");
    const FolderImage expected = Renamed(stage.Image(), "Ray", "Ray");
    stage.desk.AllowOthers([](const Message&) { return Answer::ok; });
    Watch(stage.host.files, fault);
    bool done = false;
    Stopped([&] { done = RenameImported(stage.host, stage.installation, manta, "Ray"); });
    const Ships inMemory = stage.installation.ships;
    stage.Reload();
    if (kind == FaultKind::failure) {
      EXPECT_EQ(inMemory, stage.installation.ships) << fault.what;
    }
    const std::string name = stage.Record(manta).ShipName.Trimmed();
    EXPECT_EQ(name, done ? "Ray" : "Manta") << fault.what;
    if (!done) {
      EXPECT_TRUE(RenameImported(stage.host, stage.installation, manta, "Ray")) << fault.what;
    }
    EXPECT_TRUE(SameImage(expected, stage.Image())) << fault.what;
  });
  EXPECT_GT(operations, 10);
}

TEST(RenamingInterrupted, AFailureOfAnyOperationCanBeMadeUpFor) { WalkRename(FaultKind::failure); }

TEST(RenamingInterrupted, AStopAtAnyOperationCanBeMadeUpFor) { WalkRename(FaultKind::stop); }

}  // namespace
}  // namespace oravin::test
