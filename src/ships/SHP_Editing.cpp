#include "ships/SHP_Editing.h"

#include <array>
#include <optional>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "util/File_Path.h"

namespace oravin {

namespace {

constexpr std::uint64_t classByteOffset = 26;
constexpr std::uint8_t cloaked = 2;

bool Present(Host& host, std::string& path, const std::string& title) {
  if (FileExists(path)) return true;
  Show(host, "Error - file not found", Icon::exclamation, title);
  return false;
}

/// The class byte; nothing when the file cannot be read that far, which the queries pass over.
std::optional<std::uint8_t> ClassByte(Files& files, const std::string& path) {
  try {
    const OpenedFile file(files, path, platform::OpenFor::reading);
    std::array<std::uint8_t, 1> byte{};
    Get(files, file.handle, classByteOffset, byte);
    return byte[0];
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace

bool IsCapitalShip(Host& host, std::string path) {
  if (!Present(host, path, "IsCapitalShip")) return false;
  const auto byte = ClassByte(host.files, path);
  return byte == std::uint8_t{1} || byte == std::uint8_t{3} || byte == std::uint8_t{5};
}

bool IsCloaked(Host& host, std::string path) {
  if (!Present(host, path, "IsCloaked")) return false;
  return ClassByte(host.files, path) == cloaked;
}

void ToggleCloak(Host& host, std::string path) {
  if (!Present(host, path, "IsCloaked")) return;
  Trap(host, "ToggleCloak", [&] {
    const OpenedFile file(host.files, path, platform::OpenFor::changing);
    std::array<std::uint8_t, 1> byte{};
    Get(host.files, file.handle, classByteOffset, byte);
    byte[0] = byte[0] == cloaked ? std::uint8_t{0} : cloaked;
    Put(host.files, file.handle, classByteOffset, byte);
  });
}

}  // namespace oravin
