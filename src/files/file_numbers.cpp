#include "files/file_numbers.h"

#include <array>

namespace oravin {

namespace {

template <std::size_t count>
std::array<std::uint8_t, count> Read(File& file, std::uint64_t offset) {
  std::array<std::uint8_t, count> bytes{};
  Get(file, offset, bytes);
  return bytes;
}

}  // namespace

std::uint32_t ReadLongBE(File& file, std::uint64_t offset) { return BigEndian32(Read<4>(file, offset).data()); }

std::uint32_t ReadLongLE(File& file, std::uint64_t offset) { return LittleEndian32(Read<4>(file, offset).data()); }

std::uint32_t ReadWordBE(File& file, std::uint64_t offset) {
  const auto bytes = Read<2>(file, offset);
  return std::uint32_t{bytes[0]} << 8 | bytes[1];
}

std::uint32_t Read24BE(File& file, std::uint64_t offset) {
  const auto bytes = Read<3>(file, offset);
  return std::uint32_t{bytes[0]} << 16 | std::uint32_t{bytes[1]} << 8 | bytes[2];
}

}  // namespace oravin
