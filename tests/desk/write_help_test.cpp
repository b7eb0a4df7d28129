// The words that a person gets where something cannot be written, and the copies that Windows keeps elsewhere.

#include "desk/write_help.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::MakeFolderAt;
using test::TemporaryFolder;
using test::WriteFileAt;

constexpr const char* gameFolder = "C:\\Program Files\\StarLancer\\";
constexpr const char* noPermission = "you have no permission";
const std::string helpWithoutRights =
    "Your user may not change what is there. Start Oravin as the user who may (under Windows: click it with the right "
    "mouse button and choose \"Run as administrator\"), or give your user the right to write there, and try again. "
    "Nothing has been changed.";

/// A store that holds a copy of one of the game's files.
struct Store {
  Store() {
    MakeFolderAt(folder.Native("VirtualStore/Program Files/StarLancer"));
    WriteFileAt(folder.Native("VirtualStore/Program Files/StarLancer/shipstats.bin"), "x");
  }
  TemporaryFolder folder;
  std::string path = folder.Windows("VirtualStore") + "\\";
  std::string copies = path + "Program Files\\StarLancer\\";
};

TEST(WriteHelp, TellsWhatHelpsWithoutRights) {
  Files files;
  EXPECT_EQ(RefusalToWrite(files, gameFolder, noPermission, ""),
            std::string(gameFolder) + " cannot be written: you have no permission.\n" + helpWithoutRights);
}

TEST(WriteHelp, NamesTheCopiesOfAFoldersFiles) {
  Files files;
  const Store store;
  EXPECT_EQ(RefusalToWrite(files, gameFolder, noPermission, store.path),
            std::string(gameFolder) + " cannot be written: you have no permission.\n" + helpWithoutRights +
                "\n\nWindows keeps copies of files of that folder in\n" + store.copies +
                "\nand shows them to the game in place of the real ones. As long as they are there, the game does not "
                "see what is changed in its own folder: move those that you need into it, and delete the others.");
}

TEST(WriteHelp, NamesTheCopiesBesideAFileThatHasNone) {
  Files files;
  const Store store;
  const std::string text =
      RefusalToWrite(files, std::string(gameFolder) + "resource.hog", "it is read-only", store.path);
  EXPECT_NE(text.find("\nWindows keeps copies of files of that folder in\n" + store.copies + "\n"), std::string::npos)
      << text;
}

TEST(VirtualCopies, AreNoneWhereTheSystemKeepsNone) {
  Files files;
  EXPECT_EQ(VirtualCopies(files, "", gameFolder), "");
}

TEST(VirtualCopies, AreNoneOfAnotherFolder) {
  Files files;
  const Store store;
  EXPECT_EQ(VirtualCopies(files, store.path, "C:\\Games\\StarLancer\\"), "");
}

TEST(VirtualCopies, LieUnderThePathWithoutItsDrive) {
  Files files;
  const Store store;
  EXPECT_EQ(VirtualCopies(files, store.path, "D:\\Program Files\\StarLancer\\"), store.copies);
}

TEST(VirtualCopies, AnEmptyFolderHoldsNone) {
  Files files;
  const Store store;
  MakeFolderAt(store.folder.Native("VirtualStore/Games"));
  EXPECT_EQ(VirtualCopies(files, store.path, "C:\\Games\\"), "");
}

TEST(VirtualCopies, ADriveItselfHasNone) {
  Files files;
  const Store store;
  EXPECT_EQ(VirtualCopies(files, store.path, "C:\\"), "") << "the store's own folder is no copy of the drive's";
}

TEST(VirtualCopies, ARelativePathHasNone) {
  Files files;
  const Store store;
  EXPECT_EQ(VirtualCopies(files, store.path, "Program Files\\StarLancer\\"), "");
  EXPECT_EQ(VirtualCopies(files, store.path, ""), "");
}

}  // namespace
}  // namespace oravin
