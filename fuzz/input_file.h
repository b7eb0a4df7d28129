#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "desk/host.h"

namespace oravin::fuzz {

/// A folder of its own below the system's temporary one, for as long as this record lives.
struct InputFolder {
  InputFolder();
  InputFolder(const InputFolder&) = delete;
  InputFolder& operator=(const InputFolder&) = delete;
  ~InputFolder();

  std::filesystem::path native;
  std::string windows;  ///< the same as the core spells it, ending in a backslash
};

/// The folder of this process; it is made when it is first asked for.
const InputFolder& Folder();

/// Writes a file of the folder and reads one back.
void WriteInput(const std::string& name, std::span<const std::uint8_t> bytes);
std::vector<std::uint8_t> ReadInput(const std::string& name);

/// A host whose boxes are counted and nothing more.
struct CountingHost {
  CountingHost();
  CountingHost(const CountingHost&) = delete;
  CountingHost& operator=(const CountingHost&) = delete;

  Host host;
  int boxes = 0;
};

/// Ends the process when something does not hold, so that a fuzzer keeps the input.
void Require(bool holds, const char* what);

}  // namespace oravin::fuzz
