// An action may stop at any file operation, or any operation may fail: whatever comes next, Disable leaves the game
// folder as it was before the first Enable, the player's own files included.

#include "files/whole_file.h"
#include "interruption_stage.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

constexpr const char* ownModel = "the player's own model";
constexpr const char* ownAside = "the player's own model, moved aside";

/// The ships folder holds models of the player's own under the names of catalogue ships.
struct Stage : InterruptionStage {
  Stage()
      : InterruptionStage(PlayersFiles{{"alpha.shp", ownModel}, {"Tiger.org", ownAside}, {"manta.shp", ownModel}}) {}

  /// The next run disables, and everything is as it was.
  void DisableAndCompare(const std::string& where) const {
    Start()->Press("switcher.cmdDisable");
    FolderImage after = GameFolder();
    // The backup of the table knows how a name was spelled; where it could not be read, letter case may differ.
    if (where.find("resource.fat") != std::string::npos) TakeSpelling(after["resource.hog"]);
    EXPECT_TRUE(SameImage(before, after)) << "after Disable, " << where;
    EXPECT_TRUE(ImageOf(installation.folder.Native("program/backup/ships")).empty()) << where;
  }

  void TakeSpelling(Bytes& archive) const {
    const Bytes& old = before.at("resource.hog");
    for (const TableEntry& entry : TableIn(archive)) {
      for (std::size_t i = entry.position + 8; i < entry.position + 8 + entry.name.size(); ++i) {
        if (std::tolower(archive[i]) == std::tolower(old.at(i))) archive[i] = old.at(i);
      }
    }
  }
};

using Action = std::function<void(Session&)>;

void EnableIt(Session& session) { session.Press("switcher.cmdEnable"); }

/// Enables, does `first`, and then `action` with a fault at each of its operations in turn; then `next` in a run of its
/// own, and Disable.
void WalkFaults(FaultKind kind, const Action& first, const Action& action, const Action& next) {
  const int operations = AtEachOperation(kind, [&](Fault& fault) {
    const Stage stage;
    {
      const auto session = stage.Start();
      first(*session);
      Watch(session->main.host.files, fault);
      Stopped([&] { action(*session); });
      session->main.host.files.before = nullptr;
    }
    if (next) next(*stage.Start());
    stage.DisableAndCompare("operation " + std::to_string(fault.at) + ", " + fault.what);
  });
  EXPECT_GT(operations, 5);
}

const Action nothing = [](Session&) {};
const Action swapTwoPart = [](Session& session) { session.Swap(tiger, manta); };
const Action swapChangedSource = [](Session& session) { session.Swap(bravo, tiger); };
const Action unswap = [](Session& session) { session.Unswap(tiger); };
const Action disable = [](Session& session) { session.Press("switcher.cmdDisable"); };

Action Both(const Action& a, const Action& b) {
  return [=](Session& session) {
    a(session);
    b(session);
  };
}

TEST(Interruption, EnableThenDisable) { WalkFaults(FaultKind::stop, nothing, EnableIt, nullptr); }

TEST(Interruption, EnableThenEnableThenDisable) { WalkFaults(FaultKind::stop, nothing, EnableIt, EnableIt); }

TEST(Interruption, EnableOnAnEnabledInstallation) {
  WalkFaults(FaultKind::stop, Both(EnableIt, swapTwoPart), EnableIt, nullptr);
}

TEST(Interruption, Swap) { WalkFaults(FaultKind::stop, EnableIt, swapTwoPart, nullptr); }

TEST(Interruption, SwapThenUnswapAll) {
  WalkFaults(FaultKind::stop, EnableIt, swapTwoPart, [](Session& session) { session.UnswapAll(); });
}

TEST(Interruption, SwapToAChangedSource) {
  WalkFaults(FaultKind::stop, Both(EnableIt, swapTwoPart), swapChangedSource, nullptr);
}

TEST(Interruption, Unswap) { WalkFaults(FaultKind::stop, Both(EnableIt, swapTwoPart), unswap, nullptr); }

TEST(Interruption, UnswapThenSwapAgain) {
  WalkFaults(FaultKind::stop, Both(EnableIt, swapTwoPart), unswap, swapTwoPart);
}

TEST(Interruption, Disable) { WalkFaults(FaultKind::stop, Both(EnableIt, swapTwoPart), disable, nullptr); }

TEST(Interruption, DisableThenEnable) { WalkFaults(FaultKind::stop, Both(EnableIt, swapTwoPart), disable, EnableIt); }

TEST(Failure, OfEachOperationOfEnable) { WalkFaults(FaultKind::failure, nothing, EnableIt, nullptr); }

TEST(Failure, OfEachOperationOfASwap) { WalkFaults(FaultKind::failure, EnableIt, swapTwoPart, nullptr); }

TEST(Failure, OfEachOperationOfAnUnswap) {
  WalkFaults(FaultKind::failure, Both(EnableIt, swapTwoPart), unswap, nullptr);
}

TEST(Failure, OfEachOperationOfDisable) {
  WalkFaults(FaultKind::failure, Both(EnableIt, swapTwoPart), disable, nullptr);
}

}  // namespace
}  // namespace oravin::test
