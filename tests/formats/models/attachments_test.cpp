#include <gtest/gtest.h>

#include <random>

#include "base/file_error.h"
#include "models/attachments.h"
#include "support/fault.h"
#include "support/file_marks.h"
#include "support/folder_image.h"
#include "support/model_file.h"
#include "support/temporary_folder.h"
#include "support/thrown.h"

namespace oravin {
namespace {

using test::AddAttachments;
using test::AddChunkHeader;
using test::AddOther;
using test::Gun;
using test::Missile;
using test::ModelHead;
using test::PutElement;
using test::SameBytes;

struct Attachments : testing::Test {
  test::TemporaryFolder folder;
  Files files;
  std::string path = folder.Windows("model.shp");

  void Write(const Bytes& model) const { test::WriteFileAt(folder.Native("model.shp"), model); }
  [[nodiscard]] Bytes Model() const { return test::ReadFileAt(folder.Native("model.shp")); }
  ShpAttachments Read() { return ReadAttachments(files, path); }
};

/// Attachments that are easily told apart.
ShpAttachments Several(std::size_t count) {
  ShpAttachments attachments;
  for (std::size_t i = 0; i < count; ++i) {
    const auto n = static_cast<std::int32_t>(i);
    attachments.push_back({0, static_cast<std::uint16_t>(i % 5), 1000 + n, -2000 - n, 30000 * n,
                           static_cast<std::uint16_t>(300 + i), static_cast<std::uint16_t>(60000 + i % 5000)});
  }
  return attachments;
}

TEST_F(Attachments, AModelWithoutATableYieldsNone) {
  Bytes model = ModelHead();
  AddOther(model, 2, 20);
  Write(model);
  EXPECT_TRUE(Read().empty());
}

TEST_F(Attachments, AnEmptyModelYieldsNone) {
  Write({});
  EXPECT_TRUE(Read().empty());
}

TEST_F(Attachments, AreReadFieldByField) {
  ShpAttachments expected = {{0, 3, -5, 2147483647, -2147483647 - 1, 65535, 257}, Missile(1, -1, 0)};
  Bytes model = ModelHead();
  AddAttachments(model, expected);
  AddOther(model, 4, 28);
  Write(model);
  EXPECT_EQ(Read(), expected);
}

TEST_F(Attachments, OfTwoTablesComeInTheOrderOfTheFileWithTheirPositions) {
  ShpAttachments first = Several(3);
  ShpAttachments second = {Gun(7, 8, 9), Missile(1, 2, 3)};
  Bytes model = ModelHead();
  AddAttachments(model, first);
  AddOther(model, 6, 36, 0);
  AddAttachments(model, second, 120);
  Write(model);
  ShpAttachments expected = first;
  expected.insert(expected.end(), second.begin(), second.end());
  EXPECT_EQ(Read(), expected);
  ModelReader inMemory("model.shp", model);
  EXPECT_EQ(AttachmentsOf(inMemory), expected);
}

TEST_F(Attachments, AHundredAndTwentyAreAllRead) {
  ShpAttachments expected = Several(120);
  Bytes model = ModelHead();
  AddAttachments(model, expected);
  Write(model);
  EXPECT_EQ(Read(), expected);
}

TEST_F(Attachments, TheHundredAndTwentyFirstIsCountedAndAllZeros) {
  ShpAttachments all = Several(121);
  Bytes model = ModelHead();
  AddAttachments(model, all);
  Write(model);
  const ShpAttachments read = Read();
  ASSERT_EQ(read.size(), 121U);
  all.back() = ShpAttachment();
  EXPECT_EQ(read, all);
}

TEST_F(Attachments, SixtyFiveThousandAreCounted) {
  ShpAttachments all = Several(65535);
  Bytes model = ModelHead();
  AddAttachments(model, all, 102);
  Write(model);
  const ShpAttachments read = Read();
  ASSERT_EQ(read.size(), 65535U);
  EXPECT_EQ(read[119], all[119]);
  EXPECT_EQ(read[120], ShpAttachment());
  EXPECT_EQ(read.back(), ShpAttachment());
}

TEST_F(Attachments, OfManyTablesAreCountedAsFarAsSixteenBitsGo) {
  Bytes model = ModelHead();
  for (int i = 0; i < 3; ++i) AddChunkHeader(model, 9, 0, 65535);
  Write(model);
  EXPECT_EQ(Read().size(), 65535U);
}

TEST_F(Attachments, OfNoSizeAreAllAtOnePlace) {
  ShpAttachments one = {Gun(5, 6, 7, 2)};
  Bytes model = ModelHead();
  AddChunkHeader(model, 9, 0, 4);
  const auto place = static_cast<std::int32_t>(model.size());
  AddOther(model, 2, 200, 0);  // the next chunk's header and bytes are what is read
  Write(model);
  const ShpAttachments read = Read();
  ASSERT_EQ(read.size(), 4U);
  for (const ShpAttachment& attachment : read) EXPECT_EQ(attachment.filePosition, place);
  EXPECT_EQ(read[0], read[3]);
}

TEST_F(Attachments, OfATableThatPointsPastTheEndAreCountedWithZerosForWhatIsNotThere) {
  ShpAttachments two = {Gun(11, 12, 13, 5), Gun(21, 22, 23, 6)};
  Bytes model = ModelHead();
  const std::size_t table = model.size();
  AddAttachments(model, two);
  model[table + 4] = 4;             // two more than there are
  model.resize(model.size() - 60);  // and the last one is cut short after its coordinates
  Write(model);
  const ShpAttachments read = Read();
  ASSERT_EQ(read.size(), 4U);
  EXPECT_EQ(read[0], two[0]);
  two[1].gunType = 0;
  two[1].externalGunType = 0;
  EXPECT_EQ(read[1], two[1]);
  EXPECT_EQ(read[2].filePosition, two[1].filePosition + 108);
  EXPECT_EQ(read[3].filePosition, two[1].filePosition + 216);
  EXPECT_EQ(read[3].kind, 0);
}

TEST_F(Attachments, AChunkHeaderThatPointsPastTheEndEndsTheWalk) {
  ShpAttachments two = {Gun(11, 12, 13, 5), Gun(21, 22, 23, 6)};
  Bytes model = ModelHead();
  AddChunkHeader(model, 2, 65535, 65535);
  AddAttachments(model, two);
  Write(model);
  EXPECT_TRUE(Read().empty());
}

TEST_F(Attachments, AHeaderThatIsCutShortIsNoChunk) {
  ShpAttachments two = {Gun(11, 12, 13, 5), Gun(21, 22, 23, 6)};
  Bytes model = ModelHead();
  AddAttachments(model, two);
  for (const std::uint8_t byte : Bytes{9, 0, 108, 0, 5}) {
    model.push_back(byte);
    Write(model);
    EXPECT_EQ(Read(), two);
  }
}

TEST_F(Attachments, OfAMissingModelAreAnError) {
  EXPECT_EQ(test::KindThrown([&] { Read(); }), ErrorKind::missing);
  EXPECT_EQ(test::KindThrown([&] { PutAttachments(files, path, Several(2)); }), ErrorKind::missing);
  EXPECT_EQ(test::KindThrown([&] { CanPutAttachments(files, path, Several(2)); }), ErrorKind::missing);
  EXPECT_FALSE(std::filesystem::exists(folder.Native("model.shp")));
}

TEST_F(Attachments, AFailingDiskIsAnErrorInsteadOfZeros) {
  ShpAttachments all = Several(9);
  Bytes model = ModelHead();
  AddAttachments(model, all);
  Write(model);
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Files failing;
    test::Watch(failing, fault);
    ShpAttachments read;
    const auto error = test::Thrown([&] { read = ReadAttachments(failing, path); });
    EXPECT_EQ(error.has_value(), fault.happened);
    EXPECT_EQ(read, fault.happened ? ShpAttachments() : all);
  });
}

TEST_F(Attachments, WrittenBackUnchangedLeaveTheFileAsItWas) {
  ShpAttachments all = Several(121);
  Bytes model = ModelHead();
  AddAttachments(model, all);
  AddOther(model, 2, 400);
  Write(model);
  PutAttachments(files, path, Read());
  EXPECT_TRUE(SameBytes(model, Model()));
}

TEST_F(Attachments, WritingChangesTheSixFieldsAndNothingElse) {
  ShpAttachments all = Several(7);
  Bytes model = ModelHead();
  AddAttachments(model, all);
  AddOther(model, 2, 400);
  Write(model);
  ShpAttachments changed = all;
  changed[2] = {all[2].filePosition, 3, -1, -2, -3, 11, 7};
  changed[6] = {all[6].filePosition, 1, 10, 20, 30, 0, 65535};
  PutAttachments(files, path, changed);
  for (const std::size_t i : {2U, 6U}) PutElement(model, static_cast<std::size_t>(changed[i].filePosition), changed[i]);
  EXPECT_TRUE(SameBytes(model, Model()));
}

TEST_F(Attachments, ARecordWithoutAFilePositionIsPassedOver) {
  ShpAttachments all = Several(2);
  Bytes model = ModelHead();
  AddAttachments(model, all);
  Write(model);
  PutAttachments(files, path, ShpAttachments{{0, 3, 1, 2, 3, 4, 5}});
  EXPECT_TRUE(SameBytes(model, Model()));
}

TEST_F(Attachments, ARecordThatIsNoElementOfATableIsPassedOver) {
  ShpAttachments all = Several(2);
  Bytes model = ModelHead();
  AddOther(model, 2, 600);
  AddAttachments(model, all);
  AddOther(model, 2, 600);
  Write(model);
  ShpAttachments elsewhere;
  for (std::int32_t position = -3; position < static_cast<std::int32_t>(model.size()) + 300; ++position) {
    if (position == all[0].filePosition || position == all[1].filePosition) continue;
    elsewhere.push_back({position, 3, 1, 2, 3, 4, 5});
  }
  elsewhere.push_back({2147483647, 3, 1, 2, 3, 4, 5});
  PutAttachments(files, path, elsewhere);
  EXPECT_TRUE(SameBytes(model, Model()));
}

TEST_F(Attachments, FieldsThatAnElementHasNoRoomForAreNotWritten) {
  for (std::uint32_t size = 0; size < 104; ++size) {
    SCOPED_TRACE(size);
    Bytes model = ModelHead();
    AddChunkHeader(model, 9, size, 3);
    const std::size_t elements = model.size();
    model.insert(model.end(), std::size_t{3} * size, 0x5A);
    AddOther(model, 2, 300);
    Write(model);
    ShpAttachments changed(3);
    Bytes expected = model;
    for (std::size_t i = 0; i < 3; ++i) {
      changed[i] = {
          static_cast<std::int32_t>(elements + i * size), 3, 0x01020304, 0x05060708, 0x090A0B0C, 0x0D0E, 0x0F};
      Bytes element(size, 0x5A);
      const std::vector<std::pair<std::size_t, std::size_t>> fields = {{0, 2},  {4, 4},  {8, 4},
                                                                       {12, 4}, {52, 2}, {100, 2}};
      Bytes whole(102, 0x5A);
      PutElement(whole, 0, changed[i]);
      for (const auto& [offset, width] : fields) {
        if (offset + width > size) continue;
        std::copy_n(whole.begin() + static_cast<std::ptrdiff_t>(offset), width,
                    element.begin() + static_cast<std::ptrdiff_t>(offset));
      }
      std::copy(element.begin(), element.end(), expected.begin() + static_cast<std::ptrdiff_t>(elements + i * size));
    }
    PutAttachments(files, path, changed);
    EXPECT_TRUE(SameBytes(expected, Model()));
    EXPECT_EQ(CanPutAttachments(files, path, changed), size >= 102);
  }
}

TEST_F(Attachments, TheFileNeverGrows) {
  ShpAttachments two = Several(2);
  Bytes model = ModelHead();
  AddAttachments(model, two);
  model.resize(model.size() - 10);  // the last gun type is gone in part
  Write(model);
  ShpAttachments changed = two;
  for (ShpAttachment& attachment : changed) attachment.gunType = 0x1234;
  changed[1].x = 9;
  PutAttachments(files, path, changed);
  Bytes expected = model;
  PutElement(expected, static_cast<std::size_t>(two[0].filePosition), changed[0]);
  changed[1].gunType = two[1].gunType;
  Bytes whole = expected;
  PutElement(whole, static_cast<std::size_t>(two[1].filePosition), changed[1]);
  // The gun type has no room of two bytes any more, so its first byte stays as it was.
  EXPECT_TRUE(SameBytes(whole, Model()));
  EXPECT_EQ(Model().size(), model.size());
}

TEST_F(Attachments, AReadOnlyModelStaysAsItIs) {
  ShpAttachments all = Several(2);
  Bytes model = ModelHead();
  AddAttachments(model, all);
  Write(model);
  test::SetReadOnly(folder.Native("model.shp"), true);
  all[0].kind = 3;
  EXPECT_EQ(test::TextThrown([&] { PutAttachments(files, path, all); }),
            "could not open " + path + ": it is read-only");
  EXPECT_TRUE(SameBytes(model, Model()));
}

TEST_F(Attachments, AFailureBetweenTwoElementsLeavesEachOldOrNewAndASecondTryMendsIt) {
  ShpAttachments all = Several(4);
  Bytes model = ModelHead();
  AddAttachments(model, all);
  ShpAttachments changed = all;
  for (ShpAttachment& attachment : changed) attachment.gunType = 15;
  Bytes done = model;
  for (const ShpAttachment& one : changed) PutElement(done, static_cast<std::size_t>(one.filePosition), one);
  for (const auto kind : {test::FaultKind::failure, test::FaultKind::stop}) {
    const int operations = test::AtEachOperation(kind, [&](test::Fault& fault) {
      Write(model);
      {
        Files failing;
        test::Watch(failing, fault);
        std::optional<FileError> error;
        const bool stopped =
            test::Stopped([&] { error = test::Thrown([&] { PutAttachments(failing, path, changed); }); });
        EXPECT_EQ(stopped, fault.happened && kind == test::FaultKind::stop);
        EXPECT_EQ(error.has_value(), fault.happened && !stopped);
      }
      const ShpAttachments now = ReadAttachments(files, path);
      for (std::size_t i = 0; i < 4; ++i) EXPECT_TRUE(now[i] == all[i] || now[i] == changed[i]);
      PutAttachments(files, path, changed);
      EXPECT_TRUE(SameBytes(done, Model()));
    });
    EXPECT_GE(operations, 7);  // two opens, a read, four writes
  }
}

/// The table of an intact or broken model read in the plainest way: a byte at a time, with 64-bit positions.
ShpAttachments PlainTable(const Bytes& model) {
  const auto number = [&](std::uint64_t at, int width) {
    std::uint32_t value = 0;
    for (int i = 0; i < width; ++i) {
      const std::uint64_t place = at + static_cast<std::uint64_t>(i);
      if (at + static_cast<std::uint64_t>(width) <= model.size()) {
        value |= std::uint32_t{model[static_cast<std::size_t>(place)]} << (8 * i);
      }
    }
    return value;
  };
  ShpAttachments table;
  std::uint64_t at = 0;
  while (at + 6 <= model.size()) {
    const std::uint32_t type = number(at, 2);
    const std::uint64_t size = number(at + 2, 2);
    const std::uint64_t count = number(at + 4, 2);
    at += 6;
    for (std::uint64_t i = 0; type == 9 && i < count && table.size() < 65535; ++i) {
      const std::uint64_t element = at + i * size;
      if (table.size() >= 120) {
        table.emplace_back();
        continue;
      }
      table.push_back(
          {static_cast<std::int32_t>(element), static_cast<std::uint16_t>(number(element, 2)),
           static_cast<std::int32_t>(number(element + 4, 4)), static_cast<std::int32_t>(number(element + 8, 4)),
           static_cast<std::int32_t>(number(element + 12, 4)), static_cast<std::uint16_t>(number(element + 100, 2)),
           static_cast<std::uint16_t>(number(element + 52, 2))});
    }
    at += size * count;
  }
  return table;
}

/// Chunks of few types and mostly small sizes, some of them nonsense, cut off anywhere.
Bytes HostileModel(std::mt19937& random) {
  const auto below = [&](std::uint32_t n) { return static_cast<std::uint32_t>(random() % n); };
  Bytes model;
  for (std::uint32_t chunks = below(12); chunks > 0; --chunks) {
    static constexpr std::array<std::uint32_t, 6> types = {9, 9, 6, 2, 0, 65535};
    const std::uint32_t type = types.at(below(6));
    const std::uint32_t size = below(8) == 0 ? below(65536) : below(130);
    const std::uint32_t count = below(8) == 0 ? below(65536) : below(6);
    AddChunkHeader(model, type, size, count);
    const std::uint64_t bytes = below(5) == 0 ? below(300) : std::uint64_t{size} * count;
    for (std::uint64_t i = 0; i < std::min<std::uint64_t>(bytes, 2000); ++i) {
      model.push_back(static_cast<std::uint8_t>(below(3) == 0 ? random() : below(10)));
    }
  }
  if (!model.empty())
    model.resize(model.size() - below(static_cast<std::uint32_t>(std::min<std::size_t>(model.size(), 40))));
  return model;
}

TEST_F(Attachments, OfHostileModelsAreReadAsThePlainestReaderDoesAndWrittenInsideTheirElements) {
  std::mt19937 random(905);
  for (int run = 0; run < 2500; ++run) {
    SCOPED_TRACE(run);
    const Bytes model = HostileModel(random);
    Write(model);
    ShpAttachments read = ReadAttachments(files, path);
    ASSERT_EQ(read, PlainTable(model));
    if (read.empty()) continue;
    PutAttachments(files, path, read);
    EXPECT_TRUE(SameBytes(model, Model()));
    for (ShpAttachment& attachment : read) attachment.gunType ^= 0xFFFFU;
    PutAttachments(files, path, read);
    const Bytes written = Model();
    ASSERT_EQ(written.size(), model.size());
    std::vector<bool> gunTypes(model.size());
    for (const ShpAttachment& attachment : read) {
      for (const std::size_t i : {100U, 101U}) {
        const std::size_t place = static_cast<std::size_t>(attachment.filePosition) + i;
        if (attachment.filePosition > 0 && place < gunTypes.size()) gunTypes[place] = true;
      }
    }
    for (std::size_t i = 0; i < model.size(); ++i) {
      ASSERT_TRUE(gunTypes[i] || written[i] == model[i]) << "byte " << i;
    }
    ASSERT_EQ(ReadAttachments(files, path).size(), read.size());
  }
}

}  // namespace
}  // namespace oravin
