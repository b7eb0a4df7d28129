#include "models/class_byte.h"

#include <gtest/gtest.h>

#include "support/file_marks.h"
#include "support/temporary_folder.h"
#include "support/thrown.h"

namespace oravin {
namespace {

struct ClassByte : testing::Test {
  test::TemporaryFolder folder;
  Files files;

  /// A model of 40 bytes with the class byte at its place.
  static Bytes Model(std::uint8_t value) {
    Bytes bytes(40, 0x11);
    bytes[26] = value;
    return bytes;
  }
  std::string Make(std::uint8_t value) {
    test::WriteFileAt(folder.Native("Model.shp"), Model(value));
    return folder.Windows("model.SHP");
  }
};

TEST_F(ClassByte, OneThreeAndFiveMarkACapitalShip) {
  for (int value = 0; value < 256; ++value) {
    const bool capital = value == 1 || value == 3 || value == 5;
    EXPECT_EQ(IsCapitalShip(files, Make(static_cast<std::uint8_t>(value))), capital) << value;
  }
}

TEST_F(ClassByte, TwoMarksACloakingDevice) {
  for (int value = 0; value < 256; ++value) {
    EXPECT_EQ(IsCloaked(files, Make(static_cast<std::uint8_t>(value))), value == 2) << value;
  }
}

TEST_F(ClassByte, TogglingTheCloakOfAFighterSetsAndClearsIt) {
  const std::string path = Make(0);
  ToggleCloak(files, path);
  EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(2));
  ToggleCloak(files, path);
  EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(0));
}

TEST_F(ClassByte, TogglingTheCloakOfACapitalShipWritesTwo) {
  for (const std::uint8_t value : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{5}}) {
    ToggleCloak(files, Make(value));
    EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(2));
  }
}

TEST_F(ClassByte, OfAMissingModelIsAnError) {
  const std::string missing = folder.Windows("missing.shp");
  EXPECT_EQ(test::KindThrown([&] { IsCapitalShip(files, missing); }), ErrorKind::missing);
  EXPECT_EQ(test::KindThrown([&] { IsCloaked(files, missing); }), ErrorKind::missing);
  EXPECT_EQ(test::KindThrown([&] { ToggleCloak(files, missing); }), ErrorKind::missing);
  EXPECT_FALSE(std::filesystem::exists(folder.Native("missing.shp")));
}

TEST_F(ClassByte, OfAModelThatEndsBeforeItIsNeither) {
  test::WriteFileAt(folder.Native("short.shp"), Bytes(26, 1));
  EXPECT_FALSE(IsCapitalShip(files, folder.Windows("short.shp")));
  EXPECT_FALSE(IsCloaked(files, folder.Windows("short.shp")));
}

TEST_F(ClassByte, AModelThatEndsWithItIsReadAndToggled) {
  test::WriteFileAt(folder.Native("short.shp"), Bytes(27, 1));
  EXPECT_TRUE(IsCapitalShip(files, folder.Windows("short.shp")));
  ToggleCloak(files, folder.Windows("short.shp"));
  EXPECT_TRUE(IsCloaked(files, folder.Windows("short.shp")));
  EXPECT_EQ(test::ReadFileAt(folder.Native("short.shp")).size(), 27U);
}

TEST_F(ClassByte, TogglingAModelThatEndsBeforeItChangesNothing) {
  test::WriteFileAt(folder.Native("short.shp"), Bytes(26, 1));
  const std::string path = folder.Windows("short.shp");
  EXPECT_EQ(test::TextThrown([&] { ToggleCloak(files, path); }), "could not read " + path + ": it ends too early");
  EXPECT_EQ(test::ReadFileAt(folder.Native("short.shp")), Bytes(26, 1));
}

TEST_F(ClassByte, AReadOnlyModelCannotBeToggled) {
  const std::string path = Make(0);
  test::SetReadOnly(folder.Native("Model.shp"), true);
  EXPECT_EQ(test::TextThrown([&] { ToggleCloak(files, path); }), "could not open " + path + ": it is read-only");
  EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(0));
}

TEST_F(ClassByte, SpacesAroundThePathDoNotMatter) { EXPECT_TRUE(IsCapitalShip(files, "  " + Make(1) + " ")); }

}  // namespace
}  // namespace oravin
