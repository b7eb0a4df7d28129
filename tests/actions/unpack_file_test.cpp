// UnpackFile: its message boxes, and that the destination stays as it was.

#include "actions/unpack_models.h"

#include "demo/compressor.h"
#include "support/archive_stage.h"

namespace oravin::test {
namespace {

constexpr const char* title = "UnpackFile()";
constexpr const char* pathsBox = "Error - Path(s) not found";

Bytes Content(std::size_t size, int step) {
  Bytes content(size);
  for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<std::uint8_t>(i * static_cast<std::size_t>(step) / 7);
  return content;
}

/// A compressed entry between two stored ones.
struct UnpackingAFile : testing::Test {
  UnpackingAFile() { stage.Write({{"first", first}, {"packed", demo::Compress(content)}, {"last", last}}); }

  [[nodiscard]] TableEntry Entry(const std::string& name) const { return EntryNamed(stage.Archive(), name); }
  std::uint32_t UnpackTo(const std::string& name, const TableEntry& entry) {
    return UnpackFile(stage.host, stage.Installed(), stage.shipsFolder + name, entry.size, entry.offset);
  }
  [[nodiscard]] Bytes Loose(const std::string& name) const { return ReadFileAt(stage.Game("ships/" + name)); }

  Bytes first = Content(3000, 3);
  Bytes content = Content(20000, 11);
  Bytes last = Content(700, 5);
  ArchiveStage stage;
};

TEST_F(UnpackingAFile, ACompressedEntryIsWrittenUnpackedAndGives4347) {
  EXPECT_EQ(UnpackTo("out.shp", Entry("packed")), 4347U);
  EXPECT_TRUE(SameBytes(content, Loose("out.shp")));
  EXPECT_EQ(stage.host.files.open, 0);
}

TEST_F(UnpackingAFile, AMissingFolderGivesItsBoxAndNothingIsWritten) {
  const FolderImage before = stage.Image();
  stage.desk.ExpectBox(pathsBox, title);
  EXPECT_EQ(UnpackTo("nowhere\\out.shp", Entry("packed")), 0U);
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(UnpackingAFile, AMissingArchiveGivesTheSameBoxAndTheDestinationStays) {
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  stage.desk.ExpectBox(pathsBox, title);
  std::filesystem::remove(stage.Game("resource.hog"));
  EXPECT_EQ(UnpackTo("out.shp", {"", 0, 10, 0}), 0U);
  EXPECT_EQ(ReadTextAt(stage.Game("ships/out.shp")), "as it was");
}

TEST_F(UnpackingAFile, AnEntryPastTheArchivesEndIsRefusedAndTheDestinationStays) {
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  const FolderImage before = stage.Image();
  const auto length = static_cast<std::uint32_t>(stage.Archive().size());
  const std::vector<std::pair<std::uint32_t, std::uint32_t>> sizesAndOffsets = {
      {2, length - 1}, {1, length}, {0xFFFFFFFF, 0}, {0xFFFFFFFF, 0xFFFFFFFF}, {0, 0xFFFFFFFF}, {length, 1}};
  for (const auto& [size, offset] : sizesAndOffsets) {
    stage.desk.ExpectBox("Error - could not unpack " + stage.shipsFolder + "out.shp: its place in " + stage.hogPath +
                             " lies past that file's end",
                         title);
    EXPECT_EQ(UnpackTo("out.shp", {"", offset, size, 0}), 0U);
  }
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(UnpackingAFile, AnEntryWithoutRoomForASignatureIsRefused) {
  const auto length = static_cast<std::uint32_t>(stage.Archive().size());
  stage.desk.ExpectBox("Error - could not read " + stage.hogPath + ": it ends too early", title);
  EXPECT_EQ(UnpackTo("out.bin", {"", length - 1, 1, 0}), 0U);
  EXPECT_FALSE(exists(stage.Game("ships/out.bin")));
}

TEST_F(UnpackingAFile, ADamagedEntryGivesItsBoxAndTheDestinationStays) {
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  // A reference to before the start; and at the archive's end a header that is cut off by nothing but zeros, which
  // then repeat what is not there.
  stage.Write({{"bad", {0x10, 0xFB, 0, 0, 9, 0x00, 0x00}}, {"cut", {0x10, 0xFB, 0, 0, 9}}});
  const FolderImage before = stage.Image();
  for (const char* name : {"bad", "cut"}) {
    stage.desk.ExpectBox(
        "Error - could not unpack " + stage.shipsFolder + "out.shp: it refers to what lies before its start", title);
    EXPECT_EQ(UnpackTo("out.shp", Entry(name)), 0U);
  }
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(UnpackingAFile, AStreamThatRunsOutGivesItsBoxAndTheDestinationStays) {
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  // 3 MB of literals are promised, and neither the entry nor the 50,000 bytes after it have them.
  Bytes endless = {0x10, 0xFB, 0x2F, 0xFF, 0xFF};
  for (int i = 0; i < 2000; ++i) endless.insert(endless.end(), 113, 0xFB);
  stage.Write({{"endless", endless}, {"more", Bytes(100000, 0xFB)}});
  stage.desk.ExpectBox("Error - could not unpack " + stage.shipsFolder + "out.shp: its compressed data end too early",
                       title);
  EXPECT_EQ(UnpackTo("out.shp", Entry("endless")), 0U);
  EXPECT_EQ(ReadTextAt(stage.Game("ships/out.shp")), "as it was");
}

}  // namespace
}  // namespace oravin::test
