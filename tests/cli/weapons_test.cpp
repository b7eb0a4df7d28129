// The commands of the groups "weapons", "cloak" and "model".

#include "demo/model_writer.h"
#include "platform/installation_lock.h"
#include "sample_runs.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

constexpr std::size_t elementSize = 108;
constexpr std::size_t weaponCount = 6;
constexpr std::size_t classByteAt = 26;

const std::string guns =
    "there are: 1 Laser Cannon, 2 Pulse Cannon, 3 Messon Blasters, 4 Proton Cannon, 5 Gatling Lasers, 6 Tachyon "
    "Cannon, 7 Neutron Particle, 8 Collapser Guns, 9 Gatling Plasma Cannon, 10 Vulcan Battery, 11 Nova Cannon "
    "(readme), 12 Turret Flak Projectiles, 13 Turret Lasers, 14 Aliied Huge Gun (readme), 15 Coal Huge Gun (readme)\n";

const std::string externalGuns =
    "there are: 0 Pulse Cannon, 1 Gatling Lasers, 2 Proton Cannon, 3 Double Barrel Lasers, 4 Laser Cannon 1 (short), "
    "5 Laser Cannon 2 (short), 6 Laser Cannon 3 (short), 7 Laser Cannon 4 (Gatling look), 11 Laser Cannon 5 (very "
    "small)\n";

/// A missing model is told at every start, when the Switcher tab tells fighters and capital ships apart.
const std::string startUpsBox = "IsCapitalShip: Error - file not found\n";

/// The Sabrewing's model has a pair of guns, a single gun, a pair of missiles and an external gun.
struct WeaponRuns : EnabledRuns {
  WeaponRuns() { WriteFileAt(Model(), Armed()); }

  [[nodiscard]] std::filesystem::path Model(const std::string& name = "sabrewing.shp") const {
    return sample.game / "ships" / name;
  }
  [[nodiscard]] Bytes ModelBytes() const { return ReadFileAt(Model()); }

  static Bytes Armed() {
    demo::ModelOptions options;
    options.name = "armed";
    options.size = 2000;
    options.textures = {"skin"};
    options.attachments = {{demo::kGun, 100, 0, 50, 0, 2},
                           {demo::kGun, 0, 90, 400, 0, 11},
                           {demo::kGun, -100, 0, 50, 0, 2},
                           {demo::kMissileLauncher, 250, -40, 0, 0, 0},
                           {demo::kMissileLauncher, -250, -40, 0, 0, 0},
                           {demo::kExternalGun, 0, 200, -300, 7, 0}};
    return demo::BuildModel(options);
  }

  /// Where an attachment stands: they end the file.
  static std::size_t At(const Bytes& model, std::size_t attachment) {
    return model.size() - elementSize * (weaponCount - attachment);
  }
  /// Makes a weapon of an attachment, a type below 0 staying as it is.
  static void Put(Bytes& model, std::size_t attachment, int kind, int gun, int externalGun) {
    const std::size_t at = At(model, attachment);
    const auto word = [&](std::size_t field, int value) {
      if (value < 0) return;
      model.at(at + field) = static_cast<std::uint8_t>(value);
      model.at(at + field + 1) = 0;
    };
    word(0, kind);
    word(100, gun);
    word(52, externalGun);
  }
  static Outcome Set(const std::string& row, const std::string& type, const std::string& code) {
    return RunWords({"weapons", "set", "Sabrewing", row, type, code});
  }
  /// The beginning of the error for a code that stands for nothing.
  static std::string Unknown(const std::string& kind, const std::string& code) {
    return std::string("oravin-cli: there is no ").append(kind).append(" \"").append(code).append("\"; ");
  }
  /// Expects that a command fails with one error and that the model stays.
  void ExpectRefused(const Outcome& outcome, const std::string& error) const {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, error);
    EXPECT_TRUE(SameBytes(Armed(), ModelBytes()));
  }
};

TEST_F(WeaponRuns, ListIsATableOfTheShownRows) {
  const Outcome outcome = RunWords({"weapons", "list", " SABREWING"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "Row  Weapon                          Attachments    X    Y     Z\n"
            "  1  Pair: Pulse Cannon              0, 2         100    0    50\n"
            "  2  Nova Cannon                     1              0   90   400\n"
            "  3  Pair: Missiles                  3, 4         250  -40     0\n"
            "  4  External - Laser Cannon Type 4  5              0  200  -300\n");
}

TEST_F(WeaponRuns, ListInJsonTellsEveryAttachmentOfARow) {
  const Json document = RunWords({"weapons", "list", "Sabrewing", "--json"}).Document();
  EXPECT_EQ(document["ship"], "Sabrewing");
  ASSERT_EQ(document["weapons"].size(), 4U);
  const Bytes model = Armed();
  EXPECT_EQ(
      document["weapons"][0], Json::parse(R"({"row":1,"name":"Pair: Pulse Cannon","attachments":[
    {"index":0,"filePosition":)" + std::to_string(At(model, 0)) +
                                          R"(,"kind":3,"x":100,"y":0,"z":50,"gunType":2,"externalGunType":0},
    {"index":2,"filePosition":)" + std::to_string(At(model, 2)) +
                                          R"(,"kind":3,"x":-100,"y":0,"z":50,"gunType":2,"externalGunType":0}]})"));
  EXPECT_EQ(document["weapons"][3]["row"], 4);
  EXPECT_EQ(document["weapons"][3]["attachments"][0]["externalGunType"], 7);
}

TEST_F(WeaponRuns, AModelWithoutWeaponsHasAnEmptyList) {
  demo::ModelOptions options;
  options.size = 1500;
  WriteFileAt(Model(), demo::BuildModel(options));
  EXPECT_EQ(RunWords({"weapons", "list", "Sabrewing"}).out, "Sabrewing has no weapons.\n");
  EXPECT_EQ(RunWords({"weapons", "list", "Sabrewing", "--json"}).Document()["weapons"], Json::array());
  EXPECT_EQ(Set("1", "gun", "1").err, "oravin-cli: there is no row \"1\"; Sabrewing has no weapons\n");
}

TEST_F(WeaponRuns, AMissingModelIsOneBox) {
  std::filesystem::remove(Model());
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"weapons", "list", "Sabrewing"},
                                             {"weapons", "set", "Sabrewing", "1", "missile"},
                                             {"cloak", "show", "Sabrewing"}}) {
    const Outcome outcome = RunWords(words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, startUpsBox + "Oravin: Error - Path not found\n");
  }
}

TEST_F(WeaponRuns, ABrokenStatisticsFileDoesNotMatter) {
  std::filesystem::resize_file(sample.game / "shipstats.bin", 10);
  EXPECT_EQ(RunWords({"weapons", "list", "Sabrewing"}).status, 0);
  EXPECT_EQ(Set("1", "gun", "5").status, 0);
  EXPECT_EQ(RunWords({"cloak", "toggle", "Sabrewing"}).status, 0);
}

TEST_F(WeaponRuns, SetMakesAGunOfBothHalvesOfAPair) {
  Bytes expected = Armed();
  Put(expected, 0, 3, 15, -1);
  Put(expected, 2, 3, 15, -1);
  const Outcome outcome = Set("1", "gun", "15");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "Sabrewing, row 1: Pair: Coalition Huge Gun\n");
  EXPECT_TRUE(SameBytes(expected, ModelBytes()));
}

TEST_F(WeaponRuns, SetMakesAnExternalGunOfASingleOne) {
  Bytes expected = Armed();
  Put(expected, 1, 1, -1, 11);
  const Outcome outcome = RunWords({"weapons", "set", "Sabrewing", "2", "external", "11", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(),
            Json::parse(R"({"action":"set","ship":"Sabrewing","row":2,"name":"External - Laser Cannon Type 5",
      "attachments":[{"index":1,"filePosition":)" +
                        std::to_string(At(expected, 1)) +
                        R"(,"kind":1,"x":0,"y":90,"z":400,"gunType":11,"externalGunType":11}]})"));
  EXPECT_TRUE(SameBytes(expected, ModelBytes()));
}

TEST_F(WeaponRuns, SetMakesAMissilePoint) {
  Bytes expected = Armed();
  Put(expected, 5, 0, 64, 6);
  EXPECT_EQ(RunWords({"weapons", "set", "Sabrewing", " 4 ", "Missile"}).out, "Sabrewing, row 4: Missile\n");
  EXPECT_TRUE(SameBytes(expected, ModelBytes()));
}

TEST_F(WeaponRuns, SetTakesEveryCodeOfBothMenus) {
  for (int code = 1; code <= 15; ++code) {
    Bytes expected = ModelBytes();
    Put(expected, 1, 3, code, -1);
    EXPECT_EQ(Set("2", "gun", std::to_string(code)).status, 0) << code;
    EXPECT_TRUE(SameBytes(expected, ModelBytes())) << code;
  }
  for (const int code : {0, 1, 2, 3, 4, 5, 6, 7, 11}) {
    Bytes expected = ModelBytes();
    Put(expected, 1, 1, -1, code);
    EXPECT_EQ(Set("2", "external", std::to_string(code)).status, 0) << code;
    EXPECT_TRUE(SameBytes(expected, ModelBytes())) << code;
  }
}

TEST_F(WeaponRuns, SetTakesTheNameOfTheMenuOrOfTheList) {
  EXPECT_EQ(Set("2", "gun", " messon blasters").out, "Sabrewing, row 2: Messon Blaster\n");
  EXPECT_EQ(Set("2", "gun", "allied huge gun").out, "Sabrewing, row 2: Allied Huge Gun\n");
  EXPECT_EQ(Set("2", "gun", "Aliied Huge Gun (readme)").out, "Sabrewing, row 2: Allied Huge Gun\n");
  EXPECT_EQ(Set("2", "External", "Dbl. Barrel Lasers").out, "Sabrewing, row 2: External - Dbl. Barrel Lasers\n");
  EXPECT_EQ(Set("2", "external", "laser cannon 5 (very small)").out,
            "Sabrewing, row 2: External - Laser Cannon Type 5\n");
}

TEST_F(WeaponRuns, SetToldByTheRowThatShowsTheWeaponNow) {
  // The gun and the external gun become one pair with what mirrors them.
  Bytes model = Armed();
  PutLittleEndian32(&model.at(At(model, 5) + 8), 90);
  PutLittleEndian32(&model.at(At(model, 5) + 12), 400);
  WriteFileAt(Model(), model);
  EXPECT_EQ(Set("4", "gun", "11").out, "Sabrewing, row 2: Pair: Nova Cannon\n");
}

TEST_F(WeaponRuns, SetOfAnUnknownGunListsThoseThereAre) {
  for (const std::string code : {"0", "16", "-1", "1.0", "", "Death Ray"}) {
    ExpectRefused(Set("1", "gun", code), Unknown("gun", code) + guns);
  }
  ExpectRefused(RunWords({"weapons", "set", "Sabrewing", "1", "gun"}),
                "oravin-cli: the code of the gun is missing; " + guns);
}

TEST_F(WeaponRuns, SetOfAnUnknownExternalGunListsThoseThereAre) {
  for (const std::string code : {"8", "9", "10", "12", "-1"}) {
    ExpectRefused(Set("1", "external", code), Unknown("external gun", code) + externalGuns);
  }
  ExpectRefused(RunWords({"weapons", "set", "Sabrewing", "1", "external"}),
                "oravin-cli: the code of the external gun is missing; " + externalGuns);
}

TEST_F(WeaponRuns, SetOfAMissileTakesNoCode) {
  ExpectRefused(Set("1", "missile", "0"), "oravin-cli: a missile takes no code; \"0\" is one too many\n");
}

TEST_F(WeaponRuns, SetOfAnUnknownTypeListsThoseThereAre) {
  ExpectRefused(Set("1", "rocket", "1"),
                "oravin-cli: there is no type of weapons \"rocket\"; there are: gun, external, missile\n");
}

TEST_F(WeaponRuns, SetOfAnUnknownRowTellsWhichThereAre) {
  for (const std::string row : {"0", "5", "-1", "1.5", "", "two", "4294967297"}) {
    ExpectRefused(Set(row, "gun", "1"),
                  "oravin-cli: there is no row \"" + row + "\"; Sabrewing has its weapons in the rows 1 to 4\n");
  }
}

TEST_F(WeaponRuns, SetOfAnUnknownShipIsNamed) {
  ExpectRefused(RunWords({"weapons", "set", "Nobody", "1", "missile"}), "oravin-cli: no ship is named \"Nobody\"\n");
}

TEST_F(WeaponRuns, SetWritesTheVariantToo) {
  WriteFileAt(Model("t_sabrewing.shp"), Armed());
  Bytes expected = Armed();
  Put(expected, 3, 0, 64, 6);
  Put(expected, 4, 0, 64, 6);
  EXPECT_EQ(RunWords({"weapons", "set", "Sabrewing", "3", "missile"}).status, 0);
  EXPECT_TRUE(SameBytes(expected, ModelBytes()));
  EXPECT_TRUE(SameBytes(expected, ReadFileAt(Model("t_sabrewing.shp"))));
}

TEST_F(WeaponRuns, SetWithADifferentVariantIsItsBoxAndWritesNothing) {
  demo::ModelOptions options;
  options.size = 1500;
  const Bytes other = demo::BuildModel(options);
  WriteFileAt(Model("t_sabrewing.shp"), other);
  ExpectRefused(Set("1", "gun", "1"), "Oravin: Error - standard ship and Tiger ship attachments don't match\n");
  EXPECT_TRUE(SameBytes(other, ReadFileAt(Model("t_sabrewing.shp"))));
}

TEST_F(WeaponRuns, WhileAnotherCopyWorksNothingIsWritten) {
  platform::FolderLock other;
  ASSERT_TRUE(platform::LockFolder(folder.Windows("sample/StarLancer") + "\\", other));
  EXPECT_EQ(RunWords({"weapons", "list", "Sabrewing"}).status, 0);
  const FolderImage before = ImageOf(sample.game);
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"weapons", "set", "Sabrewing", "1", "gun", "1"},
                                             {"weapons", "restore", "Sabrewing"},
                                             {"cloak", "toggle", "Sabrewing"},
                                             {"stats", "set", "Sabrewing", "Ammo", "1"},
                                             {"stats", "copy", "Sabrewing", "Kestrel"},
                                             {"stats", "restore", "Sabrewing"},
                                             {"stats", "restore-all"}}) {
    const Outcome outcome = RunWords(words);
    EXPECT_EQ(outcome.status, 1) << words[1];
    EXPECT_EQ(outcome.out, "") << words[1];
  }
  EXPECT_TRUE(SameImage(before, ImageOf(sample.game)));
}

TEST_F(WeaponRuns, RestoreBringsTheModelOfTheArchiveBack) {
  const FolderImage before = ImageOf(sample.game);
  const FolderImage program = ImageOf(sample.program);
  ASSERT_EQ(RunWords({"weapons", "set", "Kestrel", "1", "gun", "14"}).status, 0);
  ASSERT_FALSE(SameImage(before, ImageOf(sample.game)));
  const Outcome outcome = RunWords({"weapons", "restore", "kestrel"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "Kestrel has the weapons of its original model.\n");
  EXPECT_TRUE(SameImage(before, ImageOf(sample.game)));
  EXPECT_TRUE(SameImage(program, ImageOf(sample.program)));
  EXPECT_EQ(RunWords({"weapons", "restore", "kestrel", "--json"}).Document(),
            Json::parse(R"({"action":"restore","ship":"Kestrel"})"));
}

TEST_F(WeaponRuns, RestoreOfAnImportedShipTakesTheAddOn) {
  const Bytes before = ReadFileAt(Model("manta.shp"));
  ASSERT_EQ(RunWords({"weapons", "set", "Manta", "1", "missile"}).status, 0);
  EXPECT_EQ(RunWords({"weapons", "restore", "Manta"}).status, 0);
  EXPECT_TRUE(SameBytes(before, ReadFileAt(Model("manta.shp"))));
  std::filesystem::remove(sample.program / "addons" / "ships" / "manta.shp");
  const Outcome none = RunWords({"weapons", "restore", "Manta"});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.out, "");
  EXPECT_EQ(none.err, "RestoreWeapons: No suitable original can be found\n");
}

TEST_F(WeaponRuns, RestoreIntoAnotherModelIsRefused) {
  ExpectRefused(RunWords({"weapons", "restore", "Sabrewing"}),
                "Oravin: This file's backup copy is too different than the\n"
                "  the original to restore from. shipname.shp <> shipname.bak\n");
}

TEST_F(WeaponRuns, CloakToggleChangesTheClassByteAlone) {
  Bytes expected = Armed();
  EXPECT_EQ(RunWords({"cloak", "show", "Sabrewing"}).out, "Sabrewing: Fighter\n");
  for (const bool cloaked : {true, false}) {
    expected.at(classByteAt) = cloaked ? 2 : 0;
    const std::string kind = cloaked ? "Fighter with a cloaking device" : "Fighter";
    const Outcome outcome = RunWords({"cloak", "toggle", "sabrewing", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.Document(),
              (Json{{"action", "toggle"}, {"ship", "Sabrewing"}, {"class", kind}, {"cloakingDevice", cloaked}}));
    EXPECT_TRUE(SameBytes(expected, ModelBytes()));
    EXPECT_EQ(RunWords({"cloak", "show", "Sabrewing"}).out, "Sabrewing: " + kind + "\n");
    EXPECT_EQ(RunWords({"cloak", "show", "Sabrewing", "--json"}).Document(),
              (Json{{"ship", "Sabrewing"}, {"class", kind}, {"cloakingDevice", cloaked}}));
  }
}

TEST_F(WeaponRuns, ACapitalShipIsToldAndBecomesACloakedFighter) {
  for (const std::uint8_t byte : Bytes{1, 3, 5}) {
    Bytes model = Armed();
    model.at(classByteAt) = byte;
    WriteFileAt(Model(), model);
    EXPECT_EQ(RunWords({"cloak", "show", "Sabrewing"}).out, "Sabrewing: Capital ship\n");
    EXPECT_EQ(RunWords({"cloak", "toggle", "Sabrewing"}).out, "Sabrewing: Fighter with a cloaking device\n");
    model.at(classByteAt) = 2;
    EXPECT_TRUE(SameBytes(model, ModelBytes()));
  }
}

TEST_F(WeaponRuns, CloakToggleOfAMissingModelIsTheBoxOfTheQuery) {
  std::filesystem::remove(Model());
  const Outcome outcome = RunWords({"cloak", "toggle", "Sabrewing"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, startUpsBox + "IsCloaked: Error - file not found\n");
}

TEST_F(WeaponRuns, CloakOfAnUnknownShipIsNamed) {
  EXPECT_EQ(RunWords({"cloak", "show", "Nobody"}).err, "oravin-cli: no ship is named \"Nobody\"\n");
  EXPECT_EQ(RunWords({"cloak", "toggle", "Nobody"}).status, 1);
}

struct ModelRuns : testing::Test {
  /// A chunk of texture names in elements of 36 bytes.
  static void AddNames(Bytes& model, const std::vector<std::string>& names) {
    const auto count = static_cast<std::uint8_t>(names.size());
    model.insert(model.end(), {6, 0, 36, 0, count, 0});
    for (const std::string& name : names) {
      Bytes element(36);
      std::copy(name.begin(), name.end(), element.begin());
      model.insert(model.end(), element.begin(), element.end());
    }
  }
  [[nodiscard]] Outcome Textures(const Bytes& model, bool json = false) const {
    WriteFileAt(folder.Native("any.shp"), model);
    std::vector<std::string> words = {"model", "textures", folder.Native("any.shp").string()};
    if (json) words.emplace_back("--json");
    return RunWords(words);
  }
  TemporaryFolder folder;
  Environment config{"XDG_CONFIG_HOME", folder.Native("no-config").string()};
  Environment prefix{"WINEPREFIX", folder.Native("no-prefix").string()};
};

TEST_F(ModelRuns, TexturesNeedsNoInstallationAndListsEachNameOnceInItsOrder) {
  Bytes model;
  AddNames(model, {"hull", "wing", "hull"});
  AddNames(model, {"Hull", "", "wing", "sch\xFCtze"});
  const Outcome text = Textures(model);
  EXPECT_EQ(text.status, 0);
  EXPECT_EQ(text.err, "");
  EXPECT_EQ(text.out, "hull\nwing\nHull\nsch\xC3\xBCtze\n");
  const Outcome json = Textures(model, true);
  EXPECT_EQ(json.Document(),
            (Json{{"file", folder.Windows("any.shp")}, {"textures", {"hull", "wing", "Hull", "sch\xC3\xBCtze"}}}));
}

TEST_F(ModelRuns, TexturesOfAModelWithoutAnyIsAnEmptyList) {
  EXPECT_EQ(Textures({}).out, "The model names no texture.\n");
  const Outcome json = Textures({1, 0, 0, 0, 0, 0}, true);
  EXPECT_EQ(json.status, 0);
  EXPECT_EQ(json.Document()["textures"], Json::array());
}

TEST_F(ModelRuns, TexturesOfAMissingFileIsItsBox) {
  const Outcome outcome = RunWords({"model", "textures", folder.Native("none.shp").string()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "ORAVIN: Error - Path not found\n");
}

TEST_F(ModelRuns, FiftyTexturesAreListedAndFiftyOneAreAFailure) {
  std::vector<std::string> names;
  for (int i = 1; i <= 50; ++i) names.push_back("texture" + std::to_string(i));
  Bytes model;
  AddNames(model, names);
  EXPECT_EQ(Textures(model, true).Document()["textures"], Json(names));
  AddNames(model, {"one more"});
  const Outcome outcome = Textures(model);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err.find("it names more than 50 textures"), std::string::npos) << outcome.err;
}

TEST_F(ModelRuns, ANameWithoutAnEndIsAFailure) {
  Bytes model;
  AddNames(model, {"hull"});
  model.resize(model.size() - 32);
  const Outcome outcome = Textures(model);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err.find("a texture's name in it has no end"), std::string::npos) << outcome.err;
}

}  // namespace
}  // namespace oravin::test
