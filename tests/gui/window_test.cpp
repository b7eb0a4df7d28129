#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "session.h"
#include "support/environment.h"
#include "support/folder_image.h"

/// The whole way of a user, by real clicks and keys, with what lies on disk looked at after each step.
namespace oravin::test {

namespace {

constexpr std::size_t recordSize = 868;

/// Undoing a swap leaves "false" where a ship that was never changed has the number 0: another tag before the zeros.
constexpr std::size_t changedToIndexAt = 724;
constexpr std::uint8_t falseTag = 11;

FolderImage GameOf(const Session& session) { return ImageOf(session.sample.game); }

FolderImage ProgramOf(const Session& session) { return ImageOf(session.sample.program); }

const Bytes& FileIn(const FolderImage& image, const std::string& name) {
  static const Bytes none;
  const auto found = image.find(name);
  return found == image.end() ? none : found->second;
}

/// The n-th stock fighter that is no part of a two-part ship.
const demo::SampleShip& OnePartFighter(const Session& session, std::size_t n) {
  const std::vector<demo::SampleShip>& ships = session.sample.ships;
  for (const demo::SampleShip& ship : ships) {
    const auto same =
        std::count_if(ships.begin(), ships.end(), [&](const auto& other) { return other.name == ship.name; });
    if (ship.kind != 3 && !ship.capital && same == 1 && n-- == 0) return ship;
  }
  throw std::runtime_error("too few fighters");
}

std::size_t RecordOf(const Session& session, const demo::SampleShip& ship) {
  std::size_t index = 0;
  while (session.sample.ships[index].file != ship.file) ++index;
  return index;
}

/// The catalogue's bytes in front of a record, or behind it.
Bytes Around(const Bytes& catalogue, std::size_t record) {
  const auto at = [&](std::size_t index) {
    return catalogue.begin() + static_cast<std::ptrdiff_t>(index * recordSize);
  };
  Bytes around(catalogue.begin(), at(record));
  around.insert(around.end(), at(record + 1), catalogue.end());
  return around;
}

testing::AssertionResult SecondColumnBecomes(const Session& session, const std::string& ship, const std::string& text) {
  const auto shown = [&] {
    const Json row = RowOf(session, "switcher.swapOrgList", ship);
    return row.is_null() || row["texts"].size() < 2 ? std::string("nothing") : row["texts"][1].get<std::string>();
  };
  if (Eventually([&] { return shown() == text; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "beside " << ship << " stands " << shown();
}

}  // namespace

TEST(Window, EnableByClickUnpacksTheModelsAndFillsTheLists) {
  const Session session;
  ASSERT_TRUE(EnableFeatures(session));
  EXPECT_EQ(std::filesystem::file_size(session.sample.program / "ships.dat"), session.sample.ships.size() * recordSize);
  const FolderImage game = GameOf(session);
  for (const demo::SampleShip& ship : session.sample.ships) {
    EXPECT_FALSE(FileIn(game, "ships/" + ship.file).empty()) << ship.file;
  }
  EXPECT_EQ(Control(session, "switcher.swapOrgList")["rows"][0]["texts"][0], session.sample.ships[0].name);
  EXPECT_GT(Layout(session)["progressPaintings"], 0);
  EXPECT_EQ(Control(session, "switcher.cmdUnswapAll")["enabled"], true) << "disabled only while the action runs";
  EXPECT_TRUE(SaveScreenshot(session.desktop, "enabled"));
}

TEST(Window, SwapAndUnswapByClick) {
  const Session session;
  ASSERT_TRUE(EnableFeatures(session));
  const FolderImage game = GameOf(session);
  const FolderImage program = ProgramOf(session);
  const demo::SampleShip& target = OnePartFighter(session, 1);
  const demo::SampleShip& source = OnePartFighter(session, 4);
  ASSERT_TRUE(SelectRow(session, "switcher.swapOrgList", target.name));
  ASSERT_TRUE(SelectRow(session, "switcher.swapToList", source.name));

  ClickOn(session, "switcher.cmdSwap");
  ASSERT_TRUE(SecondColumnBecomes(session, target.name, "--->" + source.name));
  const FolderImage swappedGame = GameOf(session);
  const FolderImage swappedProgram = ProgramOf(session);
  EXPECT_FALSE(SameBytes(FileIn(game, "ships/" + target.file), FileIn(swappedGame, "ships/" + target.file)));
  EXPECT_TRUE(SameBytes(FileIn(game, "ships/" + source.file), FileIn(swappedGame, "ships/" + source.file)));
  const Bytes& before = FileIn(program, "ships.dat");
  const Bytes& after = FileIn(swappedProgram, "ships.dat");
  ASSERT_EQ(before.size(), after.size());
  EXPECT_FALSE(SameBytes(before, after));
  const std::size_t record = RecordOf(session, target);
  EXPECT_TRUE(SameBytes(Around(before, record), Around(after, record)));
  const auto begin = after.begin() + static_cast<std::ptrdiff_t>(record * recordSize);
  const std::string text(begin, begin + recordSize);
  EXPECT_NE(text.find(source.name), std::string::npos);
  EXPECT_EQ(RowOf(session, "switcher.swapOrgList", target.name)["selected"], true);
  EXPECT_TRUE(SaveScreenshot(session.desktop, "swapped"));

  ClickOn(session, "switcher.cmdUnswap");
  ASSERT_TRUE(SecondColumnBecomes(session, target.name, ""));
  EXPECT_TRUE(SameImage(game, GameOf(session)));
  FolderImage expected = program;
  expected["ships.dat"].at(record * recordSize + changedToIndexAt) = falseTag;
  EXPECT_TRUE(SameImage(expected, ProgramOf(session)));
}

TEST(Window, DisableByClickRestoresTheGameFolder) {
  const Session session;
  const FolderImage game = GameOf(session);
  const FolderImage program = ProgramOf(session);
  ASSERT_TRUE(EnableFeatures(session));
  ASSERT_FALSE(SameImage(game, GameOf(session)));

  ClickOn(session, "switcher.cmdDisable");
  ASSERT_TRUE(BoxCame(session, "This will restore all files back to their previous state."));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "message_box"));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "Restoration complete"));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(Eventually([&] { return Control(session, "switcher.swapOrgList")["rowCount"] == 0; }));
  EXPECT_TRUE(SameImage(Without(game, {"shipstats.def"}), Without(GameOf(session), {"shipstats.def"})));
  EXPECT_TRUE(SameImage(program, Without(ProgramOf(session), {"backup/"})));
}

TEST(Window, NoChangesNothing) {
  const Session session;
  const FolderImage game = GameOf(session);
  const FolderImage program = ProgramOf(session);
  for (const char* no : {"alt+n", "Escape"}) {
    ClickOn(session, "switcher.cmdEnable");
    ASSERT_TRUE(BoxCame(session, "Are you sure you want to continue?"));
    ASSERT_TRUE(AnswerBox(session, no));
  }
  EXPECT_TRUE(SameImage(game, GameOf(session)));
  EXPECT_TRUE(SameImage(program, ProgramOf(session)));

  ASSERT_TRUE(EnableFeatures(session));
  const FolderImage enabledGame = GameOf(session);
  const FolderImage enabledProgram = ProgramOf(session);
  for (const char* button : {"switcher.cmdEnable", "switcher.cmdDisable"}) {
    ClickOn(session, button);
    ASSERT_TRUE(BoxCame(session, "Are you sure you want to continue?"));
    ASSERT_TRUE(AnswerBox(session, "alt+n"));
  }
  EXPECT_TRUE(SameImage(enabledGame, GameOf(session)));
  EXPECT_TRUE(SameImage(enabledProgram, ProgramOf(session)));
}

TEST(Window, CapitalShipsAreListedInTurn) {
  const Session session;
  ASSERT_TRUE(EnableFeatures(session));
  const std::string fighter = OnePartFighter(session, 0).name;
  ASSERT_FALSE(RowOf(session, "switcher.swapOrgList", fighter).is_null());

  ClickOn(session, "switcher.cmdToggle");
  ASSERT_TRUE(Eventually([&] { return Control(session, "switcher.cmdToggle")["caption"] == "&Display Fighters"; }));
  const Json sources = Control(session, "switcher.swapToList");
  ASSERT_FALSE(sources["rows"].empty());
  for (const Json& row : sources["rows"]) {
    const auto& ships = session.sample.ships;
    EXPECT_TRUE(std::any_of(ships.begin(), ships.end(), [&](const auto& ship) {
      return ship.capital && ship.name == row["texts"][0];
    })) << row["texts"][0];
  }
  EXPECT_TRUE(SaveScreenshot(session.desktop, "capital_ships"));
  ClickOn(session, "switcher.cmdToggle");
  ASSERT_TRUE(Eventually([&] { return !RowOf(session, "switcher.swapOrgList", fighter).is_null(); }));
  EXPECT_EQ(Control(session, "switcher.cmdToggle")["caption"], "&Display Capships");
}

TEST(Window, ExitByItsAccessKeyEndsTheProgramQuietly) {
  Session session;
  ASSERT_TRUE(ChooseTab(session, "About"));
  EXPECT_EQ(StatusAfterKey(session.desktop, session.program, "alt+x"), 0);
}

/// Stands for another program: it writes its arguments into a file.
struct StandIn {
  explicit StandIn(const std::string& name)
      : path("PATH", folder.native.string() + ":" + std::getenv("PATH")), log(folder.Native("log")) {
    WriteFileAt(folder.Native(name), "#!/bin/sh\nprintf '%s\\n' \"$*\" >> '" + log.string() + "'\n");
    std::filesystem::permissions(folder.Native(name), std::filesystem::perms::owner_all);
  }

  [[nodiscard]] testing::AssertionResult WasCalledWith(const std::string& arguments) const {
    std::string text;
    if (Eventually([&] { return std::filesystem::exists(log) && (text = ReadTextAt(log)) == arguments; })) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "called with " << text;
  }

  TemporaryFolder folder;
  Environment path;
  std::filesystem::path log;
};

TEST(Window, DoubleClickAndEnterStartTheModelViewer) {
  const StandIn wine("wine");
  const Session session;
  ASSERT_TRUE(EnableFeatures(session));
  const demo::SampleShip& fighter = OnePartFighter(session, 2);
  // Without a viewer in the game folder nothing happens, and the window goes on.
  Click(session.desktop, MiddleOf(RowOf(session, "switcher.swapOrgList", fighter.name)["rectangle"]), 2);
  ASSERT_TRUE(SelectRow(session, "switcher.swapOrgList", OnePartFighter(session, 3).name));
  EXPECT_FALSE(std::filesystem::exists(wine.log));

  WriteFileAt(session.sample.game / "sltool.exe", "viewer");
  const std::string game = session.folder.Windows("sample/StarLancer/");
  const std::string command = game + "sltool.exe " + game + "ships\\" + fighter.file + "\n";
  Click(session.desktop, MiddleOf(RowOf(session, "switcher.swapOrgList", fighter.name)["rectangle"]), 2);
  ASSERT_TRUE(wine.WasCalledWith(command));
  PressKey(session.desktop, "Return");
  EXPECT_TRUE(wine.WasCalledWith(command + command));
}

TEST(Window, DoubleClickAndEnterOnAnImportedShipStartTheModelViewer) {
  const StandIn wine("wine");
  const Session session;
  ASSERT_TRUE(EnableFeatures(session));
  ASSERT_TRUE(ChooseTab(session, "Import Ships"));
  const std::string list = "imports.lstImported";
  // Without a viewer in the game folder nothing happens, and the window goes on.
  Click(session.desktop, MiddleOf(RowOf(session, list, "Wraithwing")["rectangle"]), 2);
  ASSERT_TRUE(SelectRow(session, list, "Manta"));
  EXPECT_FALSE(std::filesystem::exists(wine.log));

  WriteFileAt(session.sample.game / "sltool.exe", "viewer");
  const std::string game = session.folder.Windows("sample/StarLancer/");
  const std::string command = game + "sltool.exe " + game + "ships\\wraithwing.shp\n";
  Click(session.desktop, MiddleOf(RowOf(session, list, "Wraithwing")["rectangle"]), 2);
  ASSERT_TRUE(wine.WasCalledWith(command));
  PressKey(session.desktop, "Return");
  EXPECT_TRUE(wine.WasCalledWith(command + command));
  EXPECT_EQ(Control(session, list)["rowCount"], 3);
}

TEST(Window, AskedForTheGameFolderAndLeftAlone) {
  const TemporaryFolder home;
  Desktop desktop(1280, 800);
  desktop.variables["XDG_CONFIG_HOME"] = home.native.string();
  desktop.variables["WINEPREFIX"] = home.Native("no-prefix").string();
  Program program({ORAVIN_PROGRAM}, desktop.variables);
  ASSERT_TRUE(Eventually([&] { return ActiveWindowTitle(desktop) == "Oravin"; }));
  EXPECT_TRUE(SaveScreenshot(desktop, "start_up_box"));
  PressKey(desktop, "Return");
  ASSERT_TRUE(Eventually([&] { return ActiveWindowTitle(desktop) == "Select your StarLancer Game Directory"; }));
  EXPECT_TRUE(SaveScreenshot(desktop, "folder_dialog"));
  EXPECT_EQ(StatusAfterKey(desktop, program, "Escape"), 0);
  EXPECT_FALSE(std::filesystem::exists(home.Native("oravin"))) << "nothing is kept of a choice that was not made";
}

TEST(Window, ViewReadmeOpensIt) {
  const StandIn viewer("xdg-open");
  const Session session;
  ASSERT_TRUE(ChooseTab(session, "About"));
  PressKey(session.desktop, "alt+v");
  EXPECT_TRUE(viewer.WasCalledWith((session.sample.program / "readme.txt").string() + "\n"));
}

}  // namespace oravin::test
