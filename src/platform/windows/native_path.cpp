#include "platform/native_path.h"

#include "platform/windows/wide_text.h"

namespace oravin::platform {

namespace {

bool HasDrive(const std::wstring& path) { return path.size() >= 2 && path[1] == L':'; }

bool IsSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

/// The name of a file or folder as spelled on disk; unchanged if it is missing.
std::wstring SpellingOnDisk(const std::wstring& folder, const std::wstring& name) {
  if (name.empty() || name == L"." || name == L"..") return name;
  const std::wstring path = CallPath(FromWide(folder + name));
  if (path.empty()) return name;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return name;
  FindClose(search);
  return static_cast<const wchar_t*>(found.cFileName);
}

}  // namespace

std::string ToNativePath(const std::string& windowsPath) {
  const std::wstring path = ToWide(windowsPath);
  std::wstring native;
  std::size_t begin = 0;
  if (HasDrive(path)) {
    if (GetDriveTypeW((path.substr(0, 2) + L"\\").c_str()) == DRIVE_NO_ROOT_DIR) return {};
    native = path.substr(0, 2);
    begin = 2;
  } else if (path.starts_with(L"\\\\")) {
    // Server and share are not files.
    std::size_t end = path.find(L'\\', 2);
    end = end == std::wstring::npos ? end : path.find(L'\\', end + 1);
    begin = end == std::wstring::npos ? path.size() : end;
    native = path.substr(0, begin);
  }
  while (begin < path.size()) {
    if (IsSeparator(path[begin])) {
      if (native.empty() || native.back() != L'\\') native += L'\\';
      ++begin;
      continue;
    }
    std::size_t end = path.find_first_of(L"\\/", begin);
    if (end == std::wstring::npos) end = path.size();
    native += SpellingOnDisk(native, path.substr(begin, end - begin));
    begin = end;
  }
  return Utf8FromWide(native);
}

std::string ToWindowsPath(const std::string& path) {
  std::wstring wide = ToWide(path);
  for (wchar_t& c : wide) {
    if (c == L'/') c = L'\\';
  }
  if (wide.empty() || HasDrive(wide) || wide.starts_with(L"\\\\")) return FromWide(wide);
  const DWORD size = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
  std::wstring full(size, L'\0');
  full.resize(GetFullPathNameW(wide.c_str(), size, full.data(), nullptr));
  return FromWide(full);
}

}  // namespace oravin::platform
