#pragma once

#include <string>
#include <vector>

#include "files/files.h"
#include "platform/file_system.h"

namespace oravin {

/// Files that are only needed for a while: they are deleted when this record goes, on every way out.
struct WorkFiles {
  explicit WorkFiles(std::vector<std::string> all) : paths(std::move(all)) {}
  WorkFiles(const WorkFiles&) = delete;
  WorkFiles& operator=(const WorkFiles&) = delete;
  ~WorkFiles() {
    for (const std::string& path : paths) platform::EraseNative(path);
  }

  std::vector<std::string> paths;
};

}  // namespace oravin
