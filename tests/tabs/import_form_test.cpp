// The form that imports ships: what it lists, which lines are red, the ships' textures, and what is to be imported.

#include "tabs/import_form.h"

#include <gtest/gtest.h>

#include "support/cache_stage.h"
#include "support/model_file.h"

namespace oravin::test {
namespace {

using Texts = std::vector<std::string>;

struct TheImportForm : CacheStage {
  TheImportForm() {
    installation.GamePath = folder.windows;
    installation.ProgramPath = folder.Windows("program\\");
    for (const char* name : {"Tiger", "Predator"}) {
      ShipRecord ship;
      ship.ShipName.Set(name);
      ship.ShipFile.Set("x.shp");
      installation.ships.push_back(ship);
    }
    installation.ships.emplace_back();  // the empty record at the end
    Make(CacheWith({{"hull", 2, 8, 8, 1}}));
  }

  void Model(const std::string& name, const Texts& textures, std::uint8_t classByte = 0) const {
    Bytes model = ModelHead(classByte);
    if (!textures.empty()) AddTextures(model, textures);
    Write(name, model);
  }
  bool Load(const std::string& text) {
    Write("pack/new.pak", BytesOf(text));
    return LoadPack(at.host, form, installation, folder.Windows("pack/new.pak"));
  }
  /// A pack of ships with these names, whose models a.shp, b.shp, ... are not there.
  bool LoadNamed(const Texts& names) {
    std::string text = "h\n";
    char model = 'a';
    for (const std::string& name : names) text += std::string("\\") + model++ + ".shp,\"" + name + "\",\n";
    return Load(text);
  }
  void Rename(std::size_t row, const std::string& name) {
    form.lstPack.edited = {row, name};
    lstPack_AfterLabelEdit(at.host, form, installation);
  }
  void Check(std::size_t row, bool checked) {
    SetChecked(form.lstPack, row, checked);
    lstPack_ItemCheck(form, installation);
  }
  void Click(std::size_t row) {
    SelectOnly(form.lstPack, row);
    lstPack_ItemClick(at.host, form, installation);
  }
  void ClickTexture(std::size_t row) {
    SelectOnly(form.lstTextures, row);
    lstTextures_ItemClick(at.host, form, installation);
  }
  [[nodiscard]] Texts Names() const {
    Texts names;
    for (const ListRow& row : form.lstPack.rows) names.push_back(row.texts.at(0));
    return names;
  }
  /// The lines that are red, by their index.
  [[nodiscard]] std::vector<std::size_t> Red() const {
    std::vector<std::size_t> red;
    for (std::size_t i = 0; i < form.lstPack.rows.size(); ++i) {
      if (form.lstPack.rows[i].colour == 255) red.push_back(i);
    }
    return red;
  }
  [[nodiscard]] Texts ImportedNames() const {
    Texts names;
    for (const OfferedShip& ship : CheckedShips(form.source.ships)) names.push_back(ship.ship.shipName);
    return names;
  }

  Installation installation;
  FighterPack form = NewFighterPack();
};

using Rows = std::vector<std::size_t>;

TEST_F(TheImportForm, HasTheCaptionsAndTooltipsOfItsControls) {
  EXPECT_EQ(form.cmdImportShips.caption, "&Import Ships");
  EXPECT_EQ(form.cmdImportShips.tooltip, "Adds fighter to the switcher and settings screen");
  EXPECT_EQ(form.cmdImportCancel.caption, "&Cancel");
  EXPECT_EQ(form.cmdImportCancel.tooltip, "Adds fighter to the switcher and settings screen");
  EXPECT_EQ(form.cmdFindBitmap.caption, "&Find Bitmap...");
  EXPECT_TRUE(form.lstPack.checkBoxes);
  EXPECT_TRUE(form.lstPack.labelsEditable);
  EXPECT_FALSE(form.cmdImportShips.enabled) << "there is nothing to import yet";
  EXPECT_FALSE(form.shown);
}

TEST_F(TheImportForm, ListsEveryShipOfAPackAsACheckedLine) {
  Model("pack/one.shp", {"hull"});
  Model("pack/sub/big.shp", {"hull"}, 3);
  ASSERT_TRUE(Load("\"h\"\n\"\\one.shp\",\"  One \",\" Tiger \"\n\"\\sub\\big.shp\",\"Big\",\"\"\n\\gone.shp,Gone,\n"));
  EXPECT_EQ(form.caption, "Import: < new.pak >");
  EXPECT_EQ(form.source.folder, folder.Windows("pack\\"));
  ASSERT_EQ(form.lstPack.rows.size(), 3U);
  EXPECT_EQ(form.source.ships.size(), 3U);
  EXPECT_EQ(form.lstPack.rows[0].item, 0);
  EXPECT_EQ(form.lstPack.rows[2].item, 2);
  EXPECT_EQ(form.lstPack.rows[0].texts, (Texts{"One", "Fighter", "one.shp", "Tiger"}));
  EXPECT_EQ(form.lstPack.rows[1].texts, (Texts{"Big", "Capital ship", "big.shp", ""}));
  EXPECT_EQ(form.lstPack.rows[2].texts, (Texts{"Gone", "Fighter", "gone.shp (not found)", ""}));
  for (const ListRow& row : form.lstPack.rows) EXPECT_TRUE(row.checked);
  EXPECT_TRUE(form.cmdImportShips.enabled);
  EXPECT_EQ(form.lblPack.caption, "&Ships: 3 of 3 will be imported.");
}

TEST_F(TheImportForm, ASingleModelIsAListOfOneShipNamedAsTheFile) {
  Model("new/Star Reaper.SHP", {"hull"}, 5);
  ASSERT_TRUE(LoadPack(at.host, form, installation, folder.Windows("new/Star Reaper.SHP")));
  EXPECT_EQ(form.caption, "Import: < Star Reaper.SHP >");
  ASSERT_EQ(form.lstPack.rows.size(), 1U);
  EXPECT_EQ(form.lstPack.rows[0].texts, (Texts{"Star Reaper", "Capital ship", "Star Reaper.SHP", ""}));
  EXPECT_TRUE(form.lstPack.rows[0].checked);
  EXPECT_EQ(form.source.ships.at(0).ship, (PackShip{folder.Windows("new/Star Reaper.SHP"), "Star Reaper", ""}));
  EXPECT_TRUE(form.source.ships.at(0).capital);
}

TEST_F(TheImportForm, ASingleModelNamedAsAnExistingShipIsRed) {
  Model("tiger.shp", {"hull"});
  ASSERT_TRUE(LoadPack(at.host, form, installation, folder.Windows("tiger.shp")));
  EXPECT_EQ(Red(), Rows{0});
}

TEST_F(TheImportForm, AMissingModelShowsNothing) {
  at.desk.ExpectBox("Error - file not found", "IsCapitalShip");
  EXPECT_FALSE(LoadPack(at.host, form, installation, folder.Windows("none.shp")));
  EXPECT_TRUE(form.lstPack.rows.empty());
}

TEST_F(TheImportForm, APackWithoutShipsIsShownEmptyAndCannotBeImported) {
  ASSERT_TRUE(Load("header only\n"));
  EXPECT_TRUE(form.lstPack.rows.empty());
  EXPECT_FALSE(form.cmdImportShips.enabled);
  EXPECT_EQ(form.lblPack.caption, "This pack lists no ships.");
  EXPECT_EQ(form.caption, "Import: < new.pak >");
  EXPECT_TRUE(CheckedShips(form.source.ships).empty());
}

TEST_F(TheImportForm, AsManyShipsAsAPackCanHoldAreListed) {
  std::string text = "h\n";
  for (int i = 0; i < 301; ++i) text += "\\m.shp,Ship " + std::to_string(i) + ",\n";
  ASSERT_TRUE(Load(text));
  EXPECT_EQ(form.lstPack.rows.size(), 301U);
  EXPECT_EQ(form.lstPack.rows.back().item, 300);
}

TEST_F(TheImportForm, ARefusedPackLeavesNothingOfThePackBefore) {
  ASSERT_TRUE(LoadNamed({"One"}));
  std::string text = "h\n";
  for (int i = 0; i < 302; ++i) text += "\\m.shp,Ship " + std::to_string(i) + ",\n";
  at.desk.ExpectBox("Error - could not read " + folder.Windows("pack/new.pak") + ": it lists more than 301 ships",
                    "GetPAK");
  EXPECT_FALSE(Load(text));
  EXPECT_TRUE(form.lstPack.rows.empty());
  EXPECT_TRUE(form.source.ships.empty());
  EXPECT_EQ(form.caption, "");
  EXPECT_FALSE(form.cmdImportShips.enabled);
}

TEST_F(TheImportForm, AShipNamedAsOneOfTheCatalogueIsRed) {
  ASSERT_TRUE(LoadNamed({"One", " tIGer ", "Tiger 2", "PREDATOR"}));
  EXPECT_EQ(Red(), (Rows{1, 3}));
  EXPECT_TRUE(AnyNameTaken(form.source.ships));
  EXPECT_EQ(form.lstPack.rows[0].colour, 0U);
  EXPECT_EQ(form.lblPack.caption, "&Ships: those in red have the name of another ship. Rename or uncheck them.");
}

TEST_F(TheImportForm, AShipWithoutANameIsNotNamedAsTheEmptyRecord) {
  ASSERT_TRUE(LoadNamed({""}));
  EXPECT_EQ(Red(), Rows{});
}

TEST_F(TheImportForm, OfTwoCheckedShipsOfOneNameTheSecondIsRed) {
  ASSERT_TRUE(LoadNamed({"Twin", "Other", "tWIN ", "TWIN"}));
  EXPECT_EQ(Red(), (Rows{2, 3}));
  Check(0, false);
  EXPECT_EQ(Red(), Rows{3}) << "the first one is not imported any more";
  Check(2, false);
  EXPECT_EQ(Red(), Rows{});
  Check(0, true);
  EXPECT_EQ(Red(), (Rows{2, 3}));
  EXPECT_TRUE(AnyNameTaken(form.source.ships));
}

TEST_F(TheImportForm, UncheckingEveryRedShipLetsTheImportProceed) {
  ASSERT_TRUE(LoadNamed({"Tiger", "One", "Predator"}));
  Check(0, false);
  EXPECT_TRUE(AnyNameTaken(form.source.ships));
  Check(2, false);
  EXPECT_FALSE(AnyNameTaken(form.source.ships));
  EXPECT_EQ(Red(), (Rows{0, 2})) << "they stay red";
  EXPECT_EQ(ImportedNames(), Texts{"One"});
  EXPECT_EQ(form.lblPack.caption, "&Ships: 1 of 3 will be imported.");
}

TEST_F(TheImportForm, WithoutACheckedShipThereIsNothingToImport) {
  ASSERT_TRUE(LoadNamed({"One", "Two"}));
  Check(0, false);
  EXPECT_TRUE(form.cmdImportShips.enabled);
  Check(1, false);
  EXPECT_FALSE(form.cmdImportShips.enabled);
  cmdCheckAll_Click(form, installation);
  EXPECT_TRUE(form.cmdImportShips.enabled);
  EXPECT_EQ(ImportedNames(), (Texts{"One", "Two"}));
  cmdCheckNone_Click(form, installation);
  EXPECT_FALSE(form.cmdImportShips.enabled);
  EXPECT_EQ(ImportedNames(), Texts{});
}

TEST_F(TheImportForm, ARenameTakesTheRedAway) {
  ASSERT_TRUE(LoadNamed({"Tiger", "One"}));
  const unsigned before = form.lstPack.revision;
  Rename(0, " Tiger II ");
  EXPECT_FALSE(form.lstPack.edited.refused);
  EXPECT_EQ(form.lstPack.edited.text, "Tiger II");
  EXPECT_EQ(Names(), (Texts{"Tiger II", "One"}));
  EXPECT_EQ(Red(), Rows{});
  EXPECT_NE(form.lstPack.revision, before);
  EXPECT_EQ(ImportedNames(), (Texts{"Tiger II", "One"}));
}

TEST_F(TheImportForm, ARenameToAnExistingShipsNameIsRefused) {
  ASSERT_TRUE(LoadNamed({"One", "Two"}));
  at.desk.ExpectBox("The ship name 'tiger' has the same name as an existing ship.");
  Rename(0, "  tiger ");
  EXPECT_TRUE(form.lstPack.edited.refused);
  EXPECT_EQ(Names(), (Texts{"One", "Two"}));
  EXPECT_EQ(Red(), Rows{});
}

TEST_F(TheImportForm, ARenameToAnotherLinesNameMakesTheLowerOneRed) {
  ASSERT_TRUE(LoadNamed({"One", "Two"}));
  Rename(0, "TWO");
  EXPECT_EQ(Names(), (Texts{"TWO", "Two"}));
  EXPECT_EQ(Red(), Rows{1});
  Rename(1, "Three");
  EXPECT_EQ(Red(), Rows{});
}

TEST_F(TheImportForm, ARenameToWhatNoShipCanHaveIsRefused) {
  ASSERT_TRUE(LoadNamed({"One"}));
  const std::string noLetters =
      "A ship's name can hold no double quotes, no control characters and no letters outside the code page "
      "Windows-1252.";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "A ship must have a name."},
      {"   ", "A ship must have a name."},
      {std::string(31, 'x'), "A ship's name can have at most 30 characters."},
      {"a\"b", noLetters},
      {"a\tb", noLetters},
      {"a\nb", noLetters},
      {"a\x7F", noLetters},
      {std::string("a\0b", 3), noLetters}};
  for (const auto& [name, box] : cases) {
    at.desk.ExpectBox(box);
    Rename(0, name);
    EXPECT_TRUE(form.lstPack.edited.refused);
    EXPECT_TRUE(at.desk.Done()) << name;
    EXPECT_EQ(Names(), Texts{"One"});
  }
}

TEST_F(TheImportForm, ANameOfThirtyCharactersWithCommasAndAccentsIsTaken) {
  ASSERT_TRUE(LoadNamed({"One"}));
  const std::string name = "\xC4rger, the " + std::string(19, 'x');
  ASSERT_EQ(name.size(), 30U);
  Rename(0, " " + name + " ");
  EXPECT_FALSE(form.lstPack.edited.refused);
  EXPECT_EQ(Names(), Texts{name});
}

TEST_F(TheImportForm, ARenameOfALineThatIsNotThereDoesNothing) {
  ASSERT_TRUE(LoadNamed({"One"}));
  Rename(1, "Two");
  EXPECT_TRUE(form.lstPack.edited.refused);
  EXPECT_EQ(Names(), Texts{"One"});
}

TEST_F(TheImportForm, TheFirstShipIsSelectedAndItsTexturesAreListedAndTheFirstShown) {
  Model("pack/a.shp", {"wing", "hull", "tail", "bad"});
  Write("pack/wing.bmp", Bitmap(16, 8, 24, Pattern(384)));
  Write("pack/bad.bmp", Bitmap(5, 5, 8, Pattern(25)));
  ASSERT_TRUE(LoadNamed({"One"}));
  EXPECT_EQ(SelectedRow(form.lstPack), std::size_t{0});
  ASSERT_EQ(form.lstTextures.rows.size(), 4U);
  EXPECT_EQ(form.lstTextures.rows[0].texts, (Texts{"wing", "no", "found", "16 x 8", "24 bit"}));
  EXPECT_EQ(form.lstTextures.rows[1].texts, (Texts{"hull", "yes", "not found", "", ""}));
  EXPECT_EQ(form.lstTextures.rows[2].texts, (Texts{"tail", "no", "not found", "", ""}));
  EXPECT_EQ(
      form.lstTextures.rows[3].texts,
      (Texts{"bad", "no", "not usable: its sides must each be one of 2, 4, 8, ... 256, and it must not be compressed",
             "5 x 5", "8 bit"}));
  EXPECT_EQ(SelectedRow(form.lstTextures), std::size_t{0});
  ASSERT_TRUE(form.preview.picture.has_value());
  EXPECT_EQ(form.preview.picture->width, 16);
  EXPECT_TRUE(form.cmdFindBitmap.enabled);
}

TEST_F(TheImportForm, ATexturesPictureIsItsBitmapElseTheCachesElseNone) {
  Model("pack/a.shp", {"wing", "hull", "tail", "bad"});
  Write("pack/wing.bmp", Bitmap(16, 8, 24, Pattern(384)));
  Write("pack/bad.bmp", Bytes(10));
  ASSERT_TRUE(LoadNamed({"One"}));
  Click(0);
  ClickTexture(1);
  ASSERT_TRUE(form.preview.picture.has_value());
  EXPECT_EQ(form.preview.picture->width, 8);
  EXPECT_EQ(form.preview.lblPreview.caption, "hull, image 1 of 1: 8 x 8");
  ClickTexture(2);
  EXPECT_FALSE(form.preview.picture.has_value());
  EXPECT_EQ(form.preview.lblPreview.caption, "tail: no bitmap was found. Find one before the import.");
  ClickTexture(3);
  EXPECT_FALSE(form.preview.picture.has_value());
  EXPECT_EQ(form.preview.lblPreview.caption, "bad: it is no bitmap that can be read");
  ClickTexture(0);
  EXPECT_EQ(form.preview.picture->width, 16);
  SelectOnly(form.lstTextures, std::nullopt);
  lstTextures_ItemClick(at.host, form, installation);
  EXPECT_FALSE(form.preview.picture.has_value());
  EXPECT_FALSE(form.cmdFindBitmap.enabled);
}

TEST_F(TheImportForm, AClickOnAShipWithoutModelSaysSoWithoutABox) {
  ASSERT_TRUE(LoadNamed({"One"}));
  Click(0);
  EXPECT_TRUE(form.lstTextures.rows.empty());
  EXPECT_EQ(form.preview.lblPreview.caption, "The model was not found: " + folder.Windows("pack/a.shp"));
  EXPECT_FALSE(form.cmdFindBitmap.enabled);
}

TEST_F(TheImportForm, AClickOnAShipWhoseFileIsNoModelGivesTheBox) {
  Write("pack/a.shp", BytesOf("this is no ship at all"));
  Model("pack/b.shp", {"wing"});
  ASSERT_TRUE(LoadNamed({"One", "Two"}));
  Click(1);
  EXPECT_EQ(form.lstTextures.rows.size(), 1U);
  at.desk.ExpectBox("This is not a valid SL shp file", "Oravin - TextureList()");
  Click(0);
  EXPECT_TRUE(form.lstTextures.rows.empty());
  EXPECT_EQ(form.preview.lblPreview.caption, "This model's textures cannot be listed.");
}

TEST_F(TheImportForm, AFirstShipWhoseFileIsNoModelGivesNoBoxBeforeItIsClicked) {
  Write("pack/a.shp", BytesOf("this is no ship at all"));
  ASSERT_TRUE(LoadNamed({"One"}));
  EXPECT_TRUE(at.desk.shown.empty());
  EXPECT_EQ(form.preview.lblPreview.caption, "This model's textures cannot be listed.");
}

TEST_F(TheImportForm, AModelWithoutTexturesSaysSo) {
  Model("pack/a.shp", {});
  ASSERT_TRUE(LoadNamed({"One"}));
  Click(0);
  EXPECT_EQ(form.preview.lblPreview.caption, "This model names no textures.");
}

TEST_F(TheImportForm, AMissingBitmapCanBeGiven) {
  Model("pack/a.shp", {"hull", "Wing"});
  Model("pack/b.shp", {"Wing"});
  Write("elsewhere/w.bmp", Bitmap(4, 4, 8, Pattern(16)));
  ASSERT_TRUE(LoadNamed({"One", "Two"}));
  Click(0);
  ClickTexture(1);
  at.desk.AnswerFile(folder.Windows("elsewhere/w.bmp"));
  cmdFindBitmap_Click(at.host, form, installation);
  ASSERT_EQ(at.desk.fileQuestions.size(), 1U);
  EXPECT_EQ(at.desk.fileQuestions[0].title, "Find texture file");
  EXPECT_EQ(at.desk.fileQuestions[0].filter, "Bitmap *.bmp |*.bmp|All files|*.*");
  EXPECT_EQ(at.desk.fileQuestions[0].folder, folder.Windows("pack\\"));
  EXPECT_EQ(at.desk.fileQuestions[0].name, "Wing.bmp");
  EXPECT_EQ(SelectedRow(form.lstTextures), std::size_t{1});
  EXPECT_EQ(form.lstTextures.rows.at(1).texts,
            (Texts{"Wing", "no", "given: " + folder.Windows("elsewhere/w.bmp"), "4 x 4", "8 bit"}));
  ASSERT_TRUE(form.preview.picture.has_value());
  EXPECT_EQ(form.preview.picture->width, 4);

  const auto ships = CheckedShips(form.source.ships);
  EXPECT_EQ(ships.at(0).given, (GivenBitmaps{{"wing", folder.Windows("elsewhere/w.bmp")}}));
  EXPECT_TRUE(ships.at(1).given.empty()) << "it was given for the first ship alone";
  Click(1);
  EXPECT_EQ(form.lstTextures.rows.at(0).texts.at(2), "not found");
  Click(0);
  EXPECT_EQ(form.lstTextures.rows.at(1).texts.at(3), "4 x 4") << "it is remembered";
}

TEST_F(TheImportForm, AGivenBitmapCanBeChangedFromItsOwnFolder) {
  Model("pack/a.shp", {"wing"});
  Write("pack/wing.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Write("elsewhere/w.bmp", Bitmap(8, 8, 8, Pattern(64)));
  ASSERT_TRUE(LoadNamed({"One"}));
  Click(0);
  for (int i = 0; i < 2; ++i) {
    at.desk.AnswerFile(folder.Windows("elsewhere/w.bmp"));
    cmdFindBitmap_Click(at.host, form, installation);
  }
  EXPECT_EQ(at.desk.fileQuestions.at(0).folder, folder.Windows("pack\\"));
  EXPECT_EQ(at.desk.fileQuestions.at(1).folder, folder.Windows("elsewhere\\"));
  EXPECT_EQ(form.lstTextures.rows.at(0).texts.at(3), "8 x 8") << "it stands before the one beside the model";
}

TEST_F(TheImportForm, ABitmapThatCannotBecomeATextureIsNotTaken) {
  Model("pack/a.shp", {"wing"});
  Write("w.bmp", Bitmap(4, 4, 8, Pattern(17)));
  ASSERT_TRUE(LoadNamed({"One"}));
  Click(0);
  at.desk.AnswerFile(folder.Windows("w.bmp"));
  at.desk.ExpectBox("This bitmap cannot become a texture:\nits length does not fit the size that it states");
  cmdFindBitmap_Click(at.host, form, installation);
  EXPECT_TRUE(CheckedShips(form.source.ships).at(0).given.empty());
  EXPECT_EQ(form.lstTextures.rows.at(0).texts.at(2), "not found");
}

TEST_F(TheImportForm, CancellingTheDialogChangesNothing) {
  Model("pack/a.shp", {"wing"});
  ASSERT_TRUE(LoadNamed({"One"}));
  SelectOnly(form.lstTextures, std::nullopt);
  cmdFindBitmap_Click(at.host, form, installation);  // no texture is selected: no dialog comes
  EXPECT_TRUE(at.desk.fileQuestions.empty());
  Click(0);
  at.desk.AnswerFile("");
  cmdFindBitmap_Click(at.host, form, installation);
  EXPECT_EQ(at.desk.fileQuestions.size(), 1U);
  EXPECT_TRUE(CheckedShips(form.source.ships).at(0).given.empty());
}

TEST_F(TheImportForm, TheShipsToImportComeInTheListsOrderWithAllThatIsKnown) {
  Model("pack/a.shp", {"hull"}, 1);
  ASSERT_TRUE(Load("the header\n\\a.shp,\" One \",Tiger\n\\b.shp,Two,\n\\c.shp,Three,\n"));
  Check(1, false);
  const auto ships = CheckedShips(form.source.ships);
  ASSERT_EQ(ships.size(), 2U);
  EXPECT_EQ(ships[0].ship, (PackShip{folder.Windows("pack/a.shp"), "One", "Tiger"}));
  EXPECT_TRUE(ships[0].capital);
  EXPECT_EQ(ships[1].ship, (PackShip{folder.Windows("pack/c.shp"), "Three", ""}));
  EXPECT_FALSE(ships[1].capital);
}

TEST_F(TheImportForm, AnotherPackBeginsAnew) {
  Model("pack/a.shp", {"wing"});
  Write("w.bmp", Bitmap(4, 4, 8, Pattern(16)));
  ASSERT_TRUE(LoadNamed({"One", "Two"}));
  Click(0);
  at.desk.AnswerFile(folder.Windows("w.bmp"));
  cmdFindBitmap_Click(at.host, form, installation);
  form.done = true;
  const unsigned before = form.lstPack.revision;
  ASSERT_TRUE(LoadNamed({"Three"}));
  EXPECT_EQ(Names(), Texts{"Three"});
  EXPECT_EQ(form.lstTextures.rows.at(0).texts.at(2), "not found");
  EXPECT_FALSE(form.preview.picture.has_value());
  EXPECT_TRUE(CheckedShips(form.source.ships).at(0).given.empty());
  EXPECT_FALSE(form.done);
  EXPECT_GT(form.lstPack.revision, before) << "the window draws the list anew";
}

TEST_F(TheImportForm, CancelClosesTheForm) {
  form.shown = true;
  cmdImportCancel_Click(form);
  EXPECT_FALSE(form.shown);
}

TEST_F(TheImportForm, LookingChangesNoFile) {
  Model("pack/a.shp", {"wing", "hull"});
  Write("pack/wing.bmp", Bitmap(4, 4, 8, Pattern(16)));
  Write("pack/new.pak", BytesOf("h\n\\a.shp,One,\n"));
  const FolderImage before = ImageOf(folder.native);
  ASSERT_TRUE(Load("h\n\\a.shp,One,\n"));
  Click(0);
  Rename(0, "Other");
  Check(0, false);
  at.desk.AnswerFile(folder.Windows("pack/wing.bmp"));
  cmdFindBitmap_Click(at.host, form, installation);
  EXPECT_TRUE(SameImage(before, ImageOf(folder.native)));
}

}  // namespace
}  // namespace oravin::test
