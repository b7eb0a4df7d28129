#include "support/held_file.h"

#include <windows.h>

#include <array>
#include <stdexcept>
#include <string>

namespace oravin::test {

namespace {

/// The program that holds the file. It lies beside the test program, and ends when this process lets go of its input.
struct Holder {
  explicit Holder(const std::filesystem::path& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE theirInput = nullptr;
    HANDLE theirOutput = nullptr;
    if (CreatePipe(&theirInput, &input, &inherited, 0) == FALSE ||
        CreatePipe(&output, &theirOutput, &inherited, 0) == FALSE)
      throw std::runtime_error("the test cannot make a pipe");
    SetHandleInformation(input, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = theirInput;
    start.hStdOutput = theirOutput;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    std::wstring line = L"\"" + Beside().wstring() + L"\" \"" + path.wstring() + L"\"";
    const BOOL runs =
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &started);
    CloseHandle(theirInput);
    CloseHandle(theirOutput);
    if (runs == FALSE) throw std::runtime_error("the test cannot start the program that holds files");
    CloseHandle(started.hThread);
    process = started.hProcess;
    char sign = 0;
    DWORD count = 0;
    const BOOL said = ReadFile(output, &sign, 1, &count, nullptr);
    if (said == FALSE || count != 1) throw std::runtime_error("the other program cannot open " + path.string());
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;
  ~Holder() {
    CloseHandle(input);
    WaitForSingleObject(process, INFINITE);
    CloseHandle(process);
    CloseHandle(output);
  }

  static std::filesystem::path Beside() {
    std::array<wchar_t, 1024> program{};
    GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    return std::filesystem::path(program.data()).parent_path() / "hold_file.exe";
  }

  HANDLE input = nullptr;
  HANDLE output = nullptr;
  HANDLE process = nullptr;
};

}  // namespace

HeldFile::HeldFile(const std::filesystem::path& path) : process(std::make_shared<Holder>(path)) {}

bool KnowsHeldFiles(const std::filesystem::path& /*folder*/) { return true; }

}  // namespace oravin::test
