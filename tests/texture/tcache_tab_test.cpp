#include "texture/tcache_tab.h"

#include "cache_stage.h"
#include "image_program.h"
#include "texture/ImportTexture.h"
#include "texture/colour.h"
#include "texture/extraction.h"

namespace oravin {
namespace {

using test::Bitmap;
using test::Cache;
using test::CacheWith;
using test::Pattern;
using test::ReadFileAt;
using test::SetLong;
using test::SetName;

struct TheTab : test::CacheStage {
  TheTab() {
    installation.GamePath = folder.Windows("game\\");
    installation.ProgramPath = folder.Windows("program\\");
    cube = Bitmap(16, 16, 8, Pattern(256));
    gcube = Bitmap(16, 16, 8, Pattern(256));
    for (std::size_t i = 0; i < 256; ++i) {
      SetLong(cube, 54 + 4 * i, static_cast<std::uint32_t>(i * 40503 % 0x1000000));
      SetLong(gcube, 54 + 4 * i, static_cast<std::uint32_t>(i * 30011 % 0x1000000));
    }
    Write("program/3D/cube.bmp", cube);
    Write("program/3D/gcube.bmp", gcube);
    test::MakeFolderAt(folder.Native("out"));
    tab.txtTcacheSource.text = folder.Windows("game/tcachehw.dat");
    tab.txtTcacheDestination.text = folder.Windows("out\\");
  }
  void SetCache(const Bytes& bytes) { Write("game/tcachehw.dat", bytes); }
  [[nodiscard]] Bytes CacheNow() const { return ReadFileAt(folder.Native("game/tcachehw.dat")); }
  void Open(const Bytes& bytes) {
    SetCache(bytes);
    cmdOpenTcache_Click(at.host, tab);
  }
  /// Selects the rows of these names alone.
  void Select(const std::vector<std::string>& names) {
    for (ListRow& row : tab.lstTcache.rows) {
      row.selected = std::find(names.begin(), names.end(), row.texts[0]) != names.end();
    }
  }
  void Extract() { cmdExtractTcache_Click(at.host, tab, installation); }
  void ExpectComplete(const std::string& more = "") { at.desk.ExpectSuccess("Extraction complete" + more); }
  [[nodiscard]] Bytes Extracted(const std::string& name) const { return ReadFileAt(folder.Native("out/" + name)); }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const ListRow& row : tab.lstTcache.rows) names.push_back(row.texts[0]);
    return names;
  }

  Installation installation;
  TcacheTab tab = NewTcacheTab();
  Bytes cube;
  Bytes gcube;
};

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
  EXPECT_EQ(tab.lstTcache.rows[0].key, "t0");
  EXPECT_EQ(tab.lstTcache.rows[425].key, "t425");
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

struct TheExtraction : TheTab {};

TEST_F(TheExtraction, OfTheFirstRowAfterSortingIsTheTextureNamedThere) {
  Bytes cache = CacheWith({{"many", 1, 8, 8, 4}, {"one", 1, 16, 8, 1}});
  Open(cache);
  lstTcache_ColumnClick(tab, 3);
  EXPECT_EQ(tab.lstTcache.rows[0].texts[0], "one");
  tab.lstTcache.rows[0].selected = true;
  ExpectComplete();
  Extract();
  Bytes expected(cube.begin(), cube.begin() + 1078);
  SetLong(expected, 2, 1078 + 128);
  SetLong(expected, 18, 16);
  SetLong(expected, 22, 8);
  const Bytes pixels = Pattern(128, 427);
  expected.insert(expected.end(), pixels.begin(), pixels.end());
  EXPECT_TRUE(test::SameImage({{"one.bmp", expected}}, test::ImageOf(folder.Native("out"))));
  EXPECT_EQ(tab.lblTcacheStructs.caption, "428 texture(s)");
}

TEST_F(TheExtraction, OfA16BitTextureWritesAllImagesIn24Bits) {
  Open(CacheWith({{"deep", 2, 16, 8, 4}}));
  Select({"deep"});
  ExpectComplete();
  Extract();
  const Bytes pixels = Pattern((128 + 32 + 8 + 2) * 2, 426);
  Bytes expected = Bitmap(16, 8, 24, {});
  SetLong(expected, 2, 54 + 170 * 3);
  SetLong(expected, 38, 2835);
  SetLong(expected, 42, 2835);
  expected.resize(54 + Size24Of16(pixels.size()));
  Convert16To24(pixels, std::span(expected).subspan(54));
  EXPECT_TRUE(test::SameBytes(expected, Extracted("deep.bmp")));
  EXPECT_EQ(test::Identified(folder.Native("out/deep.bmp")), "BMP3 16 8");
}

TEST_F(TheExtraction, IsOpenedByAnImageProgramWithItsTrueColours) {
  Open(CacheWith({{"flat", 1, 8, 4, 3}, {"deep", 2, 8, 4, 3}}));
  Select({"flat", "deep"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(test::Identified(folder.Native("out/flat.bmp")), "BMP3 8 4");
  EXPECT_EQ(test::Identified(folder.Native("out/deep.bmp")), "BMP3 8 4");
  const Bytes flat = test::ShownPixels(folder.Native("out/flat.bmp"));
  const Bytes deep = test::ShownPixels(folder.Native("out/deep.bmp"));
  ASSERT_EQ(flat.size(), 96U);
  ASSERT_EQ(deep.size(), 96U);
  for (std::size_t y = 0; y < 4; ++y) {
    for (std::size_t x = 0; x < 8; ++x) {
      const std::size_t stored = (3 - y) * 8 + x;  // the row stored first is the lowest
      const std::size_t shown = (y * 8 + x) * 3;
      const std::size_t colour = 54 + 4U * Pattern(32, 426)[stored];
      EXPECT_EQ(flat[shown], cube[colour + 2]);
      EXPECT_EQ(flat[shown + 1], cube[colour + 1]);
      EXPECT_EQ(flat[shown + 2], cube[colour]);
      const Bytes pixels = Pattern(64, 427);
      const int pixel = pixels[2 * stored] | pixels[2 * stored + 1] << 8;
      EXPECT_EQ(deep[shown], ((pixel >> 11) * 255 * 2 + 31) / 62);
      EXPECT_EQ(deep[shown + 1], ((pixel >> 5 & 63) * 255 * 2 + 63) / 126);
      EXPECT_EQ(deep[shown + 2], ((pixel & 31) * 255 * 2 + 31) / 62);
    }
  }
}

TEST_F(TheExtraction, TakesTheCompanionsTemplateOnlyBesideItsTexture) {
  const TcacheTable table = {{"Reaper"}, {"greaper"}, {"gun"}, {"rock"}, {"rsquad"}, {" squad "}, {"g"}};
  EXPECT_EQ(TemplateFor(table, "greaper"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor(table, " GREAPER"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor(table, "rsquad"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor(table, "Reaper"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor(table, "gun"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor(table, "rock"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor({{"rock"}, {"OCK"}}, "rock"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor({{"greaper"}}, "greaper"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor(table, ""), "3D\\cube.bmp");
  Open(CacheWith({{"reaper", 1, 4, 4, 1}, {"greaper", 1, 4, 4, 1}}));
  Select({"greaper"});
  ExpectComplete();
  Extract();
  const Bytes bitmap = Extracted("greaper.bmp");
  EXPECT_EQ(Bytes(bitmap.begin() + 54, bitmap.begin() + 1078), Bytes(gcube.begin() + 54, gcube.begin() + 1078));
}

TEST_F(TheExtraction, OfAnUnsupportedFormatGivesZerosBehindAsManyAsTheHeaderBeforeHad) {
  Bytes cache = CacheWith({{"odd1", 1, 4, 4, 1},
                           {"flat", 1, 4, 4, 1},
                           {"odd2", 1, 4, 4, 1},
                           {"deep", 2, 4, 4, 1},
                           {"odd3", 1, 4, 2, 1},
                           {"odd4", 1, 4, 4, 1}});
  for (const std::size_t slot : {426U, 428U, 430U, 431U}) SetLong(cache, 12 + 240 * slot, 3);
  SetLong(cache, 12 + 240 * 430 + 224, 0xFFFFFFFF);  // nothing is read
  Open(cache);
  Select({"odd1", "flat", "odd2", "deep", "odd3", "odd4"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(Extracted("odd1.bmp"), Bytes(48));
  EXPECT_EQ(Extracted("odd2.bmp"), Bytes(1078 + 48));
  EXPECT_EQ(Extracted("odd3.bmp"), Bytes(54 + 24));
  EXPECT_EQ(Extracted("odd4.bmp"), Bytes(54 + 48));
  // The header before is that of this run.
  Select({"odd2"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(Extracted("odd2.bmp"), Bytes(48));
}

TEST_F(TheExtraction, TellsWhichTextureItIsAt) {
  Open(CacheWith({{"flat", 1, 4, 4, 1}, {"deep", 2, 4, 4, 1}}));
  Select({"flat", "deep"});
  ExpectComplete();
  Extract();
  ASSERT_GE(at.desk.progress.size(), 2U);
  EXPECT_EQ(at.desk.progress[0].text, "Extracting flat");
  EXPECT_EQ(at.desk.progress[1].text, "Extracting and converting deep");
  EXPECT_EQ(at.desk.progress.back().text, "");
}

TEST_F(TheExtraction, ReplacesExistingFiles) {
  Open(CacheWith({{"flat", 1, 4, 4, 1}}));
  Write("out/flat.bmp", Pattern(90000));
  Select({"flat"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(Extracted("flat.bmp").size(), 1078U + 16);
}

TEST_F(TheExtraction, IntoAMissingFolderIsTold) {
  Open(Cache(3));
  for (const std::string& where : {folder.Windows("none"), std::string()}) {
    tab.txtTcacheDestination.text = where;
    at.desk.ExpectBox("Destination path not found", programTitle);
    Extract();
  }
}

TEST_F(TheExtraction, TakesAFolderWithoutABackslash) {
  Open(Cache(3));
  tab.txtTcacheDestination.text = "  " + folder.Windows("out");
  Select({"t1"});
  ExpectComplete();
  Extract();
  EXPECT_EQ(test::ImageOf(folder.Native("out")).size(), 1U);
}

TEST_F(TheExtraction, OfNamesThatNoFileCanBearGivesSafeOnesAndSaysSo) {
  Bytes cache = Cache(8);
  const std::vector<std::string> names = {"a:b", "a*b", "con", "dot.", "..\\up", "a_b", "x\xE9y", "fine"};
  for (int i = 0; i < 8; ++i) SetName(cache, i, names[static_cast<std::size_t>(i)]);
  Open(cache);
  cmdSelectAllTcache_Click(tab);
  ExpectComplete(
      "\n\nThese names cannot be names of files, so others were taken:"
      "\na:b: a_b_2.bmp\na*b: a_b_3.bmp\ncon: _con.bmp\ndot.: dot_.bmp\n..\\up: .._up.bmp\nx\xE9y: x_y.bmp");
  Extract();
  std::vector<std::string> files;
  for (const auto& [name, bytes] : test::ImageOf(folder.Native("out"))) {
    files.push_back(name);
    EXPECT_EQ(bytes.size(), 1078U + 20) << name;
  }
  EXPECT_EQ(files, (std::vector<std::string>{".._up.bmp", "_con.bmp", "a_b.bmp", "a_b_2.bmp", "a_b_3.bmp", "dot_.bmp",
                                             "fine.bmp", "x_y.bmp"}));
}

TEST_F(TheExtraction, OfDataThatLieNowhereLeavesThoseOutAndSaysSo) {
  Bytes cache = CacheWith({{"bad1", 1, 4, 4, 1}, {"bad2", 1, 4, 4, 1}, {"bad3", 1, 4, 4, 1}, {"good", 1, 4, 4, 1}});
  SetLong(cache, 102252 + 224, 0x7FFFFFFF);
  SetLong(cache, 102252 + 240 + 64, 0x7FFFFFFF);
  SetLong(cache, 102252 + 240 + 68, 0x7FFFFFFF);
  SetLong(cache, 102252 + 480, 0x7FFFFFFF);
  Open(cache);
  Select({"bad1", "bad2", "bad3", "good"});
  at.desk.ExpectBox(
      "Extraction complete\n\nThese textures were left out, because their data do not lie in the cache:"
      "\nbad1\nbad2\nbad3",
      programTitle, Icon::information);
  Extract();
  EXPECT_EQ(test::ImageOf(folder.Native("out")).size(), 1U);
  EXPECT_EQ(Extracted("good.bmp").size(), 1078U + 16);
}

TEST_F(TheExtraction, WithoutATemplateEndsWithItsBoxAndKeepsOldFiles) {
  Open(CacheWith({{"flat", 1, 4, 4, 1}}));
  Write("out/flat.bmp", Pattern(9));
  std::filesystem::remove(folder.Native("program/3D/cube.bmp"));
  Select({"flat"});
  at.desk.AllowOthers([](const MessageBox&) { return Answer::ok; });
  Extract();
  ASSERT_EQ(at.desk.shown.size(), 1U);
  EXPECT_EQ(at.desk.shown[0].title, "cmdExtractTcache_Click()");
  EXPECT_EQ(Extracted("flat.bmp"), Pattern(9));
  EXPECT_EQ(tab.lblTcacheStructs.caption, "427 texture(s)");
}

TEST_F(TheExtraction, OfWhatWasImportedFromAnExtractedBitmapIsTheSameFile) {
  Open(CacheWith({{"deep", 2, 16, 8, 4}, {"flat", 1, 32, 8, 2}}));
  Select({"deep", "flat"});
  ExpectComplete();
  Extract();
  for (const char* name : {"deep", "flat"}) {
    BmpInfo info;
    const std::string bitmap = folder.Windows("out/" + std::string(name) + ".bmp");
    EXPECT_TRUE(GetBMPInfo(at.host, bitmap, info));
    EXPECT_TRUE(ImportTexture(at.host, folder.Windows("game/tcachehw.dat"), bitmap, std::string("again") + name, info));
  }
  cmdReopenTcache_Click(at.host, tab);
  Select({"againdeep", "againflat"});
  ExpectComplete();
  Extract();
  EXPECT_TRUE(test::SameBytes(Extracted("deep.bmp"), Extracted("againdeep.bmp")));
  EXPECT_TRUE(test::SameBytes(Extracted("flat.bmp"), Extracted("againflat.bmp")));
}

TEST(ASafeFileName, IsTheNameWhereThatIsNoTrouble) {
  for (const char* name : {"reaper", "a b", "a.b", "it's", "x(1)"}) EXPECT_EQ(SafeFileName(name), name);
  EXPECT_EQ(SafeFileName(""), "_");
  EXPECT_EQ(SafeFileName("..."), "___");
  EXPECT_EQ(SafeFileName("a?<>|\"/\\:*"), "a_________");
  EXPECT_EQ(SafeFileName("LPT1"), "_LPT1");
  EXPECT_EQ(SafeFileName("nul.x"), "_nul.x");
  EXPECT_EQ(SafeFileName("end. ."), "end___");
  EXPECT_EQ(SafeFileName("\x01\x7F"), "__");
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
    failing.desk.AllowOthers([](const MessageBox&) { return Answer::ok; });
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
