#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "base/bytes.h"

/// The one seam to the file system. Every operation on a file passes the hook first. A failure is a FileError.
namespace oravin {

/// One operation on a file, as the hook sees it just before it is done.
struct FileOperation {
  enum class Kind {
    open,
    read,
    write,
    cut,  ///< to a length, which may also lie after the end
    flush,
    erase,
    rename,
    makeFolder,
    cleanUp,     ///< deletes a temporary file; a failure is passed over
    look,        ///< at one path, or at two
    list,        ///< a folder
    askToWrite,  ///< whether a file could be changed, or files be made in a folder
    askForRoom,  ///< on the disk of a folder
  };

  Kind kind;
  std::string path;                          ///< of a rename the old path
  std::string second = {};                   ///< of a rename the new path
  std::uint64_t offset = 0;                  ///< of a read or write, in bytes from the file's start
  std::uint64_t length = 0;                  ///< of a read or write in bytes; of a cut the new length of the file
  std::span<const std::uint8_t> bytes = {};  ///< what is written
};

/// True for an operation that asks and can change nothing: look, list, askToWrite and askForRoom.
bool IsQuestion(FileOperation::Kind kind);

/// The path whose file an operation changes or asks for: of a rename the new one.
const std::string& ChangedPath(const FileOperation& operation);

/// The state of the file layer: the hook, and how many files are open.
struct Files {
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;

  int open = 0;                                      ///< the number of open files
  std::function<void(const FileOperation&)> before;  ///< called before every operation; what it throws is passed on
};

/// Shows an operation to the hook, does it, and throws its failure.
/// @param what what was tried, for the error: "could not open"
/// @param action does it; returns the system's reason, empty when it succeeded
/// @throws FileError with the operation's ChangedPath
void Perform(Files& files, const FileOperation& operation, const char* what,
             const std::function<std::string()>& action);

}  // namespace oravin
