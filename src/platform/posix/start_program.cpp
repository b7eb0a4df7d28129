#include "platform/start_program.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "platform/native_path.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): not every libc declares it in unistd.h

namespace oravin::platform {

namespace {

/// Splits a command line at spaces outside double quotes.
std::vector<std::string> SplitCommand(const std::string& line) {
  std::vector<std::string> parts;
  std::string part;
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ' ' && !quoted) {
      if (!part.empty()) parts.push_back(part);
      part.clear();
    } else {
      part += c;
    }
  }
  if (!part.empty()) parts.push_back(part);
  return parts;
}

bool Spawn(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);  // the other program outlives this one
  pid_t process = 0;
  const int failure = posix_spawnp(&process, arguments[0], nullptr, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  return failure == 0;
}

bool EndsInExe(const std::string& name) {
  return name.size() > 4 && (name.ends_with(".exe") || name.ends_with(".EXE"));
}

/// True for Windows' paint program, in any folder.
bool IsPaintProgram(const std::string& program) {
  constexpr std::string_view name = "mspaint.exe";
  if (program.size() < name.size()) return false;
  const std::string_view end = std::string_view(program).substr(program.size() - name.size());
  return std::equal(end.begin(), end.end(), name.begin(),
                    [](char a, char b) { return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b; });
}

}  // namespace

bool StartProgram(const std::string& commandLine) {
  constexpr std::string_view notepad = "notepad ";
  while (waitpid(-1, nullptr, WNOHANG) > 0) {  // reap programs that have exited
  }
  // notepad takes one path, which may have spaces without quotes.
  if (commandLine.starts_with(notepad)) {
    std::string path = commandLine.substr(notepad.size());
    std::erase(path, '"');
    return Spawn({"xdg-open", ToNativePath(path)});
  }
  std::vector<std::string> parts = SplitCommand(commandLine);
  if (parts.empty()) return false;
  if (parts.size() == 2 && IsPaintProgram(parts[0])) return Spawn({"xdg-open", ToNativePath(parts[1])});
  if (!EndsInExe(parts[0])) return Spawn(parts);
  parts.insert(parts.begin(), "wine");
  return Spawn(parts);
}

}  // namespace oravin::platform
