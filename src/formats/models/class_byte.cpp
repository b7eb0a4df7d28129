#include "models/class_byte.h"

#include <array>

#include "base/file_error.h"
#include "base/text.h"
#include "files/look_up.h"

namespace oravin {

namespace {

constexpr std::uint64_t classByteOffset = 26;
constexpr std::uint8_t cloaked = 2;

/// The class byte; nothing when the file cannot be read that far.
std::optional<std::uint8_t> ClassByteAt(Files& files, const std::string& path) {
  const std::string place = Trim(path);
  RequireFile(files, place);
  try {
    ModelReader reader(files, place);
    return ClassByteOf(reader);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<std::uint8_t> ClassByteOf(ModelReader& reader) {
  const auto byte = BytesAt(reader, classByteOffset, 1);
  return byte.empty() ? std::nullopt : std::optional(byte[0]);
}

bool MarksCapitalShip(std::uint8_t classByte) { return classByte == 1 || classByte == 3 || classByte == 5; }

bool IsCapitalShip(Files& files, const std::string& path) {
  const auto byte = ClassByteAt(files, path);
  return byte && MarksCapitalShip(*byte);
}

bool IsCloaked(Files& files, const std::string& path) { return ClassByteAt(files, path) == cloaked; }

void ToggleCloak(Files& files, const std::string& path) {
  const std::string place = Trim(path);
  RequireFile(files, place);
  File file(files, place, OpenFor::changing);
  std::array<std::uint8_t, 1> byte{};
  Get(file, classByteOffset, byte);
  byte[0] = byte[0] == cloaked ? std::uint8_t{0} : cloaked;
  Put(file, classByteOffset, byte);
}

}  // namespace oravin
