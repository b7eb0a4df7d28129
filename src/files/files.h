#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "base/bytes.h"

/// The only access to the file system. Every operation on a file passes the hook first. Failures are FileErrors.
namespace oravin {

/// One operation on a file, passed to the hook before it is done.
struct FileOperation {
  enum class Kind {
    open,
    read,
    write,
    cut,  ///< sets the length; may also extend the file
    flush,
    erase,
    rename,
    makeFolder,
    cleanUp,     ///< deletes a temporary file; failures are ignored
    look,        ///< at one path, or at two
    list,        ///< a folder
    askToWrite,  ///< whether a file can be changed, or created in a folder
    askForRoom,  ///< free space on a folder's disk
  };

  Kind kind;
  std::string path;                          ///< for a rename the old path
  std::string second = {};                   ///< for a rename the new path
  std::uint64_t offset = 0;                  ///< for reads and writes, in bytes from the file's start
  std::uint64_t length = 0;                  ///< for reads and writes, in bytes; for a cut the new length
  std::span<const std::uint8_t> bytes = {};  ///< what is written
};

/// True for operations that change nothing: look, list, askToWrite and askForRoom.
bool IsQuestion(FileOperation::Kind kind);

/// The path that an operation changes or examines: for a rename the new one.
const std::string& ChangedPath(const FileOperation& operation);

/// The state of the file layer: the hook, and how many files are open.
struct Files {
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;

  int open = 0;                                      ///< the number of open files
  std::function<void(const FileOperation&)> before;  ///< called before every operation; its exceptions propagate
};

/// Passes an operation to the hook, then does it.
/// @param what what was tried, for the error: "could not open"
/// @param action does it; returns the system's reason, empty on success
/// @throws FileError with the operation's ChangedPath
void Perform(Files& files, const FileOperation& operation, const char* what,
             const std::function<std::string()>& action);

}  // namespace oravin
