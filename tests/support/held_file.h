#pragma once

#include <filesystem>
#include <memory>

namespace oravin::test {

/// Another process that holds a file open (a native path) for reading, as the running game would.
struct HeldFile {
  explicit HeldFile(const std::filesystem::path& path);

  std::shared_ptr<void> process;  ///< ends with this record
};

/// True where the system tells whether a file in this folder is held by another program. Some file systems do not.
bool KnowsHeldFiles(const std::filesystem::path& folder);

}  // namespace oravin::test
