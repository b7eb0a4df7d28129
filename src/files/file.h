#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/bytes.h"
#include "files/files.h"
#include "platform/file_types.h"

/// Binary files with 0-based offsets. Every failure is a FileError.
///
/// Reading is buffered, so that a table can be read byte by byte; writing goes straight to the system, so that a file
/// shows what has been put into it whenever the program stops.
namespace oravin {

using platform::OpenFor;

/// An open file. It is closed when it goes out of scope; moving it leaves a closed one behind.
struct File {
  File() = default;  ///< a closed one
  /// Opens the file of a path.
  File(Files& owner, const std::string& place, OpenFor purpose);
  /// Creates a file whose name is taken as it is spelled; one of exactly that name is emptied. For folders whose names
  /// the caller knows: no other spelling of the name is looked for, so the folder's size does not matter.
  /// @param folder ends in a backslash
  File(Files& owner, const std::string& folder, const std::string& name);
  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File();

  Files* files = nullptr;  ///< null while it is closed
  std::string path;
  platform::NativeFile native = platform::noFile;
  std::uint64_t length = 0;  ///< in bytes, with what has been put after its old end
  Bytes window;              ///< the bytes read last, starting at `windowAt`
  std::uint64_t windowAt = 0;
};

bool IsOpen(const File& file);

/// Closes a file; a closed one stays closed.
void Close(File& file);

/// Reads exactly `bytes.size()` bytes at `offset`; a file that ends before is an error.
void Get(File& file, std::uint64_t offset, std::span<std::uint8_t> bytes);

/// Reads as many of the bytes as the file has from `offset` on; returns how many these were.
std::size_t GetSome(File& file, std::uint64_t offset, std::span<std::uint8_t> bytes);

/// Writes the bytes at `offset`; the file grows where they reach past its end.
void Put(File& file, std::uint64_t offset, std::span<const std::uint8_t> bytes);

/// Cuts the file to a length, or lets it grow by zeros.
void SetLength(File& file, std::uint64_t length);

/// Lets the system start to bring bytes to the disk that were put into the file, so that Flush has less to wait for.
void StartFlush(File& file, std::uint64_t offset, std::uint64_t count);

/// Waits until what was put into the file is on the disk.
void Flush(File& file);

}  // namespace oravin
