// The defaults of the statistics, lost while the features are enabled.

#include <algorithm>

#include "session.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

namespace fs = std::filesystem;

struct LostDefaults : testing::Test {
  void Start() {
    session = nullptr;
    session = std::make_unique<Session>(installation);
  }
  void EnableAndEnd() {
    Start();
    session->Enable();
    session = nullptr;
  }
  [[nodiscard]] fs::path Path() const { return installation.Game("shipstats.def"); }
  [[nodiscard]] Bytes Defaults() const { return ReadFileAt(Path()); }
  [[nodiscard]] fs::path Kept() const { return installation.Program("backup/shipstats.def"); }
  /// Selects a ship on the tab of the statistics; a box fails the test.
  std::string FirstValueOf(int ship) {
    StatsTab& tab = session->main.stats;
    SelectOnly(tab.shipEditingList, RowOf(tab.shipEditingList, ship));
    session->Press("stats.shipEditingList.ItemClick");
    return tab.shipStatsList.rows.empty() ? std::string() : tab.shipStatsList.rows[0].texts.at(0);
  }

  SmallInstallation installation;
  std::unique_ptr<Session> session;
};

TEST_F(LostDefaults, ComeFromTheBackupWithTheBlocksOfTheImportedShips) {
  EnableAndEnd();
  const Bytes before = Defaults();
  const FolderImage program = ImageOf(installation.folder.Native("program"));
  fs::remove(Path());
  Start();
  EXPECT_TRUE(SameBytes(before, Defaults()));
  EXPECT_TRUE(SameImage(program, ImageOf(installation.folder.Native("program"))));
  EXPECT_EQ(FirstValueOf(manta), "1");
  EXPECT_EQ(FirstValueOf(wraith), "0.5");
}

TEST_F(LostDefaults, OfChangedShipsComeFromTheBackupSoThatDisableRestoresThem) {
  Start();
  const Bytes stock = ReadFileAt(installation.Game("shipstats.bin"));
  session->Enable();
  const Bytes before = Defaults();
  session->Swap(alpha, manta);
  session = nullptr;
  fs::remove(Path());
  Start();
  // The Wraith and the Colossus have no text, so they take the first block as it is now: the Manta's.
  Bytes expected = before;
  for (const int block : {13, 14}) {
    std::copy_n(ReadFileAt(installation.Game("shipstats.bin")).begin() + 64, 60, expected.begin() + 352 * block + 64);
  }
  EXPECT_TRUE(SameBytes(expected, Defaults()));
  session->Disable();
  EXPECT_TRUE(SameBytes(stock, ReadFileAt(installation.Game("shipstats.bin"))));
}

TEST_F(LostDefaults, ComeFromTheGamesFileWithoutABackup) {
  EnableAndEnd();
  const Bytes before = Defaults();
  fs::remove(Path());
  fs::remove(Kept());
  Start();
  EXPECT_TRUE(SameBytes(before, Defaults()));
}

TEST_F(LostDefaults, GiveEachPartOfAnImportedShipTheBlockThatItsRecordNames) {
  installation.ships[wraith].name = "Manta";
  installation.WriteShipList();
  WriteFileAt(installation.Program("addons/stats/wraith.txt"), "9,9,9,9,9,9,9,9,9,9,9,9,9,9,9");
  EnableAndEnd();
  const Bytes before = Defaults();
  fs::remove(Path());
  Start();
  EXPECT_TRUE(SameBytes(before, Defaults()));
}

TEST_F(LostDefaults, LeaveTheBlockOfARemovedShipEmpty) {
  Start();
  session->Enable();
  ListView& list = session->main.imports.lstImported;
  SelectOnly(list, RowOf(list, wraith));
  session->Press("imports.lstImported.ItemClick");
  session->desk.ExpectQuestion("Are you sure that you want to remove these ships?", Answer::yes,
                               "Oravin - Manage Switcher");
  session->desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::yesNo ? Answer::no : Answer::ok; });
  session->Press("imports.cmdRemoveShips");
  session = nullptr;
  const Bytes before = Defaults();
  ASSERT_TRUE(std::all_of(before.begin() + 13 * 352, before.begin() + 14 * 352, [](auto byte) { return byte == 0; }));
  fs::remove(Path());
  Start();
  EXPECT_TRUE(SameBytes(before, Defaults()));
}

TEST_F(LostDefaults, OfAShipWhoseTextIsDamagedAreTheFirstBlockAfterABox) {
  EnableAndEnd();
  Bytes expected = Defaults();
  std::copy_n(expected.begin() + 64, 60, expected.begin() + 12 * 352 + 64);
  fs::remove(Path());
  WriteFileAt(installation.Program("addons/stats/manta.txt"), "1,2,three");
  session = std::make_unique<Session>(installation, false);
  session->desk.ExpectBox("Error - could not read " + installation.programPath +
                              "addons\\stats\\manta.txt: \"three\" is no number (line 1)",
                          "GetImportStats");
  Form_Load(session->main, {installation.gamePath, installation.programPath});
  EXPECT_TRUE(SameBytes(expected, Defaults()));
}

TEST_F(LostDefaults, OfARecordThatNamesAStockBlockLeaveThatBlockAlone) {
  EnableAndEnd();
  Bytes catalogue = ReadFileAt(installation.Program("ships.dat"));
  Bytes expected = Defaults();
  // StatsIndex comes after two names and four tagged values; the kind's value has 2 bytes, those of the archive 4.
  const std::size_t at = 868 * static_cast<std::size_t>(colossus) + 60 + 4 + 3 * 6 + 2;
  ASSERT_EQ(catalogue.at(at), 14);
  for (const std::uint8_t index : Bytes{0, 3, 11}) {
    catalogue.at(at) = index;
    WriteFileAt(installation.Program("ships.dat"), catalogue);
    expected.resize(14 * 352);
    fs::remove(Path());
    Start();
    EXPECT_TRUE(SameBytes(expected, Defaults()));
    session = nullptr;
  }
}

TEST_F(LostDefaults, AreNotMadeBeforeTheGamesFileIsBack) {
  EnableAndEnd();
  const Bytes before = Defaults();
  fs::remove(Path());
  fs::rename(installation.Game("shipstats.bin"), installation.Game("elsewhere"));
  session = std::make_unique<Session>(installation, false);
  session->desk.ExpectBox("Can't find shipstats.bin");
  Form_Load(session->main, {installation.gamePath, installation.programPath});
  session = nullptr;
  EXPECT_FALSE(fs::exists(Path()));
  fs::rename(installation.Game("elsewhere"), installation.Game("shipstats.bin"));
  Start();
  EXPECT_TRUE(SameBytes(before, Defaults()));
}

TEST_F(LostDefaults, AreThereWholeOrNotAtAllHoweverStartUpEnds) {
  EnableAndEnd();
  const Bytes before = Defaults();
  for (const FaultKind kind : {FaultKind::failure, FaultKind::stop}) {
    const int operations = AtEachOperation(kind, [&](Fault& fault) {
      fs::remove(Path());
      session = std::make_unique<Session>(installation, false);
      session->desk.AllowOthers([](const Message&) { return Answer::ok; });
      Watch(session->main.host.files, fault);
      Stopped([&] { Form_Load(session->main, {installation.gamePath, installation.programPath}); });
      session = nullptr;
      if (fs::exists(Path()) && !fault.what.ends_with("manta.txt") && !fault.what.ends_with("shipstats.bin") &&
          !fault.what.ends_with("ships.dat")) {
        EXPECT_TRUE(SameBytes(before, Defaults())) << fault.what;
      }
    });
    EXPECT_GT(operations, 10);
  }
  fs::remove(Path());
  Start();
  EXPECT_TRUE(SameBytes(before, Defaults()));
}

}  // namespace
}  // namespace oravin::test
