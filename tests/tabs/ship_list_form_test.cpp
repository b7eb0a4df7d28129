// The form in which a drafted ship list is looked through and edited before it is saved.

#include "tabs/ship_list_form.h"

#include "lists/ship_list_text.h"
#include "support/fault.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

struct TheShipListForm : testing::Test {
  TheShipListForm() {
    draft.ships = {{{1, "Alpha", "alpha.shp", 0, "a1", "a2"}, false, MatchSureness::exact, "statistics of \"Alpha\""},
                   {{1, "Alpha", "t_alpha.shp", 0, "", ""}, false, MatchSureness::shared, "second part"},
                   {{1, "Bravo", "bravo.shp", 0, "b1", ""}, true, MatchSureness::none, "no statistics"}};
    draft.blocks = 5;
    draft.passedOver = {{"x\\y.shp", "it lies in a folder"}};
  }

  /// Shows the form and does something in it.
  bool Edit(const std::function<void()>& act) {
    here.desk.OnForm([&, act](const std::string& which) {
      EXPECT_EQ(which, "ShipList");
      EXPECT_TRUE(form.shown);
      act();
    });
    return EditShipList(here.host, form, draft, folder.Windows("shipsData.txt"));
  }
  void Select(std::size_t row) {
    SelectOnly(form.lstShips, row);
    lstShips_ItemClick(here.host, form);
  }
  void Save() { cmdSave_Click(here.host, form); }
  void Cancel() { cmdCancel_Click(here.host, form); }
  void ExpectRefused(const std::string& text) { here.desk.ExpectBox(text, "Ship list"); }
  [[nodiscard]] std::vector<std::string> Models() const {
    std::vector<std::string> models;
    for (const ListRow& row : form.lstShips.rows) models.push_back(row.texts.at(1));
    return models;
  }
  [[nodiscard]] std::string SavedText() const { return ReadTextAt(folder.Native("shipsData.txt")); }

  TemporaryFolder folder;
  ScriptedHost here;
  ShipListForm form = NewShipListForm();
  ShipListDraft draft;
  const std::string question = "The list was changed. Do you want to close it without saving?";
};

TEST_F(TheShipListForm, ShowsTheDraftAsATableWithTheFirstLineSelected) {
  EXPECT_FALSE(Edit([&] {
    ASSERT_EQ(form.lstShips.rows.size(), 3U);
    EXPECT_EQ(form.lstShips.columns.size(), 7U);
    EXPECT_EQ(form.lstShips.rows[0].texts,
              (std::vector<std::string>{"Alpha", "alpha.shp", "1", "0", "a1", "a2", "statistics of \"Alpha\""}));
    EXPECT_EQ(SelectedRow(form.lstShips), 0U);
    EXPECT_EQ(form.txtName.text, "Alpha");
    EXPECT_EQ(form.txtFile.text, "alpha.shp");
    EXPECT_EQ(form.txtKind.text, "1");
    EXPECT_EQ(form.txtStats.text, "0");
    EXPECT_EQ(form.txtTexture0.text, "a1");
    EXPECT_EQ(form.txtTexture1.text, "a2");
    EXPECT_FALSE(form.cmdMoveUp.enabled);
    EXPECT_TRUE(form.cmdMoveDown.enabled);
    EXPECT_NE(form.lblPurpose.caption.find("3 ships; the statistics of 1 are worth a look; 1 models were passed over."),
              std::string::npos)
        << form.lblPurpose.caption;
    Cancel();
    EXPECT_FALSE(form.shown);
  }));
  EXPECT_FALSE(std::filesystem::exists(folder.Native("shipsData.txt")));
}

TEST_F(TheShipListForm, SavesTheDraftAsItIs) {
  EXPECT_TRUE(Edit([&] {
    Save();
    EXPECT_FALSE(form.shown);
  }));
  EXPECT_EQ(SavedText(), TextOfShipList(ShipsOf(draft.ships)));
}

TEST_F(TheShipListForm, ApplyTakesTheFieldsIntoTheSelectedLine) {
  EXPECT_TRUE(Edit([&] {
    Select(2);
    form.txtName.text = " Bravo Two ";
    form.txtFile.text = "bravo2.shp";
    form.txtKind.text = "2";
    form.txtStats.text = "4";
    form.txtTexture0.text = "";
    form.txtTexture1.text = "b2";
    cmdApply_Click(here.host, form);
    EXPECT_EQ(SelectedRow(form.lstShips), 2U);
    EXPECT_EQ(form.lstShips.rows[2].texts,
              (std::vector<std::string>{"Bravo Two", "bravo2.shp", "2", "4", "", "b2", "no statistics"}));
    Save();
  }));
  EXPECT_NE(SavedText().find("2,\"Bravo Two\",\"bravo2.shp\",4,\"\",\"b2\"\r\n"), std::string::npos);
}

TEST_F(TheShipListForm, WhatWasTypedAndNotAppliedIsSavedToo) {
  EXPECT_TRUE(Edit([&] {
    form.txtTexture0.text = "typed";
    Save();
  }));
  EXPECT_NE(SavedText().find("\"alpha.shp\",0,\"typed\""), std::string::npos);
}

TEST_F(TheShipListForm, WhatWasTypedIsKeptWhenAnotherLineIsChosen) {
  EXPECT_TRUE(Edit([&] {
    form.txtName.text = "Alpha One";
    Select(2);
    EXPECT_EQ(SelectedRow(form.lstShips), 2U);
    EXPECT_EQ(form.txtName.text, "Bravo");
    EXPECT_EQ(form.lstShips.rows[0].texts[0], "Alpha One");
    form.txtStats.text = "3";
    SelectOnly(form.lstShips, std::nullopt);
    lstShips_ItemClick(here.host, form);
    EXPECT_FALSE(SelectedRow(form.lstShips).has_value());
    EXPECT_EQ(form.lstShips.rows[2].texts[3], "3");
    Select(1);
    form.txtName.text = "Alpha One";
    cmdMoveUp_Click(here.host, form);
    EXPECT_EQ(form.lstShips.rows[0].texts[0], "Alpha One");
    EXPECT_EQ(Models(), (std::vector<std::string>{"t_alpha.shp", "alpha.shp", "bravo.shp"}));
    Save();
  }));
  EXPECT_NE(SavedText().find("1,\"Alpha One\",\"t_alpha.shp\",0"), std::string::npos);
  EXPECT_NE(SavedText().find("1,\"Bravo\",\"bravo.shp\",3"), std::string::npos);
}

TEST_F(TheShipListForm, WhatCannotBeTakenKeepsItsLineSelected) {
  const std::string why = "The line cannot be changed like this: a ship must have a name.";
  Edit([&] {
    form.txtName.text = " ";
    ExpectRefused(why);
    Select(2);
    EXPECT_EQ(SelectedRow(form.lstShips), 0U);
    EXPECT_EQ(form.txtName.text, " ") << "what was typed is still there to be put right";
    ExpectRefused(why);
    cmdMoveDown_Click(here.host, form);
    EXPECT_EQ(Models(), (std::vector<std::string>{"alpha.shp", "t_alpha.shp", "bravo.shp"}));
    form.txtName.text = "Alpha";
    Select(2);
    EXPECT_EQ(SelectedRow(form.lstShips), 2U);
    EXPECT_FALSE(form.changed);
    Cancel();
  });
  EXPECT_TRUE(here.desk.Done());
}

TEST_F(TheShipListForm, WrongFieldsAreRefusedAndTheLineStays) {
  EXPECT_FALSE(Edit([&] {
    Select(2);
    const auto refuses = [&](TextBox& box, const std::string& text, const std::string& why) {
      SCOPED_TRACE(text);
      const std::string before = box.text;
      box.text = text;
      ExpectRefused(why);
      cmdApply_Click(here.host, form);
      EXPECT_TRUE(here.desk.Done());
      EXPECT_EQ(form.lstShips.rows[2].texts[0], "Bravo");
      EXPECT_EQ(box.text, text) << "it can be put right";
      box.text = before;
    };
    for (const char* kind : {"", "0", "4", "one", "1.5", "-1", "1e99"}) {
      refuses(form.txtKind, kind, "The kind must be 1, 2 or 3.");
    }
    for (const char* block : {"", "-1", "5", "x", "0.5", "99999999999999999999"}) {
      refuses(form.txtStats, block, "The statistics must be a whole number from 0 to 4.");
    }
    const std::string no = "The line cannot be changed like this: ";
    refuses(form.txtName, "  ", no + "a ship must have a name.");
    refuses(form.txtName, std::string(31, 'n'), no + "a ship's name can have at most 30 characters.");
    refuses(form.txtName, "a\"b",
            no + "a ship's name can hold no double quotes, no control characters and no letters outside the code page "
                 "Windows-1252.");
    refuses(form.txtFile, "", no + "it has no model.");
    refuses(form.txtFile, "..\\alpha.shp", no + "\"..\\alpha.shp\" is no file name.");
    refuses(form.txtFile, "alpha.bmp", no + "its model's name does not end in .shp.");
    refuses(form.txtTexture0, std::string(31, 't'), no + "its texture's name is longer than 30 characters.");
    refuses(form.txtTexture1, "a\"b", no + "its second texture's name has a quote or a line end in it.");
    EXPECT_FALSE(form.changed);
    Cancel();
  }));
}

TEST_F(TheShipListForm, WithoutKnownStatisticsEveryBlockIsTaken) {
  draft.blocks = 0;
  Edit([&] {
    form.txtStats.text = "32767";
    cmdApply_Click(here.host, form);
    EXPECT_EQ(form.ships[0].ship.statsIndex, 32767);
    form.txtStats.text = "32768";
    ExpectRefused("The statistics must be a whole number from 0 to 32767.");
    cmdApply_Click(here.host, form);
    here.desk.ExpectQuestion(question, Answer::yes, "Ship list");
    Cancel();
  });
}

TEST_F(TheShipListForm, RemovedLinesAreNotSavedAndTheNextLineIsSelected) {
  EXPECT_TRUE(Edit([&] {
    Select(1);
    cmdRemoveLine_Click(form);
    EXPECT_EQ(Models(), (std::vector<std::string>{"alpha.shp", "bravo.shp"}));
    EXPECT_EQ(SelectedRow(form.lstShips), 1U);
    EXPECT_EQ(form.txtName.text, "Bravo");
    cmdRemoveLine_Click(form);
    EXPECT_EQ(SelectedRow(form.lstShips), 0U);
    Save();
  }));
  EXPECT_EQ(SavedText(), "1\r\n1,\"Alpha\",\"alpha.shp\",0,\"a1\",\"a2\"\r\n");
}

TEST_F(TheShipListForm, AnEmptyListCannotBeSaved) {
  EXPECT_FALSE(Edit([&] {
    for (int i = 0; i < 4; ++i) cmdRemoveLine_Click(form);
    EXPECT_TRUE(form.lstShips.rows.empty());
    EXPECT_FALSE(form.cmdSave.enabled);
    EXPECT_FALSE(form.cmdApply.enabled);
    EXPECT_FALSE(form.txtName.enabled);
    EXPECT_EQ(form.txtName.text, "");
    cmdApply_Click(here.host, form);
    cmdMoveUp_Click(here.host, form);
    cmdMoveDown_Click(here.host, form);
    ExpectRefused("There are no ships in the list.\nThe ship list was not saved.");
    Save();
    EXPECT_TRUE(form.shown);
    here.desk.ExpectQuestion(question, Answer::yes, "Ship list");
    Cancel();
  }));
  EXPECT_FALSE(std::filesystem::exists(folder.Native("shipsData.txt")));
}

TEST_F(TheShipListForm, LinesMoveUpAndDownAndStaySelected) {
  Edit([&] {
    cmdMoveUp_Click(here.host, form);
    EXPECT_EQ(Models(), (std::vector<std::string>{"alpha.shp", "t_alpha.shp", "bravo.shp"})) << "it is the first";
    EXPECT_FALSE(form.changed);
    cmdMoveDown_Click(here.host, form);
    cmdMoveDown_Click(here.host, form);
    cmdMoveDown_Click(here.host, form);
    EXPECT_EQ(Models(), (std::vector<std::string>{"t_alpha.shp", "bravo.shp", "alpha.shp"}));
    EXPECT_EQ(SelectedRow(form.lstShips), 2U);
    EXPECT_FALSE(form.cmdMoveDown.enabled);
    cmdMoveUp_Click(here.host, form);
    EXPECT_EQ(Models(), (std::vector<std::string>{"t_alpha.shp", "alpha.shp", "bravo.shp"}));
    EXPECT_EQ(form.lstShips.rows[1].item, 1);
    here.desk.ExpectQuestion(question, Answer::yes, "Ship list");
    Cancel();
  });
}

TEST_F(TheShipListForm, AListThatIsWrongAsAWholeIsRefusedAndItsLineSelected) {
  EXPECT_FALSE(Edit([&] {
    Select(1);
    cmdMoveDown_Click(here.host, form);
    Select(0);
    ExpectRefused(
        "Line 3, \"Alpha\": line 1 has the same name, which only a ship and its second part directly behind it have.\n"
        "The ship list was not saved.");
    Save();
    EXPECT_TRUE(form.shown);
    EXPECT_EQ(SelectedRow(form.lstShips), 2U);
    EXPECT_EQ(form.txtFile.text, "t_alpha.shp");
    here.desk.ExpectQuestion(question, Answer::yes, "Ship list");
    Cancel();
  }));
}

TEST_F(TheShipListForm, WhatWasTypedWronglyIsNotSaved) {
  EXPECT_FALSE(Edit([&] {
    form.txtKind.text = "9";
    ExpectRefused("The kind must be 1, 2 or 3.");
    Save();
    EXPECT_TRUE(form.shown);
    here.desk.ExpectQuestion(question, Answer::yes, "Ship list");
    Cancel();
  }));
}

TEST_F(TheShipListForm, CancelAsksOnlyWhereSomethingWouldBeLost) {
  Edit([&] {
    cmdRemoveLine_Click(form);
    here.desk.ExpectQuestion(question, Answer::no, "Ship list");
    Cancel();
    EXPECT_TRUE(form.shown);
    here.desk.ExpectQuestion(question, Answer::yes, "Ship list");
    Cancel();
    EXPECT_FALSE(form.shown);
  });
  Edit([&] { Cancel(); });
  EXPECT_FALSE(form.shown);
}

TEST_F(TheShipListForm, ADiskThatFailsLeavesTheFormAndTheOldList) {
  WriteFileAt(folder.Native("shipsData.txt"), "the old list");
  EXPECT_FALSE(Edit([&] {
    Fault fault;
    fault.at = 1;
    Watch(here.host.files, fault);
    here.desk.AllowOthers([](const Message&) { return Answer::ok; });
    Save();
    EXPECT_TRUE(form.shown);
    ASSERT_EQ(here.desk.shown.size(), 1U);
    EXPECT_EQ(here.desk.shown[0].title, "SaveShipList");
    here.host.files.before = nullptr;
    Cancel();
  }));
  EXPECT_EQ(SavedText(), "the old list");
}

}  // namespace
}  // namespace oravin::test
