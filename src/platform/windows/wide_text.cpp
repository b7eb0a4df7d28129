#include "platform/windows/wide_text.h"

#include <vector>

namespace oravin::platform {

namespace {

constexpr UINT codePage = 1252;
constexpr std::wstring_view longPathMark = L"\\\\?\\";
constexpr std::wstring_view longShareMark = L"\\\\?\\UNC\\";
// The limit of a plain path is 260; that of a folder leaves room for a short file name.
constexpr std::size_t longestPlainPath = 247;

std::wstring Decoded(UINT page, DWORD flags, std::string_view text) {
  const int length = MultiByteToWideChar(page, flags, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length > 0 ? length : 0), L'\0');
  if (length > 0) MultiByteToWideChar(page, flags, text.data(), static_cast<int>(text.size()), wide.data(), length);
  return wide;
}

std::wstring PartToWide(std::string_view part) {
  if (part.empty()) return {};
  const std::wstring utf8 = Decoded(CP_UTF8, MB_ERR_INVALID_CHARS, part);
  return utf8.empty() ? Decoded(codePage, 0, part) : utf8;
}

std::string PartFromWide(std::wstring_view part) {
  if (part.empty()) return {};
  const int size = static_cast<int>(part.size());
  std::string bytes(part.size(), '\0');
  BOOL lost = FALSE;
  const int length =
      WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, part.data(), size, bytes.data(), size, nullptr, &lost);
  if (length == size && lost == FALSE && PartToWide(bytes) == part) return bytes;
  return Utf8FromWide(part);
}

bool IsSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

/// Converts the parts between separators, and keeps the separators.
template <typename To, typename From, typename Turn>
To PartByPart(From text, Turn turn) {
  To result;
  std::size_t begin = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i < text.size() && text[i] != '\\' && text[i] != '/') continue;
    result += turn(text.substr(begin, i - begin));
    if (i < text.size()) result += static_cast<typename To::value_type>(text[i]);
    begin = i + 1;
  }
  return result;
}

std::wstring FullPath(const std::wstring& path) {
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  if (size == 0) return {};
  std::wstring full(size, L'\0');
  full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full;
}

bool HasDrive(const std::wstring& path) { return path.size() >= 2 && path[1] == L':'; }

bool DriveIsThere(const std::wstring& path) {
  const std::size_t mark = path.starts_with(longPathMark) ? longPathMark.size() : 0;
  const std::wstring plain = path.substr(mark);
  return !HasDrive(plain) || GetDriveTypeW((plain.substr(0, 2) + L"\\").c_str()) != DRIVE_NO_ROOT_DIR;
}

/// True if one of the parent folders is a file.
bool AFileIsAbove(const std::wstring& path) {
  for (std::size_t end = path.find_last_of(L"\\/"); end != std::wstring::npos && end > 0;
       end = path.find_last_of(L"\\/", end - 1)) {
    const DWORD attributes = GetFileAttributesW(path.substr(0, end).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  }
  return false;
}

std::string MessageOf(DWORD error) {
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
      reinterpret_cast<wchar_t*>(&text), 0, nullptr);  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
  std::wstring_view said(text, length);
  while (!said.empty() && (said.back() == L'\r' || said.back() == L'\n' || said.back() == L' ' || said.back() == L'.'))
    said.remove_suffix(1);
  const std::string message = said.empty() ? "the system gives reason " + std::to_string(error) : FromWide(said);
  LocalFree(text);
  return message;
}

std::string WhyMissing(const std::wstring& path) {
  if (!DriveIsThere(path)) return "there is no such drive";
  return AFileIsAbove(path) ? "a part of the path is no folder" : "it does not exist";
}

std::string WhyDenied(const std::wstring& path) {
  const DWORD attributes = path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return "you have no permission";
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return "it is a folder";
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? "it is read-only" : "you have no permission";
}

}  // namespace

std::wstring ToWide(std::string_view text) { return PartByPart<std::wstring>(text, PartToWide); }

std::string FromWide(std::wstring_view text) { return PartByPart<std::string>(text, PartFromWide); }

std::string Utf8FromWide(std::wstring_view text) {
  if (text.empty()) return {};
  const int size = static_cast<int>(text.size());
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(length > 0 ? length : 0), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

std::wstring CallPath(const std::string& path) {
  std::wstring wide = ToWide(path);
  if (wide.find_first_of(L"*?\"<>|") != std::wstring::npos) return {};
  if (wide.find(L':', HasDrive(wide) ? 2 : 0) != std::wstring::npos) return {};
  // Double backslashes count as one, except at the start, where they denote a server.
  std::wstring single;
  for (const wchar_t c : wide) {
    if (!IsSeparator(c) || single.size() < 2 || single.back() != L'\\') single += IsSeparator(c) ? L'\\' : c;
  }
  if (single.size() <= longestPlainPath) {
    // A relative path may be too long together with its folder.
    const bool whole = HasDrive(single) || single.starts_with(L"\\\\");
    if (whole || single.empty()) return single;
  }
  const std::wstring full = FullPath(single);
  if (full.size() <= longestPlainPath) return single;
  if (!full.starts_with(L"\\\\")) return std::wstring(longPathMark) + full;
  return full.starts_with(longPathMark) ? full : std::wstring(longShareMark) + full.substr(2);
}

std::string Reason(DWORD error, const std::wstring& path) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
      return WhyMissing(path);
    case ERROR_ACCESS_DENIED:
      return WhyDenied(path);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return "another program has it open";
    case ERROR_WRITE_PROTECT:
      return "the disk is read-only";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return "the disk is full";
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
      return "no file can have this name";
    default:
      return MessageOf(error);
  }
}

}  // namespace oravin::platform
