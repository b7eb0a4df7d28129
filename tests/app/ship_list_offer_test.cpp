// Where there is no ship list: one is drafted from the game's files, before the folder is refused.

#include "app/ship_list_offer.h"

#include <filesystem>

#include "desk/program_end.h"
#include "lists/ship_list.h"
#include "platform/registry.h"
#include "session.h"
#include "support/own_machine.h"

namespace oravin::test {
namespace {

constexpr const char* noModels = "No ship models were found in the game's archive.";

/// An installation without a ship list on a machine that knows nothing of it.
struct ShipListOffer : testing::Test {
  ShipListOffer() {
    std::filesystem::remove(List());
    std::filesystem::current_path(machine.native);
  }
  ~ShipListOffer() override { std::filesystem::current_path("/"); }

  [[nodiscard]] std::filesystem::path List() const { return installation.Program("shipsData.txt"); }
  void ExpectOffer(Answer answer) {
    desk.ExpectQuestion("This folder has no ship list (shipsData.txt), which Oravin needs:\n" +
                            installation.programPath +
                            "\n\nOravin can draft one from the game's own files. You can look through it and change it "
                            "before it is saved.\n\nShall it do that?",
                        answer);
  }
  /// Answers Yes, and presses a button of the form.
  void DraftAnd(const std::string& button) {
    ExpectOffer(Answer::yes);
    desk.OnForm([this, button](const std::string& form) {
      EXPECT_EQ(form, "ShipList");
      session.Press("ShipList." + button);
      EXPECT_FALSE(main.shipListForm.shown);
    });
  }
  bool Offer() { return OfferShipList(main, installation.gamePath, installation.programPath); }
  [[nodiscard]] FolderImage Image() const { return ImageOf(installation.folder.native); }
  [[nodiscard]] std::vector<ListedShip> Listed() {
    std::vector<ListedShip> ships;
    for (const ListedLine& line : ReadShipListText(main.host.files, installation.programPath + shipListName).lines) {
      ships.push_back(line.ship);
    }
    return ships;
  }
  void RegisterGame() const {
    ASSERT_TRUE(platform::RegWriteString(platform::localMachine,
                                         "Software\\Microsoft\\Microsoft Games\\StarLancer\\1.0\\", "EXE Path",
                                         installation.gamePath));
  }
  void ExpectFound() const {
    EXPECT_EQ(main.installation.GamePath, installation.gamePath);
    EXPECT_EQ(main.installation.ProgramPath, installation.programPath);
  }

  SmallInstallation installation;
  TemporaryFolder machine;
  OwnMachine own{machine};
  Session session{installation, false};
  Main& main = session.main;
  ScriptedDesk& desk = session.desk;
};

TEST_F(ShipListOffer, NoLeavesEverythingAsItIs) {
  const FolderImage before = Image();
  ExpectOffer(Answer::no);
  EXPECT_FALSE(Offer());
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(ShipListOffer, YesDraftsTheListAndSaveWritesIt) {
  FolderImage before = Image();
  DraftAnd("cmdSave");
  EXPECT_TRUE(Offer());
  const std::vector<ListedShip> listed = Listed();
  ASSERT_EQ(listed.size(), installation.ships.size());
  for (const SmallShip& ship : installation.ships) {
    const auto found = std::find_if(listed.begin(), listed.end(), [&](const ListedShip& line) {
      return line.file == (ship.kind == 3 ? ship.file : ship.entryName);
    });
    ASSERT_NE(found, listed.end()) << ship.file;
    EXPECT_EQ(found->kind, ship.kind == 3 ? 3 : 1);
  }
  before["program/shipsData.txt"] = ReadFileAt(List());
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(ShipListOffer, WhatWasEditedIsSaved) {
  ExpectOffer(Answer::yes);
  desk.OnForm([this](const std::string&) {
    ASSERT_FALSE(main.shipListForm.ships.empty());
    main.shipListForm.txtName.text = "My own name";
    session.Press("ShipList.cmdSave");
  });
  EXPECT_TRUE(Offer());
  EXPECT_EQ(Listed().at(0).name, "My own name");
}

TEST_F(ShipListOffer, CancelInTheFormWritesNothing) {
  const FolderImage before = Image();
  DraftAnd("cmdCancel");
  EXPECT_FALSE(Offer());
  EXPECT_TRUE(SameImage(before, Image()));
}

TEST_F(ShipListOffer, ADraftThatIsStoppedEndsWithoutAForm) {
  const FolderImage before = Image();
  ExpectOffer(Answer::yes);
  desk.StopAfter(3);
  EXPECT_FALSE(Offer());
  EXPECT_TRUE(SameImage(before, Image()));
  ASSERT_FALSE(desk.progress.empty());
  EXPECT_EQ(desk.progress.back().total, 0) << "the progress is put away";
}

TEST_F(ShipListOffer, AnArchiveWithoutModelsIsTold) {
  std::filesystem::remove_all(installation.Program("addons"));
  installation.ships.clear();
  installation.WriteArchive();
  ExpectOffer(Answer::yes);
  desk.ExpectBox(noModels);
  EXPECT_FALSE(Offer());
}

TEST_F(ShipListOffer, WithoutTheArchiveOrTheFolderNothingIsOffered) {
  EXPECT_FALSE(OfferShipList(main, installation.gamePath, machine.Windows("none\\")));
  std::filesystem::remove(installation.Game("resource.hog"));
  EXPECT_FALSE(Offer());
  EXPECT_TRUE(desk.shown.empty());
}

TEST_F(ShipListOffer, AListThatIsSavedLetsAGivenFolderBeUsed) {
  DraftAnd("cmdSave");
  Form_Load(main, {installation.gamePath, installation.programPath, true});
  ExpectFound();
  session.Enable();
  EXPECT_EQ(main.installation.ships.size(), installation.ships.size() + 1) << "with the surplus element";
  session.Swap(0, 1);
  EXPECT_TRUE(main.installation.ships[0].Changed);
}

TEST_F(ShipListOffer, CancelInTheFormRefusesAGivenFolder) {
  DraftAnd("cmdCancel");
  desk.ExpectBox(installation.programPath + "\nThis is not an Oravin directory");
  EXPECT_THROW(Form_Load(main, {installation.gamePath, installation.programPath, true}), ProgramEnd);
}

TEST_F(ShipListOffer, NoRefusesAGivenFolder) {
  ExpectOffer(Answer::no);
  desk.ExpectBox(installation.programPath + "\nThis is not an Oravin directory");
  EXPECT_THROW(Form_Load(main, {installation.gamePath, installation.programPath, true}), ProgramEnd);
}

TEST_F(ShipListOffer, WhereItIsNotWantedAGivenFolderIsRefusedWithoutIt) {
  desk.ExpectBox(installation.programPath + "\nThis is not an Oravin directory");
  EXPECT_THROW(Form_Load(main, {installation.gamePath, installation.programPath, false}), ProgramEnd);
}

TEST_F(ShipListOffer, AFolderThatHasAListIsNotAskedAbout) {
  installation.WriteShipList();
  Form_Load(main, {installation.gamePath, installation.programPath, true});
  ExpectFound();
}

TEST_F(ShipListOffer, AGivenProgramFolderAloneIsOfferedOneFromTheGameThatIsFound) {
  RegisterGame();
  DraftAnd("cmdSave");
  Form_Load(main, {"", installation.programPath, true});
  ExpectFound();
}

TEST_F(ShipListOffer, AGivenProgramFolderAloneIsOfferedOneFromTheGameThatIsChosen) {
  desk.ExpectBox("Registy entries for StarLancer not found!");
  desk.AnswerFolder(installation.gamePath);
  DraftAnd("cmdSave");
  Form_Load(main, {"", installation.programPath, true});
  ExpectFound();
  EXPECT_EQ(ReadTextAt(installation.Program("oravin.ini")),
            "\"" + installation.gamePath + "\"\r\n\"" + installation.programPath + "\"\r\n");
}

TEST_F(ShipListOffer, AGivenProgramFolderAloneIsRefusedAfterNo) {
  RegisterGame();
  ExpectOffer(Answer::no);
  desk.ExpectBox(installation.programPath + "\nThis is not an Oravin directory");
  EXPECT_THROW(Form_Load(main, {"", installation.programPath, true}), ProgramEnd);
}

TEST_F(ShipListOffer, AGivenProgramFolderThatIsNotThereIsRefusedWithoutASearch) {
  desk.ExpectBox(machine.Windows("none\\") + "\nThis is not an Oravin directory");
  EXPECT_THROW(Form_Load(main, {"", machine.Windows("none"), true}), ProgramEnd);
}

TEST_F(ShipListOffer, AListThatIsSavedLetsAChosenFolderBeUsed) {
  desk.ExpectBox("Registy entries for StarLancer not found!");
  desk.AnswerFolder(installation.gamePath);
  desk.ExpectBox("Can't find Oravin local path in registry");
  desk.AnswerFolder(installation.programPath);
  DraftAnd("cmdSave");
  Form_Load(main, {"", "", true});
  ExpectFound();
  EXPECT_TRUE(std::filesystem::exists(installation.Program("oravin.ini")));
}

TEST_F(ShipListOffer, CancelInTheFormLetsThePersonChooseAnotherFolder) {
  desk.ExpectBox("Registy entries for StarLancer not found!");
  desk.AnswerFolder(installation.gamePath);
  desk.ExpectBox("Can't find Oravin local path in registry");
  desk.AnswerFolder(installation.programPath);
  DraftAnd("cmdCancel");
  desk.ExpectBox("This is not an Oravin directory");
  desk.AnswerFolder("");
  EXPECT_THROW(Form_Load(main, {"", "", true}), ProgramEnd);
  EXPECT_FALSE(std::filesystem::exists(List()));
}

}  // namespace
}  // namespace oravin::test
