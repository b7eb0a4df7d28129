#include "desktop.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

#include "program_under_test.h"

namespace oravin::test {

namespace {

constexpr std::chrono::seconds patience(120);
constexpr std::chrono::milliseconds betweenLooks(20);

void RequirePrograms() {
  for (const char* program : {"Xvfb", "openbox", "xdotool", "import"}) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    std::string folder;
    bool found = false;
    while (!found && std::getline(folders, folder, ':')) found = access((folder + "/" + program).c_str(), X_OK) == 0;
    if (!found) {
      throw std::runtime_error(std::string(program) +
                               " is missing: the tests of the window need xvfb, openbox, xdotool and imagemagick");
    }
  }
}

/// In the new process: becomes the program, or ends.
[[noreturn]] void Become(const std::vector<std::string>& command, const Variables& variables, int standardOutput) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  for (const auto& [name, value] : variables) setenv(name.c_str(), value.c_str(), 1);
  if (standardOutput >= 0) dup2(standardOutput, STDOUT_FILENO);
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  constexpr int notStarted = 127;
  _exit(notStarted);
}

std::string ReadLine(int descriptor) {
  std::string line;
  char c = 0;
  while (read(descriptor, &c, 1) == 1 && c != '\n') line += c;
  return line;
}

/// A pipe whose ends close with it.
struct Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    close(ends[0]);
    CloseWriting();
  }
  void CloseWriting() {
    if (ends[1] >= 0) close(ends[1]);
    ends[1] = -1;
  }

  std::array<int, 2> ends = {-1, -1};
};

void DoWithX(const Desktop& desktop, std::vector<std::string> words) {
  words.insert(words.begin(), "xdotool");
  Program program(words, desktop.variables);
  if (ExitStatus(program) != 0) throw std::runtime_error("xdotool " + words[1] + " failed");
}

}  // namespace

Program::Program(const std::vector<std::string>& command, const Variables& variables, int standardOutput) {
  const pid_t process = fork();
  if (process == 0) Become(command, variables, standardOutput);
  id = process;
}

Program::Program(Program&& other) noexcept : id(std::exchange(other.id, -1)) {}

Program& Program::operator=(Program&& other) noexcept {
  std::swap(id, other.id);
  return *this;
}

Program::~Program() {
  if (id < 0) return;
  kill(id, SIGKILL);
  waitpid(id, nullptr, 0);
}

int ExitStatus(Program& program) {
  int status = 0;
  if (program.id < 0 || !Eventually([&] { return waitpid(program.id, &status, WNOHANG) == program.id; })) return -1;
  program.id = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string PrintedBy(const std::vector<std::string>& command, const Variables& variables) {
  Pipe pipe;
  Program program(command, variables, pipe.ends[1]);
  pipe.CloseWriting();
  std::string line = ReadLine(pipe.ends[0]);
  ExitStatus(program);
  return line;
}

bool Eventually(const std::function<bool()>& isSo) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!isSo()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(betweenLooks);
  }
  return true;
}

Desktop::Desktop(int width, int height) {
  RequirePrograms();
  Pipe pipe;
  const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
  // Everybody is let in: a Windows machine has a user of its own. The display picks a free number and prints it when it
  // is ready; it complains about those that are taken.
  const std::string command = "exec Xvfb -displayfd 1 -screen 0 " + screen + " -ac -nolisten tcp 2>/dev/null";
  display = Program({"sh", "-c", command}, {}, pipe.ends[1]);
  pipe.CloseWriting();
  const std::string number = ReadLine(pipe.ends[0]);
  if (number.empty()) throw std::runtime_error("Xvfb did not start");
  variables["DISPLAY"] = ":" + number;
  // What the toolkit's libraries keep until the end is not this program's to clean up.
  variables["ASAN_OPTIONS"] = "detect_leaks=0";
  // It complains about the menu that it does not have here.
  windowManager = Program({"sh", "-c", "exec openbox --sm-disable >/dev/null 2>&1"}, variables);
}

void MoveTo(const Desktop& desktop, Point point) {
  DoWithX(desktop, {"mousemove", "--sync", std::to_string(point.x), std::to_string(point.y)});
}

void Click(const Desktop& desktop, Point point, int times) {
  DoWithX(desktop, {"mousemove", std::to_string(point.x), std::to_string(point.y)});
  // A tooltip of the last place may lie over this one; Windows takes it away for the mouse, not for the click. A hand
  // takes longer than this.
  if (WindowsPrograms()) std::this_thread::sleep_for(std::chrono::milliseconds(100));
  DoWithX(desktop, {"click", "--repeat", std::to_string(times), "--delay", "50", "1"});
}

void RightClick(const Desktop& desktop, Point point) {
  MoveTo(desktop, point);
  DoWithX(desktop, {"click", "3"});
}

void ClickHolding(const Desktop& desktop, Point point, const std::string& key) {
  DoWithX(desktop, {"keydown", key});
  Click(desktop, point);
  DoWithX(desktop, {"keyup", key});
}

void Drag(const Desktop& desktop, Point from, Point to) {
  constexpr int steps = 8;
  constexpr std::chrono::milliseconds betweenSteps(60);
  MoveTo(desktop, from);
  DoWithX(desktop, {"mousedown", "1"});
  for (int i = 1; i <= steps; ++i) {
    std::this_thread::sleep_for(betweenSteps);
    MoveTo(desktop, {from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
  }
  std::this_thread::sleep_for(betweenSteps);
  DoWithX(desktop, {"mouseup", "1"});
}

void TypeText(const Desktop& desktop, const std::string& text) { DoWithX(desktop, {"type", "--delay", "8", text}); }

void AddRussianLetters(const Desktop& desktop) { PrintedBy({"setxkbmap", "-layout", "us,ru"}, desktop.variables); }

int WindowsInSight(const Desktop& desktop, const std::string& program) {
  // A window that goes while xdotool looks at it makes it complain.
  const std::string command = "xdotool search --onlyvisible --class '" + program + "' 2>/dev/null | wc -l";
  const std::string number = PrintedBy({"sh", "-c", command}, desktop.variables);
  return number.empty() ? 0 : std::stoi(number);
}

void PressKey(const Desktop& desktop, const std::string& key) { DoWithX(desktop, {"key", key}); }

int StatusAfterKey(const Desktop& desktop, Program& program, const std::string& key) {
  auto pressed = std::chrono::steady_clock::now() - std::chrono::seconds(5);
  const bool ended =
      program.id >= 0 && Eventually([&] {
        siginfo_t told{};
        // Its status is left for ExitStatus.
        if (waitid(P_PID, static_cast<id_t>(program.id), &told, WEXITED | WNOHANG | WNOWAIT) != 0 || told.si_pid != 0)
          return true;
        const auto now = std::chrono::steady_clock::now();
        if (now >= pressed + std::chrono::seconds(5)) {
          PressKey(desktop, key);
          pressed = now;
        }
        return false;
      });
  return ended ? ExitStatus(program) : -1;
}

std::string ActiveWindow(const Desktop& desktop) {
  // xdotool complains loudly while there is none.
  return PrintedBy({"sh", "-c", "exec xdotool getactivewindow 2>/dev/null"}, desktop.variables);
}

std::string ActiveWindowTitle(const Desktop& desktop) {
  return PrintedBy({"sh", "-c", "exec xdotool getactivewindow getwindowname 2>/dev/null"}, desktop.variables);
}

void ResizeWindow(const Desktop& desktop, const std::string& window, int width, int height) {
  DoWithX(desktop, {"windowsize", window, std::to_string(width), std::to_string(height)});
}

std::string ScreenshotPath(const std::string& name) {
  std::filesystem::path folder = SCREENSHOT_FOLDER;
  if (WindowsPrograms()) folder /= "windows";
  return (folder / (name + ".png")).string();
}

int ColoursIn(const Desktop& desktop, const Rectangle& part) {
  const std::string crop = std::to_string(part.width) + "x" + std::to_string(part.height) + "+" +
                           std::to_string(part.x) + "+" + std::to_string(part.y);
  const std::string counted =
      PrintedBy({"import", "-window", "root", "-crop", crop, "-format", "%k", "info:"}, desktop.variables);
  return std::atoi(counted.c_str());
}

bool SaveScreenshot(const Desktop& desktop, const std::string& name) {
  const std::filesystem::path file = ScreenshotPath(name);
  std::filesystem::create_directories(file.parent_path());
  std::filesystem::remove(file);
  Program program({"import", "-window", "root", file.string()}, desktop.variables);
  return ExitStatus(program) == 0 && std::filesystem::exists(file) && std::filesystem::file_size(file) > 0;
}

}  // namespace oravin::test
