#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

/// Compressed entries of the archive. Numbers are big-endian.
///
///   0        2  10 FB; with bit 0 of the first byte set, one more number follows
///   2        3  only with that bit: a number that is not used
///   2 or 5   3  U, the size of the unpacked data in bytes
///   5 or 8   .  commands
///
/// A command is one to four control bytes b0 to b3, then L literal bytes that are copied as they are. Most forms also
/// have a reference: C bytes are copied one by one from D bytes before the output's end. If D is less than C, the copy
/// repeats bytes that it has just written.
///
// clang-format off
///   b0        control bytes  L                    C                             D
///   00 to 7F  2              b0 & 3               (b0 >> 2 & 7) + 3             (b0 >> 5 & 3) * 256 + b1 + 1
///   80 to BF  3              b1 >> 6              (b0 & 3F) + 4                 (b1 & 3F) * 256 + b2 + 1
///   C0 to DF  4              b0 & 3               (b0 >> 2 & 3) * 256 + b3 + 5  (b0 >> 4 & 1) * 65536 + b1 * 256 + b2 + 1
///   E0 to FB  1              ((b0 & 1F) + 1) * 4  none
///   FC to FF  1              b0 & 3               none; the stream ends
// clang-format on
namespace oravin {

/// The first 16 bits of a compressed entry.
inline constexpr std::uint32_t compressedSignature = 0x10FB;

/// Spare memory after the U bytes of output. A command produces at most 1,031 bytes, so with this margin no command
/// needs to check for the output's end.
inline constexpr std::size_t unpackMargin = 50000;

/// The longest possible compressed entry in bytes, including its header, whatever size the table states: the unpacked
/// data and a quarter more, and ample room for the header and the last command.
/// @param unpacked U
constexpr std::uint64_t LongestStream(std::uint64_t unpacked) {
  return unpacked + unpacked / 4 + (std::uint64_t{1} << 20);
}

/// Unpacked data. The memory is reused by the next Decompress.
struct Unpacked {
  std::unique_ptr<std::uint8_t[]> bytes;
  std::size_t capacity = 0;
  std::size_t size = 0;

  [[nodiscard]] std::span<const std::uint8_t> Span() const { return {bytes.get(), size}; }
};

/// Unpacks a whole stored entry, including its signature. The output always has U bytes: if the stream ends early the
/// rest is zero, and if it goes on the rest is dropped.
///
/// @param name the entry's name, for the error
/// @throws FileError of the kind `damaged` when the stream runs out or refers to bytes before the output's start
void Decompress(std::span<const std::uint8_t> input, Unpacked& output, const std::string& name = "the entry");

}  // namespace oravin
