// The work on statistics and weapons, from enabling to disabling, over the small installation and through the handler
// table. After every step every file of both folders is compared byte for byte with what it must be.

#include <algorithm>
#include <bit>

#include "demo/compressor.h"
#include "demo/model_writer.h"
#include "session.h"

namespace oravin::test {
namespace {

constexpr std::size_t elementSize = 108;
constexpr std::size_t classByteAt = 26;

constexpr const char* bin = "game/shipstats.bin";
constexpr const char* def = "game/shipstats.def";

struct StatsCycle : testing::Test {
  StatsCycle() {
    expected.StartUp();
    session.Enable();
    expected.Enable();
    image = expected.Image();
  }

  StatsTab& Tab() { return session.main.stats; }

  /// Clicks on a ship of the list.
  void Choose(int ship) {
    ASSERT_TRUE(RowOf(Tab().shipEditingList, ship).has_value());
    SelectOnly(Tab().shipEditingList, RowOf(Tab().shipEditingList, ship));
    session.Press("stats.shipEditingList.ItemClick");
  }
  /// Edits a row of the statistics, counted from 0; returns whether that was taken.
  bool Edit(std::size_t row, const std::string& text) {
    Tab().shipStatsList.edited = {row, text};
    session.Press("stats.shipStatsList.AfterLabelEdit");
    return !Tab().shipStatsList.edited.refused;
  }
  /// Chooses an item of a weapons' menu on a row of the weapons, counted from 0.
  void Change(std::size_t row, const char* menu, int type) {
    ASSERT_LT(row, Tab().shipWeaponsList.rows.size());
    SelectOnly(Tab().shipWeaponsList, row);
    session.Press("stats.shipWeaponsList.ItemClick");
    Tab().clickedType = type;
    session.Press(menu);
  }
  std::vector<std::string> Weapons() { return Texts(Tab().shipWeaponsList); }
  std::vector<std::string> Values() { return Texts(Tab().shipStatsList); }
  static std::vector<std::string> Texts(const ListView& list) {
    std::vector<std::string> texts;
    for (const ListRow& row : list.rows) texts.push_back(row.texts.at(0));
    return texts;
  }

  /// What a step changes.
  void PutFloat(const char* file, int block, std::size_t field, float value) {
    PutLittleEndian32(&image.at(file).at(352 * static_cast<std::size_t>(block) + 64 + 4 * field),
                      std::bit_cast<std::uint32_t>(value));
  }
  void CopyStats(const Bytes& from, int fromBlock, const char* to, int toBlock) {
    const auto at = [](int block) { return std::ptrdiff_t{352} * block + 64; };
    std::copy_n(from.begin() + at(fromBlock), 60, image.at(to).begin() + at(toBlock));
  }
  Bytes& Model(const std::string& name) { return image.at("game/ships/" + name); }
  void PutWeapon(const std::string& model, std::size_t attachment, int kind, std::optional<int> gun,
                 std::optional<int> externalGun) {
    Bytes& bytes = Model(model);
    const std::size_t at = bytes.size() - elementSize * (SmallShipWeapons().size() - attachment);
    const auto put = [&](std::size_t field, int value) {
      bytes.at(at + field) = static_cast<std::uint8_t>(value);
      bytes.at(at + field + 1) = 0;
    };
    put(0, kind);
    if (gun) put(100, *gun);
    if (externalGun) put(52, *externalGun);
  }
  void Compare(const char* step) { EXPECT_TRUE(SameImage(image, ImageOf(installation.folder.native))) << step; }

  SmallInstallation installation;
  ExpectedFiles expected{installation};
  Session session{installation};
  FolderImage image;  ///< what every file must be
};

const std::vector<std::string> stockWeapons = {"Pair: Pulse Cannon", "Nova Cannon", "Pair: Missiles",
                                               "External - Laser Cannon Type 4"};

TEST_F(StatsCycle, TheWholeJobChangesWhatItSaysAndDisablePutsEverythingBack) {
  Choose(alpha);
  EXPECT_EQ(Values().size(), 15U);
  EXPECT_EQ(Weapons(), stockWeapons);
  EXPECT_EQ(Tab().chart.selectedName, "Alpha");
  Compare("choosing a ship");

  EXPECT_TRUE(Edit(0, " +250.50 "));
  PutFloat(bin, 0, 0, 250.5F);
  Compare("an edit");
  EXPECT_TRUE(Edit(9, "12.5"));
  PutFloat(bin, 0, 11, 12.5F);  // Shield Recharge stands behind Afterburner Fuel
  Compare("an edit of Shield Recharge");
  session.desk.ExpectBox("Inertia must be a value between 0 and 1.");
  EXPECT_FALSE(Edit(1, "1.5"));
  session.desk.ExpectBox("This value must be between 0 and 10,000,000");
  EXPECT_FALSE(Edit(0, "10000001"));
  Compare("two refused edits");

  session.Press("stats.pldStatsCopy");
  Choose(manta);
  session.Press("stats.pldStatsPaste");
  CopyStats(image.at(bin), 0, def, expected.addedBlocks.at(manta));
  Compare("pasting onto an imported ship");
  Choose(bravo);
  session.Press("stats.pldStatsPaste");
  CopyStats(image.at(bin), 0, bin, 1);
  Compare("pasting onto a stock ship");
  session.Press("stats.cmdRestoreShipStats");
  CopyStats(expected.stockStats, 1, bin, 1);
  Compare("restoring a stock ship");
  Choose(manta);
  session.Press("stats.pldStatsRestoreDefault");
  CopyStats(*expected.defaults, expected.addedBlocks.at(manta), def, expected.addedBlocks.at(manta));
  Compare("restoring an imported ship");

  Choose(alpha);
  Change(0, "stats.pldGunType", 15);
  PutWeapon("alpha.shp", 0, 3, 15, std::nullopt);
  PutWeapon("alpha.shp", 1, 3, 15, std::nullopt);
  Compare("changing a pair");
  Change(3, "stats.pldExtGunType", 11);
  PutWeapon("alpha.shp", 5, 1, std::nullopt, 11);
  Compare("changing an external gun");
  Change(1, "stats.pldMissileType", 0);
  PutWeapon("alpha.shp", 2, 0, 64, 6);
  Compare("changing to a missile point");
  EXPECT_EQ(Weapons(), (std::vector<std::string>{"Pair: Coalition Huge Gun", "Missile", "Pair: Missiles",
                                                 "External - Laser Cannon Type 5"}));

  session.Press("stats.chkHasCloak.MouseUp");
  Model("alpha.shp").at(classByteAt) = 2;
  EXPECT_TRUE(Tab().chkHasCloak.checked);
  Compare("toggling the cloaking device");
  session.Press("stats.cmdRestoreWeapons");
  Model("alpha.shp") = installation.ships[alpha].model;
  Model("alpha.shp").at(classByteAt) = 2;
  Compare("restoring the weapons");
  EXPECT_EQ(Weapons(), stockWeapons);

  session.desk.ExpectBox(
      "The statistics of 10 ships were restored.\nThese could not be restored:\n"
      "Wraith: Imported Ships have no default\nColossus: Imported Ships have no default");
  session.Press("stats.cmdRestoreAllStats");
  image.at(bin) = expected.stockStats;
  Compare("restoring all statistics");

  // Disabling has to put back whatever still differs.
  EXPECT_TRUE(Edit(14, "1"));
  Change(0, "stats.pldMissileType", 0);
  Choose(cruiser);
  session.Press("stats.chkHasCloak.MouseUp");
  EXPECT_EQ(Tab().lblShipClass.caption, "Fighter with a cloaking device");
  session.Disable();
  expected.Disable();
  image = expected.Image();
  Compare("disabling");
}

TEST_F(StatsCycle, TheVariantOfAShipIsChangedAndRestoredWithIt) {
  Choose(tiger);
  Change(0, "stats.pldExtGunType", 3);
  for (const char* model : {"tiger.shp", "t_tiger.shp"}) {
    PutWeapon(model, 0, 1, std::nullopt, 3);
    PutWeapon(model, 1, 1, std::nullopt, 3);
  }
  Compare("changing a pair of both models");
  session.Press("stats.cmdRestoreWeapons");
  image = expected.Image();
  Compare("restoring both models");
}

TEST_F(StatsCycle, AStoredModelLosesNothingOfWhatFollowsIt) {
  Choose(stored);
  Change(1, "stats.pldGunType", 1);
  Bytes& model = Model("stored.shp");
  const std::size_t own = installation.ships[stored].model.size();
  model.at(own - elementSize * 4 + 100) = 1;
  Compare("changing a gun");
  session.Press("stats.cmdRestoreWeapons");
  image = expected.Image();
  Compare("restoring the weapons");
}

TEST_F(StatsCycle, AnImportedShipsWeaponsComeFromItsBackupElseFromTheAddOns) {
  Choose(wraith);
  Change(0, "stats.pldGunType", 9);
  session.Press("stats.cmdRestoreWeapons");
  Compare("restoring from the add-ons");
  image["game/ships/wraith.bak"] = Model("wraith.shp");
  PutWeapon("wraith.bak", 2, 3, 4, std::nullopt);
  WriteFileAt(installation.Game("ships/wraith.bak"), Model("wraith.bak"));
  session.Press("stats.cmdRestoreWeapons");
  PutWeapon("wraith.shp", 2, 3, 4, std::nullopt);
  Compare("restoring from the backup");
}

TEST_F(StatsCycle, ACopyThatOnlyLooksShowsAShipAndChangesNothing) {
  session.main.readOnly = true;
  Choose(alpha);
  EXPECT_EQ(Weapons(), stockWeapons);
  session.Press("stats.pldStatsCopy");
  Choose(bravo);
  SelectOnly(Tab().shipWeaponsList, 0);
  for (const char* action :
       {"stats.shipStatsList.AfterLabelEdit", "stats.pldStatsPaste", "stats.pldStatsRestoreDefault",
        "stats.cmdRestoreShipStats", "stats.cmdRestoreAllStats", "stats.pldGunType", "stats.pldExtGunType",
        "stats.pldMissileType", "stats.chkHasCloak.MouseUp", "stats.cmdRestoreWeapons"}) {
    session.desk.ExpectBox("Another copy of Oravin works on this installation, so nothing can be changed here now.");
    session.Press(action);
  }
  Compare("ten refusals");
}

/// An archive that a patch has changed after the features were enabled: what the catalogue noted of it no longer holds.
struct PatchedArchive : testing::Test {
  PatchedArchive() {
    installation.ships[bravo].model = WithGuns(9);
    installation.WriteArchive();
    session.Enable();
  }
  /// Alpha's model with other guns: every attachment has the type.
  [[nodiscard]] Bytes WithGuns(std::uint8_t type) const {
    Bytes model = installation.ships[alpha].model;
    for (std::size_t i = 1; i <= SmallShipWeapons().size(); ++i) model.at(model.size() - elementSize * i + 100) = type;
    return model;
  }
  /// Writes the archive anew, as a patch of the whole archive does: a new file first, and models under their own names.
  void Rebuild(const std::vector<int>& models) {
    std::vector<demo::ArchiveFile> files = {{"sounds\\new.wav", Bytes(100000, 0x11)}};
    for (const int ship : models) {
      const SmallShip& listed = installation.ships[static_cast<std::size_t>(ship)];
      files.push_back({listed.entryName, demo::Compress(listed.model)});
    }
    WriteFileAt(installation.Game("resource.hog"), demo::BuildArchive(files));
  }
  /// Moves alpha's model to the archive's end and puts bravo's where it was.
  /// @param name of alpha's entry in the table then; as long as the old one
  void PutBravoInAlphasPlace(const std::string& name) {
    Bytes archive = ReadFileAt(installation.Game("resource.hog"));
    const TableEntry entry = EntryNamed(archive, "S47ha.shp");
    PutBigEndian32(&archive.at(entry.position), static_cast<std::uint32_t>(archive.size()));
    std::copy(name.begin(), name.end(), archive.begin() + entry.position + 8);
    const Bytes model = demo::Compress(installation.ships[alpha].model);
    archive.insert(archive.end(), model.begin(), model.end());
    const Bytes other = demo::Compress(installation.ships[bravo].model);
    std::copy(other.begin(), other.end(), archive.begin() + entry.offset);
    WriteFileAt(installation.Game("resource.hog"), archive);
  }
  /// Gives alpha other guns and restores its weapons: its model must be the given one then, and nothing else changed.
  void ExpectRestored(const Bytes& model) {
    WriteFileAt(installation.Game("ships/alpha.shp"), WithGuns(13));
    FolderImage expected = ImageOf(installation.folder.native);
    expected.at("game/ships/alpha.shp") = model;
    SelectOnly(session.main.stats.shipEditingList, RowOf(session.main.stats.shipEditingList, alpha));
    session.Press("stats.shipEditingList.ItemClick");
    session.Press("stats.cmdRestoreWeapons");
    EXPECT_TRUE(SameImage(expected, ImageOf(installation.folder.native)));
  }

  SmallInstallation installation;
  Session session{installation};
};

TEST_F(PatchedArchive, AnotherShipsModelAtTheOldPlaceIsNotTakenForTheOriginal) {
  PutBravoInAlphasPlace("S47ha.shp");
  ExpectRestored(installation.ships[alpha].model);
}

TEST_F(PatchedArchive, AModelThatHasMovedUnderItsOwnNameIsFound) {
  PutBravoInAlphasPlace("ALPHA.shp");
  ExpectRestored(installation.ships[alpha].model);
}

TEST_F(PatchedArchive, AModelOfAnArchiveThatIsNewAltogetherIsFound) {
  Rebuild({bravo, alpha});
  ExpectRestored(installation.ships[alpha].model);
}

TEST_F(PatchedArchive, ThePatchsOwnModelIsTheOriginal) {
  installation.ships[alpha].model = WithGuns(4);
  Rebuild({alpha, bravo});
  ExpectRestored(WithGuns(4));
}

TEST_F(PatchedArchive, AModelThatIsGoneIsNoOriginalAlthoughItsOldPlaceHoldsAnother) {
  PutBravoInAlphasPlace("other.shp");
  session.desk.ExpectBox("No suitable original can be found", "RestoreWeapons");
  ExpectRestored(WithGuns(13));
}

TEST_F(PatchedArchive, AnEntryThatHasBecomeEmptyIsNoOriginal) {
  Bytes archive = ReadFileAt(installation.Game("resource.hog"));
  PutBigEndian32(&archive.at(EntryNamed(archive, "S47ha.shp").position + 4), 0);
  WriteFileAt(installation.Game("resource.hog"), archive);
  session.desk.ExpectBox("No suitable original can be found", "RestoreWeapons");
  ExpectRestored(WithGuns(13));
}

TEST_F(PatchedArchive, AnArchiveThatIsMissingIsReported) {
  std::filesystem::remove(installation.Game("resource.hog"));
  session.desk.ExpectBox("Error - Path(s) not found", "UnpackFile()");
  ExpectRestored(WithGuns(13));
}

/// The same with another model and other weapons for the Manta.
struct StatsShown : testing::Test {
  StatsShown() {
    demo::ModelOptions options;
    options.size = 1500;
    options.attachments = {{demo::kGun, 0, 0, 10, 0, 7}};
    WriteFileAt(installation.Program("addons/ships/manta.shp"), demo::BuildModel(options));
    session.Enable();
  }
  void Choose(int ship) {
    SelectOnly(Tab().shipEditingList, RowOf(Tab().shipEditingList, ship));
    session.Press("stats.shipEditingList.ItemClick");
  }
  StatsTab& Tab() { return session.main.stats; }
  std::vector<std::string> Weapons() { return StatsCycle::Texts(Tab().shipWeaponsList); }
  std::string FirstValue() { return Tab().shipStatsList.rows.at(0).texts.at(0); }
  void ExpectNoShipShown() {
    EXPECT_TRUE(Tab().shipStatsList.rows.empty());
    EXPECT_TRUE(Tab().shipWeaponsList.rows.empty());
    EXPECT_TRUE(Tab().chart.selectedName.empty());
    EXPECT_TRUE(Tab().topView.points.empty());
    EXPECT_TRUE(Tab().lblShipClass.caption.empty());
    EXPECT_FALSE(Tab().cmdRestoreShipStats.enabled);
    EXPECT_FALSE(Tab().chkHasCloak.enabled);
  }

  SmallInstallation installation;
  Session session{installation};
};

TEST_F(StatsShown, ASwapOfTheSelectedShipShowsWhatItBecame) {
  Choose(alpha);
  EXPECT_EQ(FirstValue(), "0.5");
  session.Swap(alpha, manta);
  EXPECT_EQ(SelectedShip(Tab()), alpha);
  EXPECT_EQ(Weapons(), std::vector<std::string>{"Neutron Particle Gun"});
  EXPECT_EQ(Tab().topView.points.size(), 1U);
  EXPECT_EQ(FirstValue(), "1");  // the Manta's text says so
  EXPECT_TRUE(Tab().shipStatsList.rows.at(0).bold);
  EXPECT_EQ(Tab().shipStatsList.rows.at(0).tooltip, "Default: 0.5");
  session.Unswap(alpha);
  EXPECT_EQ(Weapons(), stockWeapons);
  EXPECT_EQ(FirstValue(), "0.5");
  EXPECT_FALSE(Tab().shipStatsList.rows.at(0).bold);
}

TEST_F(StatsShown, PuttingAllShipsBackShowsTheSelectedShipAnew) {
  session.Swap(alpha, manta);
  Choose(alpha);
  session.UnswapAll();
  EXPECT_EQ(Weapons(), stockWeapons);
  EXPECT_EQ(FirstValue(), "0.5");
}

TEST_F(StatsShown, EnablingAgainShowsTheSelectedShipAnew) {
  Choose(alpha);
  SelectOnly(Tab().shipWeaponsList, 0);
  session.Press("stats.pldMissileType");
  EXPECT_EQ(Weapons().front(), "Pair: Missiles");
  session.Enable();  // it unpacks the models anew
  EXPECT_EQ(SelectedShip(Tab()), alpha);
  EXPECT_EQ(Weapons(), stockWeapons);
  EXPECT_EQ(FirstValue(), "0.5");
}

TEST_F(StatsShown, DisablingEmptiesEverythingThatShowsAShip) {
  Choose(alpha);
  session.Press("stats.pldStatsCopy");
  session.Disable();
  EXPECT_TRUE(Tab().shipEditingList.rows.empty());
  EXPECT_FALSE(Tab().remembered.has_value());
  EXPECT_FALSE(Tab().cmdRestoreAllStats.enabled);
  ExpectNoShipShown();
  session.Enable();
  EXPECT_FALSE(Tab().shipEditingList.rows.empty());
  EXPECT_FALSE(Tab().pldStatsPaste.enabled);
  EXPECT_TRUE(Tab().cmdRestoreAllStats.enabled);
  ExpectNoShipShown();
}

}  // namespace
}  // namespace oravin::test
