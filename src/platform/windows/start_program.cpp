#include "platform/start_program.h"

#include <windows.h>
// Must follow windows.h.
#include <shellapi.h>

#include <algorithm>
#include <string_view>

#include "platform/windows/wide_text.h"

namespace oravin::platform {

namespace {

bool Start(std::wstring commandLine) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  // CreateProcessW may modify the command line. Handles are not inherited: the other program may outlive this one.
  if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr,
                     &start, &process) == FALSE)
    return false;
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

/// The end of the first argument of a command line, which may be quoted.
std::size_t EndOfFirstWord(std::wstring_view line) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == L'"') quoted = !quoted;
    if (line[i] == L' ' && !quoted) return i;
  }
  return line.size();
}

bool IsPaintProgram(std::wstring program) {
  std::erase(program, L'"');
  const std::size_t slash = program.find_last_of(L'\\');
  return CompareStringOrdinal(program.c_str() + (slash == std::wstring::npos ? 0 : slash + 1), -1, L"mspaint.exe", -1,
                              TRUE) == CSTR_EQUAL;
}

}  // namespace

bool StartProgram(const std::string& commandLine) {
  const std::wstring line = ToWide(commandLine);
  if (Start(line)) return true;
  const std::size_t end = EndOfFirstWord(line);
  if (!IsPaintProgram(line.substr(0, end))) return false;
  // Newer systems have it in another folder, or as a store app that only the shell can start.
  const std::wstring rest = line.substr(end);
  if (Start(L"mspaint.exe" + rest)) return true;
  constexpr std::intptr_t lastFailure = 32;
  const HINSTANCE started = ShellExecuteW(nullptr, L"open", L"mspaint.exe", rest.c_str(), nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<std::intptr_t>(started) > lastFailure;
}

}  // namespace oravin::platform
