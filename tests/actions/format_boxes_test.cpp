// The message boxes of what readers and writers of statistics and models fail with: the words, icon and title of each
// procedure's error trap.

#include <gtest/gtest.h>

#include "actions/edit_stats.h"
#include "actions/edit_weapons.h"
#include "desk/error_trap.h"
#include "models/class_byte.h"
#include "models/texture_names.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/stats_tab_stage.h"

namespace oravin::test {
namespace {

struct FormatBoxes : TabStage {
  std::string stats = folder.Windows("game\\shipstats.bin");
  std::string nowhere = folder.Windows("nowhere");

  /// Runs a step in a procedure's error trap; it must show this box and nothing else.
  void ExpectBox(const char* procedure, const std::function<void()>& step, const std::string& text,
                 const std::string& title, Icon icon = Icon::exclamation) {
    SCOPED_TRACE(procedure);
    const FolderImage before = Image();
    at.desk.ExpectBox(text, title, icon);
    EXPECT_FALSE(Trap(at.host, procedure, step));
    EXPECT_TRUE(at.desk.Done());
    EXPECT_TRUE(SameImage(before, Image()));
  }
};

TEST_F(FormatBoxes, OfStatistics) {
  Files& files = at.host.files;
  ExpectBox(
      "GetShipsStats", [&] { ReadShipsStats(files, nowhere, 0); }, "Error - file not found", "GetShipsStats");
  // Intentional: reading reports a wrong block under the writer's title.
  ExpectBox(
      "GetShipsStats", [&] { ReadShipsStats(files, stats, 4); }, "Error - invalid ship", "PutShipsStats");
  ExpectBox(
      "GetShipsStats", [&] { ReadShipsStats(files, stats, -1); }, "Error - invalid ship", "PutShipsStats");
  ExpectBox(
      "PutShipsStats", [&] { WriteShipsStats(files, nowhere, 0, {}); }, "Error - file not found", "PutShipsStats");
  ExpectBox(
      "PutShipsStats", [&] { WriteShipsStats(files, stats, 4, {}); }, "Error - invalid ship", "PutShipsStats");
  SetReadOnly(Game("shipstats.bin"), true);
  ExpectBox(
      "PutShipsStats", [&] { WriteShipsStats(files, stats, 0, {}); },
      "Error - could not open " + stats + ": it is read-only", "PutShipsStats");
  ExpectBox(
      "CopyShipStats", [&] { AppendShipBlock(files, stats, "Tiger", {}); },
      "Error - could not open " + stats + ": it is read-only", "CopyShipStats");
  ExpectBox(
      "CopyShipStats", [&] { FindFreeBlock(files, nowhere, 0); },
      "Error - could not open " + nowhere + ": it does not exist", "CopyShipStats");
}

TEST_F(FormatBoxes, OfAStatisticsFileThatCannotBeRead) {
  Fault fault{FaultKind::failure, 2, 0, false, {}};
  Watch(at.host.files, fault);
  at.desk.ExpectBox("Error - could not read " + stats + ": " + faultReason, "GetShipsStats");
  EXPECT_FALSE(GetShipsStats(at.host, installation, installation.ships[alpha]));
}

TEST_F(FormatBoxes, OfStatisticsTexts) {
  Files& files = at.host.files;
  ExpectBox(
      "GetImportStats", [&] { ReadImportStats(files, nowhere); }, "File not found!", "GetImportStats", Icon::critical);
  const std::string text = folder.Windows("program\\addons\\stats\\manta.txt");
  WriteFileAt(Program("addons/stats/manta.txt"), "1,2,3\nfast");
  ExpectBox(
      "GetImportStats", [&] { ReadImportStats(files, text); },
      "Error - could not read " + text + ": \"fast\" is no number (line 2)", "GetImportStats");
}

TEST_F(FormatBoxes, OfTheClassByte) {
  Files& files = at.host.files;
  ExpectBox(
      "IsCapitalShip", [&] { IsCapitalShip(files, nowhere); }, "Error - file not found", "IsCapitalShip");
  ExpectBox(
      "IsCloaked", [&] { IsCloaked(files, nowhere); }, "Error - file not found", "IsCloaked");
  // Intentional: the toggle reports a missing model under the query's title.
  ExpectBox(
      "ToggleCloak", [&] { ToggleCloak(files, nowhere); }, "Error - file not found", "IsCloaked");
  SetReadOnly(Game("ships/alpha.shp"), true);
  at.desk.ExpectBox("Error - could not open " + ModelPath("alpha.shp") + ": it is read-only", "ToggleCloak");
  ToggleCloakOf(at.host, installation, installation.ships[alpha]);
}

TEST_F(FormatBoxes, OfAttachments) {
  Files& files = at.host.files;
  ExpectBox(
      "PutAttachments", [&] { PutAttachments(files, nowhere, weapons); }, "Error - Path not found", "Oravin");
  SetReadOnly(Game("ships/alpha.shp"), true);
  ExpectBox(
      "PutAttachments", [&] { PutAttachments(files, ModelPath("alpha.shp"), weapons); },
      "Error - could not open " + ModelPath("alpha.shp") + ": it is read-only", "PutAttachments");
  std::filesystem::remove(Game("ships/bravo.shp"));
  at.desk.ExpectBox("Error - Path not found", "Oravin");
  EXPECT_TRUE(GetWeapons(at.host, installation, installation.ships[bravo]).attachments.empty());
}

TEST_F(FormatBoxes, AreNoneForAModelThatIsThereAndCannotBeRead) {
  AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    ScriptedHost here;
    Watch(here.host.files, fault);
    const ModelWeapons read = GetWeapons(here.host, installation, installation.ships[alpha]);
    EXPECT_EQ(read.attachments, fault.happened ? ShpAttachments() : weapons);
  });
}

TEST_F(FormatBoxes, OfTextureNames) {
  Files& files = at.host.files;
  ExpectBox(
      "GetShpTextureNames", [&] { ReadShpTextureNames(files, nowhere); }, "Error - Path not found", "ORAVIN");
  std::vector<std::string> names;
  names.reserve(51);
  for (int i = 0; i < 51; ++i) names.push_back("texture" + std::to_string(i));
  Bytes model = ModelHead();
  AddTextures(model, names);
  WriteFileAt(Game("ships/alpha.shp"), model);
  ExpectBox(
      "GetShpTextureNames", [&] { ReadShpTextureNames(files, ModelPath("alpha.shp")); },
      "Error - could not read " + ModelPath("alpha.shp") + ": it names more than 50 textures", "GetShpTextureNames");
}

}  // namespace
}  // namespace oravin::test
