// A file system that tells letter case apart can hold several spellings of a model's name side by side. They are
// different files of the player's: all are kept, and all go back.

#include <filesystem>

#include "../interruption_stage.h"
#include "base/text.h"
#include "support/fault.h"

namespace oravin::test {
namespace {

namespace fs = std::filesystem;

const PlayersFiles sideBySide = {
    {"alpha.shp", "one"},         {"ALPHA.SHP", "two"},         {"Alpha.shp", "three"},
    {"BRAVO.shp", "upper bravo"}, {"Bravo.SHP", "other bravo"}, {"tiger.org", "aside"},
    {"Tiger.ORG", "aside, too"},  {"MANTA.SHP", "own manta"},   {"manta.SHP", "own manta 2"}};

struct SpellingsSideBySide : testing::Test, InterruptionStage {
  SpellingsSideBySide() : InterruptionStage(sideBySide) {}

  [[nodiscard]] FolderImage Loose() const { return ImageOf(installation.folder.Native("game/ships")); }
  [[nodiscard]] FolderImage Folder(const char* name) const { return ImageOf(installation.Program(name)); }
};

TEST_F(SpellingsSideBySide, AllGoBackAfterSwapsAndASecondEnable) {
  Session session(installation);
  session.Enable();
  session.Swap(alpha, manta);
  session.Swap(tiger, alpha);
  session.Enable();
  session.Swap(bravo, manta);
  session.Disable();
  EXPECT_TRUE(SameImage(before, GameFolder()));
  EXPECT_TRUE(Folder("backup/ships").empty());
  EXPECT_FALSE(fs::exists(installation.Program("backup/old")));
}

TEST_F(SpellingsSideBySide, WhileTheFeaturesAreEnabledOneOfEachIsThere) {
  Session session(installation);
  session.Enable();
  std::map<std::string, int> spellings;
  for (const auto& [name, bytes] : Loose()) ++spellings[UpperCase(name)];
  for (const auto& [name, count] : spellings) EXPECT_EQ(count, 1) << name;
  EXPECT_EQ(ReadFileAt(installation.Game("ships/alpha.shp")), installation.ships[alpha].model);
}

TEST_F(SpellingsSideBySide, AReadOnlyOneStopsEnableBeforeAnyChange) {
  Session session(installation);
  fs::permissions(installation.Game("ships/Bravo.SHP"), fs::perms::owner_read);
  const FolderImage all = ImageOf(installation.folder.native);
  session.desk.ExpectQuestion(enableQuestion, Answer::yes);
  session.desk.ExpectBox(installation.gamePath +
                         "ships\\Bravo.SHP cannot be written: it is read-only.\nTake the read-only mark away and try "
                         "again. Nothing has been changed.");
  session.Press("switcher.cmdEnable");
  EXPECT_TRUE(SameImage(all, ImageOf(installation.folder.native)));
}

TEST_F(SpellingsSideBySide, OneThatComesWhileTheFeaturesAreEnabledIsLeftAlone) {
  Session session(installation);
  session.Enable();
  WriteFileAt(installation.Game("ships/FireA.SHP"), "came since");
  session.Enable();
  EXPECT_EQ(ReadTextAt(installation.Game("ships/FireA.SHP")), "came since");
}

/// One model of the player's, and what is kept of it.
struct Respelled : testing::Test {
  void Loose(const std::string& name, const std::string& text) const {
    WriteFileAt(installation.Game("ships/" + name), text);
  }
  void Keep(const std::string& name, const std::string& text) const {
    WriteFileAt(installation.Program("backup/ships/" + name), text);
  }
  using Texts = std::map<std::string, std::string>;
  [[nodiscard]] static Texts TextsIn(const fs::path& folder) {
    Texts texts;
    for (const auto& [name, bytes] : ImageOf(folder)) texts[name] = std::string(bytes.begin(), bytes.end());
    return texts;
  }
  [[nodiscard]] Texts Kept() const { return TextsIn(installation.Program("backup/ships")); }
  [[nodiscard]] Texts Old() const { return TextsIn(installation.Program("backup/old")); }
  [[nodiscard]] Texts Own() const {
    Texts texts = TextsIn(installation.folder.Native("game/ships"));
    std::erase_if(texts, [](const auto& item) { return UpperCase(item.first) != "ALPHA.SHP"; });
    return texts;
  }
  void Enable() { Session(installation).Enable(); }
  void Disable() { Session(installation).Disable(); }

  SmallInstallation installation;
};

TEST_F(Respelled, AModelWhoseCaseThePlayerHasChangedIsANewVersion) {
  Keep("alpha.shp", "x");  // by an Enable that was stopped
  Loose("ALPHA.SHP", "x");
  Enable();
  EXPECT_EQ(Kept(), (Texts{{"alpha.shp", "x"}, {"ALPHA.SHP.2", "x"}}));
  Disable();
  EXPECT_EQ(Own(), (Texts{{"ALPHA.SHP", "x"}}));
  EXPECT_EQ(Old(), (Texts{{"alpha.shp", "x"}}));
}

TEST_F(Respelled, AVersionThatWasCutShortIsCompleted) {
  Keep("ALPHA.SHP", "upper");
  Loose("ALPHA.SHP", "upper");
  Loose("alpha.shp", "lower");
  Enable();
  EXPECT_EQ(Kept(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp.1~2", "lower"}}));
  Disable();
  EXPECT_EQ(Own(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp", "lower"}}));
  EXPECT_EQ(Old(), Texts());
}

TEST_F(Respelled, SpellingsSideBySideAreOneVersionAfterAnOlderOne) {
  Keep("Alpha.shp", "older");
  Loose("ALPHA.SHP", "upper");
  Loose("alpha.shp", "lower");
  Enable();
  EXPECT_EQ(Kept(), (Texts{{"Alpha.shp", "older"}, {"ALPHA.SHP.2", "upper"}, {"alpha.shp.2~2", "lower"}}));
  Disable();
  EXPECT_EQ(Own(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp", "lower"}}));
  EXPECT_EQ(Old(), (Texts{{"Alpha.shp", "older"}}));
}

TEST_F(Respelled, AChangedModelFollowsAVersionOfSeveralSpellings) {
  Keep("ALPHA.SHP", "upper");
  Keep("alpha.shp.1~2", "lower");
  Loose("alpha.shp", "new");
  Enable();
  EXPECT_EQ(Kept(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp.1~2", "lower"}, {"alpha.shp.2", "new"}}));
  Disable();
  EXPECT_EQ(Own(), (Texts{{"alpha.shp", "new"}}));
  EXPECT_EQ(Old(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp.2", "lower"}}));
}

TEST_F(Respelled, OfSeveralSpellingsKeptOneThatIsStillThereServes) {
  Keep("ALPHA.SHP", "upper");
  Keep("alpha.shp.1~2", "lower");
  Loose("ALPHA.SHP", "upper");  // an Enable was stopped after it had deleted the other
  Enable();
  EXPECT_EQ(Kept(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp.1~2", "lower"}}));
  Disable();
  EXPECT_EQ(Own(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp", "lower"}}));
}

TEST_F(Respelled, CopiesOfOneNumberLaySideBySide) {
  Enable();
  Keep("ALPHA.SHP", "older");
  Keep("ALPHA.SHP.2", "upper");
  Keep("alpha.shp.2", "lower");
  Disable();
  EXPECT_EQ(Own(), (Texts{{"ALPHA.SHP", "upper"}, {"alpha.shp", "lower"}}));
  EXPECT_EQ(Old(), (Texts{{"ALPHA.SHP", "older"}}));
}

using Action = std::function<void(Session&)>;

void EnableIt(Session& session) { session.Press("switcher.cmdEnable"); }
void DisableIt(Session& session) { session.Press("switcher.cmdDisable"); }

void Walk(FaultKind kind, const Action& first, const Action& action, const Action& next) {
  const int operations = AtEachOperation(kind, [&](Fault& fault) {
    const InterruptionStage stage(sideBySide);
    const std::string where = "operation " + std::to_string(fault.at);
    {
      const auto session = stage.Start();
      if (first) first(*session);
      Watch(session->main.host.files, fault);
      Stopped([&] { action(*session); });
      session->main.host.files.before = nullptr;
    }
    if (next) next(*stage.Start());
    stage.Start()->Press("switcher.cmdDisable");
    FolderImage after = stage.GameFolder();
    // The backup of the table knows how a name was spelled there; where it could not be read, letter case may differ.
    if (fault.what.find("resource.fat") != std::string::npos) after["resource.hog"] = stage.before.at("resource.hog");
    EXPECT_TRUE(SameImage(stage.before, after)) << where << ", " << fault.what;
    EXPECT_TRUE(ImageOf(stage.installation.Program("backup/ships")).empty()) << where << ", " << fault.what;
  });
  EXPECT_GT(operations, 5);
}

const Action swaps = [](Session& session) {
  EnableIt(session);
  session.Swap(alpha, manta);
  session.Swap(tiger, bravo);
};

TEST(InterruptedSpellings, StopOfEnable) { Walk(FaultKind::stop, nullptr, EnableIt, nullptr); }
TEST(InterruptedSpellings, StopOfEnableThatIsDoneAgain) { Walk(FaultKind::stop, nullptr, EnableIt, EnableIt); }
TEST(InterruptedSpellings, StopOfDisable) { Walk(FaultKind::stop, swaps, DisableIt, nullptr); }
TEST(InterruptedSpellings, FailureOfEnable) { Walk(FaultKind::failure, nullptr, EnableIt, nullptr); }
TEST(InterruptedSpellings, FailureOfEnableThenSwaps) { Walk(FaultKind::failure, nullptr, EnableIt, swaps); }
TEST(InterruptedSpellings, FailureOfDisable) { Walk(FaultKind::failure, swaps, DisableIt, nullptr); }

}  // namespace
}  // namespace oravin::test
