// Renaming and removing imported ships may stop at any file operation, or any operation may fail: whatever comes next,
// Disable leaves the game folder as it was before the first Enable.

#include "actions/rename_imported.h"
#include "interruption_stage.h"
#include "support/fault.h"
#include "tabs/imported_list.h"

namespace oravin::test {
namespace {

using Action = std::function<void(Session&)>;

void Rename(Session& session) { RenameImported(session.main.host, session.main.installation, manta, "Ray"); }

void Remove(Session& session) {
  DisplayImported(session.main.host, session.main.imports, session.main.installation);
  SelectOnly(session.main.imports.lstImported, 0);
  session.Press("imports.cmdRemoveShips");
}

/// Lets Manta fly as Tiger, does the action with a fault at each of its operations in turn, then perhaps enables anew,
/// and disables.
void WalkFaults(FaultKind kind, const Action& action, bool enableAgain) {
  const int operations = AtEachOperation(kind, [&](Fault& fault) {
    // The player had a model of Manta's name already.
    const InterruptionStage stage(PlayersFiles{{"manta.shp", "the player's own model"}});
    {
      const auto session = stage.Start();
      session->Press("switcher.cmdEnable");
      session->Swap(tiger, manta);
      Watch(session->main.host.files, fault);
      Stopped([&] { action(*session); });
      session->main.host.files.before = nullptr;
    }
    if (enableAgain) stage.Start()->Press("switcher.cmdEnable");
    stage.Start()->Press("switcher.cmdDisable");
    EXPECT_TRUE(SameImage(stage.before, stage.GameFolder())) << fault.what;
  });
  EXPECT_GT(operations, 10);
}

TEST(ImportedInterruption, RenameStopped) { WalkFaults(FaultKind::stop, Rename, false); }

TEST(ImportedInterruption, RenameFailing) { WalkFaults(FaultKind::failure, Rename, false); }

TEST(ImportedInterruption, RemovalStopped) { WalkFaults(FaultKind::stop, Remove, false); }

TEST(ImportedInterruption, RemovalFailing) { WalkFaults(FaultKind::failure, Remove, false); }

TEST(ImportedInterruption, RemovalStoppedThenEnable) { WalkFaults(FaultKind::stop, Remove, true); }

}  // namespace
}  // namespace oravin::test
