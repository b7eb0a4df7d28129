// Many ships at once: a pack of fifty, and one of three hundred imported ships that is removed.

#include "catalogue/catalogue.h"
#include "import_stage.h"
#include "lists/ship_list.h"

namespace oravin::test {
namespace {

struct ManyShips : Importing {
  static std::string Name(int number) { return "Ship " + std::to_string(number); }
  static std::string File(int number) { return "ship" + std::to_string(number) + ".shp"; }
  static std::string Line(int number) { return "\"\\" + File(number) + "\",\"" + Name(number) + "\",\"\"\r\n"; }
  [[nodiscard]] std::vector<std::string> Textures() const {
    const Bytes cache = ReadFileAt(installation.Game("tcachehw.dat"));
    std::vector<std::string> names;
    for (std::uint32_t i = 426; i < LongAt(cache, 4); ++i) {
      const auto* name = reinterpret_cast<const char*>(&cache[12 + std::size_t{i} * 240 + 72]);
      names.emplace_back(name);
    }
    return names;
  }
  [[nodiscard]] const ShipRecord& Ship(std::size_t index) const { return session->main.installation.ships.at(index); }
};

TEST_F(ManyShips, APackOf50ShipsWithFourTexturesEachIsImportedByteForByte) {
  constexpr int number = 50;
  std::string pack = "\"fifty\"\r\n";
  for (int i = 0; i < number; ++i) {
    std::vector<Texture> textures;
    for (unsigned t = 0; t < 4; ++t) {
      const unsigned seed = static_cast<unsigned>(i) * 4 + t;
      textures.push_back({"s" + std::to_string(i) + "t" + std::to_string(t), Pattern(16, seed)});
    }
    expected.Import(Make(Name(i), File(i), textures), textures);
    pack += Line(i);
  }
  MakePack(pack);
  ExpectSuccess();
  ImportAll("ships.pak");
  Compare("the import");
  EXPECT_EQ(session->main.imports.lstImported.rows.size(), 53U);
  session->Disable();
  expected.Disable();
  Compare("Disable");
}

TEST_F(ManyShips, RemovingOneOf300LeavesTheOthersAsTheyAre) {
  // With the three add-on ships. Three ships in a row share a texture; the one that goes has one of its own too.
  constexpr int number = 297;
  constexpr int gone = 150;
  std::string pack = "\"many\"\r\n";
  for (int i = 0; i < number; ++i) {
    std::vector<Texture> textures{{"shared" + std::to_string(i / 3), Pattern(16, static_cast<unsigned>(i / 3))}};
    if (i == gone) textures.push_back({"own", Pattern(16, 200)});
    Make(Name(i), File(i), textures);
    pack += Line(i);
  }
  MakePack(pack);
  ExpectSuccess();
  ImportAll("ships.pak");
  ListView& list = session->main.imports.lstImported;
  ASSERT_EQ(list.rows.size(), 300U);
  const int first = colossus + 1;  // of the pack, in the catalogue
  session->Swap(alpha, first + gone);
  session->Swap(bravo, first + gone + 1);
  session->Swap(tiger, first);
  const FolderImage before = ImageOf(installation.folder.native);
  const std::vector<std::string> texturesBefore = Textures();
  const Ships shipsBefore = session->main.installation.ships;

  SelectOnly(list, 3 + gone);
  ASSERT_EQ(list.rows[3 + gone].texts[0], Name(gone));
  session->desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
  session->Press("imports.cmdRemoveShips");
  EXPECT_EQ(session->desk.shown.back().text, "Removal Complete");
  EXPECT_EQ(list.rows.size(), 299U);

  std::vector<std::string> textures = texturesBefore;
  for (const char* name : {"own", "gown"}) textures.erase(std::find(textures.begin(), textures.end(), name));
  EXPECT_EQ(Textures(), textures);
  EXPECT_FALSE(Ship(alpha).Changed);
  EXPECT_EQ(WholeNumber(Ship(bravo).ChangedToIndex), first + gone) << "one less than before";
  EXPECT_EQ(Ship(bravo).ChangedToName.Trimmed(), Name(gone + 1));
  EXPECT_EQ(WholeNumber(Ship(tiger).ChangedToIndex), first);
  ASSERT_EQ(session->main.installation.ships.size(), shipsBefore.size() - 1);
  for (std::size_t i = static_cast<std::size_t>(first + gone); i + 1 < shipsBefore.size() - 1; ++i) {
    EXPECT_EQ(Ship(i).ShipName.Trimmed(), shipsBefore[i + 1].ShipName.Trimmed());
    EXPECT_EQ(WholeNumber(Ship(i).StatsIndex), WholeNumber(shipsBefore[i + 1].StatsIndex));
  }
  // What is on the disk is what is in memory.
  const Ships loaded = ReadCatalogue(session->main.host.files, session->main.installation.cataloguePath());
  ASSERT_EQ(loaded.size(), shipsBefore.size() - 1);
  EXPECT_EQ(WholeNumber(loaded[bravo].ChangedToIndex), first + gone);

  const FolderImage now = ImageOf(installation.folder.native);
  // The list lacks its line, and the number above is one less.
  std::string text = TextOf(before.at("program/shipsData.txt"));
  const std::size_t line = text.find("3,\"" + Name(gone) + "\"");
  text.erase(line, text.find('\n', line) + 1 - line);
  text.replace(text.find("311"), 3, "310");
  EXPECT_EQ(TextOf(now.at("program/shipsData.txt")), text);
  // Its block is empty, and all the others are as they were.
  Bytes defaults = before.at("game/shipstats.def");
  const auto block =
      static_cast<std::ptrdiff_t>(WholeNumber(shipsBefore[static_cast<std::size_t>(first + gone)].StatsIndex) * 352);
  std::fill_n(defaults.begin() + block, 352, std::uint8_t{0});
  EXPECT_TRUE(SameBytes(defaults, now.at("game/shipstats.def")));
  // Its own add-on files are put aside, and no others.
  FolderImage addOns;
  for (const auto& [path, bytes] : before) {
    if (path.starts_with("program/addons/")) addOns[path] = bytes;
  }
  addOns["program/addons/removed/"] = addOns["program/addons/removed/" + Name(gone) + "/"] = {};
  for (const std::string& file : {"ships/" + File(gone), std::string("textures/own.bmp")}) {
    const std::string kept = "program/addons/removed/" + Name(gone) + file.substr(file.find('/'));
    addOns[kept] = addOns.at("program/addons/" + file);
    addOns.erase("program/addons/" + file);
  }
  FolderImage nowAddOns;
  for (const auto& [path, bytes] : now) {
    if (path.starts_with("program/addons/")) nowAddOns[path] = bytes;
  }
  EXPECT_TRUE(SameImage(addOns, nowAddOns));
  EXPECT_FALSE(now.contains("game/ships/" + File(gone)));
  EXPECT_FALSE(now.contains("game/ships/ship150.bak"));
  EXPECT_TRUE(now.contains("game/ships/" + File(gone + 1)));
}

}  // namespace
}  // namespace oravin::test
