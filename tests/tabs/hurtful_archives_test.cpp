// Ten thousand archives made to hurt, from fixed seeds: whatever they hold, the tab answers with a box or does what it
// is asked, writes nothing outside the destination, and leaves the archive as it is.

#include <random>

#include "support/archive_tab_stage.h"

namespace oravin::test {
namespace {

struct Dice {
  explicit Dice(unsigned seed) : engine(seed) {}
  std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(engine() % limit); }
  bool OneIn(std::uint32_t chances) { return Below(chances) == 0; }
  template <typename Value>
  Value OneOf(std::initializer_list<Value> values) {
    return *(values.begin() + Below(static_cast<std::uint32_t>(values.size())));
  }
  std::mt19937 engine;
};

std::string HurtfulName(Dice& dice) {
  switch (dice.Below(8)) {
    case 0:
      return "";
    case 1:
      return dice.OneOf<const char*>({"..\\escaped", "..\\..\\escaped", "\\escaped", "C:\\escaped", "CON", "nul.txt",
                                      "a.", "a ", ".", "..", "a\\..\\..\\escaped", "/escaped", "resource.hog"});
    case 2: {
      std::string name;
      for (std::uint32_t i = dice.Below(40) + 1; i > 0; --i) name += static_cast<char>(1 + dice.Below(255));
      return name;
    }
    case 3:
      return std::string(dice.OneIn(200) ? 1000000 : dice.Below(400), static_cast<char>('a' + dice.Below(26)));
    default:
      return dice.OneOf<const char*>({"a", "A", "b\\c", "B\\C", "b", "sub\\deep\\er\\file.txt", "x.shp", "y.bmp"});
  }
}

/// An archive of up to a dozen entries whose fields are right, odd or absurd.
Bytes HurtfulArchive(Dice& dice) {
  const std::uint32_t entries = dice.Below(12);
  Bytes table;
  for (std::uint32_t i = 0; i < entries; ++i) {
    const std::uint32_t offset = dice.OneOf({dice.Below(600), dice.Below(600), 0U, 0xFFFFFFFFU, dice.Below(5000)});
    const std::uint32_t size =
        dice.OneOf({dice.Below(80), dice.Below(80), 0U, 1U, 0xFFFFFFFFU, dice.Below(0x7FFFFFFF)});
    const Bytes row = TableRow(offset, size, HurtfulName(dice));
    table.insert(table.end(), row.begin(), row.end());
  }
  Bytes archive = HeaderAnd(entries, table);
  for (std::uint32_t i = dice.Below(600); i > 0; --i) {
    archive.push_back(static_cast<std::uint8_t>(dice.OneIn(20) ? 0x10 : dice.OneIn(20) ? 0xFB : dice.Below(256)));
  }
  if (dice.OneIn(4)) {
    PutBigEndian32(&archive[8], dice.OneOf({0U, 1U, entries + 1, 100000U, 100001U, 0xFFFFFFFFU, dice.Below(50)}));
  }
  if (dice.OneIn(4)) PutBigEndian32(&archive[12], dice.OneOf({0U, 15U, 16U, 0xFFFFFFFFU, dice.Below(700)}));
  if (dice.OneIn(8)) archive.resize(dice.Below(static_cast<std::uint32_t>(archive.size()) + 1));
  return archive;
}

struct HurtfulArchives : HogTabStage, testing::WithParamInterface<unsigned> {};

TEST_P(HurtfulArchives, NeverReachBeyondTheDestination) {
  constexpr int archives = 500;
  Dice dice(GetParam());
  stage.desk.AllowOthers([&](const Message& box) {
    EXPECT_LT(box.text.size(), 6000U) << "a box that fits a screen";
    return box.buttons == Buttons::yesNoCancel ? dice.OneOf({Answer::yes, Answer::yes, Answer::no}) : Answer::ok;
  });
  int opened = 0;
  std::size_t written = 0;
  for (int i = 0; i < archives; ++i) {
    const Bytes archive = HurtfulArchive(dice);
    stage.Write(archive);
    if (dice.OneIn(6)) WriteFileAt(stage.Game("resource.fat"), HurtfulArchive(dice));
    cmdOpen_Click(stage.host, tab);
    opened += IsArchiveOpen(tab) ? 1 : 0;
    cmdSelectAll_Click(tab);
    hogList_ItemClick(tab);
    cmdExtract_Click(stage.host, tab);
    cmdUnpackExtract_Click(stage.host, tab);
    written += Extracted().size();
    cmdCloseHog_Click(tab);
    ASSERT_TRUE(SameBytes(archive, stage.Archive()));
    std::filesystem::remove_all(stage.folder.Native("out"));
    std::filesystem::remove(stage.Game("resource.fat"));
    for (const auto& [name, bytes] : stage.Image()) {
      ASSERT_TRUE(name == "game/resource.hog" || name.ends_with("/")) << name << " was written, by archive " << i;
    }
    MakeFolderAt(stage.folder.Native("out"));
  }
  EXPECT_GT(opened, archives / 4) << "most archives must get so far that they can hurt";
  EXPECT_GT(written, 100U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, HurtfulArchives, testing::Range(1U, 21U));

}  // namespace
}  // namespace oravin::test
