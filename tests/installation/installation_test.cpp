// The two folders and the places in them.

#include "installation/installation.h"

#include "base/file_error.h"
#include "support/file_marks.h"
#include "support/temporary_folder.h"

namespace oravin::test {
namespace {

TEST(Places, AFolderIsSetTrimmedWithABackslashAtItsEnd) {
  const Installation places = PlacesIn("  C:\\Game ", "C:\\Program\\");
  EXPECT_EQ(places.GamePath, "C:\\Game\\");
  EXPECT_EQ(places.ProgramPath, "C:\\Program\\");
  EXPECT_TRUE(places.ships.empty());
  EXPECT_EQ(places.archivePath(), "C:\\Game\\resource.hog");
  EXPECT_EQ(places.shipListPath(), "C:\\Program\\shipsData.txt");
}

TEST(Places, NoFolderStaysEmpty) {
  EXPECT_EQ(PlacesIn(" ", "").GamePath, "");
  EXPECT_EQ(PlacesIn(" ", "").ProgramPath, "");
}

TEST(Places, AddOnsLieInTheirFolders) {
  const Installation places = PlacesIn({}, "P:\\");
  EXPECT_EQ(places.addOnFolders(),
            (std::array<std::string, 3>{"P:\\addons\\ships\\", "P:\\addons\\textures\\", "P:\\addons\\stats\\"}));
  EXPECT_EQ(places.removedAddOnPath("Manta", "manta.shp"), "P:\\addons\\removed\\Manta\\manta.shp");
}

TEST(Features, AreEnabledWhileTheCatalogueIsNotEmpty) {
  const TemporaryFolder folder;
  Files files;
  const Installation places = PlacesIn({}, folder.windows);
  EXPECT_FALSE(FeaturesEnabled(files, places));
  WriteFileAt(folder.Native("ships.dat"), "");
  EXPECT_FALSE(FeaturesEnabled(files, places));
  WriteFileAt(folder.Native("ships.dat"), "x");
  EXPECT_TRUE(FeaturesEnabled(files, places));
  files.before = [](const FileOperation& operation) {
    throw FileError("could not look for", operation.path, "the disk does not answer");
  };
  EXPECT_THROW(FeaturesEnabled(files, places), FileError);
}

}  // namespace
}  // namespace oravin::test
