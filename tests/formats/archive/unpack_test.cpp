// Single entries written to disk: unpacked, or with the bytes that follow them.

#include "archive/unpack.h"
#include "files/file.h"

#include "base/file_error.h"
#include "demo/compressor.h"
#include "support/archive_stage.h"
#include "support/fault.h"
#include "support/thrown.h"

namespace oravin::test {
namespace {

Bytes Content(std::size_t size, int step) {
  Bytes content(size);
  for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<std::uint8_t>(i * static_cast<std::size_t>(step) / 7);
  return content;
}

/// A compressed entry between two stored ones.
struct Unpacking : testing::Test {
  Unpacking() { stage.Write({{"first", first}, {"packed", demo::Compress(content)}, {"last", last}}); }

  [[nodiscard]] TableEntry Entry(const std::string& name) const { return EntryNamed(stage.Archive(), name); }
  std::uint32_t UnpackTo(const std::string& name, const TableEntry& entry) {
    return UnpackEntry(stage.host.files, stage.hogPath, stage.shipsFolder + name, entry.size, entry.offset);
  }
  [[nodiscard]] Bytes Loose(const std::string& name) const { return ReadFileAt(stage.Game("ships/" + name)); }

  Bytes first = Content(3000, 3);
  Bytes content = Content(20000, 11);
  Bytes last = Content(700, 5);
  ArchiveStage stage;
};

TEST_F(Unpacking, ACompressedEntryIsWrittenUnpackedAndGives4347) {
  EXPECT_EQ(UnpackTo("out.shp", Entry("packed")), 4347U);
  EXPECT_TRUE(SameBytes(content, Loose("out.shp")));
  EXPECT_EQ(stage.host.files.open, 0);
}

TEST_F(Unpacking, AStoredEntryCarriesThe50000BytesThatFollowIt) {
  const Bytes noise(60000, 0x5A);
  stage.Write({{"first", first}, {"noise", noise}});
  EXPECT_EQ(UnpackTo("out.bin", Entry("first")), BigEndian32(first.data()) >> 16);
  Bytes expected = first;
  expected.insert(expected.end(), 50000, 0x5A);
  EXPECT_TRUE(SameBytes(expected, Loose("out.bin")));
}

TEST_F(Unpacking, PastTheArchivesEndAStoredEntryIsFollowedByZeros) {
  UnpackTo("out.bin", Entry("last"));
  Bytes expected = last;
  expected.resize(last.size() + 50000);
  EXPECT_TRUE(SameBytes(expected, Loose("out.bin")));
}

TEST_F(Unpacking, TheContentInMemoryIsWhatIsWritten) {
  for (const std::string name : {"first", "packed", "last"}) {
    const TableEntry entry = Entry(name);
    UnpackTo("out.bin", entry);
    File hog(stage.host.files, stage.hogPath, OpenFor::reading);
    const Bytes inMemory = UnpackedContent(hog, {name, entry.size, entry.offset, entry.position}, 1000000);
    EXPECT_TRUE(SameBytes(Loose("out.bin"), inMemory)) << name;
  }
}

TEST_F(Unpacking, ALargeStoredEntryIsWrittenWhole) {
  const Bytes large = Content(3'500'000, 13);
  stage.Write({{"large", large}, {"last", last}});
  UnpackTo("out.bin", Entry("large"));
  Bytes expected = large;
  expected.insert(expected.end(), last.begin(), last.end());
  expected.resize(large.size() + 50000);
  EXPECT_TRUE(SameBytes(expected, Loose("out.bin")));
}

TEST_F(Unpacking, OnlyTheVeryBytes10FBMarkACompressedEntry) {
  for (const Bytes& beginning : {Bytes{0x11, 0xFB, 0, 0, 0, 0, 0, 4}, Bytes{0xFB, 0x10, 0, 0, 4, 0xFC}}) {
    stage.Write({{"entry", beginning}});
    EXPECT_EQ(UnpackTo("out.bin", Entry("entry")), BigEndian32(beginning.data()) >> 16);
    EXPECT_EQ(Loose("out.bin").size(), beginning.size() + 50000);
  }
}

TEST_F(Unpacking, ACompressedStreamMayGoOnBehindItsEntrysStoredSize) {
  TableEntry entry = Entry("packed");
  entry.size = 6;
  EXPECT_EQ(UnpackTo("out.shp", entry), 4347U);
  EXPECT_TRUE(SameBytes(content, Loose("out.shp")));
}

TEST_F(Unpacking, AnExistingDestinationIsReplacedAndNotAppendedTo) {
  WriteFileAt(stage.Game("ships/out.shp"), Bytes(50000, 0xEE));
  UnpackTo("out.shp", Entry("packed"));
  EXPECT_TRUE(SameBytes(content, Loose("out.shp")));
}

TEST_F(Unpacking, NothingButTheDestinationChanges) {
  FolderImage expected = stage.Image();
  UnpackTo("out.shp", Entry("packed"));
  expected["game/ships/out.shp"] = content;
  EXPECT_TRUE(SameImage(expected, stage.Image()));
}

TEST_F(Unpacking, WithoutAFolderOrAnArchiveNothingIsWritten) {
  const FolderImage before = stage.Image();
  EXPECT_TRUE(KindThrown([&] { UnpackTo("nowhere\\out.shp", Entry("packed")); }));
  EXPECT_TRUE(SameImage(before, stage.Image()));
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  std::filesystem::remove(stage.Game("resource.hog"));
  EXPECT_TRUE(KindThrown([&] { UnpackTo("out.shp", {"", 0, 10, 0}); }));
  EXPECT_EQ(ReadTextAt(stage.Game("ships/out.shp")), "as it was");
}

TEST_F(Unpacking, AnEntryPastTheArchivesEndIsRefusedAndTheDestinationStays) {
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  const FolderImage before = stage.Image();
  const auto length = static_cast<std::uint32_t>(stage.Archive().size());
  const std::vector<std::pair<std::uint32_t, std::uint32_t>> sizesAndOffsets = {
      {2, length - 1}, {1, length}, {0xFFFFFFFF, 0}, {0xFFFFFFFF, 0xFFFFFFFF}, {0, 0xFFFFFFFF}, {length, 1}};
  for (const auto& [size, offset] : sizesAndOffsets) {
    EXPECT_EQ(TextThrown([&] {
                UnpackTo("out.shp", {"", offset, size, 0});
              }),
              "could not unpack " + stage.shipsFolder + "out.shp: its place in " + stage.hogPath +
                  " lies past that file's end");
  }
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Unpacking, AnEntryWithoutRoomForASignatureIsRefused) {
  const auto length = static_cast<std::uint32_t>(stage.Archive().size());
  EXPECT_EQ(TextThrown([&] {
              UnpackTo("out.bin", {"", length - 1, 1, 0});
            }),
            "could not read " + stage.hogPath + ": it ends too early");
  EXPECT_FALSE(exists(stage.Game("ships/out.bin")));
}

TEST_F(Unpacking, ADamagedEntryIsRefusedAndTheDestinationStays) {
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  // A reference to before the start; and at the archive's end a header that is cut off by nothing but zeros, which
  // then repeat what is not there.
  stage.Write({{"bad", {0x10, 0xFB, 0, 0, 9, 0x00, 0x00}}, {"cut", {0x10, 0xFB, 0, 0, 9}}});
  const FolderImage before = stage.Image();
  for (const char* name : {"bad", "cut"}) {
    EXPECT_EQ(TextThrown([&] { UnpackTo("out.shp", Entry(name)); }),
              "could not unpack " + stage.shipsFolder + "out.shp: it refers to what lies before its start");
  }
  EXPECT_TRUE(SameImage(before, stage.Image()));
}

TEST_F(Unpacking, AStreamThatRunsOutIsRefusedAndTheDestinationStays) {
  WriteFileAt(stage.Game("ships/out.shp"), "as it was");
  // 3 MB of literals are promised, and neither the entry nor the 50,000 bytes after it have them.
  Bytes endless = {0x10, 0xFB, 0x2F, 0xFF, 0xFF};
  for (int i = 0; i < 2000; ++i) endless.insert(endless.end(), 113, 0xFB);
  stage.Write({{"endless", endless}, {"more", Bytes(100000, 0xFB)}});
  EXPECT_EQ(TextThrown([&] { UnpackTo("out.shp", Entry("endless")); }),
            "could not unpack " + stage.shipsFolder + "out.shp: its compressed data end too early");
  EXPECT_EQ(ReadTextAt(stage.Game("ships/out.shp")), "as it was");
}

TEST_F(Unpacking, AnEntryThatEndsWithTheArchiveIsInside) {
  const TableEntry entry = Entry("last");
  ASSERT_EQ(entry.offset + entry.size, stage.Archive().size());
  UnpackTo("out.bin", entry);
  EXPECT_TRUE(exists(stage.Game("ships/out.bin")));
}

TEST_F(Unpacking, StoppedOrFailingAtAnyOperationTheDestinationIsWholeOldOrNew) {
  for (const FaultKind kind : {FaultKind::stop, FaultKind::failure}) {
    for (const char* name : {"packed", "first"}) {
      const TableEntry entry = Entry(name);
      Bytes fresh = name == std::string("packed") ? content : stage.Archive();
      if (name == std::string("first")) {
        fresh.erase(fresh.begin(), fresh.begin() + entry.offset);
        fresh.resize(entry.size + 50000);
      }
      const int operations = AtEachOperation(kind, [&](Fault& fault) {
        WriteFileAt(stage.Game("ships/out.shp"), "as it was");
        Host host;
        Watch(host.files, fault);
        std::optional<std::uint32_t> signature;
        try {
          signature = UnpackEntry(host.files, stage.hogPath, stage.shipsFolder + "out.shp", entry.size, entry.offset);
        } catch (const FileError&) {
        } catch (const ProcessStopped&) {
        }
        EXPECT_EQ(signature.has_value(), !fault.happened);
        EXPECT_TRUE(SameBytes(fault.happened ? BytesOf("as it was") : fresh, Loose("out.shp"))) << fault.what;
      });
      EXPECT_GE(operations, 4);
    }
  }
}

TEST_F(Unpacking, SeveralEntriesTakeTheirNamesTogether) {
  WriteFileAt(stage.Game("ships/a.shp"), "as it was");
  WholeFiles together;
  const TableEntry packed = Entry("packed");
  AddUnpacked(stage.host.files, together, stage.hogPath, stage.shipsFolder + "a.shp", packed.size, packed.offset);
  AddUnpacked(stage.host.files, together, stage.hogPath, stage.shipsFolder + "b.shp", packed.size, packed.offset);
  EXPECT_EQ(ReadTextAt(stage.Game("ships/a.shp")), "as it was");
  EXPECT_FALSE(exists(stage.Game("ships/b.shp")));
  CommitWhole(stage.host.files, together);
  EXPECT_TRUE(SameBytes(content, Loose("a.shp")));
  EXPECT_TRUE(SameBytes(content, Loose("b.shp")));
}

TEST_F(Unpacking, TwoEntriesForOneDestinationTakeItsNameOnce) {
  WholeFiles together;
  const TableEntry packed = Entry("packed");
  const TableEntry other = Entry("last");
  AddUnpacked(stage.host.files, together, stage.hogPath, stage.shipsFolder + "a.shp", other.size, other.offset);
  AddUnpacked(stage.host.files, together, stage.hogPath, stage.shipsFolder + "A.SHP", packed.size, packed.offset);
  CommitWhole(stage.host.files, together);
  FolderImage ships = ImageOf(stage.Game("ships"));
  ASSERT_EQ(ships.size(), 1U);
  EXPECT_TRUE(SameBytes(content, ships.begin()->second));
}

TEST_F(Unpacking, ACompressedEntryOfFourGigabytesIsReadAsFarAsItCanCount) {
  // With the bytes that follow it the entry is so long that 32 bits would hold no more than 4.
  const std::uint32_t size = 0xFFFFFFFFU - 50000 + 5;
  const TableEntry packed = Entry("packed");
  stage.LengthenTo(std::uint64_t{packed.offset} + size);
  EXPECT_EQ(UnpackTo("out.shp", {"packed", packed.offset, size, packed.position}), 4347U);
  EXPECT_TRUE(SameBytes(content, Loose("out.shp")));
  EXPECT_TRUE(SameAsUnpacked(stage.host.files, stage.hogPath, stage.shipsFolder + "out.shp", size, packed.offset));
}

TEST_F(Unpacking, TheSizeThatWillBeWrittenIsKnownBefore) {
  File hog(stage.host.files, stage.hogPath, OpenFor::reading);
  const auto size = [&](const TableEntry& entry) { return UnpackedSize(hog, entry.size, entry.offset); };
  EXPECT_EQ(size(Entry("packed")), content.size());
  EXPECT_EQ(size(Entry("first")), first.size() + 50000);
  EXPECT_EQ(size({"", 0xFFFFFFFF, 10, 0}), 50010U);
}

struct SameAsTheEntry : Unpacking {
  bool Same(const std::string& entryName, const Bytes& loose) {
    WriteFileAt(stage.Game("ships/loose.shp"), loose);
    const TableEntry entry = Entry(entryName);
    return SameAsUnpacked(stage.host.files, stage.hogPath, stage.shipsFolder + "loose.shp", entry.size, entry.offset);
  }
};

TEST_F(SameAsTheEntry, AFileWithTheUnpackedContent) { EXPECT_TRUE(Same("packed", content)); }

TEST_F(SameAsTheEntry, NotWithAnotherByteOrAnotherLength) {
  for (const std::size_t at : {std::size_t{0}, content.size() / 2, content.size() - 1}) {
    Bytes other = content;
    other[at] ^= 1;
    EXPECT_FALSE(Same("packed", other)) << at;
  }
  EXPECT_FALSE(Same("packed", Bytes(content.begin(), content.end() - 1)));
  Bytes longer = content;
  longer.push_back(0);
  EXPECT_FALSE(Same("packed", longer));
  EXPECT_FALSE(Same("packed", {}));
}

TEST_F(SameAsTheEntry, AStoredOneWithTheBytesBehindIt) {
  Bytes stored = last;
  EXPECT_FALSE(Same("last", stored));
  stored.resize(last.size() + 50000);
  EXPECT_TRUE(Same("last", stored));
  stored.back() = 1;
  EXPECT_FALSE(Same("last", stored));
}

TEST_F(SameAsTheEntry, NotWhenTheEntryLiesPastTheArchivesEnd) {
  WriteFileAt(stage.Game("ships/loose.shp"), Bytes(50010));
  const auto length = static_cast<std::uint32_t>(stage.Archive().size());
  EXPECT_FALSE(SameAsUnpacked(stage.host.files, stage.hogPath, stage.shipsFolder + "loose.shp", 10, length - 9));
  EXPECT_FALSE(SameAsUnpacked(stage.host.files, stage.hogPath, stage.shipsFolder + "missing.shp", 10, 100));
}

}  // namespace
}  // namespace oravin::test
