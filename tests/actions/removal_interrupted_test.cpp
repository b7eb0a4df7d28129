// What a stop or a failure in the middle of a removal leaves.

#include "removing.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

/// An image as far as it must be the same however often a removal was begun: what was kept may lie in several folders.
FolderImage Comparable(FolderImage image) {
  FolderImage comparable;
  for (auto& [path, bytes] : image) {
    const std::string removed = "program/addons/removed/";
    if (!path.starts_with(removed)) {
      comparable[path] = bytes;
    } else if (!path.ends_with("/")) {
      comparable[removed + path.substr(path.find_last_of('/') + 1)] = bytes;
    }
  }
  return comparable;
}

/// Whatever fails or stops, the ship is listed until all of it is gone, and another removal does what is left.
void WalkRemoval(FaultKind kind, bool swapped) {
  const int operations = AtEachOperation(kind, [&](Fault& fault) {
    ImportedStage stage;
    stage.SetTextures(manta, {"skin"});
    WriteFileAt(stage.files.Program("addons/textures/skin.bmp"), "a bitmap");
    FolderImage expected = WithoutManta(stage.Image());
    Move(expected, "program/addons/textures/skin.bmp", "program/addons/removed/Manta/skin.bmp");
    stage.AddUserTexture("skin");
    if (swapped) stage.Swap("ALPHA", "MANTA");
    stage.desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
    const auto remove = [&] { return RemoveImported(stage.host, stage.installation, {manta}, true).done; };
    Watch(stage.host.files, fault);
    bool done = false;
    Stopped([&] { done = remove(); });
    const Ships inMemory = stage.installation.ships;
    stage.Reload();
    if (kind == FaultKind::failure) {
      EXPECT_EQ(inMemory, stage.installation.ships) << fault.what;
    }
    EXPECT_EQ(FindShip(stage.installation.ships, "Manta") >= 0, !done) << fault.what;
    if (!done) {
      EXPECT_TRUE(remove()) << fault.what;
    }
    // A swap that was being undone is for "Disable / Restore" to finish.
    if (swapped && fault.happened) return;
    if (swapped) ChangeRecords(expected, [](Ships& ships) { ships[alpha].ChangedToIndex = BooleanValue(false); });
    EXPECT_TRUE(SameImage(Comparable(expected), Comparable(stage.Image()))) << fault.what;
  });
  EXPECT_GT(operations, 20);
}

TEST(RemovalInterrupted, AFailureOfAnyOperationCanBeMadeUpFor) { WalkRemoval(FaultKind::failure, false); }

TEST(RemovalInterrupted, AStopAtAnyOperationCanBeMadeUpFor) { WalkRemoval(FaultKind::stop, false); }

TEST(RemovalInterrupted, AFailureOfAnyOperationWithAShipToPutBack) { WalkRemoval(FaultKind::failure, true); }

TEST(RemovalInterrupted, AStopAtAnyOperationWithAShipToPutBack) { WalkRemoval(FaultKind::stop, true); }

}  // namespace
}  // namespace oravin::test
