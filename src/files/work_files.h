#pragma once

#include <string>
#include <vector>

#include "files/whole_file.h"

namespace oravin {

/// Files that are only needed for a while: they are deleted when this record goes, on every way out.
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
