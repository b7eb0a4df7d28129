#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

/// A desktop for one test: a display without a screen, a window manager, and what presses its keys and its mouse.
namespace oravin::test {

using Variables = std::map<std::string, std::string>;

/// A program that was started and that ends with this record at the latest, or with the test itself.
struct Program {
  Program() = default;
  /// @param variables added to the test's own environment
  Program(const std::vector<std::string>& command, const Variables& variables, int standardOutput = -1);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  Program(Program&& other) noexcept;
  Program& operator=(Program&& other) noexcept;
  ~Program();

  int id = -1;  ///< -1 for none
};

/// Waits for a program to end by itself.
/// @return its exit status; -1 when it ended in another way or not in time
int ExitStatus(Program& program);

/// Runs a program to its end and returns what it printed, without the line end.
std::string PrintedBy(const std::vector<std::string>& command, const Variables& variables);

/// Looks again and again, with a generous bound, until something is so.
/// @return whether it came to be
bool Eventually(const std::function<bool()>& isSo);

struct Desktop {
  /// @throws std::runtime_error with a plain message when a program that it needs is missing or does not start
  explicit Desktop(int width, int height);

  Variables variables;  ///< for programs that are to come up on this desktop
  Program display;
  Program windowManager;
};

struct Point {
  int x = 0;
  int y = 0;
};

/// A part of the desktop.
struct Rectangle {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

void MoveTo(const Desktop& desktop, Point point);
void Click(const Desktop& desktop, Point point, int times = 1);

void RightClick(const Desktop& desktop, Point point);

/// Clicks while a key is held: "shift", "ctrl".
void ClickHolding(const Desktop& desktop, Point point, const std::string& key);

/// Presses the left button on one place and lets it go on another, with the mouse moving between them.
void Drag(const Desktop& desktop, Point from, Point to);

/// Types a text into whatever has the keyboard.
void TypeText(const Desktop& desktop, const std::string& text);

/// Gives the keyboard Russian letters beside its own. Without it a Cyrillic letter is typed by a key that it is lent
/// for a moment only, which a program may miss.
void AddRussianLetters(const Desktop& desktop);

/// How many windows of a program are in sight, its menus too.
/// @param program the name that it gives its windows
int WindowsInSight(const Desktop& desktop, const std::string& program);

/// Presses a key, named as xdotool names it: "alt+e", "ctrl+Next", "Return".
void PressKey(const Desktop& desktop, const std::string& key);

/// Presses a key in the last box of a program, which ends with it, and waits for that. A key that comes before the box
/// has the keyboard is lost: it is pressed again every five seconds.
/// @return as ExitStatus
int StatusAfterKey(const Desktop& desktop, Program& program, const std::string& key);

/// The window that has the keyboard, by its number; empty for none.
std::string ActiveWindow(const Desktop& desktop);

std::string ActiveWindowTitle(const Desktop& desktop);

void ResizeWindow(const Desktop& desktop, const std::string& window, int width, int height);

/// Where a picture of that name lies: below the build folder's screenshots/.
std::string ScreenshotPath(const std::string& name);

/// How many colours a part of the desktop shows; 0 when it cannot be looked at.
int ColoursIn(const Desktop& desktop, const Rectangle& part);

/// Saves a picture of the whole desktop as a PNG file.
/// @return whether there is a picture now
bool SaveScreenshot(const Desktop& desktop, const std::string& name);

}  // namespace oravin::test
