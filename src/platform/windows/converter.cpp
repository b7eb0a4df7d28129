#include "platform/converter.h"

#include <algorithm>
#include <cfenv>

#include "platform/windows/wide_text.h"

namespace oravin::platform {

namespace {

using Function = std::int32_t(__stdcall*)(const char*, const char*, const char*);

/// Preserves this program's floating-point rounding: other libraries may reset the FPU when they are loaded or called.
struct KeptRounding {
  KeptRounding() { std::fegetenv(&before); }
  KeptRounding(const KeptRounding&) = delete;
  KeptRounding& operator=(const KeptRounding&) = delete;
  ~KeptRounding() { std::fesetenv(&before); }

  std::fenv_t before{};
};

/// A text in the system's code page, which the library expects; empty if it lacks a character.
std::string InSystemsPage(const std::wstring& text) {
  const int size = static_cast<int>(text.size());
  std::string bytes(text.size() * 2, '\0');
  BOOL lost = FALSE;
  const int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), size, bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, &lost);
  bytes.resize(static_cast<std::size_t>(std::max(length, 0)));
  return lost == FALSE ? bytes : std::string();
}

std::wstring ShortPath(const std::wstring& path) {
  std::wstring shorter(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
  shorter.resize(GetShortPathNameW(path.c_str(), shorter.data(), static_cast<DWORD>(shorter.size())));
  return shorter;
}

/// A path for the library. If the system's code page lacks a character, short names of the folders (and the file) are
/// used.
std::string ForLibrary(const char* given) {
  const std::string text = given;
  const auto plain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(text.begin(), text.end(), plain)) return text;
  const std::wstring wide = ToWide(text);
  std::string bytes = InSystemsPage(wide);
  if (!bytes.empty()) return bytes;
  const std::size_t slash = wide.find_last_of(L'\\') + 1;
  bytes = InSystemsPage(ShortPath(wide.substr(0, slash)) + wide.substr(slash));
  if (!bytes.empty()) return bytes;
  bytes = InSystemsPage(ShortPath(wide));
  return bytes.empty() ? text : bytes;
}

}  // namespace

Converter::Converter(const std::string& libraryPath) {
  const std::wstring path = CallPath(libraryPath);
  if (path.empty() || GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
    whyNot = "it is not there";
    return;
  }
  const KeptRounding kept;
  // Its own dependencies are in its folder. Suppress the system's message box for missing ones; this program reports
  // them.
  DWORD mode = 0;
  SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &mode);
  const HMODULE handle = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  const DWORD error = GetLastError();
  SetThreadErrorMode(mode, nullptr);
  if (handle == nullptr) {
    whyNot = "this machine cannot load it as a library (" + Reason(error, path) + ")";
    return;
  }
  library = reinterpret_cast<std::intptr_t>(handle);
  // Some compilers append the size of the arguments to the name of a stdcall function.
  const std::string name = converterFunction;
  for (const std::string& spelling : {name, "_" + name + "@12", name + "@12"}) {
    if (function == 0) function = reinterpret_cast<std::intptr_t>(GetProcAddress(handle, spelling.c_str()));
  }
  if (function == 0) whyNot = "it has no function named " + name;
}

Converter::~Converter() {
  if (library != 0) FreeLibrary(reinterpret_cast<HMODULE>(library));  // NOLINT(performance-no-int-to-ptr)
}

std::int32_t Convert(const Converter& converter, const char* source, const char* option, const char* destination) {
  const auto call = reinterpret_cast<Function>(converter.function);  // NOLINT(performance-no-int-to-ptr)
  const std::string from = ForLibrary(source);
  const std::string to = ForLibrary(destination);
  const KeptRounding kept;
  return call(from.c_str(), option, to.c_str());
}

}  // namespace oravin::platform
