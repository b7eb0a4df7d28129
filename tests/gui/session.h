#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "demo/sample.h"
#include "desktop.h"
#include "support/temporary_folder.h"

namespace oravin::test {

using Json = nlohmann::json;

/// What a session begins with: the program's window, or the desktop alone.
enum class Beginning { window, desktop };

/// The program on a fresh sample installation, on a desktop of its own. Programs in bin/ of the folder stand in for the
/// desktop's.
struct Session {
  /// Starts the program and waits for its window, unless it is to begin with the desktop alone.
  /// @throws std::runtime_error when it does not come up
  explicit Session(Beginning beginning = Beginning::window);

  TemporaryFolder folder;
  demo::Sample sample;
  Desktop desktop;
  std::string layoutFile;
  std::string before;  ///< what the shell of a Windows machine does before the program starts
  Program program;
  std::string frame;  ///< the window's number
};

/// Starts the program.
/// @param arguments beside the one that has it keep the layout
void StartProgram(Session& session, const std::vector<std::string>& arguments = {});

/// Waits until the window is painted and holds still.
/// @throws std::runtime_error when it does not come up
void AwaitWindow(Session& session);

/// What the window shows now, and a form or a box that comes up before it.
Json Layout(const Session& session);

/// A control by its name, as the layout file tells of it.
Json Control(const Session& session, const std::string& name);

/// A rectangle of the layout file.
Rectangle RectangleFrom(const Json& rectangle);

/// The middle of a rectangle of the layout file.
Point MiddleOf(const Json& rectangle);

/// Clicks on a control in sight.
void ClickOn(const Session& session, const std::string& control);

/// Clicks on a tab and waits until it is chosen.
/// @return whether it is
bool ChooseTab(const Session& session, const std::string& caption);

/// A list's row by the text of its first column; null when it is not in sight.
Json RowOf(const Session& session, const std::string& list, const std::string& text);

/// Clicks on a row of a list and waits until it is selected.
/// @return whether it is
bool SelectRow(const Session& session, const std::string& list, const std::string& text);

/// Clicks on the heading of a list's column, counted from 0.
void ClickHeading(const Session& session, const std::string& list, std::size_t column);

/// Waits until a control has a value in one of its fields: "text", "caption", "enabled", "shown".
testing::AssertionResult Becomes(const Session& session, const std::string& control, const std::string& field,
                                 const Json& value);

/// Waits until a control's caption holds a text.
testing::AssertionResult CaptionHolds(const Session& session, const std::string& control, const std::string& text);

/// Puts a text in the place of what a text box holds.
/// @return whether the text box has it then
testing::AssertionResult TypeInto(const Session& session, const std::string& control, const std::string& text);

/// Waits until a control has the keyboard.
testing::AssertionResult FocusIs(const Session& session, const std::string& control);

/// Waits until a form is open and has the keyboard; an empty name for none, when the window has it.
testing::AssertionResult FormIs(const Session& session, const std::string& name);

/// Waits for a message box whose text holds `text`.
testing::AssertionResult BoxCame(const Session& session, const std::string& text);

/// Presses a key in the open message box and waits until the next one is open, or the action is over and the window has
/// the keyboard again.
testing::AssertionResult AnswerBox(const Session& session, const std::string& key);

/// Presses Enable and answers everything with the affirmative button.
testing::AssertionResult EnableFeatures(const Session& session);

}  // namespace oravin::test
