#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "demo/archive_writer.h"
#include "demo/bytes.h"
#include "import_session.h"

/// The ship list that is drafted for a program folder that has none, before there is a window.
namespace oravin::test {

namespace {

constexpr const char* shipListForm = "ShipList";
constexpr const char* lines = "ShipList.lstShips";

/// An archive of thousands of models of 16 MB each, which takes no more room than one: all rows of its table name the
/// same bytes. Reading them all takes many seconds.
Bytes EndlessArchive() {
  constexpr std::size_t rows = 8000;
  constexpr std::uint32_t modelSize = 1U << 24U;
  std::vector<demo::ArchiveFile> files(rows);
  for (std::size_t i = 0; i < rows; ++i) files[i].name = "m" + std::to_string(10000 + i) + ".shp";
  Bytes model;
  for (const std::uint32_t field : {1U, 32768U, 511U}) demo::PutLittle16(model, field);  // one chunk
  model.resize(modelSize);
  files.back().bytes = std::move(model);
  Bytes archive = demo::BuildArchive(files);
  const std::size_t row = 8 + files[0].name.size() + 1;
  const auto last = archive.begin() + static_cast<std::ptrdiff_t>(16 + (rows - 1) * row);
  for (std::size_t i = 0; i + 1 < rows; ++i) {
    std::copy_n(last, 8, archive.begin() + static_cast<std::ptrdiff_t>(16 + i * row));
  }
  return archive;
}

/// The program started on a program folder without a ship list.
struct DraftSession : Session {
  /// @param archive in the place of the game's; empty for the sample's own
  explicit DraftSession(const Bytes& archive = {})
      : Session(Beginning::desktop), shipList(sample.program / "shipsData.txt"), before(ReadFileAt(shipList)) {
    std::filesystem::remove(shipList);
    if (!archive.empty()) WriteFileAt(sample.game / "resource.hog", archive);
    StartProgram(*this, {"--game", sample.game.string(), "--program", sample.program.string()});
  }

  std::filesystem::path shipList;
  Bytes before;
};

testing::AssertionResult Drafted(const Session& session) {
  if (const auto came = BoxCame(session, "This folder has no ship list (shipsData.txt)"); !came) return came;
  if (const auto answered = AnswerBox(session, "alt+y"); !answered) return answered;
  return FormIs(session, shipListForm);
}

}  // namespace

TEST(ShipListWindow, DraftIsEditedAndSavedAndTheProgramGoesOn) {
  DraftSession session;
  ASSERT_TRUE(Drafted(session));
  EXPECT_EQ(Layout(session)["formTitle"], "Ship list");
  EXPECT_TRUE(FocusIs(session, lines));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "ship_list"));
  const int count = Control(session, lines)["rowCount"];
  ASSERT_TRUE(SelectRow(session, lines, "Sabrewing"));
  ASSERT_TRUE(Becomes(session, "ShipList.txtFile", "text", "sabrewing.shp"));
  ASSERT_TRUE(TypeInto(session, "ShipList.txtName", "Sabre Two"));
  PressKey(session.desktop, "Return");
  ASSERT_TRUE(RowBecomes(session, lines, "Sabre Two", "selected", true));
  const int row = RowOf(session, lines, "Sabre Two")["row"];
  ClickOn(session, "ShipList.cmdMoveDown");
  ASSERT_TRUE(RowBecomes(session, lines, "Sabre Two", "row", row + 1));
  ClickOn(session, "ShipList.cmdMoveUp");
  ASSERT_TRUE(RowBecomes(session, lines, "Sabre Two", "row", row));
  ASSERT_TRUE(SelectRow(session, lines, "Nightjar"));
  ClickOn(session, "ShipList.cmdRemoveLine");
  ASSERT_TRUE(Becomes(session, lines, "rowCount", count - 1));

  PressKey(session.desktop, "alt+v");
  ASSERT_NO_THROW(AwaitWindow(session));
  const std::string saved = ReadTextAt(session.shipList);
  EXPECT_NE(saved.find("Sabre Two"), std::string::npos);
  EXPECT_EQ(saved.find("nightjar.shp"), std::string::npos);
  EXPECT_TRUE(FormIs(session, ""));
  EXPECT_TRUE(EnableFeatures(session)) << "the saved list makes a catalogue";
}

TEST(ShipListWindow, WhatCannotBeSavedIsToldAndItsLineStays) {
  DraftSession session;
  ASSERT_TRUE(Drafted(session));
  ASSERT_TRUE(SelectRow(session, lines, "Sabrewing"));
  ASSERT_TRUE(TypeInto(session, "ShipList.txtKind", "7"));
  ClickOn(session, "ShipList.cmdApply");
  ASSERT_TRUE(BoxCame(session, "The kind must be 1, 2 or 3."));
  ASSERT_TRUE(AnswerBox(session, "Return"));
  ASSERT_TRUE(FormIs(session, shipListForm));
  EXPECT_EQ(RowOf(session, lines, "Sabrewing")["texts"][2], "1");
  EXPECT_FALSE(std::filesystem::exists(session.shipList));
}

TEST(ShipListWindow, CancelEndsInTheRefusal) {
  DraftSession session;
  ASSERT_TRUE(Drafted(session));
  ASSERT_TRUE(SelectRow(session, lines, "Sabrewing"));
  ClickOn(session, "ShipList.cmdRemoveLine");
  ASSERT_TRUE(Eventually([&] { return RowOf(session, lines, "Sabrewing").is_null(); }));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(BoxCame(session, "The list was changed. Do you want to close it without saving?"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
  ASSERT_TRUE(FormIs(session, shipListForm));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(BoxCame(session, "The list was changed."));
  ASSERT_TRUE(AnswerBox(session, "alt+y"));
  ASSERT_TRUE(BoxCame(session, "This is not an Oravin directory"));
  EXPECT_EQ(StatusAfterKey(session.desktop, session.program, "Return"), 0);
  EXPECT_FALSE(std::filesystem::exists(session.shipList));
}

TEST(ShipListWindow, EscapeStopsALongDraft) {
  DraftSession session(EndlessArchive());
  ASSERT_TRUE(BoxCame(session, "This folder has no ship list (shipsData.txt)"));
  PressKey(session.desktop, "alt+y");
  // The box that asked has the program's name, too.
  ASSERT_TRUE(Eventually([&] {
    const Json layout = Layout(session);
    return layout["box"].is_null() && layout["status"].get<std::string>().find("Reading m1") != std::string::npos &&
           ActiveWindowTitle(session.desktop) == "Oravin";
  }));
  EXPECT_TRUE(SaveScreenshot(session.desktop, "ship_list_draft"));
  PressKey(session.desktop, "Escape");
  ASSERT_TRUE(BoxCame(session, "This is not an Oravin directory")) << "a draft that came to its end would be shown";
  EXPECT_EQ(StatusAfterKey(session.desktop, session.program, "Return"), 0);
  EXPECT_FALSE(std::filesystem::exists(session.shipList));
}

TEST(ShipListWindow, NoDraftIsTheRefusal) {
  DraftSession session;
  ASSERT_TRUE(BoxCame(session, "This folder has no ship list (shipsData.txt)"));
  ASSERT_TRUE(AnswerBox(session, "alt+n"));
  ASSERT_TRUE(BoxCame(session, "This is not an Oravin directory"));
  EXPECT_EQ(StatusAfterKey(session.desktop, session.program, "Return"), 0);
}

}  // namespace oravin::test
