#pragma once

#include <string>
#include <vector>

namespace oravin {

/// Where an entry is written in a destination folder, by its name in the archive.
struct EntryPath {
  std::vector<std::string> folders;  ///< outermost first
  std::string file;
  std::string whyNot;  ///< why it must not be written, in words; empty where it may be
};

/// Splits an entry's name at its backslashes and slashes; Windows accepts both.
///
/// Anybody can have made the archive. An entry is not written if its name would leave the destination or is special to
/// the system.
EntryPath PathOfEntry(const std::string& name);

}  // namespace oravin
