// Starts two programs alternately and measures the time until each shows a painted window and waits for input.
// Usage: start_times RUNS YARDSTICK PROGRAM, both command lines. Prints the medians and their ratio.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr DWORD patience = 60000;  // milliseconds

struct Search {
  DWORD process;
  bool found = false;
};

BOOL CALLBACK Look(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);  // NOLINT(performance-no-int-to-ptr)
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  search.found = owner == search.process && IsWindowVisible(window) != FALSE;
  return search.found ? FALSE : TRUE;
}

/// True if a process has a visible window.
bool HasWindow(DWORD process) {
  Search search{process};
  EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

/// Seconds from a program's start until it waits for input with a visible window; negative if that fails. A program
/// waits only after it has painted everything.
double StartOnce(const wchar_t* command) {
  std::vector<wchar_t> line(command, command + wcslen(command) + 1);
  STARTUPINFOW setup = {};
  setup.cb = sizeof setup;
  PROCESS_INFORMATION process = {};
  LARGE_INTEGER frequency, begin, end;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&begin);
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &setup, &process) == FALSE)
    return -1;
  bool came = false;
  for (DWORD waited = 0; !came && waited < patience; ++waited) {
    came = HasWindow(process.dwProcessId);
    if (!came) Sleep(1);
  }
  came = came && WaitForInputIdle(process.hProcess, patience) == 0;
  QueryPerformanceCounter(&end);
  TerminateProcess(process.hProcess, 0);
  WaitForSingleObject(process.hProcess, patience);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return came ? static_cast<double>(end.QuadPart - begin.QuadPart) / static_cast<double>(frequency.QuadPart) : -1;
}

double MedianOf(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
  return values[values.size() / 2];
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count != 4) return 2;
  std::vector<double> yardstick, program;
  for (int i = _wtoi(words[1]); i >= 0; --i) {
    const double one = StartOnce(words[2]);
    const double other = StartOnce(words[3]);
    if (one < 0 || other < 0) return 1;
    const bool warm = !yardstick.empty() || i < _wtoi(words[1]);  // the first pair is a warm-up
    if (warm) {
      yardstick.push_back(one);
      program.push_back(other);
    }
  }
  const double ours = MedianOf(program);
  const double theirs = MedianOf(yardstick);
  std::printf("%-34s %8.1f ms   %-44s %8.1f ms  %8.2f\n", "Start to a painted window, Wine", ours * 1000,
              "Wine's notepad (below 1.5)", theirs * 1000, ours / theirs);
  return 0;
}
