// The command "import" and the group "imported".

#include "base/bytes.h"
#include "sample_runs.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

constexpr const char* redNames =
    "Ships marked in red have the same names as an existing ship in Oravin.\n"
    "You must rename or uncheck these ships before importing.";
constexpr const char* switchQuestion =
    "Would you like Oravin to make the ship switches\nsuggested by the ship pack file?\n"
    "(Note that Oravin might have to unswitch some ships, so you may lose\n"
    "some custom stat settings on currently switched ships.)";
constexpr const char* removeQuestion = "Are you sure that you want to remove these ships?";
constexpr const char* textureQuestion =
    "Do you also want to remove the associated textures for this model?\n"
    "It may take up to ten seconds to rebuild TCACHE file.\n"
    "(Won't remove textures shared with ships not being removed)";

/// The sample's two packs and what can be seen of them. The raiders' "PREDATOR" bears a stock ship's name and the
/// sentinels' "Dragonfly" lacks one of its two bitmaps.
struct ImportRuns : EnabledRuns {
  [[nodiscard]] std::filesystem::path Pack(const std::string& name) const { return sample.program / "packs" / name; }
  [[nodiscard]] std::string Raiders() const { return Pack("raiders/raiders.pak").string(); }
  [[nodiscard]] std::string Sentinels() const { return Pack("sentinels/sentinels.pak").string(); }
  [[nodiscard]] FolderImage Folders() const { return ImageOf(folder.Native("sample")); }
  [[nodiscard]] Bytes Game(const std::string& name) const { return ReadFileAt(sample.game / name); }
  [[nodiscard]] Bytes AddOn(const std::string& name) const { return ReadFileAt(sample.program / "addons" / name); }

  static Json Imported() { return RunWords({"imported", "list", "--json"}).Document(); }
  static std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Json& ship : Imported()) names.push_back(ship["name"]);
    return names;
  }
  static Json TextureNames() {
    Json names = Json::array();
    for (const Json& texture : RunWords({"tcache", "list", "--json"}).Document()) names.push_back(texture["name"]);
    return names;
  }
  /// Imports two of the raiders.
  void ImportRaiders() const {
    const Outcome outcome = RunWords({"import", Raiders(), "--only", "Locust", "--only", "Hornet Queen"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
  }
  /// Runs a command that must do nothing at all, and expects its error.
  void ExpectRefused(const std::vector<std::string>& words, const std::string& error, int status = 1) const {
    const FolderImage before = Folders();
    const Outcome outcome = RunWords(words);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, error);
    EXPECT_TRUE(SameImage(before, Folders()));
  }
};
struct ImportedRuns : ImportRuns {};
struct ImportWhileDisabled : SampleRuns {};

std::string WrongUsage(const std::string& what) {
  return "oravin-cli: " + what + "\n\"oravin-cli --help\" shows how it is used.\n";
}

TEST_F(ImportRuns, ARedNameRefusesTheWholePack) {
  ExpectRefused({"import", Raiders(), "--yes"},
                "Oravin: Ships marked in red have the same names as an existing ship in Oravin.\n"
                "  You must rename or uncheck these ships before importing.\n"
                "oravin-cli: the name \"PREDATOR\" is taken; give another one with --rename, or leave the ship out "
                "with --only\n");
}

TEST_F(ImportRuns, ARedNameInJsonIsTheBoxAndTheName) {
  const Outcome outcome = RunWords({"import", Raiders(), "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(
      outcome.ErrorLines(),
      (std::vector<Json>{BoxLine("Oravin", redNames, "exclamation", "ok", "ok"),
                         Json{{"error",
                               "the name \"PREDATOR\" is taken; give another one with --rename, or leave the ship "
                               "out with --only"}}}));
}

TEST_F(ImportRuns, OnlyTheNamedShipsAreImported) {
  const Outcome outcome = RunWords({"import", Raiders(), "--only", "locust", "--only", " HORNET queen ", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"import","imported":["Locust","Hornet Queen"],"failed":[]})"));
  EXPECT_EQ(outcome.ErrorLines(),
            (std::vector<Json>{BoxLine("Oravin", switchQuestion, "question", "yesno", "no"),
                               BoxLine("Oravin", "Importing Successfull!", "information", "ok", "ok")}));
  EXPECT_EQ(Names(), (std::vector<std::string>{"Manta", "Wraithwing", "Colossus Carrier", "Locust", "Hornet Queen"}));
}

TEST_F(ImportRuns, TheTextTellsTheImportedShips) {
  const Outcome outcome = RunWords({"import", Raiders(), "--only", "Locust"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Imported: 1.\n  Locust\n");
  EXPECT_EQ(outcome.err, "Oravin: Importing Successfull!\n");
}

TEST_F(ImportRuns, EveryFileOfAnImportedShipIsWhereItBelongs) {
  const FolderImage before = Folders();
  Json expectedTextures = TextureNames();
  ASSERT_EQ(RunWords({"import", Raiders(), "--only", "Locust"}).status, 0);
  const Bytes model = ReadFileAt(Pack("raiders/locust.shp"));
  FolderImage expected = before;
  expected["StarLancer/ships/locust.shp"] = expected["StarLancer/ships/locust.bak"] = model;
  expected["Oravin/addons/ships/locust.shp"] = model;
  expected["Oravin/addons/stats/locust.txt"] = ReadFileAt(Pack("raiders/locust.txt"));
  for (const char* texture : {"locust1.bmp", "locust2.bmp"}) {
    expected[std::string("Oravin/addons/textures/") + texture] = ReadFileAt(Pack("raiders") / texture);
  }
  // These grow; what stood in them stays, and the statistics that the game reads are as they were.
  for (const char* grown : {"StarLancer/shipstats.def", "Oravin/ships.dat"}) {
    const Bytes now = Folders().at(grown);
    Bytes& old = expected[grown];
    ASSERT_GT(now.size(), old.size());
    EXPECT_TRUE(std::equal(old.begin(), old.end(), now.begin())) << grown;
    old = now;
  }
  const std::string list = ReadTextAt(sample.program / "shipsData.txt");
  EXPECT_EQ(list.substr(0, 4), "16\r\n");
  EXPECT_EQ(list.substr(list.rfind("3,")), "3,\"Locust\",\"locust.shp\",15,\"locust1\",\"locust2\"\r\n");
  expected["Oravin/shipsData.txt"] = BytesOf(list);
  expected["StarLancer/tcachehw.dat"] = Game("tcachehw.dat");
  EXPECT_TRUE(SameImage(expected, Folders()));
  for (const char* texture : {"locust1", "glocust1", "locust2", "glocust2"}) expectedTextures.push_back(texture);
  EXPECT_EQ(TextureNames(), expectedTextures);
}

TEST_F(ImportRuns, ARenamedShipIsImportedUnderItsNewNameAndTheSuggestedSwitchIsMade) {
  const Outcome outcome = RunWords({"import", Raiders(), "--rename", "predator= Raptor", "--yes"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "Imported: 3.\n  Locust\n  Hornet Queen\n  Raptor\n");
  const Json ships = RunWords({"ships", "list", "--json"}).Document();
  EXPECT_EQ(ships.at(2)["shipName"], "Sabrewing");
  EXPECT_EQ(ships.at(2)["changedToName"], "Hornet Queen");
  EXPECT_TRUE(SameBytes(Game("ships/sabrewing.shp"), ReadFileAt(Pack("raiders/hornetq.shp"))));
}

TEST_F(ImportRuns, TheSuggestedSwitchIsAnsweredInTheOrderOfTheAnswers) {
  const Outcome outcome = RunWords({"import", Raiders(), "--only", "Hornet Queen", "--answers", "yes"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(RunWords({"ships", "list", "--json"}).Document().at(2)["changed"], true);
}

TEST_F(ImportRuns, AShipThatLacksATextureFailsAndTheOtherOneIsImported) {
  const Outcome outcome = RunWords({"import", Sentinels()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "Imported: 1.\n  Sentinel Monitor\nNot imported: 1.\n  Dragonfly\n");
  EXPECT_EQ(outcome.err,
            "oravin-cli: a file is asked for (\"Find texture file dragon2.bmp\") and nobody is there to answer\n"
            "Oravin: Texture not found - skipping ship!\n"
            "Oravin: Importing Completed - but there where errors on some ships\n"
            "  \n"
            "  These ships were not imported:\n"
            "  Dragonfly\n");
  EXPECT_FALSE(std::filesystem::exists(sample.game / "ships" / "dragonfly.shp"));
  EXPECT_FALSE(std::filesystem::exists(sample.game / "ships" / "dragonfly.bak"));
  EXPECT_FALSE(std::filesystem::exists(sample.program / "addons" / "textures" / "dragon1.bmp"));
}

TEST_F(ImportRuns, EveryShipThatFailsIsPrinted) {
  std::string pack = "pack\n";
  std::string failed = "  These ships were not imported:\n";
  for (int i = 1; i <= 30; ++i) {
    pack += "\\none.shp,None " + std::to_string(i) + ",\n";
    failed += "  None " + std::to_string(i) + "\n";
  }
  WriteFileAt(Pack("many.pak"), pack);
  const Outcome outcome = RunWords({"import", Pack("many.pak").string()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.err.ends_with(failed)) << outcome.err;
}

TEST_F(ImportRuns, AShipThatFailsIsTheOnlyOneOfItsDocument) {
  const FolderImage before = Folders();
  const Outcome outcome = RunWords({"import", Sentinels(), "--only", "Dragonfly", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"import","imported":[],"failed":["Dragonfly"]})"));
  EXPECT_TRUE(SameImage(before, Folders()));
}

TEST_F(ImportRuns, AMissingTextureCanBeGiven) {
  const std::string other = Pack("sentinels/dragon1.bmp").string();
  const Outcome outcome = RunWords({"import", Sentinels(), "--texture", "DRAGON2=" + other});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "Imported: 2.\n  Sentinel Monitor\n  Dragonfly\n");
  EXPECT_TRUE(SameBytes(AddOn("textures/dragon2.bmp"), ReadFileAt(other)));
}

TEST_F(ImportRuns, AtATerminalAMissingTextureIsAskedFor) {
  const std::string other = Pack("sentinels/dragon1.bmp").string();
  const Outcome outcome = RunWords({"import", Sentinels(), "--only", "Dragonfly"}, other + "\n", true);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_NE(outcome.err.find("Find texture file dragon2.bmp (an empty line cancels): "), std::string::npos);
  EXPECT_TRUE(SameBytes(AddOn("textures/dragon2.bmp"), ReadFileAt(other)));
}

TEST_F(ImportRuns, ASingleModelIsNamedAfterItsFile) {
  const Outcome outcome = RunWords({"import", Pack("raiders/locust.shp").string()});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "Imported: 1.\n  locust\n");
}

TEST_F(ImportRuns, TheLastBoxTellsAModelsNewFileName) {
  WriteFileAt(folder.Native("new/kestrel.shp"), ReadFileAt(Pack("raiders/locust.shp")));
  for (const char* texture : {"locust1.bmp", "locust2.bmp"}) {
    std::filesystem::copy_file(Pack("raiders") / texture, folder.Native("new") / texture);
  }
  const Outcome outcome = RunWords({"import", folder.Native("new/kestrel.shp").string(), "--rename", "kestrel=Other"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "Oravin: Importing Successfull!\n"
            "  \n"
            "  The model kestrel.shp was imported as kestrel2.shp.\n");
  EXPECT_EQ(Imported().at(3)["model"], "kestrel2.shp");
}

TEST_F(ImportRuns, NamesThatMatchNothingAreTold) {
  ExpectRefused({"import", Raiders(), "--only", "Nobody"}, "oravin-cli: there is no ship \"Nobody\" in this file\n");
  ExpectRefused({"import", Raiders(), "--rename", "Nobody=Somebody"},
                "oravin-cli: there is no ship \"Nobody\" in this file\n");
  ExpectRefused(
      {"import", Raiders(), "--only", "Locust", "--texture", "nothing=" + Pack("raiders/raptor1.bmp").string()},
      "oravin-cli: no ship in this file has a texture \"nothing\"\n");
}

TEST_F(ImportRuns, PairsNeedBothTheirSides) {
  for (const char* pair : {"Locust", "Locust=", "=Locust", "=", " = "}) {
    ExpectRefused(
        {"import", Raiders(), "--rename", pair},
        std::string("oravin-cli: --rename must be given as two parts with = between them, not \"") + pair + "\"\n");
    ExpectRefused(
        {"import", Raiders(), "--texture", pair},
        std::string("oravin-cli: --texture must be given as two parts with = between them, not \"") + pair + "\"\n");
  }
}

TEST_F(ImportRuns, ANameThatNoShipCanHaveIsRefused) {
  ExpectRefused({"import", Raiders(), "--rename", "PREDATOR=kestrel"},
                "Oravin: The ship name 'kestrel' has the same name as an existing ship.\n");
  ExpectRefused({"import", Raiders(), "--rename", "PREDATOR=" + std::string(31, 'a')},
                "Oravin: A ship's name can have at most 30 characters.\n");
  ExpectRefused({"import", Raiders(), "--rename", "PREDATOR=a\"b"},
                "Oravin: A ship's name can hold no double quotes, no control characters and no letters outside the "
                "code page Windows-1252.\n");
}

TEST_F(ImportRuns, ABitmapThatCannotBecomeATextureIsRefused) {
  const std::string none = folder.Windows("none.bmp");
  const Outcome missing =
      RunWords({"import", Sentinels(), "--texture", "dragon2=" + folder.Native("none.bmp").string()});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err.find("oravin-cli: " + none + " cannot become a texture: "), 0U) << missing.err;
  WriteFileAt(folder.Native("bad.bmp"), "BM, but nothing more");
  const FolderImage before = Folders();
  EXPECT_EQ(RunWords({"import", Sentinels(), "--texture", "dragon2=" + folder.Native("bad.bmp").string()}).status, 1);
  EXPECT_TRUE(SameImage(before, Folders()));
}

TEST_F(ImportRuns, AFileThatIsMissingOrNoPackIsTold) {
  ExpectRefused({"import", folder.Native("none.pak").string()},
                "Oravin: This file was not found:\n  " + folder.Windows("none.pak") + "\n");
  WriteFileAt(folder.Native("bad.pak"), "\"a header whose quote never closes\r\n\\a.shp,A,\r\n");
  const FolderImage before = Folders();
  const Outcome outcome = RunWords({"import", folder.Native("bad.pak").string()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err.find("GetPAK: "), 0U) << outcome.err;
  EXPECT_TRUE(SameImage(before, Folders()));
}

TEST_F(ImportRuns, APackWithoutShipsImportsNothing) {
  WriteFileAt(folder.Native("empty.pak"), "\"only a header\"\r\n");
  ExpectRefused({"import", folder.Native("empty.pak").string()}, "Oravin: This pack lists no ships.\n");
}

TEST_F(ImportRuns, WrongUses) {
  ExpectRefused({"import"}, WrongUsage("FILE is required"), 2);
  ExpectRefused({"import", Raiders(), "--only"}, WrongUsage("--only: 1 required NAME missing"), 2);
  ExpectRefused({"import", Raiders(), Sentinels()},
                WrongUsage("The following argument was not expected: " + Sentinels()), 2);
}

TEST_F(ImportWhileDisabled, ABoxSaysWhatToDoFirst) {
  const FolderImage before = ImageOf(sample.program);
  const Outcome outcome = RunWords({"import", (sample.program / "packs/raiders/raiders.pak").string()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "Oravin: Press \"Enable\" on the Switcher tab first. Then ships can be imported.\n");
  EXPECT_TRUE(SameImage(before, ImageOf(sample.program)));
  EXPECT_EQ(RunWords({"imported", "list"}).out, "There are no imported ships.\n");
  EXPECT_EQ(RunWords({"imported", "list", "--json"}).out, "[]\n");
  EXPECT_EQ(RunWords({"imported", "remove", "--all", "--yes"}).out, "There are no imported ships.\n");
  EXPECT_EQ(RunWords({"imported", "remove", "--all", "--json"}).Document(),
            Json::parse(R"({"action":"imported remove","removed":[]})"));
}

TEST_F(ImportedRuns, ListTellsEveryImportedShip) {
  ASSERT_EQ(RunWords({"ships", "swap", "Predator", "Manta"}).status, 0);
  const Json list = Imported();
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[0], Json::parse(R"({"name":"Manta","model":"manta.shp","class":"fighter","statsIndex":12,
                                     "textures":["manta1","manta2"],"inPlaceOf":["Predator"]})"));
  EXPECT_EQ(list[2]["class"], "capital ship");
  EXPECT_EQ(list[2]["inPlaceOf"], Json::array());
  const std::string text = RunWords({"imported", "list"}).out;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
  EXPECT_EQ(text.find("Name              Model"), 0U);
  EXPECT_NE(text.find("manta1, manta2"), std::string::npos);
}

TEST_F(ImportedRuns, RenameChangesTheShipAndWhatFliesAsIt) {
  ASSERT_EQ(RunWords({"ships", "swap", "Sabrewing", "Manta"}).status, 0);
  const Outcome outcome = RunWords({"imported", "rename", "MANTA", " Ray ", "--json"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"imported rename","name":"Ray"})"));
  EXPECT_EQ(Names(), (std::vector<std::string>{"Ray", "Wraithwing", "Colossus Carrier"}));
  EXPECT_EQ(RunWords({"ships", "list", "--json"}).Document().at(2)["changedToName"], "Ray");
  EXPECT_NE(ReadTextAt(sample.program / "shipsData.txt").find("3,\"Ray\",\"manta.shp\""), std::string::npos);
  EXPECT_EQ(RunWords({"imported", "rename", "ray", "Skate"}).out, "The ship is called Skate now.\n");
}

TEST_F(ImportedRuns, RenamesThatAreRefused) {
  ExpectRefused({"imported", "rename", "Manta", " predator "},
                "Oravin: The ship name 'predator' has the same name as an existing ship.\n");
  ExpectRefused({"imported", "rename", "Manta", "Manta"},
                "Oravin: The ship name 'Manta' has the same name as an existing ship.\n");
  ExpectRefused({"imported", "rename", "Manta", "  "}, "Oravin: A ship must have a name.\n");
  ExpectRefused({"imported", "rename", "Predator", "Other"},
                "oravin-cli: there is no imported ship \"Predator\"; \"imported list\" shows them\n");
  ExpectRefused({"imported", "rename", "Manta"}, WrongUsage("NEW is required"), 2);
}

TEST_F(ImportedRuns, RemoveAsksAndTheSafeAnswerKeepsTheShip) {
  const FolderImage before = Folders();
  const Outcome outcome = RunWords({"imported", "remove", "Manta"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Nothing was done.\n");
  EXPECT_EQ(outcome.err, std::string("Oravin - Manage Switcher: ") + removeQuestion + "\n  [yes/no] no\n");
  EXPECT_TRUE(SameImage(before, Folders()));
}

TEST_F(ImportedRuns, RemoveKeepsTheTexturesAfterNoAndMovesTheOtherAddOns) {
  const Bytes cache = Game("tcachehw.dat");
  const Bytes model = AddOn("ships/manta.shp");
  const Bytes stats = AddOn("stats/manta.txt");
  const Outcome outcome = RunWords({"imported", "remove", "manta", "--answers", "yes,no", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), Json::parse(R"({"action":"imported remove","removed":["Manta"]})"));
  EXPECT_EQ(outcome.ErrorLines(),
            (std::vector<Json>{BoxLine("Oravin - Manage Switcher", removeQuestion, "question", "yesno", "yes"),
                               BoxLine("Oravin", textureQuestion, "question", "yesno", "no"),
                               BoxLine("Oravin", "Removal Complete", "information", "ok", "ok")}));
  EXPECT_TRUE(SameBytes(cache, Game("tcachehw.dat")));
  EXPECT_EQ(ImageOf(sample.program / "addons" / "removed"),
            (FolderImage{{"Manta/", {}}, {"Manta/manta.shp", model}, {"Manta/manta.txt", stats}}));
  EXPECT_TRUE(std::filesystem::exists(sample.program / "addons" / "textures" / "manta1.bmp"));
  EXPECT_EQ(Names(), (std::vector<std::string>{"Wraithwing", "Colossus Carrier"}));
}

TEST_F(ImportedRuns, RemoveTakesSeveralNames) {
  const Outcome outcome = RunWords({"imported", "remove", "Colossus Carrier", "manta", "--yes"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Removed: 2.\n");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Wraithwing"}));
}

TEST_F(ImportedRuns, RemoveAllTakesEveryShipAndItsTextures) {
  const Outcome outcome = RunWords({"imported", "remove", "--all", "--yes"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "Removed: 3.\n");
  EXPECT_EQ(Imported(), Json::array());
  EXPECT_EQ(TextureNames().size(), 426U);
  EXPECT_EQ(ReadTextAt(sample.program / "shipsData.txt").substr(0, 4), "12\r\n");
}

TEST_F(ImportedRuns, RemovalsThatAreRefused) {
  ExpectRefused({"imported", "remove", "--yes"}, "oravin-cli: name the ships to remove, or give --all\n");
  ExpectRefused({"imported", "remove", "Manta", "--all", "--yes"},
                "oravin-cli: name the ships to remove, or give --all\n");
  ExpectRefused({"imported", "remove", "Manta", "Nobody", "--yes"},
                "oravin-cli: there is no imported ship \"Nobody\"; \"imported list\" shows them\n");
  ExpectRefused({"imported"}, WrongUsage("a verb is missing after \"imported\""), 2);
}

TEST_F(ImportWhileDisabled, ANewUsersDayLeavesTheGameAsItWas) {
  const FolderImage game = ImageOf(sample.game);
  const FolderImage program = ImageOf(sample.program);
  const std::string pack = (sample.program / "packs/raiders/raiders.pak").string();
  Enable();
  FolderImage expectedGame = ImageOf(sample.game);
  FolderImage expectedProgram = ImageOf(sample.program);
  const std::string ships = RunWords({"ships", "list", "--json"}).out;
  ASSERT_EQ(RunWords({"import", pack, "--rename", "PREDATOR=Raptor", "--yes"}).status, 0);
  ASSERT_EQ(RunWords({"imported", "rename", "Raptor", "Velociraptor"}).status, 0);
  ASSERT_EQ(RunWords({"ships", "swap", "Kestrel", "velociraptor"}).status, 0);
  EXPECT_EQ(ReadFileAt(sample.game / "ships/kestrel.shp"), ReadFileAt(sample.program / "packs/raiders/raptor.shp"));
  ASSERT_EQ(RunWords({"imported", "remove", "Locust", "Hornet Queen", "Velociraptor", "--yes"}).status, 0);
  // The switches of the removed ships are taken back, and their blocks behind the others are empty.
  const FolderImage nowGame = ImageOf(sample.game);
  Bytes& defaults = expectedGame["shipstats.def"];
  defaults.resize(defaults.size() + std::size_t{3} * 352);
  // The removal leaves no gaps: not the one either that a texture of 24 bits, here the last one, leaves behind itself.
  Bytes& cache = expectedGame["tcachehw.dat"];
  PutLittleEndian32(&cache[8], LittleEndian32(&cache[8]) - 256 * 256);
  EXPECT_TRUE(SameImage(expectedGame, nowGame));
  EXPECT_EQ(RunWords({"ships", "list", "--json"}).out, ships);
  // What the player brought is kept, each file once.
  expectedProgram["addons/removed/"] = {};
  const auto kept = [&](const std::string& ship, const std::string& file) {
    expectedProgram["addons/removed/" + ship + "/"] = {};
    expectedProgram["addons/removed/" + ship + "/" + file] = program.at("packs/raiders/" + file);
  };
  for (const char* file : {"locust.shp", "locust.txt", "locust1.bmp", "locust2.bmp"}) kept("Locust", file);
  for (const char* file : {"hornetq.shp", "hornetq.txt", "hornet1.bmp"}) kept("Hornet Queen", file);
  for (const char* file : {"raptor.shp", "raptor1.bmp"}) kept("Velociraptor", file);
  // A ship that was switched once is marked in another way than one that never was.
  EXPECT_TRUE(SameImage(Without(expectedProgram, {"ships.dat"}), Without(ImageOf(sample.program), {"ships.dat"})));
  ASSERT_EQ(RunWords({"disable", "--yes"}).status, 0);
  EXPECT_TRUE(SameImage(game, Without(ImageOf(sample.game), {"shipstats.def"})));
}

TEST_F(ImportWhileDisabled, ImportedShipsAreBackAtTheNextEnable) {
  const FolderImage game = ImageOf(sample.game);
  Enable();
  ASSERT_EQ(RunWords({"import", (sample.program / "packs/raiders/raiders.pak").string(), "--rename", "PREDATOR=Raptor",
                      "--no"})
                .status,
            0);
  ASSERT_EQ(RunWords({"imported", "rename", "Locust", "Cricket"}).status, 0);
  const Json list = RunWords({"imported", "list", "--json"}).Document();
  const FolderImage enabled = ImageOf(sample.game);
  ASSERT_EQ(RunWords({"disable", "--yes"}).status, 0);
  EXPECT_TRUE(SameImage(game, Without(ImageOf(sample.game), {"shipstats.def"})));
  Enable();
  EXPECT_EQ(RunWords({"imported", "list", "--json"}).Document(), list);
  // Only the import makes the copies that weapons are restored from.
  EXPECT_TRUE(
      SameImage(Without(enabled, {"ships/locust.bak", "ships/hornetq.bak", "ships/raptor.bak"}), ImageOf(sample.game)));
  ASSERT_EQ(RunWords({"ships", "swap", "Kestrel", "Cricket"}).status, 0);
  EXPECT_EQ(ReadFileAt(sample.game / "ships/kestrel.shp"), ReadFileAt(sample.program / "packs/raiders/locust.shp"));
}

}  // namespace
}  // namespace oravin::test
