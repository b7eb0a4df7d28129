#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "desk/host.h"

namespace oravin {

/// What an action is going to write, put together before its first change.
struct WritePlan {
  std::vector<std::string> files;    ///< files that are changed, replaced or deleted; missing ones do not matter
  std::vector<std::string> folders;  ///< folders in which files are made
  std::map<std::string, std::uint64_t> room;  ///< bytes that will be written below each folder
};

/// Adds bytes to the room that a plan needs below a folder.
void NeedRoom(WritePlan& plan, const std::string& folder, std::uint64_t bytes);

/// Makes sure that every file of the plan can be opened for writing, that files can be made in its folders and that the
/// disk has room. If not, one box says which file or how much room, and the action must not begin.
/// @return whether everything is as it must be
bool ReadyToWrite(Host& host, const WritePlan& plan);

}  // namespace oravin
