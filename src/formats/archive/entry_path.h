#pragma once

#include <string>
#include <vector>

namespace oravin {

/// Where an entry is written below a destination, by its name in the archive.
struct EntryPath {
  std::vector<std::string> folders;  ///< from the outermost to the innermost
  std::string file;
  std::string whyNot;  ///< why it must not be written, in words; empty where it may
};

/// Takes an entry's name apart at its backslashes (and slashes, which the game's system takes for the same).
///
/// A name comes from the archive, which anybody can have made: one that would leave the destination, or that the system
/// gives a meaning of its own, is not written.
EntryPath PathOfEntry(const std::string& name);

}  // namespace oravin
