// The player's own models while the features are enabled: which version goes back, and that none is lost.

#include <filesystem>

#include "base/file_error.h"
#include "interruption_stage.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

namespace fs = std::filesystem;

struct KeptModelsOnDisk : testing::Test {
  void Keep(const std::string& file, const std::string& text) const {
    WriteFileAt(installation.Program("backup/ships/" + file), text);
  }
  [[nodiscard]] FolderImage Folder(const char* name) const { return ImageOf(installation.Program(name)); }
  [[nodiscard]] std::string Loose(const char* name) const {
    return ReadTextAt(installation.Game(std::string("ships/") + name));
  }
  void Start() {
    session = nullptr;
    session = std::make_unique<Session>(installation);
  }

  SmallInstallation installation;
  std::unique_ptr<Session> session;
};

TEST_F(KeptModelsOnDisk, OfTwoSpellingsOfOneNameTheHighestNumberGoesBackAndTheOlderOneIsKept) {
  Start();
  const FolderImage before = ImageOf(installation.folder.Native("game/ships"));
  session->Enable();
  Keep("alpha.shp", "older");
  Keep("ALPHA.SHP.2", "newest");
  session->Disable();
  FolderImage expected = before;
  expected["ALPHA.SHP"] = BytesOf("newest");
  EXPECT_TRUE(SameImage(expected, ImageOf(installation.folder.Native("game/ships"))));
  EXPECT_TRUE(SameImage({{"alpha.shp", BytesOf("older")}}, Folder("backup/old")));
  EXPECT_TRUE(Folder("backup/ships").empty());
}

TEST_F(KeptModelsOnDisk, OfTwoSpellingsTheHighestNumberGoesBackWhicheverSortsFirst) {
  Start();
  session->Enable();
  Keep("ALPHA.SHP", "older");
  Keep("alpha.shp.10", "newest");
  Keep("Alpha.shp.9", "middle");
  session->Disable();
  EXPECT_EQ(Loose("alpha.shp"), "newest");
  EXPECT_TRUE(SameImage({{"ALPHA.SHP", BytesOf("older")}, {"Alpha.shp.2", BytesOf("middle")}}, Folder("backup/old")));
  EXPECT_TRUE(Folder("backup/ships").empty());
}

TEST_F(KeptModelsOnDisk, OlderVersionsTakeFreeNamesAndOverwriteNothing) {
  Start();
  session->Enable();
  for (const char* name : {"alpha.shp", "ALPHA.shp.3"}) {
    WriteFileAt(installation.Program("backup/old/" + std::string(name)), name);
  }
  Keep("alpha.shp", "first");
  Keep("alpha.shp.2", "second");
  Keep("alpha.shp.3", "third");
  session->Disable();
  EXPECT_EQ(Loose("alpha.shp"), "third");
  EXPECT_TRUE(SameImage({{"alpha.shp", BytesOf("alpha.shp")},
                         {"alpha.shp.2", BytesOf("first")},
                         {"ALPHA.shp.3", BytesOf("ALPHA.shp.3")},
                         {"alpha.shp.4", BytesOf("second")}},
                        Folder("backup/old")));
}

TEST_F(KeptModelsOnDisk, ALaterVersionGetsTheNextNumberThoughLowerOnesAreFree) {
  Keep("alpha.shp.3", "third");
  WriteFileAt(installation.Game("ships/alpha.shp"), "latest");
  Start();
  session->Enable();
  EXPECT_TRUE(
      SameImage({{"alpha.shp.3", BytesOf("third")}, {"alpha.shp.4", BytesOf("latest")}}, Folder("backup/ships")));
  session->Disable();
  EXPECT_EQ(Loose("alpha.shp"), "latest");
  EXPECT_TRUE(SameImage({{"alpha.shp", BytesOf("third")}}, Folder("backup/old")));
}

TEST_F(KeptModelsOnDisk, ALooseModelThatHasToGiveWayIsKeptWithTheOldOnes) {
  Start();
  Keep("alpha.shp", "kept");
  WriteFileAt(installation.Game("ships/Alpha.shp"), "came since");
  session->Disable();
  EXPECT_EQ(Loose("Alpha.shp"), "kept");
  EXPECT_TRUE(SameImage({{"Alpha.shp", BytesOf("came since")}}, Folder("backup/old")));
  EXPECT_TRUE(Folder("backup/ships").empty());
}

TEST_F(KeptModelsOnDisk, WhatIsNoKeptModelStaysWhereItIs) {
  Start();
  Keep("notes/alpha.shp", "the player's notes");
  Keep("alpha.shp.02", "not a version");
  session->Disable();
  EXPECT_TRUE(SameImage({{"notes/", {}}, {"notes/alpha.shp", BytesOf("the player's notes")}}, Folder("backup/ships")));
  EXPECT_EQ(Loose("alpha.shp.02"), "not a version");
  EXPECT_FALSE(fs::exists(installation.Game("ships/alpha.shp")));
}

TEST_F(KeptModelsOnDisk, NothingIsDeletedWhereAModelCannotBePutBack) {
  Start();
  Keep("alpha.shp", "older");
  Keep("alpha.shp.2", "newest");
  Keep("bravo.shp", "the player's bravo");
  const FolderImage before = Folder("backup/ships");
  session->main.host.files.before = [&](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::rename &&
        operation.second == installation.gamePath + "ships\\bravo.shp") {
      throw FileError("could not write", operation.second, "the disk is full");
    }
  };
  session->desk.ExpectQuestion(disableQuestion, Answer::yes);
  session->desk.ExpectBox("Error - could not write " + installation.gamePath + "ships\\bravo.shp: the disk is full",
                          "cmdDisable_Click()");
  session->desk.ExpectBox(
      "The game's files are restored, but not all of your own models could be restored, as the message before this one "
      "says. They are kept in\n" +
      installation.programPath + "backup\\ships\\\nPut that right and use \"Disable / Restore\" again.");
  session->Press("switcher.cmdDisable");
  EXPECT_TRUE(SameImage(before, Folder("backup/ships")));
  Start();
  session->Disable();
  EXPECT_EQ(Loose("alpha.shp"), "newest");
  EXPECT_EQ(Loose("bravo.shp"), "the player's bravo");
  EXPECT_TRUE(SameImage({{"alpha.shp", BytesOf("older")}}, Folder("backup/old")));
}

/// Two older versions of a model are there from before.
struct Versions : InterruptionStage {
  Versions() : InterruptionStage(PlayersFiles{{"alpha.shp", "the latest"}, {"Tiger.org", "moved aside"}}) {
    WriteFileAt(installation.Program("backup/ships/ALPHA.SHP"), "the first");
    WriteFileAt(installation.Program("backup/ships/Alpha.shp.2"), "the second");
  }

  void DisableAndCompare(const std::string& where) const {
    Start()->Press("switcher.cmdDisable");
    FolderImage after = GameFolder();
    // The backup of the table knows how a name was spelled there; where it could not be read, letter case may differ.
    if (where.find("resource.fat") != std::string::npos) after["resource.hog"] = before.at("resource.hog");
    EXPECT_TRUE(SameImage(before, after)) << where;
    EXPECT_TRUE(ImageOf(installation.Program("backup/ships")).empty()) << where;
    EXPECT_TRUE(SameImage({{"ALPHA.SHP", BytesOf("the first")}, {"Alpha.shp.2", BytesOf("the second")}},
                          ImageOf(installation.Program("backup/old"))))
        << where;
  }
};

/// Does something with a fault at each of its operations in turn, then something else, and at last Disable.
void WalkVersions(FaultKind kind, bool enabled, const char* action, bool enableAfterwards) {
  const int operations = AtEachOperation(kind, [&](Fault& fault) {
    const Versions stage;
    {
      const auto session = stage.Start();
      if (enabled) session->Press("switcher.cmdEnable");
      Watch(session->main.host.files, fault);
      Stopped([&] { session->Press(action); });
      session->main.host.files.before = nullptr;
    }
    if (enableAfterwards) stage.Start()->Press("switcher.cmdEnable");
    stage.DisableAndCompare("operation " + std::to_string(fault.at) + ", " + fault.what);
  });
  EXPECT_GT(operations, 5);
}

TEST(KeptVersions, OutliveAStopOfEnableThatIsDoneAgain) {
  WalkVersions(FaultKind::stop, false, "switcher.cmdEnable", true);
}

TEST(KeptVersions, OutliveAFailureOfEnableThatIsDoneAgain) {
  WalkVersions(FaultKind::failure, false, "switcher.cmdEnable", true);
}

TEST(KeptVersions, OutliveAStopOfDisable) { WalkVersions(FaultKind::stop, true, "switcher.cmdDisable", false); }

TEST(KeptVersions, OutliveAFailureOfDisable) { WalkVersions(FaultKind::failure, true, "switcher.cmdDisable", false); }

}  // namespace
}  // namespace oravin::test
