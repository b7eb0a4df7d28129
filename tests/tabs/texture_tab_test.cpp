#include "base/text.h"
#include "support/texture_tab_stage.h"

namespace oravin {
namespace {

using test::Cache;
using test::CacheWith;
using test::Pattern;
using test::ReadFileAt;
using test::SetLong;
using test::SetName;
using test::TheTab;

TEST_F(TheTab, HasItsControls) {
  const auto expect = [](const Button& button, const std::string& caption, const std::string& tooltip, bool enabled) {
    EXPECT_EQ(button.caption, caption);
    EXPECT_EQ(button.tooltip, tooltip);
    EXPECT_EQ(button.enabled, enabled) << caption;
  };
  expect(tab.cmdRestoreTCACHE, "&Restore", "Will return the tcache to factory specs", true);
  expect(tab.cmdExit, "E&xit", "", true);
  expect(tab.cmdSelectNoneTcache, "S&elect None", "Unselects all textures", false);
  expect(tab.cmdExtractTcache, "&Extract", "", false);
  expect(tab.cmdSelectAllTcache, "&Select All", "Selects all textures", false);
  expect(tab.cmdCloseTcache, "&Close tcache", "", false);
  expect(tab.cmdOpenTcache, "&Open tcache", "", true);
  expect(tab.cmdBrowseTcacheDestination, "Browse", "", true);
  expect(tab.cmdBrowseTcacheSource, "Bro&wse", "", true);
  const std::vector<std::string> headings = {"Texture Name:", "Largest Dim:", "Color Depth:", "# Images:"};
  ASSERT_EQ(tab.lstTcache.columns.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(tab.lstTcache.columns[i].heading, headings[i]);
  EXPECT_TRUE(tab.lstTcache.severalSelectable);
  EXPECT_EQ(tab.lblTCACHE[0].caption, "&Destination:");
  EXPECT_EQ(tab.lblTCACHE[1].caption, "Tcache &File:");
}

TEST_F(TheTab, OpensACacheOf426TexturesWith426Rows) {
  Open(Cache(426));
  EXPECT_EQ(tab.lstTcache.rows.size(), 426U);
  EXPECT_EQ(tab.lblTcacheStructs.caption, "426 texture(s)");
  EXPECT_EQ(tab.lblTcachePath.caption, folder.Windows("game/tcachehw.dat"));
  EXPECT_EQ(tab.lstTcache.rows[0].item, 0);
  EXPECT_EQ(tab.lstTcache.rows[425].item, 425);
  EXPECT_EQ(tab.lstTcache.rows[5].texts, (std::vector<std::string>{"t5", "4 x 4", "8-bit", "2 images"}));
  EXPECT_FALSE(tab.cmdOpenTcache.enabled);
  for (const Button* button :
       {&tab.cmdSelectNoneTcache, &tab.cmdExtractTcache, &tab.cmdSelectAllTcache, &tab.cmdCloseTcache}) {
    EXPECT_TRUE(button->enabled);
  }
}

TEST_F(TheTab, ShowsTheDataEndGroupedByThousands) {
  Bytes cache = Cache(426);
  SetLong(cache, 8, 1234567);
  Open(cache);
  EXPECT_EQ(tab.lblTcacheSize.caption, "Tcache size: 1,234,567 byte(s)");
}

TEST_F(TheTab, ShowsADataEndOfZeroWithoutDigits) {
  Bytes cache = Cache(426);
  SetLong(cache, 8, 0);
  Open(cache);
  EXPECT_EQ(tab.lblTcacheSize.caption, "Tcache size:  byte(s)");
}

TEST_F(TheTab, ListsFormatsAndTrimsNames) {
  Bytes cache = Cache(3);
  SetName(cache, 0, "  blanks  ");
  SetLong(cache, 252, 2);
  SetLong(cache, 492, 3);
  Open(cache);
  EXPECT_EQ(tab.lstTcache.rows[0].texts[0], "blanks");
  EXPECT_EQ(tab.table[0].name, "blanks");
  EXPECT_EQ(tab.lstTcache.rows[1].texts[2], "16-bit");
  EXPECT_EQ(tab.lstTcache.rows[2].texts[2], "Unsupported");
}

TEST_F(TheTab, OfAMissingCacheChangesNothing) {
  at.desk.ExpectBox("Error - File not found", "Oravin - cmdOpenTcache_Click()");
  cmdOpenTcache_Click(at.host, tab);
  EXPECT_TRUE(tab.cmdOpenTcache.enabled);
  EXPECT_TRUE(tab.openCache.empty());
}

TEST_F(TheTab, OfAnInvalidCacheIsFilledFromAnEmptyTable) {
  Open(Cache(3));
  for (const std::uint32_t count : {0U, 0xFFFFFFFFU, 1001U}) {
    Bytes cache = Cache(1000);
    SetLong(cache, 4, count);
    cmdCloseTcache_Click(tab);
    at.desk.ExpectBox("Error - not a valid tcache file", "GetTcacheTable");
    Open(cache);
    EXPECT_TRUE(at.desk.Done());
    EXPECT_TRUE(tab.lstTcache.rows.empty());
    EXPECT_TRUE(tab.table.empty());
    EXPECT_EQ(tab.lblTcacheStructs.caption, std::to_string(static_cast<std::int32_t>(count)) + " texture(s)");
  }
}

TEST_F(TheTab, ClosesACache) {
  Open(Cache(3));
  cmdCloseTcache_Click(tab);
  EXPECT_TRUE(tab.lstTcache.rows.empty());
  EXPECT_EQ(tab.lblTcacheSize.caption + tab.lblTcachePath.caption + tab.lblTcacheStructs.caption, "");
  EXPECT_TRUE(tab.openCache.empty());
  EXPECT_TRUE(tab.cmdOpenTcache.enabled);
  EXPECT_FALSE(tab.cmdCloseTcache.enabled);
  EXPECT_FALSE(tab.cmdExtractTcache.enabled);
}

TEST_F(TheTab, SelectsAllAndNone) {
  Open(Cache(3));
  cmdSelectAllTcache_Click(tab);
  for (const ListRow& row : tab.lstTcache.rows) EXPECT_TRUE(row.selected);
  cmdSelectNoneTcache_Click(tab);
  for (const ListRow& row : tab.lstTcache.rows) EXPECT_FALSE(row.selected);
}

TEST_F(TheTab, BrowsesForTheCacheAndTheDestination) {
  SetCache(Cache(1));
  at.desk.AnswerFile(folder.Windows("game/tcachehw.dat"));
  tab.txtTcacheSource.text.clear();
  cmdBrowseTcacheSource_Click(at.host, tab, installation);
  EXPECT_EQ(tab.txtTcacheSource.text, folder.Windows("game/tcachehw.dat"));
  ASSERT_EQ(at.desk.fileQuestions.size(), 1U);
  EXPECT_EQ(at.desk.fileQuestions[0].title, "Open Texture Cache file");
  EXPECT_EQ(at.desk.fileQuestions[0].folder, installation.GamePath);
  EXPECT_EQ(at.desk.fileQuestions[0].name, "Tcachehw.dat");
  EXPECT_EQ(at.desk.fileQuestions[0].filter, "SL Tcache file *.dat|*.dat|All files *.*|*.*");
  at.desk.AnswerFolder("Z:\\somewhere");
  cmdBrowseTcacheDestination_Click(at.host, tab);
  EXPECT_EQ(tab.txtTcacheDestination.text, "Z:\\somewhere\\");
  EXPECT_EQ(at.desk.prompts, (std::vector<std::string>{"Browse for texture destination folder"}));
  at.desk.AnswerFile("");
  at.desk.AnswerFolder("");
  cmdBrowseTcacheSource_Click(at.host, tab, installation);
  cmdBrowseTcacheDestination_Click(at.host, tab);
  EXPECT_EQ(tab.txtTcacheDestination.text, "Z:\\somewhere\\");
  EXPECT_EQ(tab.txtTcacheSource.text, folder.Windows("game/tcachehw.dat"));
}

TEST_F(TheTab, SortsByTheTextOfAColumn) {
  Bytes cache = Cache(3);
  SetName(cache, 0, "beta");
  SetName(cache, 1, "Alpha");
  SetName(cache, 2, "gamma");
  SetLong(cache, 12 + 116, 10);
  SetLong(cache, 252 + 116, 9);
  Open(cache);
  lstTcache_ColumnClick(tab, 0);
  EXPECT_EQ(Names(), (std::vector<std::string>{"Alpha", "beta", "gamma"}));
  lstTcache_ColumnClick(tab, 3);  // "10 images" comes before "2 images" and "9 images"
  EXPECT_EQ(Names(), (std::vector<std::string>{"beta", "gamma", "Alpha"}));
  EXPECT_EQ(tab.sortKey, 3);
}

struct TheRename : TheTab {
  void Rename(std::size_t row, const std::string& text) {
    lstTcache_AfterLabelEdit(at.host, tab, installation, row, text);
  }
};

TEST_F(TheRename, OfATextureWritesItsNameAlone) {
  Bytes cache = Cache(426);
  Open(cache);
  Rename(3, "  newname ");
  SetName(cache, 3, "newname");
  EXPECT_TRUE(test::SameBytes(cache, CacheNow()));
  EXPECT_EQ(tab.lstTcache.rows[3].texts[0], "newname");
  EXPECT_EQ(tab.table[3].name, "newname");
  CheckTcacheOnDisk(at.host, tab);
  EXPECT_EQ(tab.lblTcacheStatus.caption, "");
}

TEST_F(TheRename, ToANameOf35CharactersStoresItsFirst30) {
  Bytes cache = Cache(426);
  Open(cache);
  Rename(3, std::string(35, 'n'));
  SetName(cache, 3, std::string(30, 'n'));
  EXPECT_TRUE(test::SameBytes(cache, CacheNow()));
  EXPECT_EQ(tab.lstTcache.rows[3].texts[0], std::string(30, 'n'));
}

TEST_F(TheRename, ToANameThatIsThereIsRefused) {
  const Bytes cache = Cache(426);
  Open(cache);
  for (const char* name : {"T77", "t3"}) {
    at.desk.ExpectBox("Name already exists", programTitle);
    Rename(3, name);
    EXPECT_EQ(tab.lstTcache.rows[3].texts[0], "t3");
  }
  EXPECT_TRUE(test::SameBytes(cache, CacheNow()));
}

TEST_F(TheRename, ToANameThatCannotBeStoredIsRefused) {
  const Bytes cache = Cache(426);
  Open(cache);
  for (const std::string& name :
       {FromUtf8("w\xD0\x96ng"), std::string("w\tng"), std::string("w\x90ng"), std::string("w\0ng", 4)}) {
    at.desk.ExpectBox(test::CannotBeStored("w?ng"), programTitle);
    Rename(3, name);
    EXPECT_EQ(tab.lstTcache.rows[3].texts[0], "t3");
    EXPECT_EQ(tab.table[3].name, "t3");
  }
  EXPECT_TRUE(test::SameBytes(cache, CacheNow()));
}

TEST_F(TheRename, ToANameOfAnyLettersOfTheCodePageIsStored) {
  Bytes cache = Cache(426);
  Open(cache);
  Rename(3, FromUtf8("J\xC3\xA4ger \xE2\x82\xAC?"));
  SetName(cache, 3, "J\xE4ger \x80?");
  EXPECT_TRUE(test::SameBytes(cache, CacheNow()));
}

TEST_F(TheRename, OfANameThatCouldNotBeStoredTodayIsFree) {
  Bytes cache = Cache(426);
  SetName(cache, 3, "a\x1A\x81z");
  Open(cache);
  Rename(3, "newname");
  SetName(cache, 3, "newname");
  EXPECT_TRUE(test::SameBytes(cache, CacheNow()));
}

TEST_F(TheRename, ToNoNameIsRefused) {
  const Bytes cache = Cache(426);
  Open(cache);
  at.desk.ExpectBox("Enter name for texture", programTitle);
  Rename(3, "  ");
  EXPECT_EQ(tab.lstTcache.rows[3].texts[0], "t3");
  EXPECT_TRUE(test::SameBytes(cache, CacheNow()));
}

TEST_F(TheRename, ActsOnTheGamesCacheWhicheverIsOpen) {
  Bytes own = Cache(430);
  SetCache(own);
  Bytes other = Cache(426);
  SetLong(other, 12 + 240 * 3 + 64, 2);
  Write("other.dat", other);
  tab.txtTcacheSource.text = folder.Windows("other.dat");
  cmdOpenTcache_Click(at.host, tab);
  Rename(3, "newname");
  SetName(own, 3, "newname");
  EXPECT_TRUE(test::SameBytes(own, CacheNow()));
  EXPECT_EQ(ReadFileAt(folder.Native("other.dat")), other);
}

TEST_F(TheRename, WithoutTheGamesCacheIsTold) {
  Write("other.dat", Cache(3));
  tab.txtTcacheSource.text = folder.Windows("other.dat");
  cmdOpenTcache_Click(at.host, tab);
  at.desk.ExpectBox("TCACHE file not found", "FindStructOffset");
  at.desk.ExpectBox("Error - Path(s) not found.", "GetTcacheTable");
  Rename(1, "newname");
  EXPECT_EQ(tab.lstTcache.rows[1].texts[0], "t1");
}

TEST_F(TheRename, OfASlotThatHoldsAnotherTextureNowIsRefused) {
  Open(Cache(428));
  Bytes moved = Cache(427);
  SetName(moved, 426, "t427");
  SetCache(moved);
  for (const std::size_t row : {426U, 427U}) {
    at.desk.ExpectBox(
        "The game's texture cache has changed since this list was read. Open it again. Nothing has been changed.",
        programTitle);
    Rename(row, "newname");
  }
  EXPECT_TRUE(test::SameBytes(moved, CacheNow()));
}

TEST_F(TheRename, ThatFailsAnywhereLeavesTheOldOrTheNewName) {
  const Bytes before = Cache(426);
  Bytes after = before;
  SetName(after, 3, "newname");
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Open(before);
    cmdCloseTcache_Click(tab);
    cmdOpenTcache_Click(at.host, tab);
    test::ScriptedHost failing;
    failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
    test::Watch(failing.host.files, fault);
    lstTcache_AfterLabelEdit(failing.host, tab, installation, 3, "newname");
    const bool renamed = CacheNow() == after;
    EXPECT_TRUE(renamed || CacheNow() == before);
    EXPECT_TRUE(renamed || fault.happened);
  });
}

struct TheStatus : TheTab {};

TEST_F(TheStatus, TellsThatTheCacheHasChangedOnDisk) {
  Open(Cache(426));
  CheckTcacheOnDisk(at.host, tab);
  EXPECT_EQ(tab.lblTcacheStatus.caption, "");
  EXPECT_FALSE(tab.cmdReopenTcache.enabled);
  for (const Bytes& changed : {Cache(427), Cache(425), CacheWith({})}) {
    SetCache(changed);
    CheckTcacheOnDisk(at.host, tab);
    EXPECT_EQ(tab.lblTcacheStatus.caption,
              "This cache has changed on disk since it was opened. Open it again to see what it holds.");
    EXPECT_TRUE(tab.cmdReopenTcache.enabled);
    cmdReopenTcache_Click(at.host, tab);
    EXPECT_EQ(tab.lblTcacheStatus.caption, "");
    EXPECT_EQ(tab.lstTcache.rows.size(), test::LongAt(changed, 4));
  }
  std::filesystem::remove(folder.Native("game/tcachehw.dat"));
  CheckTcacheOnDisk(at.host, tab);
  EXPECT_TRUE(tab.cmdReopenTcache.enabled);
}

TEST_F(TheStatus, IsEmptyWithoutACache) {
  CheckTcacheOnDisk(at.host, tab);
  cmdReopenTcache_Click(at.host, tab);
  EXPECT_EQ(tab.lblTcacheStatus.caption, "");
}

struct TheRestoreButton : TheTab {
  void Click() { cmdRestoreTCACHE_Click(at.host, installation); }
  void Answer(Answer answer) {
    at.desk.ExpectQuestion(
        "This should remove all textures that you have added.\nAre you sure that you want to do this?", answer);
  }
};

TEST_F(TheRestoreButton, RestoresTheGamesCacheAfterAsking) {
  SetCache(Cache(430));
  Answer(Answer::yes);
  at.desk.ExpectSuccess("TCACHE Restoration complete", programTitle, Icon::exclamation);
  Click();
  EXPECT_TRUE(test::SameBytes(Cache(426), CacheNow()));
}

TEST_F(TheRestoreButton, DoesNothingOnNo) {
  SetCache(Cache(430));
  Answer(Answer::no);
  Click();
  EXPECT_TRUE(test::SameBytes(Cache(430), CacheNow()));
}

TEST_F(TheRestoreButton, IsRefusedWhileTheFeaturesAreEnabled) {
  SetCache(Cache(430));
  Write("program/ships.dat", Pattern(868));
  at.desk.ExpectBox("This operation can't be preformed while other editing options are enabled.", programTitle);
  Click();
  EXPECT_TRUE(test::SameBytes(Cache(430), CacheNow()));
}

TEST_F(TheRestoreButton, DoesNotTellOfASuccessThatThereWasNot) {
  SetCache(Cache(425));
  Answer(Answer::yes);
  at.desk.ExpectBox("Error - not a valid tcache file", "RestoreTcacheFile");
  Click();
  EXPECT_TRUE(test::SameBytes(Cache(425), CacheNow()));
}

}  // namespace
}  // namespace oravin
