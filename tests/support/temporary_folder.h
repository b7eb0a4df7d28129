#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "support/folder_image.h"

namespace oravin::test {

/// A folder of its own for one test; it goes with this record, with all that is in it.
struct TemporaryFolder {
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  /// The native path of something in the folder; `name` has forward slashes and is taken as it is spelled.
  [[nodiscard]] std::filesystem::path Native(std::string_view name) const;
  /// The same as a Windows path: Windows("a/b.txt") is "Z:\\...\\a\\b.txt".
  [[nodiscard]] std::string Windows(std::string_view name) const;

  std::filesystem::path native;  ///< the folder's native path
  std::string windows;           ///< its Windows path, ending in a backslash
};

/// Writes a whole file by its native path; the folders above it are made. Throws std::runtime_error when it cannot.
void WriteFileAt(const std::filesystem::path& path, std::string_view text);
void WriteFileAt(const std::filesystem::path& path, const Bytes& bytes);

/// Reads a whole file by its native path. Throws std::runtime_error when it cannot.
Bytes ReadFileAt(const std::filesystem::path& path);
std::string ReadTextAt(const std::filesystem::path& path);

/// Makes a folder by its native path, with those above it.
void MakeFolderAt(const std::filesystem::path& path);

/// Writes some bytes into an existing file, at an offset from its beginning; the rest stays.
void PatchFileAt(const std::filesystem::path& path, std::uint64_t offset, const Bytes& bytes);

}  // namespace oravin::test
