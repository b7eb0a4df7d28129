#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "desk/host.h"

namespace oravin {

/// What an action will write, collected before its first change.
struct WritePlan {
  std::vector<std::string> files;             ///< files that are changed, replaced or deleted; missing ones are ignored
  std::vector<std::string> folders;           ///< folders in which files are created
  std::map<std::string, std::uint64_t> room;  ///< bytes that will be written in each folder
};

/// Adds to the space that a plan needs in a folder.
void NeedRoom(WritePlan& plan, const std::string& folder, std::uint64_t bytes);

/// Checks that every file of the plan can be opened for writing, that files can be created in its folders and that the
/// disk has room. If not, one message box names the file or the missing space, and the action must not start.
/// @return true if the action can start
bool ReadyToWrite(Host& host, const WritePlan& plan);

}  // namespace oravin
