#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Types of the file operations in file_system.h.
namespace oravin::platform {

/// An open file: a descriptor or a handle. `noFile` means none.
using NativeFile = std::intptr_t;
inline constexpr NativeFile noFile = -1;

enum class OpenFor {
  reading,    ///< an existing file, for reading
  changing,   ///< an existing file, for reading and writing
  creating,   ///< for reading and writing; created if missing, not truncated
  replacing,  ///< for reading and writing; created if missing, else emptied
};

/// Identifies a file on its disk, independently of its names.
struct FileIdentity {
  std::uint64_t disk = 0;
  std::uint64_t number = 0;

  bool operator==(const FileIdentity&) const = default;
};

struct FileFacts {
  std::string name;  ///< as spelled on disk, without its folder; empty in a LookUp
  bool folder = false;
  bool hidden = false;
  bool system = false;
  std::uint64_t length = 0;   ///< in bytes; 0 for a folder
  std::int64_t modified = 0;  ///< last change of the content, in nanoseconds since 1970 (UTC)
  std::uint32_t links = 1;    ///< number of hard links
  FileIdentity identity;
};

/// What is at a path.
enum class Presence {
  absent,   ///< nothing of that name
  visible,  ///< a file or folder
  hidden,   ///< one with the hidden or system attribute: most of the program ignores it
  failed    ///< the system could not say
};

/// The result of a look at one path.
struct LookUp {
  Presence presence = Presence::absent;
  FileFacts facts;     ///< of the file or folder
  std::string reason;  ///< why the system could not say, in plain words
};

/// The contents of one folder; absent if there is no such folder.
struct Listing {
  Presence presence = Presence::absent;
  std::vector<FileFacts> items;  ///< files and folders, without `.` and `..`, unordered
  std::string reason;            ///< why it could not be listed, in plain words
};

}  // namespace oravin::platform
