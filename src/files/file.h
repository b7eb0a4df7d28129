#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/bytes.h"
#include "files/files.h"
#include "platform/file_types.h"

/// Binary files with 0-based offsets. Every failure is a FileError.
///
/// Reads are buffered, so a table can be read byte by byte. Writes are not, so the file has all written bytes at every
/// point of interruption.
namespace oravin {

using platform::OpenFor;

/// An open file. Closed when it goes out of scope; a moved-from file is closed.
struct File {
  File() = default;  ///< closed
  /// Opens the file at a path.
  File(Files& owner, const std::string& place, OpenFor purpose);
  /// Creates a file with exactly this spelling of its name, or empties it. Does not search the folder for other
  /// spellings, so it stays fast in large folders; the caller must know that there are none.
  /// @param folder ends in a backslash
  File(Files& owner, const std::string& folder, const std::string& name);
  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File();

  Files* files = nullptr;  ///< null if closed
  std::string path;
  platform::NativeFile native = platform::noFile;
  std::uint64_t length = 0;  ///< in bytes, including appended ones
  Bytes window;              ///< read buffer; its first byte is at offset `windowAt`
  std::uint64_t windowAt = 0;
};

bool IsOpen(const File& file);

/// Closes a file, if it is open.
void Close(File& file);

/// Reads exactly `bytes.size()` bytes at `offset`; an error if the file ends before.
void Get(File& file, std::uint64_t offset, std::span<std::uint8_t> bytes);

/// Reads up to `bytes.size()` bytes at `offset`; returns how many the file had.
std::size_t GetSome(File& file, std::uint64_t offset, std::span<std::uint8_t> bytes);

/// Writes the bytes at `offset`; the file grows if needed.
void Put(File& file, std::uint64_t offset, std::span<const std::uint8_t> bytes);

/// Truncates the file to a length, or extends it with zeros.
void SetLength(File& file, std::uint64_t length);

/// Starts to write cached bytes to the disk, so that Flush waits less.
void StartFlush(File& file, std::uint64_t offset, std::uint64_t count);

/// Waits until all written bytes are on the disk.
void Flush(File& file);

}  // namespace oravin
