#include "models/attachments.h"

#include <gtest/gtest.h>

#include "support/file_marks.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

struct ClassByte : testing::Test {
  test::TemporaryFolder folder;
  test::ScriptedHost at;

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
    EXPECT_EQ(IsCapitalShip(at.host, Make(static_cast<std::uint8_t>(value))), capital) << value;
  }
}

TEST_F(ClassByte, TwoMarksACloakingDevice) {
  for (int value = 0; value < 256; ++value) {
    EXPECT_EQ(IsCloaked(at.host, Make(static_cast<std::uint8_t>(value))), value == 2) << value;
  }
}

TEST_F(ClassByte, TogglingTheCloakOfAFighterSetsAndClearsIt) {
  const std::string path = Make(0);
  ToggleCloak(at.host, path);
  EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(2));
  ToggleCloak(at.host, path);
  EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(0));
}

TEST_F(ClassByte, TogglingTheCloakOfACapitalShipWritesTwo) {
  for (const std::uint8_t value : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{5}}) {
    ToggleCloak(at.host, Make(value));
    EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(2));
  }
}

TEST_F(ClassByte, AMissingModelGivesItsBox) {
  at.desk.ExpectBox("Error - file not found", "IsCapitalShip", Icon::exclamation);
  EXPECT_FALSE(IsCapitalShip(at.host, folder.Windows("missing.shp")));
  at.desk.ExpectBox("Error - file not found", "IsCloaked", Icon::exclamation);
  EXPECT_FALSE(IsCloaked(at.host, folder.Windows("missing.shp")));
}

TEST_F(ClassByte, TogglingAMissingModelReportsUnderTheQuerysTitle) {
  at.desk.ExpectBox("Error - file not found", "IsCloaked", Icon::exclamation);
  ToggleCloak(at.host, folder.Windows("missing.shp"));
  EXPECT_FALSE(std::filesystem::exists(folder.Native("missing.shp")));
}

TEST_F(ClassByte, AModelThatEndsBeforeItIsNeitherWithoutABox) {
  test::WriteFileAt(folder.Native("short.shp"), Bytes(26, 1));
  EXPECT_FALSE(IsCapitalShip(at.host, folder.Windows("short.shp")));
  EXPECT_FALSE(IsCloaked(at.host, folder.Windows("short.shp")));
}

TEST_F(ClassByte, AModelThatEndsWithItIsReadAndToggled) {
  test::WriteFileAt(folder.Native("short.shp"), Bytes(27, 1));
  EXPECT_TRUE(IsCapitalShip(at.host, folder.Windows("short.shp")));
  ToggleCloak(at.host, folder.Windows("short.shp"));
  EXPECT_TRUE(IsCloaked(at.host, folder.Windows("short.shp")));
  EXPECT_EQ(test::ReadFileAt(folder.Native("short.shp")).size(), 27U);
}

TEST_F(ClassByte, TogglingAModelThatEndsBeforeItChangesNothing) {
  test::WriteFileAt(folder.Native("short.shp"), Bytes(26, 1));
  const std::string path = folder.Windows("short.shp");
  at.desk.ExpectBox("Error - could not read " + path + ": it ends too early", "ToggleCloak", Icon::exclamation);
  ToggleCloak(at.host, path);
  EXPECT_EQ(test::ReadFileAt(folder.Native("short.shp")), Bytes(26, 1));
}

TEST_F(ClassByte, AReadOnlyModelCannotBeToggled) {
  const std::string path = Make(0);
  test::SetReadOnly(folder.Native("Model.shp"), true);
  at.desk.ExpectBox("Error - could not open " + path + ": it is read-only", "ToggleCloak", Icon::exclamation);
  ToggleCloak(at.host, path);
  EXPECT_EQ(test::ReadFileAt(folder.Native("Model.shp")), Model(0));
}

TEST_F(ClassByte, BlanksAroundThePathDoNotMatter) { EXPECT_TRUE(IsCapitalShip(at.host, "  " + Make(1) + " ")); }

}  // namespace
}  // namespace oravin
