// The ships that can be imported from a file: those of a pack with their classes, or the one of a model; and which
// names are taken.

#include "actions/import_source.h"

#include <gtest/gtest.h>

#include "actions/new_ship.h"
#include "desk/program_end.h"
#include "support/fault.h"
#include "support/model_file.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct TheImportSource : testing::Test {
  std::optional<ImportSource> LoadText(const std::string& text) {
    WriteFileAt(folder.Native("new.pak"), text);
    return LoadImportSource(here.host, folder.Windows("new.pak"));
  }
  void Model(const std::string& name, std::uint8_t classByte) const {
    WriteFileAt(folder.Native(name), ModelHead(classByte));
  }

  TemporaryFolder folder;
  ScriptedHost here;
};

TEST_F(TheImportSource, AShipsClassIsThatOfItsModel) {
  Model("fighter.shp", 0);
  Model("cloaked.shp", 2);
  Model("deep/ship.shp", 5);
  Model("cruiser.shp", 1);
  const auto source = LoadText("h\n\\fighter.shp,A,\n\\cloaked.shp,B,\n\\deep\\ship.shp,C,\n\\cruiser.shp,D,\n");
  ASSERT_TRUE(source.has_value());
  EXPECT_EQ(source->folder, folder.windows);
  ASSERT_EQ(source->ships.size(), 4U);
  EXPECT_FALSE(source->ships[0].capital);
  EXPECT_FALSE(source->ships[1].capital);
  EXPECT_TRUE(source->ships[2].capital);
  EXPECT_TRUE(source->ships[3].capital);
  for (const OfferedShip& ship : source->ships) EXPECT_TRUE(ship.modelFound && ship.checked && !ship.nameTaken);
}

TEST_F(TheImportSource, AMissingOrTooShortModelOfAPackMakesAFighterWithoutABox) {
  WriteFileAt(folder.Native("short.shp"), "x");
  const auto source = LoadText("h\n\\gone.shp,A,\n\\short.shp,B,\n");
  ASSERT_TRUE(source.has_value());
  ASSERT_EQ(source->ships.size(), 2U);
  EXPECT_FALSE(source->ships[0].capital);
  EXPECT_FALSE(source->ships[0].modelFound);
  EXPECT_FALSE(source->ships[1].capital);
  EXPECT_TRUE(source->ships[1].modelFound);
}

TEST_F(TheImportSource, AMissingPackEndsTheProgram) {
  here.desk.ExpectBox("Error in GetPAK - file not found", programTitle, Icon::information);
  EXPECT_THROW(LoadImportSource(here.host, folder.Windows("none.pak")), ProgramEnd);
}

TEST_F(TheImportSource, ADamagedPackGivesTheErrorTrapsBox) {
  here.desk.ExpectBox("Error - could not read " + folder.Windows("new.pak") + ": it ends too early (line 1)", "GetPAK");
  EXPECT_FALSE(LoadText("").has_value());
}

TEST_F(TheImportSource, AMissingModelGivesItsBox) {
  here.desk.ExpectBox("Error - file not found", "IsCapitalShip");
  EXPECT_FALSE(LoadImportSource(here.host, folder.Windows("none.shp")).has_value());
}

TEST_F(TheImportSource, SpacesAroundAPathDoNotCount) {
  WriteFileAt(folder.Native("new.pak"), "h\n\\a.shp,A,\n");
  const auto source = LoadImportSource(here.host, "  " + folder.Windows("new.pak") + " ");
  ASSERT_TRUE(source.has_value());
  EXPECT_EQ(source->ships.at(0).ship.modelPath, folder.Windows("a.shp"));
}

TEST_F(TheImportSource, AFailureOfReadingThePackGivesOneBox) {
  here.desk.AllowOthers([](const Message&) { return Answer::ok; });
  const int operations = AtEachOperation(FaultKind::failure, [&](Fault& fault) {
    here.desk.shown.clear();
    Watch(here.host.files, fault);
    const bool loaded = LoadText("h\n\\a.shp,A,\n").has_value();
    EXPECT_EQ(loaded, !fault.happened);
    EXPECT_EQ(here.desk.shown.size(), fault.happened ? 1U : 0U);
  });
  here.host.files.before = nullptr;
  EXPECT_GE(operations, 2);
}

OfferedShip Offered(const std::string& name, bool checked = true) {
  OfferedShip offered;
  offered.ship.shipName = name;
  offered.checked = checked;
  return offered;
}

std::vector<bool> Taken(const Ships& catalogue, std::vector<OfferedShip> ships) {
  MarkTakenNames(catalogue, ships);
  std::vector<bool> taken;
  for (const OfferedShip& ship : ships) taken.push_back(ship.nameTaken);
  return taken;
}

TEST(TakenNames, AreThoseOfTheCatalogueAndOfCheckedShipsBefore) {
  ShipRecord tiger;
  tiger.ShipName.Set("Tiger");
  tiger.ShipFile.Set("tiger.shp");
  const Ships catalogue = {tiger, ShipRecord()};
  EXPECT_EQ(Taken(catalogue, {Offered(" tIGER "), Offered("Tiger 2"), Offered("")}),
            (std::vector<bool>{true, false, false}));
  EXPECT_EQ(Taken(catalogue, {Offered("Twin"), Offered("TWIN "), Offered("twin", false)}),
            (std::vector<bool>{false, true, true}));
  EXPECT_EQ(Taken(catalogue, {Offered("Twin", false), Offered("Twin")}), (std::vector<bool>{false, false}));
}

TEST(TakenNames, StopAnImportOnlyWhereTheShipIsChecked) {
  OfferedShip ship = Offered("Tiger", false);
  ship.nameTaken = true;
  EXPECT_FALSE(AnyNameTaken({ship}));
  ship.checked = true;
  EXPECT_TRUE(AnyNameTaken({ship}));
}

TEST_F(TheImportSource, ATexturesNameThatIsNoFileNameIsNotProposed) {
  here.desk.AnswerFile("");
  EXPECT_EQ(AskForBitmap(here.host, folder.windows, "..\\wing"), "");
  EXPECT_EQ(here.desk.fileQuestions.at(0).name, "");
}

}  // namespace
}  // namespace oravin::test
