#pragma once

#include <string>
#include <vector>

#include "files/whole_file.h"

namespace oravin {

/// Temporary files, deleted at the end of the scope.
struct WorkFiles {
  WorkFiles(Files& owner, std::vector<std::string> all) : files(owner), paths(std::move(all)) {}
  WorkFiles(const WorkFiles&) = delete;
  WorkFiles& operator=(const WorkFiles&) = delete;
  ~WorkFiles() {
    for (const std::string& path : paths) EraseIfThere(files, path);
  }

  Files& files;
  std::vector<std::string> paths;
};

}  // namespace oravin
