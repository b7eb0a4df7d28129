// The command "shiplist draft".

#include "demo/archive_writer.h"
#include "sample_runs.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

struct ShipListDrafting : SampleRuns {
  [[nodiscard]] FolderImage Folders() const { return ImageOf(folder.Native("sample")); }
  [[nodiscard]] static Json Draft() { return RunWords({"shiplist", "draft", "--json"}).Document(); }
};

TEST_F(ShipListDrafting, TellsEveryModelOfTheArchiveAndWritesNothing) {
  const FolderImage before = Folders();
  const Outcome outcome = RunWords({"shiplist", "draft", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const Json draft = outcome.Document();
  EXPECT_EQ(draft["action"], "shiplist draft");
  EXPECT_EQ(draft["remark"], "");
  EXPECT_FALSE(draft.contains("file"));
  const Json& ships = draft["ships"];
  ASSERT_EQ(ships.size(), sample.ships.size());
  for (const demo::SampleShip& ship : sample.ships) {
    SCOPED_TRACE(ship.file);
    const auto found =
        std::find_if(ships.begin(), ships.end(), [&](const Json& line) { return line["model"] == ship.file; });
    ASSERT_NE(found, ships.end());
    EXPECT_EQ((*found)["kind"], ship.kind == 3 ? 3 : 1);
    EXPECT_EQ((*found)["class"], ship.capital ? "capital ship" : "fighter");
    EXPECT_EQ((*found)["texture0"], ship.texture0);
    EXPECT_EQ((*found)["texture1"], ship.texture1);
    EXPECT_NE((*found)["comment"], "");
  }
  EXPECT_EQ(ships[0]["name"], "Predator");
  EXPECT_EQ(ships[0]["match"], "alike");
  EXPECT_EQ(ships[0]["statsIndex"], sample.ships[0].statsIndex);
  EXPECT_EQ(ships[1]["model"], "t_predator.shp") << "the second part stands behind its ship";
  EXPECT_EQ(ships[1]["name"], "Predator");
  EXPECT_TRUE(SameImage(before, Folders()));
}

TEST_F(ShipListDrafting, TextIsATableAndSaysThatNothingWasWritten) {
  const Outcome outcome = RunWords({"shiplist", "draft"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.find("Name "), 0U);
  EXPECT_NE(outcome.out.find("\nPredator              predator.shp    fighter "), std::string::npos) << outcome.out;
  const std::string last = "Nothing was written; --to FILE writes the list.\n";
  EXPECT_EQ(outcome.out.substr(outcome.out.size() - last.size()), last);
}

TEST_F(ShipListDrafting, TheListCanBeWrittenAndEnabledWith) {
  std::filesystem::remove(sample.program / "shipsData.txt");
  const std::string list = (sample.program / "shipsData.txt").string();
  const Outcome outcome = RunWords({"shiplist", "draft", "--to", list, "--json", "--game", sample.game.string(),
                                    "--program", sample.program.string()});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.Document()["file"], folder.Windows("sample/Oravin/shipsData.txt"));
  const std::string text = ReadTextAt(list);
  EXPECT_EQ(text.find("15\r\n1,\"Predator\",\"predator.shp\","), 0U) << text;
  EXPECT_EQ(text.find("statistics of"), std::string::npos) << "comments stand in the report, not in the file";
  Enable();
  EXPECT_EQ(RunWords({"ships", "swap", "Predator", "Kestrel"}).status, 0);
}

TEST_F(ShipListDrafting, AListThatIsThereIsKeptBesideTheNewOne) {
  const Bytes old = ReadFileAt(sample.program / "shipsData.txt");
  const Outcome outcome = RunWords({"shiplist", "draft", "--to", (sample.program / "shipsData.txt").string()});
  EXPECT_EQ(outcome.status, 0);
  const std::string last = "Written to " + folder.Windows("sample/Oravin/shipsData.txt") + "\n";
  EXPECT_EQ(outcome.out.substr(outcome.out.size() - last.size()), last);
  EXPECT_TRUE(SameBytes(old, ReadFileAt(sample.program / "shipsData.old")));
  EXPECT_NE(old, ReadFileAt(sample.program / "shipsData.txt"));
}

TEST_F(ShipListDrafting, OnAnEnabledInstallationItIsTheSameDraftWithTheImportedNames) {
  EditShipList("\"Manta\"", "\"Big Manta\"");
  const Json before = Draft();
  Enable();
  const Json ships = Draft()["ships"];
  ASSERT_EQ(ships.size(), before["ships"].size());
  for (std::size_t i = 0; i < ships.size(); ++i) {
    EXPECT_EQ(ships[i]["model"], before["ships"][i]["model"]);
    EXPECT_EQ(ships[i]["statsIndex"], before["ships"][i]["statsIndex"]);
  }
}

TEST_F(ShipListDrafting, NeedsNoProgramFolderAtAll) {
  std::filesystem::remove_all(sample.program);
  const std::string list = folder.Native("list.txt").string();
  const Outcome outcome = RunWords({"shiplist", "draft", "--to", list, "--game", sample.game.string()});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(ReadTextAt(list).substr(0, 4), "12\r\n") << "there are no add-on ships";
}

TEST_F(ShipListDrafting, AFolderWithoutTheArchiveIsRefused) {
  const Outcome outcome = RunWords({"shiplist", "draft", "--game", folder.native.string()});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "Oravin: " + folder.windows + "\n  This is not a StarLancer game directory\n");
}

TEST_F(ShipListDrafting, AnArchiveWithoutModelsIsTold) {
  std::filesystem::remove_all(sample.program / "addons");
  WriteFileAt(sample.game / "resource.hog", demo::BuildArchive({{"music.wav", Bytes(100)}}));
  const Outcome outcome = RunWords({"shiplist", "draft"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "oravin-cli: no ship models were found in the game's archive\n");
}

TEST_F(ShipListDrafting, AFileThatCannotBeWrittenIsTold) {
  const Outcome outcome = RunWords({"shiplist", "draft", "--to", folder.Native("none/list.txt").string()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err.find("SaveShipList: "), 0U) << outcome.err;
}

TEST_F(ShipListDrafting, WrongUses) {
  EXPECT_EQ(RunWords({"shiplist"}).status, 2);
  EXPECT_EQ(RunWords({"shiplist", "draft", "--to"}).status, 2);
  EXPECT_EQ(RunWords({"shiplist", "draft", "list.txt"}).status, 2);
}

}  // namespace
}  // namespace oravin::test
