#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>

#include "base/bytes.h"
#include "platform/file_system.h"

/// Binary files on numbered handles, with 0-based offsets. Every failure is a RunTimeError.
///
/// Reading is buffered, so that a table can be read byte by byte; writing goes straight to the system, so that a file
/// shows what has been put into it whenever the program stops.
namespace oravin {

/// One operation on a file, as the fault hook sees it just before it is done.
struct FileOperation {
  enum class Kind { open, read, write, flush, erase, rename, makeFolder };
  Kind kind;
  std::string path;
};

struct OpenFile {
  std::string path;
  platform::NativeFile native = platform::noFile;
  std::uint64_t length = 0;
  Bytes window;  ///< the bytes read last, beginning at `windowAt`
  std::uint64_t windowAt = 0;
};

/// The files that the program has open, and the one hook where tests make an operation fail or stop the process.
struct Files {
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  ~Files();

  std::map<int, OpenFile> open;
  std::function<void(const FileOperation&)> before;  ///< called before every operation; what it throws is passed on
};

/// The lowest handle number from 1 that is not in use; 1 itself and 2 are left to the archive browser.
int FreeFile(const Files& files);

/// Opens a file under a handle number of the caller's choice; a file that the number stands for is closed first.
void OpenBinary(Files& files, int handle, const std::string& path, platform::OpenFor purpose);

/// Makes a file whose name is taken as it is spelled; one of exactly that name is emptied. For folders whose names the
/// caller knows: no other spelling of the name is looked for, so that it does not matter how full the folder is.
/// @param folder ends in a backslash
void OpenSpelled(Files& files, int handle, const std::string& folder, const std::string& name);

/// Closes a handle; one that is not open does not matter.
void Close(Files& files, int handle);
void CloseAll(Files& files);
bool IsOpen(const Files& files, int handle);

/// The file's length in bytes, with what has been put behind its old end.
std::uint64_t LengthOf(Files& files, int handle);

/// Reads exactly `bytes.size()` bytes at `offset`; a file that ends before is an error.
void Get(Files& files, int handle, std::uint64_t offset, std::span<std::uint8_t> bytes);

/// Reads as many of the bytes as the file has from `offset` on; returns how many these were.
std::size_t GetSome(Files& files, int handle, std::uint64_t offset, std::span<std::uint8_t> bytes);

/// Writes the bytes at `offset`; the file grows where they reach past its end.
void Put(Files& files, int handle, std::uint64_t offset, std::span<const std::uint8_t> bytes);

/// Cuts the file to a length, or lets it grow by zeros; to the fault hook that is a write.
void SetLength(Files& files, int handle, std::uint64_t length);

/// Lets the system begin to bring bytes to the disk that were put into the file, so that Flush has less to wait for.
void StartFlush(Files& files, int handle, std::uint64_t offset, std::uint64_t count);

/// Waits until what was put into the file is on the disk.
void Flush(Files& files, int handle);

/// A file that is open for as long as this record lives, on a free handle.
struct OpenedFile {
  OpenedFile(Files& owner, const std::string& path, platform::OpenFor purpose);
  /// As OpenSpelled.
  OpenedFile(Files& owner, const std::string& folder, const std::string& name);
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;
  ~OpenedFile();

  Files& files;
  int handle;
};

/// Tells the hook of an operation and throws its failure, if the system gives a reason for one.
void DoOrThrow(Files& files, FileOperation::Kind kind, const std::string& path, const char* what,
               const std::function<std::string()>& operation);

}  // namespace oravin
