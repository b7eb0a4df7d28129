// The whole cycle: enable, swap, unswap, disable, enable again, over the small installation, through the handler table.
// After every step every file of both folders is compared byte for byte with what it must be.

#include <random>

#include "session.h"

namespace oravin::test {
namespace {

struct Cycle : testing::Test {
  void Start() {
    session = nullptr;  // the run before ends first
    session = std::make_unique<Session>(installation);
    expected.StartUp();
  }
  void StartEnabled() {
    Start();
    session->Enable();
    expected.Enable();
  }
  void Swap(int target, int source) {
    session->Swap(target, source);
    expected.Swap(target, source);
    Compare("swap");
  }
  void Unswap(int target) {
    session->Unswap(target);
    expected.Unswap(target);
    Compare("unswap");
  }
  void Compare(const char* step) const {
    EXPECT_TRUE(SameImage(expected.Image(), ImageOf(installation.folder.native))) << "after " << step;
  }

  SmallInstallation installation;
  ExpectedFiles expected{installation};
  std::unique_ptr<Session> session;
};

TEST_F(Cycle, StartUpKeepsAFirstCopyOfTheStatistics) {
  Start();
  Compare("start-up");
}

TEST_F(Cycle, EnableSetsUpEveryFile) {
  StartEnabled();
  Compare("enable");
}

TEST_F(Cycle, EnableAndDisableLeaveTheGameFolderAsItWas) {
  StartEnabled();
  session->Disable();
  expected.Disable();
  Compare("disable");
}

TEST_F(Cycle, SwapOfAOnePartShipToAnImportedOne) {
  StartEnabled();
  Swap(alpha, manta);
  Unswap(alpha);
}

TEST_F(Cycle, SwapOfATwoPartShipWritesTwoRecordsTwoModelsAndTwoBlocks) {
  StartEnabled();
  Swap(tiger, wraith);
  Unswap(tiger);
}

TEST_F(Cycle, SwapToAStockShipOfKindTwoLendsBetterGuns) {
  StartEnabled();
  Swap(alpha, bravo);
  Unswap(alpha);
}

TEST_F(Cycle, SwapToAChangedSourceTakesItsOwnModelAndStatistics) {
  StartEnabled();
  Swap(alpha, manta);
  Swap(bravo, alpha);
  Swap(tiger, bravo);
  Unswap(alpha);
  Unswap(bravo);
}

TEST_F(Cycle, SwapOverAnExistingSwapKeepsTheStockModelAside) {
  StartEnabled();
  Swap(alpha, manta);
  Swap(alpha, wraith);
  Swap(alpha, bravo);
  Unswap(alpha);
}

TEST_F(Cycle, SwapToTheShipItIsChangedToAlreadyDoesNothing) {
  StartEnabled();
  Swap(alpha, manta);
  Swap(alpha, manta);
}

TEST_F(Cycle, SwapToItselfDoesNothing) {
  StartEnabled();
  Swap(alpha, alpha);
}

TEST_F(Cycle, SwapOfCapitalShips) {
  StartEnabled();
  Swap(cruiser, colossus);
  Swap(twin, carrier);
  Unswap(twin);
  Unswap(cruiser);
}

TEST_F(Cycle, UnswapOfAShipThatIsNotChangedDoesNothing) {
  StartEnabled();
  Unswap(alpha);
}

TEST_F(Cycle, UnswapAllPutsEveryShipBack) {
  StartEnabled();
  Swap(alpha, manta);
  Swap(tiger, bravo);
  Swap(twin, colossus);
  session->UnswapAll();
  expected.UnswapAll();
  Compare("unswap all");
}

TEST_F(Cycle, EnableTwiceUnswapsAndTakesPlacesFromTheBackupOfTheTable) {
  StartEnabled();
  Swap(alpha, manta);
  Swap(tiger, bravo);
  session->Enable();
  expected.Enable();
  Compare("the second enable");
}

TEST_F(Cycle, EnableAfterDisableInOneRunFindsItsDefaults) {
  StartEnabled();
  Swap(alpha, manta);
  session->Disable();
  expected.Disable();
  session->Enable();
  expected.Enable();
  Compare("enabling again");
  Swap(tiger, alpha);
}

TEST_F(Cycle, DisableUndoesSwapsThatStillStand) {
  StartEnabled();
  Swap(alpha, manta);
  Swap(tiger, bravo);
  Swap(cruiser, colossus);
  session->Disable();
  expected.Disable();
  Compare("disable");
}

TEST_F(Cycle, AnotherRunFindsTheCatalogueAndGoesOn) {
  StartEnabled();
  Swap(alpha, manta);
  Start();
  Compare("starting again");
  EXPECT_EQ(session->main.switcher.swapOrgList.rows[0].texts[1], "--->Manta");
  Unswap(alpha);
}

TEST_F(Cycle, AfterDisableStartUpLoadsNoCatalogue) {
  StartEnabled();
  session->Disable();
  expected.Disable();
  Start();
  EXPECT_TRUE(session->main.installation.ships.empty());
  EXPECT_TRUE(session->main.switcher.swapOrgList.rows.empty());
}

TEST_F(Cycle, NoToEitherQuestionChangesNothing) {
  Start();
  session->desk.ExpectQuestion(enableQuestion, Answer::no);
  session->Press("switcher.cmdEnable");
  session->desk.ExpectQuestion(disableQuestion, Answer::no);
  session->Press("switcher.cmdDisable");
  Compare("two refusals");
  StartEnabled();
  Swap(alpha, manta);
  session->desk.ExpectQuestion(enableQuestion, Answer::no);
  session->Press("stats.cmdEnable2");
  session->desk.ExpectQuestion(disableQuestion, Answer::no);
  session->Press("stats.CmdDisable2");
  Compare("two refusals while enabled");
}

TEST_F(Cycle, ALongWalkOfRandomActions) {
  std::mt19937 random(20);  // NOLINT(cert-msc51-cpp): the same walk every time
  StartEnabled();
  const std::vector<int> fighters = {alpha, bravo, tiger, stored, fireA, fireB};
  const std::vector<int> capitals = {cruiser, carrier, twin};
  for (int step = 0; step < 120 && !HasFailure(); ++step) {
    const bool fighter = random() % 3 != 0;
    const std::vector<int>& targets = fighter ? fighters : capitals;
    std::vector<int> sources = targets;
    sources.insert(sources.end(),
                   fighter ? std::initializer_list<int>{manta, wraith} : std::initializer_list<int>{colossus});
    const int target = targets[random() % targets.size()];
    switch (random() % 12) {
      case 0:
        session->UnswapAll();
        expected.UnswapAll();
        break;
      case 1:
        session->Enable();
        expected.Enable();
        break;
      case 2:
        session->Disable();
        expected.Disable();
        Compare("disable");
        session->Enable();
        expected.Enable();
        break;
      case 3:
        Start();
        break;
      case 4:
      case 5:
        Unswap(target);
        break;
      default:
        Swap(target, sources[random() % sources.size()]);
        break;
    }
    Compare("a step of the walk");
  }
}

TEST_F(Cycle, AStoredModelKeepsTheBytesThatFollowIt) {
  StartEnabled();
  EXPECT_EQ(ReadFileAt(installation.Game("ships/stored.shp")).size(), installation.ships[stored].model.size() + 50000);
}

TEST_F(Cycle, BothPartsOfATwoPartShipGetTheFirstPartsModel) {
  StartEnabled();
  EXPECT_EQ(ReadFileAt(installation.Game("ships/t_tiger.shp")), installation.ships[tiger].model);
  EXPECT_EQ(ReadFileAt(installation.Game("ships/t_twin.shp")), installation.ships[twin].model);
}

}  // namespace
}  // namespace oravin::test
