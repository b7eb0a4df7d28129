#include "catalogue/ship_record.h"

#include <gtest/gtest.h>

#include <random>

#include "support/folder_image.h"

namespace oravin {
namespace {

/// A text in its field of 30 characters.
std::string Padded(const std::string& text) { return text + std::string(30 - text.size(), ' '); }

ShipRecord Tiger() {
  ShipRecord ship;
  ship.ShipName.Set("Tiger");
  ship.ShipFile.Set("tiger.shp");
  ship.ShipKind = Int16Value(1);
  ship.HogOffset = Int32Value(0x00012345);
  ship.HogSize = Int32Value(0x80000001);
  ship.HogFatPos = Int32Value(967);
  ship.StatsIndex = Int16Value(17);
  ship.Textures[0].Set("tiger1");
  ship.Textures[20].Set("last");
  ship.HasSecondPart = true;
  ship.SecondPartIndex = Int16Value(4);
  ship.Changed = true;
  ship.ChangedToIndex = Int16Value(-2);
  ship.Imported = false;
  ship.ChangedToName.Set("Wolf");
  ship.ChangedToFile.Set("wolf.shp");
  return ship;
}

/// The slot of Tiger() as it is drawn on paper.
Bytes TigersSlot() {
  std::string text = Padded("Tiger") + Padded("tiger.shp");
  Bytes slot = BytesOf(text);
  const auto append = [&](const Bytes& bytes) { slot.insert(slot.end(), bytes.begin(), bytes.end()); };
  append({2, 0, 1, 0});                    // ShipKind
  append({3, 0, 0x45, 0x23, 0x01, 0x00});  // HogOffset
  append({3, 0, 0x01, 0x00, 0x00, 0x80});  // HogSize
  append({3, 0, 0xC7, 0x03, 0x00, 0x00});  // HogFatPos
  append({2, 0, 17, 0});                   // StatsIndex
  append(BytesOf(Padded("tiger1")));
  for (int i = 1; i < 20; ++i) append(BytesOf(Padded("")));
  append(BytesOf(Padded("last")));
  append({0xFF, 0xFF});        // HasSecondPart
  append({2, 0, 4, 0});        // SecondPartIndex
  append({0xFF, 0xFF});        // Changed
  append({2, 0, 0xFE, 0xFF});  // ChangedToIndex
  append({0, 0});              // Imported
  append(BytesOf(Padded("Wolf")));
  append(BytesOf(Padded("wolf.shp")));
  EXPECT_EQ(slot.size(), 60U + 3 * 6 + 2 * 4 + 630 + 2 + 4 + 2 + 4 + 2 + 60);
  slot.resize(868);
  return slot;
}

TEST(ShipRecord, IsWrittenFieldByFieldWithoutGaps) {
  const auto slot = SlotOf(Tiger());
  ASSERT_TRUE(slot);
  EXPECT_TRUE(test::SameBytes(TigersSlot(), *slot));
}

TEST(ShipRecord, ReadBackEqualsTheRecordWritten) {
  const auto ship = RecordFrom(TigersSlot());
  ASSERT_TRUE(ship);
  EXPECT_EQ(*ship, Tiger());
}

TEST(ShipRecord, AnEmptyOneComesBackEmpty) {
  const auto slot = SlotOf(ShipRecord());
  ASSERT_TRUE(slot);
  EXPECT_EQ(slot->size(), 868U);
  EXPECT_EQ(RecordFrom(*slot), ShipRecord());
}

TEST(ShipRecord, TextFieldsReadBackArePaddedWithSpaces) {
  const auto ship = RecordFrom(TigersSlot());
  ASSERT_TRUE(ship);
  EXPECT_EQ(std::string(ship->ShipName.characters.data(), 30), Padded("Tiger"));
  EXPECT_EQ(ship->ShipName.Trimmed(), "Tiger");
}

TEST(ShipRecord, TextFieldsPaddedWithZerosAreRead) {
  Bytes slot = TigersSlot();
  std::fill(slot.begin() + 5, slot.begin() + 30, std::uint8_t{0});
  const auto ship = RecordFrom(slot);
  ASSERT_TRUE(ship);
  EXPECT_EQ(ship->ShipName.Trimmed(), "Tiger");
  EXPECT_EQ(SlotOf(*ship), slot);  // and stay as they are
}

TEST(ShipRecord, AnyNumericTagIsAcceptedAndKept) {
  for (const TaggedValue& index :
       {TaggedValue{TaggedValue::empty, 0, {}}, TaggedValue{TaggedValue::null, 0, {}}, Int16Value(17), Int32Value(17),
        TaggedValue{TaggedValue::single, 17, {}}, TaggedValue{TaggedValue::real, 17, {}},
        TaggedValue{TaggedValue::byte, 17, {}}, TaggedValue{TaggedValue::text, 0, "17"}, BooleanValue(true)}) {
    ShipRecord ship = Tiger();
    ship.StatsIndex = index;
    const auto slot = SlotOf(ship);
    ASSERT_TRUE(slot);
    EXPECT_EQ(RecordFrom(*slot), ship) << "tag " << index.tag;
  }
}

TEST(ShipRecord, AFlagIsTrueWhereverAnyBitIsSet) {
  Bytes slot = TigersSlot();
  constexpr std::size_t imported = 60 + 26 + 630 + 12;
  slot[imported] = 1;
  const auto ship = RecordFrom(slot);
  ASSERT_TRUE(ship);
  EXPECT_TRUE(ship->Imported);
}

TEST(ShipRecord, ADamagedTagIsRefused) {
  Bytes slot = TigersSlot();
  slot[60] = 77;
  EXPECT_FALSE(RecordFrom(slot));
}

TEST(ShipRecord, ATextThatReachesPastTheSlotIsRefused) {
  Bytes slot = TigersSlot();
  slot[60] = 8;  // ShipKind as a text of 65,535 characters
  slot[62] = 0xFF;
  slot[63] = 0xFF;
  EXPECT_FALSE(RecordFrom(slot));
}

TEST(ShipRecord, ASlotThatIsCutOffIsRefused) {
  const Bytes slot = TigersSlot();
  const std::size_t fields = 790;
  EXPECT_TRUE(RecordFrom(std::span(slot).first(fields)));
  for (std::size_t length = 0; length < fields; ++length) {
    EXPECT_FALSE(RecordFrom(std::span(slot).first(length))) << length;
  }
}

TEST(ShipRecord, TaggedTextsThatMakeItLongerThanItsSlotAreRefused) {
  ShipRecord ship = Tiger();
  const std::size_t room = 868 - 790;
  ship.ShipKind = {TaggedValue::text, 0, std::string(room, 'x')};  // in place of a number of 4 bytes, with 4 of its own
  const auto slot = SlotOf(ship);
  ASSERT_TRUE(slot);
  EXPECT_EQ(RecordFrom(*slot), ship);
  ship.ShipKind.characters += 'x';
  EXPECT_FALSE(SlotOf(ship));
}

TEST(ShipRecord, RandomRecordsComeBackAsTheyWere) {
  std::mt19937 random(868);
  const auto below = [&](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
  const auto text = [&] {
    std::string characters;
    for (int i = below(31); i > 0; --i) characters += static_cast<char>(below(256));
    return characters;
  };
  const auto value = [&]() -> TaggedValue {
    switch (below(6)) {
      case 0:
        return {};
      case 1:
        return Int16Value(below(65536) - 32768);
      case 2:
        return Int32Value(static_cast<std::uint32_t>(random()));
      case 3:
        return BooleanValue(below(2) == 1);
      case 4:
        return {TaggedValue::real, static_cast<double>(below(100000)) / 7, {}};
      default:
        return {TaggedValue::byte, static_cast<double>(below(256)), {}};
    }
  };
  for (int i = 0; i < 500; ++i) {
    ShipRecord ship;
    for (ShipText* field : {&ship.ShipName, &ship.ShipFile, &ship.ChangedToName, &ship.ChangedToFile}) {
      field->Set(text());
    }
    for (ShipText& texture : ship.Textures) texture.Set(text());
    for (TaggedValue* field : {&ship.ShipKind, &ship.HogOffset, &ship.HogSize, &ship.HogFatPos, &ship.StatsIndex,
                               &ship.SecondPartIndex, &ship.ChangedToIndex}) {
      *field = value();
    }
    ship.HasSecondPart = below(2) == 1;
    ship.Changed = below(2) == 1;
    ship.Imported = below(2) == 1;
    const auto slot = SlotOf(ship);
    ASSERT_TRUE(slot);
    ASSERT_EQ(slot->size(), 868U);
    const auto back = RecordFrom(*slot);
    ASSERT_TRUE(back);
    ASSERT_EQ(*back, ship);
    ASSERT_EQ(SlotOf(*back), slot);
  }
}

TEST(ShipRecord, TheBackupHasTheModelsNameWithAnotherExtension) {
  EXPECT_EQ(ModelOf(Tiger()), "tiger.shp");
  EXPECT_EQ(BackupOf(Tiger()), "tiger.org");
}

TEST(ShipRecord, AnEmptyModelMakesItInert) {
  ShipRecord ship = Tiger();
  EXPECT_FALSE(IsInert(ship));
  EXPECT_TRUE(IsStock(ship));
  ship.ShipFile.Set("");
  EXPECT_TRUE(IsInert(ship));
  EXPECT_FALSE(IsStock(ship));
  EXPECT_TRUE(IsInert(ShipRecord()));
}

TEST(ShipRecord, AModelOutsideOfItsFolderMakesItInert) {
  ShipRecord ship = Tiger();
  for (const char* file : {"..\\tiger.shp", "C:tiger.shp", "ti*.shp", "a/b.shp", "..", "NUL"}) {
    ship.ShipFile.Set(file);
    EXPECT_TRUE(IsInert(ship)) << file;
  }
}

TEST(ShipRecord, AnIndexIsFrom0To32767) {
  EXPECT_EQ(IndexIn(Int16Value(0)), 0);
  EXPECT_EQ(IndexIn(BooleanValue(false)), 0);
  EXPECT_EQ(IndexIn(Int16Value(32767)), 32767);
  EXPECT_EQ(IndexIn(Int32Value(32768)), -1);
  EXPECT_EQ(IndexIn(Int16Value(-2)), -1);
  EXPECT_EQ(IndexIn({TaggedValue::real, 4294967296.0, {}}), -1);
  EXPECT_EQ(IndexIn({TaggedValue::text, 0, "4294967299"}), -1);
}

TEST(ShipRecord, AnImportedShipIsNoStockShip) {
  ShipRecord ship = Tiger();
  ship.Imported = true;
  EXPECT_FALSE(IsStock(ship));
  EXPECT_FALSE(IsInert(ship));
}

TEST(ShipRecord, AShipWithASecondPartSpansTwoRecords) {
  ShipRecord ship;
  EXPECT_EQ(PartsOf(ship), 1);
  ship.HasSecondPart = true;
  EXPECT_EQ(PartsOf(ship), 2);
}

TEST(FindShip, TakesTheFirstOfThatNameWithoutSpacesAndCase) {
  Ships ships(4);
  ships[0].ShipName.Set("Tiger");  // inert: it has no model
  ships[1].ShipName.Set(" tiger ");
  ships[1].ShipFile.Set("a.shp");
  ships[2].ShipName.Set("TIGER");
  ships[2].ShipFile.Set("b.shp");
  EXPECT_EQ(FindShip(ships, "  TiGeR"), 1);
  EXPECT_EQ(FindShip(ships, "Wolf"), -1);
  EXPECT_EQ(FindShip(ships, ""), -1);
  EXPECT_EQ(FindShip({}, "Tiger"), -1);
}

}  // namespace
}  // namespace oravin
