#include "files/look_up.h"

#include <algorithm>

#include "base/file_error.h"
#include "base/text.h"
#include "files/path.h"
#include "platform/file_system.h"

namespace oravin {

namespace {

using Kind = FileOperation::Kind;

/// Passes a look to the hook. An exception of the hook counts as a failure of the system.
/// @return the reason of the failure; empty to go on
std::string Announce(Files& files, const FileOperation& look) {
  if (!files.before) return {};
  try {
    files.before(look);
    return {};
  } catch (const FileError& error) {
    return error.reason;
  }
}

/// True for a path that can stand for files: see FileExists.
bool NamesFiles(std::string_view path) {
  if (!IsPrintableText(path)) return false;
  const char last = Trimmed(path).back();
  return last != '\\' && last != ':' && last != '.';
}

bool HasWildcard(std::string_view path) { return path.find_first_of("*?") != std::string_view::npos; }

bool AnyFileMatches(Files& files, const std::string& path) {
  const std::size_t slash = path.find_last_of("\\:");
  const std::string folder = slash == std::string::npos ? ".\\" : path.substr(0, slash + 1);
  const std::string pattern = slash == std::string::npos ? path : path.substr(slash + 1);
  const Listing listing = ListOrThrow(files, folder);
  return std::any_of(listing.items.begin(), listing.items.end(), [&](const FileFacts& item) {
    return !item.folder && !item.hidden && !item.system && MatchesPattern(item.name, pattern);
  });
}

/// As FileExists, but tells hidden files from visible ones; a folder is no file.
/// @throws FileError where the system cannot say
Presence PresenceOfFile(Files& files, std::string_view path) {
  if (!NamesFiles(path)) return Presence::absent;
  if (HasWildcard(path)) return AnyFileMatches(files, Trim(path)) ? Presence::visible : Presence::absent;
  const LookUp found = LookOrThrow(files, Trim(path));
  return found.facts.folder ? Presence::absent : found.presence;
}

}  // namespace

bool FileExists(Files& files, std::string_view path) {
  try {
    return VisibleFileIsThere(files, path);
  } catch (const FileError&) {
    return false;
  }
}

void RequireFile(Files& files, const std::string& path) {
  if (!FileExists(files, path)) throw FileError("could not open", path, "it does not exist", ErrorKind::missing);
}

bool FolderExists(Files& files, std::string_view path) {
  try {
    return FolderIsThere(files, path);
  } catch (const FileError&) {
    return false;
  }
}

bool FileIsThere(Files& files, std::string_view path) { return PresenceOfFile(files, path) != Presence::absent; }

bool VisibleFileIsThere(Files& files, std::string_view path) {
  return PresenceOfFile(files, path) == Presence::visible;
}

bool FolderIsThere(Files& files, std::string_view path) {
  if (!IsPrintableText(path) || HasWildcard(path)) return false;
  const LookUp found = LookOrThrow(files, AddBackslash(path));
  return found.presence != Presence::absent && found.facts.folder;
}

std::uint64_t LengthOrThrow(Files& files, const std::string& path) { return LookOrThrow(files, path).facts.length; }

LookUp LookOrThrow(Files& files, const std::string& path) {
  LookUp found = LookFor(files, path);
  if (found.presence == Presence::failed) throw FileError("could not look for", path, found.reason);
  return found;
}

Listing ListOrThrow(Files& files, const std::string& folder) {
  Listing listing = ListFolder(files, folder);
  if (listing.presence == Presence::failed) throw FileError("could not list", folder, listing.reason);
  return listing;
}

std::uint64_t FileLength(Files& files, const std::string& path) { return LookFor(files, path).facts.length; }

LookUp LookFor(Files& files, const std::string& path) {
  const std::string failure = Announce(files, {Kind::look, path});
  return failure.empty() ? platform::LookAt(path) : LookUp{Presence::failed, {}, failure};
}

LookUp LookCloselyFor(Files& files, const std::string& path) {
  const std::string failure = Announce(files, {Kind::look, path});
  return failure.empty() ? platform::LookCloselyAt(path) : LookUp{Presence::failed, {}, failure};
}

Listing ListFolder(Files& files, const std::string& folder) {
  const std::string failure = Announce(files, {Kind::list, folder});
  return failure.empty() ? platform::ListNative(folder) : Listing{Presence::failed, {}, failure};
}

std::string SpellingOf(Files& files, const std::string& path) {
  const std::string failure = Announce(files, {Kind::look, path});
  return failure.empty() ? platform::SpellingOf(path) : path.substr(path.find_last_of('\\') + 1);
}

bool IsSameFile(Files& files, const std::string& a, const std::string& b) {
  return Announce(files, {Kind::look, a, b}).empty() && platform::IsSameFile(a, b);
}

std::string WhyNotWritable(Files& files, const std::string& path) {
  std::string failure = Announce(files, {Kind::askToWrite, path});
  return failure.empty() ? platform::WhyNotWritable(path) : failure;
}

std::string WhyNoNewFiles(Files& files, const std::string& folder) {
  std::string failure = Announce(files, {Kind::askToWrite, folder});
  return failure.empty() ? platform::WhyNoNewFiles(folder) : failure;
}

std::optional<std::uint64_t> FreeSpace(Files& files, const std::string& folder) {
  return Announce(files, {Kind::askForRoom, folder}).empty() ? platform::FreeSpace(folder) : std::nullopt;
}

}  // namespace oravin
