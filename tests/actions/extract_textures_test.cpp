#include "actions/extract_textures.h"

#include "support/cache_stage.h"
#include "support/thrown.h"

namespace oravin {
namespace {

using test::Bitmap;
using test::CacheWith;
using test::Pattern;
using test::SetLong;

struct TheRun : test::CacheStage {
  Installation installation{folder.windows, folder.Windows("program\\"), {}};

  TheRun() {
    Write("program/3D/cube.bmp", Bitmap(16, 16, 8, Pattern(256)));
    test::MakeFolderAt(folder.Native("out"));
  }
};

TEST_F(TheRun, ListsWhatItRenamedAndLeftOut) {
  Bytes cache = CacheWith({{"a:b", 1, 4, 4, 1}, {"bad", 1, 4, 4, 1}, {"fine", 1, 4, 4, 1}});
  SetLong(cache, 12 + 240 * 427 + 224, 0x7FFFFFFF);
  Make(cache);
  const TcacheTable table = GetTcacheTable(at.host.files, Path());
  ExtractionRun run = BeginExtraction(at.host.files, Path(), folder.Windows("out\\"));
  for (std::size_t i = 426; i < 429; ++i) ExtractNext(at.host.files, installation, run, table, table[i]);
  EXPECT_EQ(run.renamed, std::vector<std::string>{"a:b: a_b.bmp"});
  EXPECT_EQ(run.leftOut, std::vector<std::string>{"bad"});
  EXPECT_EQ(run.headerSize, 1078U);
  const test::FolderImage made = test::ImageOf(folder.Native("out"));
  ASSERT_EQ(made.size(), 2U);
  EXPECT_EQ(made.at("a_b.bmp").size(), 1078U + 16);
  EXPECT_EQ(made.at("fine.bmp").size(), 1078U + 16);
  EXPECT_EQ(at.host.files.open, 0);
}

TEST_F(TheRun, DoesNotStartWithoutTheCache) {
  EXPECT_EQ(test::KindThrown([&] { BeginExtraction(at.host.files, Path(), folder.Windows("out\\")); }),
            ErrorKind::failed);
}

}  // namespace
}  // namespace oravin
