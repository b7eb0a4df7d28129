#include "platform/file_system.h"

#include <algorithm>
#include <array>

#include "platform/windows/wide_text.h"

namespace oravin::platform {

namespace {

// This program may open a file more than once, and other programs may keep reading it.
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD shareNothing = 0;
constexpr const char* noSuchName = "no file can have this name";

HANDLE Handle(NativeFile file) { return reinterpret_cast<HANDLE>(file); }  // NOLINT(performance-no-int-to-ptr)

std::string Sum(BOOL done, const std::wstring& path = {}) {
  return done != FALSE ? std::string() : Reason(GetLastError(), path);
}

/// A handle that is closed at the end of the scope.
struct Opened {
  explicit Opened(HANDLE opened) : handle(opened) {}
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() {
    if (There()) CloseHandle(handle);
  }
  [[nodiscard]] bool There() const { return handle != INVALID_HANDLE_VALUE; }

  HANDLE handle;
};

HANDLE OpenAt(const std::wstring& path, DWORD access, DWORD share, DWORD how, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
  return CreateFileW(path.c_str(), access, share, nullptr, how, flags, nullptr);
}

/// Virus scanners and indexers open new files for a moment. An operation that they block is retried for about a third
/// of a second.
template <typename Try>
std::string Patiently(const std::wstring& path, Try once) {
  constexpr int tries = 8;
  constexpr DWORD firstWait = 2;  // milliseconds; doubled each time
  for (int i = 0;; ++i) {
    if (once() != FALSE) return {};
    const DWORD error = GetLastError();
    const bool mayPass = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
    if (!mayPass || i + 1 == tries) return Reason(error, path);
    Sleep(firstWait << static_cast<unsigned>(i));
  }
}

std::string OpenAs(const std::wstring& path, OpenFor purpose, NativeFile& file) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const bool there = attributes != INVALID_FILE_ATTRIBUTES;
  if (there && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return "it is a folder";
  const bool marked = there && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (marked && purpose != OpenFor::reading) return "it is read-only";
  const DWORD access = purpose == OpenFor::reading ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  const bool makes = purpose == OpenFor::creating || purpose == OpenFor::replacing;
  const HANDLE handle = OpenAt(path, access, shareAll, makes ? OPEN_ALWAYS : OPEN_EXISTING);
  if (handle == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    return error == ERROR_INVALID_HANDLE ? noSuchName : Reason(error, path);  // "con" without a console
  }
  file = reinterpret_cast<NativeFile>(handle);
  std::string reason;
  // "con", "nul" and similar names open a device in any folder.
  if (GetFileType(handle) != FILE_TYPE_DISK) reason = noSuchName;
  // Not by CREATE_ALWAYS, which refuses hidden files and would clear attributes.
  if (reason.empty() && purpose == OpenFor::replacing) reason = SetLengthNative(file, 0);
  if (reason.empty()) return {};
  CloseHandle(handle);
  file = noFile;
  return reason;
}

/// Sets the position of the next read or write. Passing an offset with each call would cost a request to Wine's server.
BOOL GoTo(NativeFile file, std::uint64_t offset) {
  LARGE_INTEGER place{};
  place.QuadPart = static_cast<LONGLONG>(offset);
  return SetFilePointerEx(Handle(file), place, nullptr, FILE_BEGIN);
}

/// As many of the bytes as one call accepts.
DWORD Piece(std::size_t count) {
  constexpr std::size_t most = 0x4000000;
  return static_cast<DWORD>(std::min(count, most));
}

std::uint64_t Joined(DWORD high, DWORD low) { return static_cast<std::uint64_t>(high) << 32U | low; }

/// Windows counts 100-nanosecond steps since 1601.
std::int64_t NanosecondsSince1970(const FILETIME& time) {
  constexpr std::int64_t stepsBefore1970 = 116444736000000000;
  return (static_cast<std::int64_t>(Joined(time.dwHighDateTime, time.dwLowDateTime)) - stepsBefore1970) * 100;
}

/// Whether a failed look means that nothing is there.
Presence WhyNoFacts(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
      return Presence::absent;
    default:
      return Presence::failed;
  }
}

template <typename Data>
FileFacts FactsFrom(const std::wstring& name, const Data& data) {
  FileFacts facts;
  facts.name = FromWide(name);
  facts.folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  facts.hidden = (data.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
  facts.system = (data.dwFileAttributes & FILE_ATTRIBUTE_SYSTEM) != 0;
  facts.length = facts.folder ? 0 : Joined(data.nFileSizeHigh, data.nFileSizeLow);
  facts.modified = NanosecondsSince1970(data.ftLastWriteTime);
  return facts;
}

std::wstring WithoutEndingBackslash(std::wstring path) {
  while (path.size() > 1 && path.back() == L'\\' && path[path.size() - 2] != L':') path.pop_back();
  return path;
}

std::wstring NameIn(const std::wstring& path) {
  const std::size_t slash = path.find_last_of(L"\\:");
  return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

/// The name of an existing file or folder as spelled on disk.
std::wstring SpellingOnDisk(const std::wstring& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return NameIn(path);
  FindClose(search);
  return static_cast<const wchar_t*>(found.cFileName);
}

std::string RenameAt(const std::wstring& from, const std::wstring& to, DWORD flags) {
  if (from.empty() || to.empty()) return noSuchName;
  std::string reason = Patiently(from, [&] { return MoveFileExW(from.c_str(), to.c_str(), flags); });
  if (reason.empty() || GetFileAttributesW(from.c_str()) == INVALID_FILE_ATTRIBUTES) return reason;
  // If a file has that name, the system reports the same error as for missing rights.
  const Opened alone(OpenAt(to, DELETE, shareNothing, OPEN_EXISTING));
  if (!alone.There() && GetLastError() == ERROR_SHARING_VIOLATION) return "another program has it open";
  const DWORD there = GetFileAttributesW(to.c_str());
  const bool marked = there != INVALID_FILE_ATTRIBUTES && (there & FILE_ATTRIBUTE_READONLY) != 0;
  return marked ? "it is read-only" : reason;
}

}  // namespace

std::string OpenNative(const std::string& path, OpenFor purpose, NativeFile& file) {
  file = noFile;
  const std::wstring native = CallPath(path);
  return native.empty() ? noSuchName : OpenAs(native, purpose, file);
}

std::string OpenSpelledNative(const std::string& folder, const std::string& name, NativeFile& file) {
  return OpenNative(folder + name, OpenFor::replacing, file);
}

std::string ReadNative(NativeFile file, std::uint64_t offset, std::span<std::uint8_t> bytes, std::size_t& count) {
  count = 0;
  if (GoTo(file, offset) == FALSE) return Reason(GetLastError());
  while (count < bytes.size()) {
    DWORD got = 0;
    if (ReadFile(Handle(file), bytes.data() + count, Piece(bytes.size() - count), &got, nullptr) == FALSE)
      return Reason(GetLastError());
    if (got == 0) break;
    count += got;
  }
  return {};
}

std::string WriteNative(NativeFile file, std::uint64_t offset, std::span<const std::uint8_t> bytes) {
  std::size_t count = 0;
  if (GoTo(file, offset) == FALSE) return Reason(GetLastError());
  while (count < bytes.size()) {
    DWORD put = 0;
    if (WriteFile(Handle(file), bytes.data() + count, Piece(bytes.size() - count), &put, nullptr) == FALSE)
      return Reason(GetLastError());
    count += put;
  }
  return {};
}

std::string LengthNative(NativeFile file, std::uint64_t& length) {
  LARGE_INTEGER size{};
  if (GetFileSizeEx(Handle(file), &size) == FALSE) return Reason(GetLastError());
  length = static_cast<std::uint64_t>(size.QuadPart);
  return {};
}

std::string SetLengthNative(NativeFile file, std::uint64_t length) {
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(length);
  return Sum(SetFileInformationByHandle(Handle(file), FileEndOfFileInfo, &end, sizeof end));
}

// Windows starts writing cached bytes by itself.
void StartFlushNative(NativeFile, std::uint64_t, std::uint64_t) {}

std::string FlushNative(NativeFile file) { return Sum(FlushFileBuffers(Handle(file))); }

std::string CloseNative(NativeFile file) { return Sum(CloseHandle(Handle(file))); }

std::string FlushMany(const std::vector<std::string>& paths) {
  // Only an administrator may flush a whole disk.
  for (const std::string& path : paths) {
    const std::wstring native = CallPath(path);
    const Opened file(OpenAt(native, GENERIC_WRITE, shareAll, OPEN_EXISTING));
    if (!file.There()) return Reason(GetLastError(), native);
    std::string reason = Sum(FlushFileBuffers(file.handle));
    if (!reason.empty()) return reason;
  }
  return {};
}

std::string EraseNative(const std::string& path) {
  const std::wstring native = CallPath(path);
  if (native.empty()) return noSuchName;
  return Patiently(native, [&] { return DeleteFileW(native.c_str()); });
}

std::string RenameNative(const std::string& from, const std::string& to) {
  std::wstring target = CallPath(to);
  // A file that is replaced keeps the spelling of its name.
  if (GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES) {
    const std::wstring name = SpellingOnDisk(target);
    target = target.substr(0, target.size() - NameIn(target).size()) + name;
  }
  return RenameAt(CallPath(from), target, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

std::string RenameSpelledNative(const std::string& folder, const std::string& from, const std::string& to) {
  return RenameAt(CallPath(folder + from), CallPath(folder + to), MOVEFILE_REPLACE_EXISTING);
}

std::string MakeFolderNative(const std::string& path) {
  const std::wstring native = WithoutEndingBackslash(CallPath(path));
  if (native.empty()) return noSuchName;
  if (CreateDirectoryW(native.c_str(), nullptr) != FALSE) return {};
  const DWORD error = GetLastError();
  const DWORD there = GetFileAttributesW(native.c_str());
  if (there == INVALID_FILE_ATTRIBUTES) return Reason(error, native);
  return (there & FILE_ATTRIBUTE_DIRECTORY) != 0 ? "" : "a file of that name is there";
}

LookUp LookAt(const std::string& path) {
  const std::wstring given = CallPath(path);
  if (given.empty()) return {};
  const std::wstring native = WithoutEndingBackslash(given);
  // A folder's entry may have an outdated length while the file is open.
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &data) == FALSE) {
    const DWORD error = GetLastError();
    return {WhyNoFacts(error), {}, Reason(error, native)};
  }
  LookUp found{Presence::visible, FactsFrom(std::wstring(), data), {}};
  if (given.back() == L'\\' && !found.facts.folder) return {};
  if (found.facts.hidden || found.facts.system) found.presence = Presence::hidden;
  return found;
}

LookUp LookCloselyAt(const std::string& path) {
  LookUp found = LookAt(path);
  if (found.presence == Presence::absent || found.presence == Presence::failed) return found;
  const std::wstring native = WithoutEndingBackslash(CallPath(path));
  const Opened file(OpenAt(native, 0, shareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
  BY_HANDLE_FILE_INFORMATION data{};
  if (!file.There() || GetFileInformationByHandle(file.handle, &data) == FALSE) {
    return {Presence::failed, {}, Reason(GetLastError(), native)};
  }
  found.facts.links = data.nNumberOfLinks;
  found.facts.identity = {data.dwVolumeSerialNumber, Joined(data.nFileIndexHigh, data.nFileIndexLow)};
  return found;
}

std::string SpellingOf(const std::string& path) {
  return FromWide(SpellingOnDisk(WithoutEndingBackslash(CallPath(path))));
}

Listing ListNative(const std::string& folder) {
  const std::wstring native = CallPath(folder.ends_with('\\') ? folder : folder + '\\');
  if (native.empty()) return {};
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileExW((native + L"*").c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
  Listing listing{Presence::visible, {}, {}};
  if (search == INVALID_HANDLE_VALUE) {
    const DWORD error = GetLastError();
    // The root of an empty disk has no "." and "..".
    if (error == ERROR_FILE_NOT_FOUND) return listing;
    return {WhyNoFacts(error), {}, Reason(error, native)};
  }
  do {
    const std::wstring name = static_cast<const wchar_t*>(found.cFileName);
    if (name != L"." && name != L"..") listing.items.push_back(FactsFrom(name, found));
  } while (FindNextFileW(search, &found) != FALSE);
  const DWORD error = GetLastError();
  FindClose(search);
  if (error != ERROR_NO_MORE_FILES) return {Presence::failed, {}, Reason(error, native)};
  return listing;
}

bool IsSameFile(const std::string& a, const std::string& b) {
  constexpr DWORD foldersToo = FILE_FLAG_BACKUP_SEMANTICS;
  const Opened first(OpenAt(CallPath(a), 0, shareAll, OPEN_EXISTING, foldersToo));
  const Opened second(OpenAt(CallPath(b), 0, shareAll, OPEN_EXISTING, foldersToo));
  BY_HANDLE_FILE_INFORMATION one{};
  BY_HANDLE_FILE_INFORMATION other{};
  return first.There() && second.There() && GetFileInformationByHandle(first.handle, &one) != FALSE &&
         GetFileInformationByHandle(second.handle, &other) != FALSE &&
         one.dwVolumeSerialNumber == other.dwVolumeSerialNumber && one.nFileIndexHigh == other.nFileIndexHigh &&
         one.nFileIndexLow == other.nFileIndexLow;
}

std::string WhyNotWritable(const std::string& path) {
  NativeFile file = noFile;
  std::string reason = OpenNative(path, OpenFor::changing, file);
  if (!reason.empty()) return reason;
  CloseNative(file);
  // Open exclusively, which fails if anybody has it open. Also request DELETE, which renaming another file over this
  // one needs.
  const std::wstring native = CallPath(path);
  return Patiently(native, [&] {
    const Opened alone(OpenAt(native, GENERIC_READ | GENERIC_WRITE | DELETE, shareNothing, OPEN_EXISTING));
    return alone.There() ? TRUE : FALSE;
  });
}

std::string WhyNoNewFiles(const std::string& folder) {
  const std::wstring native = WithoutEndingBackslash(CallPath(folder));
  if (native.empty()) return noSuchName;
  const DWORD attributes = GetFileAttributesW(native.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return Reason(GetLastError(), native);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return "a part of the path is no folder";
  // A folder's read-only attribute means nothing and its access list is not conclusive: the only sure test is to create
  // a file, which is deleted on close.
  const std::wstring probe = CallPath(folder + "\\oravin-" + std::to_string(GetCurrentProcessId()) + ".tmp");
  const Opened file(OpenAt(probe, GENERIC_WRITE | DELETE, shareNothing, CREATE_NEW,
                           FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE));
  if (file.There() || GetLastError() == ERROR_FILE_EXISTS) return {};
  return Reason(GetLastError());
}

std::optional<std::uint64_t> FreeSpace(const std::string& folder) {
  ULARGE_INTEGER free{};
  if (GetDiskFreeSpaceExW(CallPath(folder).c_str(), &free, nullptr, nullptr) == FALSE) return std::nullopt;
  return free.QuadPart;
}

}  // namespace oravin::platform
