// The commands of the groups "tcache" and "loadout".

#include "base/bytes.h"
#include "demo/bitmap_writer.h"
#include "sample_runs.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

struct TcacheRuns : SampleRuns {
  TcacheRuns() { MakeFolderAt(folder.Native("out")); }
  static Json List() { return RunWords({"tcache", "list", "--json"}).Document(); }
  Bytes Cache() const { return ReadFileAt(sample.game / "tcachehw.dat"); }
  std::string AddOn(const std::string& name) const { return (sample.program / "addons" / "textures" / name).string(); }
  FolderImage Out() const { return ImageOf(folder.Native("out")); }
  const std::string out = folder.Native("out").string();
};

TEST_F(TcacheRuns, ListTellsEveryTexture) {
  const Outcome outcome = RunWords({"tcache", "list", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const Json textures = outcome.Document();
  ASSERT_EQ(textures.size(), 426U);
  const Bytes cache = Cache();
  EXPECT_EQ(textures[0]["dataOffset"], LittleEndian32(&cache[12 + 224]));
  EXPECT_EQ(textures[0]["width"], LittleEndian32(&cache[12 + 64]));
  EXPECT_EQ(textures[0]["height"], LittleEndian32(&cache[12 + 68]));
  EXPECT_EQ(textures[0]["images"], LittleEndian32(&cache[12 + 116]));
  EXPECT_EQ(textures[0]["format"], "8-bit");
  EXPECT_EQ(textures[425]["format"], "16-bit");
  EXPECT_EQ(textures[425]["added"], false);
}

TEST_F(TcacheRuns, ListIsATableOfTextAndTakesAnotherCache) {
  std::filesystem::copy_file(sample.game / "tcachehw.dat", folder.Native("other.dat"));
  const Outcome outcome = RunWords({"tcache", "list", "--cache", folder.Native("other.dat").string()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.substr(0, 4), "Name");
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 427);
  EXPECT_NE(outcome.out.find("factory"), std::string::npos);
}

TEST_F(TcacheRuns, ACacheThatIsMissingOrNoneIsTold) {
  EXPECT_EQ(RunWords({"tcache", "list", "--cache", folder.Native("none.dat").string()}).err,
            "Oravin - cmdOpenTcache_Click(): Error - File not found\n");
  WriteFileAt(folder.Native("bad.dat"), Bytes(300000));
  const Outcome bad = RunWords({"tcache", "list", "--cache", folder.Native("bad.dat").string()});
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.err, "GetTcacheTable: Error - not a valid tcache file\n");
}

TEST_F(TcacheRuns, ExtractTakesNamesAndPatterns) {
  const Json list = List();
  const std::string first = list[0]["name"];
  const std::string stem = list[1]["name"].get<std::string>().substr(0, 9);
  const std::string pattern = stem + "?";
  std::size_t expected = 1;
  for (const Json& texture : list) {
    const std::string name = texture["name"];
    if (name.size() == stem.size() + 1 && name.substr(0, stem.size()) == stem) ++expected;
  }
  const Outcome outcome = RunWords({"tcache", "extract", "--to", out, first, pattern, "none"});
  EXPECT_EQ(outcome.status, 1) << "one name stands for nothing";
  EXPECT_NE(outcome.err.find("oravin-cli: there is no texture \"none\" in this cache\n"), std::string::npos);
  EXPECT_EQ(Out().size(), expected);
  EXPECT_EQ(TextOf(Out()[first + ".bmp"]).substr(0, 2), "BM");
}

TEST_F(TcacheRuns, ExtractWithoutNamesTakesAll) {
  const Outcome outcome = RunWords({"tcache", "extract", "--to", out});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Selected and extracted: 426.\n");
  EXPECT_EQ(Out().size(), 426U);
}

TEST_F(TcacheRuns, ImportAddsATextureAndRestoreRemovesIt) {
  const Bytes before = Cache();
  const Outcome outcome = RunWords({"tcache", "import", AddOn("coldeck.bmp"), "newtex", "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(), (Json{{"action", "import"}, {"name", "newtex"}, {"fighter", false}, {"done", true}}));
  Json list = List();
  ASSERT_EQ(list.size(), 427U);
  EXPECT_EQ(list[426]["name"], "newtex");
  EXPECT_EQ(list[426]["added"], true);
  EXPECT_EQ(RunWords({"tcache", "restore"}).out, "Nothing was done.\n") << "the safe answer keeps it";
  EXPECT_EQ(RunWords({"tcache", "restore", "--yes"}).status, 0);
  EXPECT_TRUE(SameBytes(before, Cache()));
}

TEST_F(TcacheRuns, RestoreDoesNotSayThatARenamedTextureOfTheGameIsAsItWas) {
  const Bytes before = Cache();
  const std::string old = List()[7]["name"];
  EXPECT_EQ(RunWords({"tcache", "rename", old, "brandnew"}).status, 0);
  const Outcome outcome = RunWords({"tcache", "restore", "--yes"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "The texture cache holds the game's 426 textures alone.\n");
  EXPECT_EQ(List()[7]["name"], "brandnew");
  EXPECT_FALSE(SameBytes(before, Cache())) << "not as the game brought it";
}

TEST_F(TcacheRuns, ImportForAFighterAddsTheCompanionToo) {
  const Outcome outcome = RunWords({"tcache", "import", AddOn("manta1.bmp"), "newtex", "--fighter"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const Json list = List();
  ASSERT_EQ(list.size(), 428U);
  EXPECT_EQ(list[426]["name"], "newtex");
  EXPECT_EQ(list[427]["name"], "gnewtex");
  EXPECT_EQ(list[427]["images"], 8);
}

TEST_F(TcacheRuns, ImportThatIsRefusedChangesNothing) {
  const Bytes before = Cache();
  const std::string taken = List()[5]["name"];
  EXPECT_EQ(RunWords({"tcache", "import", AddOn("none.bmp"), "x"}).status, 1);
  EXPECT_EQ(RunWords({"tcache", "import", AddOn("coldeck.bmp"), taken}).status, 1);
  EXPECT_EQ(RunWords({"tcache", "import", AddOn("coldeck.bmp"), "  "}).status, 1);
  EXPECT_TRUE(SameBytes(before, Cache()));
}

TEST_F(TcacheRuns, RenameWritesTheNameAlone) {
  const std::string old = List()[7]["name"];
  Bytes expected = Cache();
  const std::size_t at = 12 + 7 * 240 + 72;
  std::fill_n(expected.begin() + at, 30, std::uint8_t{0});
  std::copy_n("brandnew", 8, expected.begin() + at);
  EXPECT_EQ(RunWords({"tcache", "rename", old, "brandnew"}).out, "The texture is called brandnew now.\n");
  EXPECT_TRUE(SameBytes(expected, Cache()));
  const Outcome taken = RunWords({"tcache", "rename", "brandnew", List()[8]["name"]});
  EXPECT_EQ(taken.status, 1);
  EXPECT_EQ(taken.err, "Oravin: Name already exists\n");
  EXPECT_EQ(RunWords({"tcache", "rename", "none", "x"}).status, 1);
  EXPECT_TRUE(SameBytes(expected, Cache()));
}

TEST_F(TcacheRuns, ANewNameWithALetterOutsideTheCodePageIsRefused) {
  const Bytes before = Cache();
  const std::string old = List()[7]["name"];
  const std::string name = "w\xD0\x96ng";
  for (const Outcome& outcome :
       {RunWords({"tcache", "rename", old, name}), RunWords({"tcache", "import", AddOn("coldeck.bmp"), name}),
        RunWords({"tcache", "import", AddOn("manta1.bmp"), name, "--fighter"}),
        RunWords({"tcache", "rename", old, "w\tng"})}) {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')),
              "Oravin: The name 'w?ng' cannot be used. The game's files");
  }
  EXPECT_TRUE(SameBytes(before, Cache()));
}

TEST_F(TcacheRuns, PreviewWritesWhatThePaneShows) {
  const std::string name = List()[425]["name"];
  for (const char* file : {"a.png", "a.bmp"}) {
    const Outcome outcome = RunWords({"tcache", "preview", name, "--to", folder.Native(file).string(), "--json"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.Document()["width"], List()[425]["width"]);
    EXPECT_EQ(TextOf(ReadFileAt(folder.Native(file))).substr(file[2] == 'p' ? 1 : 0, 2), file[2] == 'p' ? "PN" : "BM");
  }
  EXPECT_EQ(RunWords({"tcache", "preview", name, "--to", folder.Native("a.gif").string()}).status, 1);
  EXPECT_EQ(RunWords({"tcache", "preview", "none", "--to", folder.Native("b.png").string()}).status, 1);
}

TEST_F(TcacheRuns, LoadoutLearnTellsWhatWasSeenAndNeverOverwrites) {
  const std::string maps = folder.Native("maps.dat").string();
  const Outcome outcome = RunWords({"loadout", "learn", "--to", maps, "--json"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const Json document = outcome.Document();
  EXPECT_GT(document["pairs"], 0);
  EXPECT_EQ(document["cells"].size(), 2048U);
  int seen = 0;
  for (const Json& cell : document["cells"]) seen += cell["seen"] > 0 ? 1 : 0;
  EXPECT_EQ(document["seenCells"], seen);
  const Bytes learned = ReadFileAt(maps);
  ASSERT_EQ(learned.size(), 2048U);
  for (std::size_t i = 0; i < learned.size(); ++i) EXPECT_EQ(document["cells"][i]["value"], learned[i]);
  EXPECT_EQ(RunWords({"loadout", "learn", "--to", maps}).status, 1);
  EXPECT_EQ(RunWords({"loadout", "learn"}).status, 1) << "the sample brings its own";
}

TEST_F(TcacheRuns, LoadoutLearnWritesIntoTheProgramFolderWhereTheFileIsMissing) {
  const Bytes shipped = ReadFileAt(sample.program / "gloadconv.dat");
  std::filesystem::remove(sample.program / "gloadconv.dat");
  const Outcome outcome = RunWords({"loadout", "learn"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("of 2,048 cells were seen"), std::string::npos);
  // Where a cell was seen, what was learned is what the sample's textures were made with.
  const Bytes learned = ReadFileAt(sample.program / "gloadconv.dat");
  ASSERT_EQ(learned.size(), shipped.size());
  std::filesystem::remove(sample.program / "gloadconv.dat");
  const Json cells = RunWords({"loadout", "learn", "--json"}).Document()["cells"];
  for (std::size_t i = 0; i < learned.size(); ++i) {
    if (cells[i]["seen"] == 0) continue;
    EXPECT_EQ(learned[i], shipped[i]) << i;
  }
}

}  // namespace
}  // namespace oravin::test
