#include "demo/archive_writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "reading.h"

namespace oravin::demo {
namespace {

using reading::Bytes;

const std::vector<ArchiveFile> kFiles{{"a.shp", {1, 2, 3}}, {"sounds\\b.wav", {}}, {"c", {9}}};

TEST(ArchiveWriter, AnArchiveIsLaidOutByteForByte) {
  const Bytes archive = BuildArchive({{"ab", {0x11, 0x22, 0x33}}});
  EXPECT_EQ(archive, (Bytes{'B', 'I', 'G', 'F', 0,  0, 0, 30, 0, 0,   0,   1, 0,    0,    0,
                            27,  0,   0,   0,   27, 0, 0, 0,  3, 'a', 'b', 0, 0x11, 0x22, 0x33}));
}

TEST(ArchiveWriter, TheTableParsesBack) {
  const Bytes archive = BuildArchive(kFiles);
  const auto entries = reading::ReadTable(archive);
  ASSERT_EQ(entries.size(), kFiles.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    EXPECT_EQ(entries[i].name, kFiles[i].name);
    const auto begin = archive.begin() + static_cast<std::ptrdiff_t>(entries[i].offset);
    EXPECT_EQ(Bytes(begin, begin + static_cast<std::ptrdiff_t>(entries[i].size)), kFiles[i].bytes);
  }
}

TEST(ArchiveWriter, AnEmptyArchiveIsItsHeader) {
  EXPECT_EQ(BuildArchive({}), (Bytes{'B', 'I', 'G', 'F', 0, 0, 0, 16, 0, 0, 0, 0, 0, 0, 0, 16}));
}

TEST(ArchiveWriter, WritingPieceByPieceGivesTheSameBytes) {
  const auto path = reading::FreshPath("archive_writer");
  ArchiveStream archive = BeginArchive(path, {"a.shp", "sounds\\b.wav", "c"});
  for (const ArchiveFile& file : kFiles) {
    for (const std::uint8_t byte : file.bytes) AppendToEntry(archive, std::span(&byte, 1));
    FinishEntry(archive);
  }
  FinishArchive(archive);
  EXPECT_EQ(reading::FileBytes(path), BuildArchive(kFiles));
  std::filesystem::remove(path);
}

TEST(ArchiveWriter, AnUnfinishedArchiveIsRefused) {
  const auto path = reading::FreshPath("archive_unfinished");
  ArchiveStream archive = BeginArchive(path, {"a", "b"});
  FinishEntry(archive);
  EXPECT_THROW(FinishArchive(archive), std::logic_error);
  archive.file.close();
  std::filesystem::remove(path);
}

TEST(ArchiveWriter, AFolderThatIsMissingIsReported) {
  const auto path = reading::FreshPath("no_folder") / "x.hog";
  ArchiveStream archive = BeginArchive(path, {"a"});
  FinishEntry(archive);
  EXPECT_THROW(FinishArchive(archive), std::runtime_error);
}

}  // namespace
}  // namespace oravin::demo
