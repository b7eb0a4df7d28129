// A ship list drafted from an installation: what is found, how it is named and matched, and what bad input does.

#include "actions/draft_ship_list.h"

#include "actions/ship_list_file.h"
#include "demo/sample.h"
#include "draft_stage.h"
#include "lists/ship_list_text.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

using Names = std::vector<std::string>;

struct ListDraft : DraftStage {};

TEST_F(ListDraft, HasEveryModelOfTheArchiveInTheOrderOfItsTable) {
  Model("zulu.shp");
  Stored("readme.txt", BytesOf("text"));
  Model("ALPHA.SHP");
  Stored("alpha.shpx", BytesOf("no model"));
  Stored("shp", BytesOf("no model"));
  const ShipListDraft draft = Draft();
  EXPECT_EQ(FilesIn(draft), (Names{"zulu.shp", "ALPHA.SHP"}));
  for (const DraftedShip& ship : draft.ships) EXPECT_EQ(ship.ship.kind, 1);
  EXPECT_TRUE(draft.passedOver.empty());
  EXPECT_FALSE(draft.stopped);
}

TEST_F(ListDraft, TakesTheClassAndTheFirstTwoTexturesFromTheModel) {
  Model("fighter.shp", 0, {"one", "two", "three"});
  Model("cloaked.shp", 2, {"one"});
  Model("carrier.shp", 1, {});
  Model("cruiser.shp", 3, {"same", "same", "other"});
  Stored("stored.shp", ModelOf(5, {"a", "b"}));
  const ShipListDraft draft = Draft();
  ASSERT_EQ(draft.ships.size(), 5U);
  const std::vector<std::pair<std::string, std::string>> textures = {
      {"one", "two"}, {"one", ""}, {"", ""}, {"same", "other"}, {"a", "b"}};
  for (std::size_t i = 0; i < textures.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(draft.ships[i].ship.texture0, textures[i].first);
    EXPECT_EQ(draft.ships[i].ship.texture1, textures[i].second);
    EXPECT_EQ(draft.ships[i].capital, i >= 2);
  }
  EXPECT_NE(draft.ships[2].comment.find("the model names no textures"), std::string::npos);
}

TEST_F(ListDraft, AStoredModelEndsWhereItsEntryDoes) {
  Stored("stored.shp", ModelOf(0, {}));
  Stored("behind.bin", {6, 0, 8, 0, 1, 0, 's', 't', 'r', 'a', 'y', 0, 0, 0});  // as if one more texture table followed
  EXPECT_EQ(Draft().ships.at(0).ship.texture0, "");
}

TEST_F(ListDraft, ASecondPartComesDirectlyAfterItsShipAndHasItsName) {
  Model("T_alpha.shp");
  Model("bravo.shp");
  Model("alpha.shp");
  Model("charlie.shp");
  Model("t_bravo.shp");
  const ShipListDraft draft = Draft();
  EXPECT_EQ(FilesIn(draft), (Names{"bravo.shp", "t_bravo.shp", "alpha.shp", "T_alpha.shp", "charlie.shp"}));
  EXPECT_EQ(NamesIn(draft), (Names{"Bravo", "Bravo", "Alpha", "Alpha", "Charlie"}));
  EXPECT_NE(draft.ships[1].comment.find("second part of the ship before it"), std::string::npos);
}

TEST_F(ListDraft, AModelWithTheMarkButWithoutAShipIsAShipOfItsOwn) {
  Model("t_alpha.shp");
  EXPECT_EQ(NamesIn(Draft()), Names{"T Alpha"});
}

TEST_F(ListDraft, NoThreeRecordsInARowHaveOneName) {
  Model("x.shp");
  Model("t_x.shp");
  Model("t_t_x.shp");
  const ShipListDraft draft = Draft();
  EXPECT_EQ(FilesIn(draft), (Names{"x.shp", "t_x.shp", "t_t_x.shp"}));
  EXPECT_EQ(NamesIn(draft), (Names{"X", "X", "T T X"}));
  EXPECT_FALSE(WhyNotSaved(ShipsOf(draft.ships)));
}

TEST_F(ListDraft, AShipIsNamedAsItsStatisticsBlockIs) {
  blocks = {"Other", "Alpha Mk. IX"};
  Model("alphamk9.shp");
  const ShipListDraft draft = Draft();
  ASSERT_EQ(draft.ships.size(), 1U);
  EXPECT_EQ(draft.ships[0].ship.name, "Alpha Mk. IX");
  EXPECT_EQ(draft.ships[0].ship.statsIndex, 1);
  EXPECT_EQ(draft.ships[0].match, MatchSureness::alike);
  EXPECT_EQ(draft.ships[0].comment, "statistics of \"Alpha Mk. IX\"");
  EXPECT_EQ(draft.freeBlocks, Names{"0 Other"});
  EXPECT_EQ(draft.blocks, 2);
}

TEST_F(ListDraft, AMatchThatIsNotSureAsksForALook) {
  blocks = {"Ascension Carrier", "Rescue Tug", "Omega"};
  Model("ascension.shp");
  Model("resctug.shp");
  Model("zulu.shp");
  const ShipListDraft draft = Draft();
  ASSERT_EQ(draft.ships.size(), 3U);
  EXPECT_EQ(draft.ships[0].comment, "statistics of \"Ascension Carrier\", which begins alike: please check");
  EXPECT_EQ(draft.ships[1].comment, "statistics of \"Rescue Tug\", which is close: please check");
  EXPECT_EQ(draft.ships[2].comment, "no statistics block bears its name: block 0 stands in");
  EXPECT_EQ(draft.ships[2].ship.statsIndex, 0);
  EXPECT_EQ(draft.ships[2].match, MatchSureness::none);
}

TEST_F(ListDraft, ASecondPartHasItsOwnBlockOrItsShips) {
  blocks = {"alpha", "alpha tiger", "bravo"};
  for (const char* name : {"alpha.shp", "t_alpha.shp", "bravo.shp", "t_bravo.shp"}) Model(name);
  const ShipListDraft draft = Draft();
  ASSERT_EQ(draft.ships.size(), 4U);
  EXPECT_EQ(draft.ships[1].ship.statsIndex, 1);
  EXPECT_EQ(draft.ships[1].comment,
            "second part of the ship before it; statistics of \"alpha tiger\", which has its ship's name in it");
  EXPECT_EQ(draft.ships[3].ship.statsIndex, 2);
  EXPECT_EQ(draft.ships[3].comment, "second part of the ship before it; shares its ship's statistics");
  EXPECT_EQ(NamesIn(draft), (Names{"alpha", "alpha", "bravo", "bravo"}));
}

TEST_F(ListDraft, AShipWithoutABlockIsNamedByItsFile) {
  Model("ural_tanker-two.shp");
  Model("LOUD.SHP");
  Model("__.shp");
  EXPECT_EQ(NamesIn(Draft()), (Names{"Ural Tanker Two", "Loud", "Ship"}));
}

TEST_F(ListDraft, NamesAreCutTo30CharactersAndLoseWhatCannotBeQuoted) {
  blocks = {std::string("alpha the \"Great\"\x01 of the very long name"), std::string(64, 'b')};
  Model("alpha.shp");
  Model("bbbbbbbbbb.shp");
  const ShipListDraft draft = Draft();
  EXPECT_EQ(NamesIn(draft), (Names{"alpha the Great of the very lo", std::string(30, 'b')}));
}

TEST_F(ListDraft, NamesThatWouldBeTheSameGetNumbers) {
  blocks = {"Tug", "tug", "T.U.G"};
  Model("tug.shp");
  Model("t.ug.shp");
  Model("tu-g.shp");
  Model("tug_3.shp");
  const ShipListDraft draft = Draft();
  EXPECT_EQ(NamesIn(draft), (Names{"tug", "Tug 2", "T.U.G", "Tug 3"}));
  EXPECT_FALSE(WhyNotSaved(ShipsOf(draft.ships)));
}

TEST_F(ListDraft, ALongNameKeepsRoomForItsNumber) {
  blocks = {std::string(30, 'a') + "1", std::string(30, 'a') + "2"};
  Model(std::string(20, 'a') + ".shp");
  Model(std::string(21, 'a') + ".shp");
  EXPECT_EQ(NamesIn(Draft()), (Names{std::string(30, 'a'), std::string(28, 'a') + " 2"}));
}

TEST_F(ListDraft, AModelInAFolderOfTheArchiveIsPassedOver) {
  Model("ships\\alpha.shp");
  Model("props/debris.shp");
  const ShipListDraft draft = Draft();
  EXPECT_TRUE(draft.ships.empty());
  ASSERT_EQ(draft.passedOver.size(), 2U);
  EXPECT_EQ(draft.passedOver[0].name, "ships\\alpha.shp");
  EXPECT_EQ(draft.passedOver[0].reason, "it lies in a folder of the archive, where the game's ships do not");
}

TEST_F(ListDraft, ANameThatTheListCannotHoldIsPassedOver) {
  Model(std::string(27, 'n') + ".shp");
  Model("a\"b.shp");
  Model("b\xE4r.shp");
  Model("con.shp");
  Model(" alpha.shp");
  Model(".shp");
  const ShipListDraft draft = Draft();
  Names reasons;
  for (const PassedOver& model : draft.passedOver) reasons.push_back(model.reason);
  EXPECT_EQ(reasons,
            (Names{"its model's name is longer than 30 characters", "its model's name has a quote or a line end in it",
                   "\"b\xE4r.shp\" is no file name", "\"con.shp\" is no file name"}));
  EXPECT_EQ(FilesIn(draft), (Names{" alpha.shp", ".shp"}));
}

TEST_F(ListDraft, OfTwoEntriesOfOneNameTheFirstCounts) {
  Model("alpha.shp", 1);
  Model("ALPHA.shp", 0);
  const ShipListDraft draft = Draft();
  EXPECT_EQ(FilesIn(draft), Names{"alpha.shp"});
  EXPECT_TRUE(draft.ships[0].capital);
  ASSERT_EQ(draft.passedOver.size(), 1U);
  EXPECT_EQ(draft.passedOver[0].reason, "another one of that name comes before it");
}

TEST_F(ListDraft, ADisguisedNameComesFromTheTablesBackup) {
  Model("alpha.shp", 1, {"plating"});
  Model("S47ship.shp");
  const Bytes before = demo::BuildArchive(entries);
  WriteFileAt(folder.Native("program/backup/resource.fat"), before);
  entries[0].name = "S47ha.shp";
  const ShipListDraft draft = Draft();
  EXPECT_EQ(FilesIn(draft), (Names{"alpha.shp", "S47ship.shp"})) << "the second is its own name";
  EXPECT_TRUE(draft.ships[0].capital);
  EXPECT_EQ(draft.ships[0].ship.texture0, "plating");
  EXPECT_TRUE(draft.passedOver.empty());
}

TEST_F(ListDraft, ADisguisedNameWithoutABackupIsPassedOver) {
  Model("S47ha.shp");
  Model("bravo.shp");
  const ShipListDraft draft = Draft();
  EXPECT_EQ(FilesIn(draft), Names{"bravo.shp"});
  ASSERT_EQ(draft.passedOver.size(), 1U);
  EXPECT_EQ(draft.passedOver[0].reason, "its name is disguised, and no backup of the archive's table tells it");
}

TEST_F(ListDraft, ABackupOfAnotherArchivesTableTellsNothing) {
  Model("another name.shp");
  Model("bravo.shp");
  WriteFileAt(folder.Native("program/backup/resource.fat"), demo::BuildArchive(entries));
  entries.erase(entries.begin());
  Model("S47ha.shp");
  EXPECT_EQ(FilesIn(Draft()), Names{"bravo.shp"});
}

TEST_F(ListDraft, ADamagedModelIsListedWithAComment) {
  Stored("short.shp", Bytes(26));
  Stored("empty.shp", {});
  Stored("packed.shp", {0x10, 0xFB, 0, 1, 0, 0x40, 0x40});  // refers to what lies before its start
  Bytes endless = ModelOf(0, {});
  for (const std::uint8_t byte : Bytes{6, 0, 8, 0, 1, 0, 'n', 'o', ' ', 'e', 'n', 'd'}) endless.push_back(byte);
  Stored("endless.shp", endless);
  Model("fine.shp");
  const ShipListDraft draft = Draft();
  ASSERT_EQ(FilesIn(draft), (Names{"short.shp", "empty.shp", "packed.shp", "endless.shp", "fine.shp"}));
  const Names comments = {"damaged model: it is too short", "damaged model: it is too short",
                          "damaged model: it refers to what lies before its start",
                          "damaged model: a texture's name in it has no end", "no statistics"};
  for (std::size_t i = 0; i < comments.size(); ++i) {
    EXPECT_TRUE(draft.ships[i].comment.starts_with(comments[i])) << draft.ships[i].comment;
  }
}

TEST_F(ListDraft, AModelWhosePlaceLiesPastTheArchivesEndIsListedWithAComment) {
  Model("alpha.shp");
  Model("bravo.shp");
  Write();
  PatchFileAt(folder.Native("game/resource.hog"), 16, {0xFF, 0xFF, 0xFF, 0xF0, 0xFF, 0xFF, 0xFF, 0xFF});
  const ShipListDraft draft = DraftShipList(here.host, installation);
  ASSERT_EQ(draft.ships.size(), 2U);
  EXPECT_TRUE(draft.ships[0].comment.starts_with("damaged model: its place lies past the archive's end"));
  EXPECT_FALSE(draft.ships[1].comment.starts_with("damaged"));
}

TEST_F(ListDraft, AModelWithTooManyTexturesIsListedWithAComment) {
  Names textures;
  for (int i = 0; i < 51; ++i) textures.push_back("texture" + std::to_string(i));
  Model("alpha.shp", 3, textures);
  const ShipListDraft draft = Draft();
  ASSERT_EQ(draft.ships.size(), 1U);
  EXPECT_TRUE(draft.ships[0].capital);
  EXPECT_TRUE(draft.ships[0].comment.starts_with("damaged model: it names more than 50 textures"));
}

TEST_F(ListDraft, ATextureNameThatTheListCannotHoldIsLeftOut) {
  Model("alpha.shp", 0, {std::string(31, 't'), "a\"b"});
  Model("bravo.shp", 0, {"fine", "a\nb"});
  const ShipListDraft draft = Draft();
  ASSERT_EQ(draft.ships.size(), 2U);
  EXPECT_EQ(draft.ships[0].ship.texture0, "");
  EXPECT_EQ(draft.ships[0].ship.texture1, "");
  EXPECT_TRUE(draft.ships[0].comment.starts_with("a texture's name cannot stand in the list: ttt"));
  EXPECT_EQ(draft.ships[1].ship.texture0, "fine");
  EXPECT_EQ(draft.ships[1].ship.texture1, "");
}

TEST_F(ListDraft, AddOnShipsComeLastAndBringTheirOwnStatistics) {
  blocks = {"manta"};
  Model("alpha.shp");
  WriteFileAt(folder.Native("program/addons/ships/wraith.shp"), ModelOf(0, {"w1", "w2"}));
  WriteFileAt(folder.Native("program/addons/ships/Manta.SHP"), ModelOf(5, {"m1"}));
  WriteFileAt(folder.Native("program/addons/ships/notes.txt"), "no model");
  WriteFileAt(folder.Native("program/addons/ships/alpha.shp"), ModelOf(0));
  const ShipListDraft draft = Draft();
  ASSERT_EQ(FilesIn(draft), (Names{"alpha.shp", "Manta.SHP", "wraith.shp"}));
  EXPECT_EQ(draft.ships[1].ship.kind, 3);
  EXPECT_EQ(draft.ships[1].ship.statsIndex, 0);
  EXPECT_EQ(draft.ships[1].ship.texture0, "m1");
  EXPECT_TRUE(draft.ships[1].capital);
  EXPECT_EQ(draft.ships[1].comment, "add-on ship: it brings its own statistics");
  EXPECT_EQ(draft.freeBlocks, Names{"0 manta"});
  ASSERT_EQ(draft.passedOver.size(), 1U) << "the game's own ship of that file name comes first";
  EXPECT_EQ(draft.passedOver[0].name, "alpha.shp");
}

TEST_F(ListDraft, AnImportedShipKeepsItsName) {
  Model("alpha.shp");
  WriteFileAt(folder.Native("program/addons/ships/manta.shp"), ModelOf(0));
  ShipRecord record;
  record.ShipFile.Set("MANTA.shp");
  record.ShipName.Set("Manta Ray");
  record.Imported = true;
  installation.ships = {record};
  EXPECT_EQ(NamesIn(Draft()), (Names{"Alpha", "Manta Ray"}));
}

TEST_F(ListDraft, WithoutTheStatisticsEveryShipStandsAtBlock0AndARemarkSaysWhy) {
  Model("alpha.shp");
  Write();
  std::filesystem::remove(folder.Native("game/shipstats.bin"));
  const ShipListDraft draft = DraftShipList(here.host, installation);
  ASSERT_EQ(draft.ships.size(), 1U);
  EXPECT_EQ(draft.ships[0].match, MatchSureness::none);
  EXPECT_TRUE(draft.remark.starts_with("The statistics were not read: ")) << draft.remark;
  EXPECT_EQ(draft.blocks, 0);
}

TEST_F(ListDraft, WithoutTheArchiveThereIsNone) {
  MakeFolderAt(folder.Native("game"));
  here.desk.ExpectBox("Error - hog not found", "GetHogData");
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  const ShipListDraft draft = DraftShipList(here.host, installation);
  EXPECT_TRUE(draft.ships.empty());
  EXPECT_EQ(here.desk.shown.size(), 2U) << "and the error trap's box";
}

TEST_F(ListDraft, OfADamagedTableThereIsNone) {
  Model("alpha.shp");
  Write();
  PatchFileAt(folder.Native("game/resource.hog"), 8, {0x7F, 0xFF, 0xFF, 0xFF});
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  EXPECT_TRUE(DraftShipList(here.host, installation).ships.empty());
  EXPECT_EQ(here.desk.shown.size(), 1U);
  EXPECT_EQ(here.desk.shown[0].title, "GetHogData");
}

TEST_F(ListDraft, AnArchiveCutShortAnywhereEndsInADraftOrABox) {
  Model("alpha.shp", 0, {"one", "two"});
  Stored("bravo.shp", ModelOf(1, {"three"}));
  const Bytes whole = demo::BuildArchive(entries);
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  WriteFileAt(folder.Native("game/shipstats.bin"), Bytes(352));
  for (std::size_t length = 12; length < whole.size(); length += length < 80 ? 1 : 37) {
    WriteFileAt(folder.Native("game/resource.hog"), Bytes(whole.begin(), whole.begin() + static_cast<long>(length)));
    const std::size_t boxes = here.desk.shown.size();
    const ShipListDraft draft = DraftShipList(here.host, installation);
    EXPECT_EQ(draft.ships.size(), here.desk.shown.size() == boxes ? 2U : 0U) << length;
    EXPECT_EQ(here.host.files.open, 0) << length;
  }
}

TEST_F(ListDraft, TellsHowFarItHasComeAndCanBeStopped) {
  for (const char* name : {"alpha.shp", "bravo.shp", "charlie.shp"}) Model(name);
  EXPECT_EQ(Draft().ships.size(), 3U);
  ASSERT_EQ(here.desk.progress.size(), 4U);
  EXPECT_EQ(here.desk.progress[1].text, "Reading bravo.shp");
  EXPECT_EQ(here.desk.progress[1].done, 1);
  EXPECT_EQ(here.desk.progress[1].total, 3);
  EXPECT_EQ(here.desk.progress[3].total, 0) << "it has ended";
  here.desk.StopAfter(1);
  const ShipListDraft draft = Draft();
  EXPECT_TRUE(draft.stopped);
  EXPECT_TRUE(draft.ships.empty());
  EXPECT_EQ(here.desk.progress.back().total, 0);
}

TEST_F(ListDraft, WritesNothing) {
  blocks = {"alpha"};
  Model("alpha.shp");
  Model("t_alpha.shp");
  WriteFileAt(folder.Native("program/addons/ships/manta.shp"), ModelOf(0));
  Write();
  const FolderImage before = ImageOf(folder.native);
  EXPECT_EQ(DraftShipList(here.host, installation).ships.size(), 3U);
  EXPECT_TRUE(SameImage(before, ImageOf(folder.native)));
  EXPECT_EQ(here.host.files.open, 0);
}

TEST_F(ListDraft, ReadsBackFromTheFileThatItIsSavedTo) {
  blocks = {"Alpha, the First"};
  Model("alpha.shp", 0, {"hull", "wing, left"});
  Model("t_alpha.shp");
  const ShipListDraft draft = Draft();
  ASSERT_TRUE(SaveShipList(here.host, installation.shipListPath(), ShipsOf(draft.ships)));
  const std::vector<ListedShip> read = ReadShipList(here.host.files, installation.shipListPath());
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[0].name, "Alpha, the First");
  EXPECT_EQ(read[0].texture1, "wing, left");
  EXPECT_EQ(read[1].name, read[0].name);
}

/// The sample's own ship list, written by hand, is what the draft should come near to.
struct DraftOfTheSample : testing::Test {
  DraftOfTheSample() {
    installation.GamePath = folder.Windows("sample\\StarLancer\\");
    installation.ProgramPath = folder.Windows("sample\\Oravin\\");
  }

  TemporaryFolder folder;
  demo::Sample sample = demo::WriteSample(folder.Native("sample"), {200, 60, 0});
  ScriptedHost here;
  Installation installation;
};

TEST_F(DraftOfTheSample, FindsTheSameShipsModelsTexturesAndStatistics) {
  const ShipListDraft draft = DraftShipList(here.host, installation);
  std::map<std::string, DraftedShip> drafted;
  for (const DraftedShip& ship : draft.ships) drafted[ship.ship.file] = ship;
  ASSERT_EQ(draft.ships.size(), sample.ships.size());
  for (const demo::SampleShip& ship : sample.ships) {
    SCOPED_TRACE(ship.file);
    ASSERT_TRUE(drafted.contains(ship.file));
    const DraftedShip& found = drafted[ship.file];
    EXPECT_EQ(found.ship.texture0, ship.texture0);
    EXPECT_EQ(found.ship.texture1, ship.texture1);
    EXPECT_EQ(found.ship.statsIndex, ship.statsIndex) << found.comment;
    EXPECT_EQ(found.capital, ship.capital);
    EXPECT_EQ(found.ship.kind == 3, ship.kind == 3);
  }
  EXPECT_TRUE(draft.freeBlocks.empty());
}

TEST_F(DraftOfTheSample, HasItsNamesAndItsOrderButForWhatNoFileTells) {
  const ShipListDraft draft = DraftShipList(here.host, installation);
  Names differences;
  ASSERT_EQ(draft.ships.size(), sample.ships.size());
  for (std::size_t i = 0; i < sample.ships.size(); ++i) {
    const demo::SampleShip& ship = sample.ships[i];
    const ListedShip& found = draft.ships[i].ship;
    if (ship.kind == 3) continue;  // the draft sorts the add-on ships by file and names them so
    EXPECT_EQ(found.file, ship.file);
    if (found.name != ship.name) differences.push_back(ship.name + " -> " + found.name);
    EXPECT_EQ(found.kind, 1) << "the files do not tell kind 2 from kind 1";
  }
  EXPECT_EQ(differences, Names{});
  EXPECT_FALSE(WhyNotSaved(ShipsOf(draft.ships)));
}

}  // namespace
}  // namespace oravin::test
