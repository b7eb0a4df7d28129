#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desktop.h"

/// Which program the window tests click on: this system's own; or the Windows program in Wine, where the environment's
/// ORAVIN_WINDOWS_PROGRAMS names the folder that holds it.
namespace oravin::test {

/// The folder of the Windows programs; nothing when this system's program is under test.
std::optional<std::string> WindowsPrograms();

/// A Windows machine for one run of the program.
struct WindowsRun {
  std::string folder;                  ///< this machine's folder that is seen there, by the same path
  std::string registry;                ///< a registry file of this machine, taken in before the program starts
  std::string before;                  ///< what the machine's shell does before that
  std::vector<std::string> arguments;  ///< the program's; every whole path is one of this machine
};

/// The command that starts the Windows program on a machine of its own.
/// When the program has ended, the folder has a file "registry.txt" with what the machine's registry then has of it.
/// @param program the executable's file name
std::vector<std::string> CommandOf(const Desktop& desktop, const std::string& program, const WindowsRun& run);

}  // namespace oravin::test
