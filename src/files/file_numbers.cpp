#include "files/file_numbers.h"

#include <array>

namespace oravin {

namespace {

/// Puts `Count` bytes together, the first one highest.
template <std::size_t Count>
std::array<std::uint8_t, Count> Read(Files& files, std::uint64_t offset, int handle) {
  std::array<std::uint8_t, Count> bytes{};
  Get(files, handle, offset, bytes);
  return bytes;
}

}  // namespace

std::uint32_t ReadLongBE(Files& files, std::uint64_t offset, int handle) {
  return BigEndian32(Read<4>(files, offset, handle).data());
}

std::uint32_t ReadLongLE(Files& files, std::uint64_t offset, int handle) {
  return LittleEndian32(Read<4>(files, offset, handle).data());
}

std::uint32_t ReadWordBE(Files& files, std::uint64_t offset, int handle) {
  const auto bytes = Read<2>(files, offset, handle);
  return std::uint32_t{bytes[0]} << 8 | bytes[1];
}

std::uint32_t ReadWordLE(Files& files, std::uint64_t offset, int handle) {
  const auto bytes = Read<2>(files, offset, handle);
  return std::uint32_t{bytes[1]} << 8 | bytes[0];
}

std::uint32_t Read24BE(Files& files, std::uint64_t offset, int handle) {
  const auto bytes = Read<3>(files, offset, handle);
  return std::uint32_t{bytes[0]} << 16 | std::uint32_t{bytes[1]} << 8 | bytes[2];
}

CString ReadCString(Files& files, std::uint64_t offset, int handle) {
  CString result;
  for (result.next = offset;;) {
    const std::uint8_t byte = Read<1>(files, result.next, handle)[0];
    ++result.next;
    if (byte == 0) return result;
    result.text += static_cast<char>(byte);
  }
}

}  // namespace oravin
