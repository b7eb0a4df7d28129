#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Facts about files, and how files are opened. The operations themselves are in file_system.h.
namespace oravin::platform {

/// An open file of the system: a descriptor or a handle. `noFile` stands for none.
using NativeFile = std::intptr_t;
inline constexpr NativeFile noFile = -1;

enum class OpenFor {
  reading,    ///< an existing file, to be read
  changing,   ///< an existing file, to be read and written
  creating,   ///< read and written; made when it is missing, kept when it is there
  replacing,  ///< read and written; made when it is missing, emptied when it is there
};

/// Which file it is on which disk, whatever names lead to it.
struct FileIdentity {
  std::uint64_t disk = 0;
  std::uint64_t number = 0;

  bool operator==(const FileIdentity&) const = default;
};

struct FileFacts {
  std::string name;  ///< as it is spelled on disk, without its folder; empty where one path was asked for
  bool folder = false;
  bool hidden = false;
  bool system = false;
  std::uint64_t length = 0;   ///< in bytes; 0 for a folder
  std::int64_t modified = 0;  ///< when the content was last changed, in nanoseconds since 1970 (UTC)
  std::uint32_t links = 1;    ///< how many names the file has on its disk
  FileIdentity identity;
};

/// What is on the disk under a path.
enum class Presence {
  absent,   ///< nothing of that name
  visible,  ///< a file or folder
  hidden,   ///< one that is marked hidden or system: most of the program does not see it
  failed    ///< the system could not say
};

/// A look at one path.
struct LookUp {
  Presence presence = Presence::absent;
  FileFacts facts;     ///< of what is there
  std::string reason;  ///< why the system could not say, in plain words
};

/// A look into one folder; absent where there is no such folder.
struct Listing {
  Presence presence = Presence::absent;
  std::vector<FileFacts> items;  ///< files and folders, without `.` and `..`, in no set order
  std::string reason;            ///< why it could not be listed, in plain words
};

}  // namespace oravin::platform
