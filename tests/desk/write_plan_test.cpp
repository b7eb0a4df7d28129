#include "desk/write_plan.h"

#include <gtest/gtest.h>

#include "base/file_error.h"
#include "base/text.h"
#include "support/file_marks.h"
#include "support/held_file.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin {
namespace {

using test::ScriptedHost;
using test::TemporaryFolder;
using test::WriteFileAt;

TEST(WritePlan, IsReadyWhereEverythingCanBeWritten) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a"), "x");
  ScriptedHost at;
  WritePlan plan;
  plan.files = {folder.Windows("a"), folder.Windows("missing")};
  plan.folders = {folder.windows};
  NeedRoom(plan, folder.windows, 1000);
  const test::FolderImage before = test::ImageOf(folder.native);
  EXPECT_TRUE(ReadyToWrite(at.host, plan));
  EXPECT_TRUE(test::SameImage(before, test::ImageOf(folder.native)));
}

TEST(WritePlan, AnEmptyOneIsReady) {
  ScriptedHost at;
  EXPECT_TRUE(ReadyToWrite(at.host, {}));
}

TEST(WritePlan, NamesAReadOnlyFile) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a"), "x");
  WriteFileAt(folder.Native("b"), "x");
  test::SetReadOnly(folder.Native("b"), true);
  ScriptedHost at;
  at.desk.ExpectBox(folder.Windows("b") +
                        " cannot be written: it is read-only.\n"
                        "Take the read-only mark away and try again. Nothing has been changed.",
                    "Oravin", Icon::exclamation);
  WritePlan plan;
  plan.files = {folder.Windows("a"), folder.Windows("b")};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
}

TEST(WritePlan, NamesAFileThatAnotherProgramHasOpen) {
  const TemporaryFolder folder;
  WriteFileAt(folder.Native("a"), "x");
  if (!test::KnowsHeldFiles(folder.native)) {
    GTEST_SKIP() << "the file system of the temporary folder does not tell who has a file open";
  }
  const test::HeldFile held(folder.Native("a"));
  ScriptedHost at;
  at.desk.ExpectBox(folder.Windows("a") +
                        " cannot be written: another program has it open.\n"
                        "Close StarLancer, and whatever else may be using the file, and try again. "
                        "Nothing has been changed.",
                    "Oravin", Icon::exclamation);
  WritePlan plan;
  plan.files = {folder.Windows("a")};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
}

TEST(WritePlan, NamesAFolderThatIsMissing) {
  const TemporaryFolder folder;
  ScriptedHost at;
  at.desk.ExpectBox(folder.Windows("missing/") +
                        " cannot be written: it does not exist.\n"
                        "Put that right and try again. Nothing has been changed.",
                    "Oravin", Icon::exclamation);
  WritePlan plan;
  plan.folders = {folder.Windows("missing/")};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
}

TEST(WritePlan, OneBoxIsEnough) {
  const TemporaryFolder folder;
  for (const char* name : {"a", "b"}) {
    WriteFileAt(folder.Native(name), "x");
    test::SetReadOnly(folder.Native(name), true);
  }
  ScriptedHost at;
  at.desk.AllowOthers([](const Message&) { return Answer::ok; });
  WritePlan plan;
  plan.files = {folder.Windows("a"), folder.Windows("b")};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
  EXPECT_EQ(at.desk.shown.size(), 1U);
}

/// The number in a text between two others; the text must begin and end with them.
std::string Between(const std::string& text, const std::string& begin, const std::string& end) {
  EXPECT_TRUE(text.starts_with(begin)) << text;
  EXPECT_TRUE(text.ends_with(end)) << text;
  if (text.size() < begin.size() + end.size()) return {};
  return text.substr(begin.size(), text.size() - begin.size() - end.size());
}

/// Asks a plan that must be refused for its room, and returns how much was free: the disk is shared with others, so
/// that nobody can say it beforehand.
std::uint64_t FreeAsTold(const WritePlan& plan, const std::string& folder, std::uint64_t needed) {
  ScriptedHost at;
  at.desk.AllowOthers([](const Message&) { return Answer::ok; });
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
  EXPECT_EQ(at.desk.shown.size(), 1U);
  if (at.desk.shown.empty()) return 0;
  const Message& box = at.desk.shown.front();
  EXPECT_EQ(box, (Message{box.text, "Oravin", Icon::exclamation, Buttons::ok, false}));
  std::string digits =
      Between(box.text, "The disk of " + folder + " is too full: " + Grouped(needed) + " bytes are needed there and ",
              " are free.\nMake room and try again. Nothing has been changed.");
  std::erase(digits, ',');
  return digits.empty() ? 0 : std::stoull(digits);
}

constexpr std::uint64_t spareRoom = 1048576;

TEST(WritePlan, NamesAFileOfWhichTheSystemCannotSayWhetherItIsThere) {
  const TemporaryFolder folder;
  ScriptedHost at;
  at.host.files.before = [](const FileOperation& operation) {
    if (operation.kind == FileOperation::Kind::look) {
      throw FileError("could not look for", operation.path, "the disk does not answer");
    }
  };
  at.desk.ExpectBox(folder.Windows("a") +
                        " cannot be written: the disk does not answer.\n"
                        "Put that right and try again. Nothing has been changed.",
                    "Oravin", Icon::exclamation);
  WritePlan plan;
  plan.files = {folder.Windows("a")};
  EXPECT_FALSE(ReadyToWrite(at.host, plan));
}

TEST(WritePlan, NamesADiskWithTooLittleRoom) {
  const TemporaryFolder folder;
  const std::uint64_t tooMuch = std::filesystem::space(folder.native).capacity + 1;
  WritePlan plan;
  NeedRoom(plan, folder.windows, tooMuch);
  const std::uint64_t free = FreeAsTold(plan, folder.windows, tooMuch + spareRoom);
  EXPECT_GT(free, 0U);
  EXPECT_LT(free, tooMuch);
}

TEST(WritePlan, TheRoomThatAFolderNeedsAddsUp) {
  const TemporaryFolder folder;
  const std::uint64_t half = std::filesystem::space(folder.native).capacity / 2 + 1;
  WritePlan plan;
  NeedRoom(plan, folder.windows, half);
  NeedRoom(plan, folder.windows, half);
  FreeAsTold(plan, folder.windows, 2 * half + spareRoom);
}

}  // namespace
}  // namespace oravin
