#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

/// Compressed entries of the archive. Numbers are big-endian.
///
///   0        2  10 FB; bit 0 of the first byte tells of a number more
///   2        3  only with that bit: a number that is passed over
///   2 or 5   3  U, the size of the unpacked data
///   5 or 8   .  commands
///
/// A command is one to four control bytes, L literal bytes that are copied as they are, and for most forms a reference:
/// C bytes copied one by one from D bytes behind the output's end, so that a D below C repeats what it writes.
///
///   first byte  control bytes  L                     C                              D
///   00 to 7F    2  b0 b1       b0 & 3                (b0 >> 2 & 7) + 3              (b0 >> 5 & 3) * 256 + b1 + 1
///   80 to BF    3  b0 b1 b2    b1 >> 6               (b0 & 3F) + 4                  (b1 & 3F) * 256 + b2 + 1
///   C0 to DF    4  b0 to b3    b0 & 3                (b0 >> 2 & 3) * 256 + b3 + 5   (b0 >> 4 & 1) * 65536 + b1 * 256 +
///   b2 + 1 E0 to FB    1  b0          ((b0 & 1F) + 1) * 4   none FC to FF    1  b0          b0 & 3 none, and the
///   stream ends
namespace oravin {

/// The 16-bit value that a compressed entry begins with.
inline constexpr std::uint32_t compressedSignature = 0x10FB;

/// How far behind U the output may be written while unpacking. A command produces at most 1,031 bytes, so that with
/// this margin no command needs to look for the output's end.
inline constexpr std::size_t unpackMargin = 50000;

/// The most bytes of a compressed entry that can count, its header with them. However large the table says it is, no
/// stream can be longer than its unpacked data and a quarter more; the rest is ample room for the header and the end.
/// @param unpacked U
constexpr std::uint64_t LongestStream(std::uint64_t unpacked) {
  return unpacked + unpacked / 4 + (std::uint64_t{1} << 20);
}

/// Unpacked data. The memory is kept for the next use.
struct Unpacked {
  std::unique_ptr<std::uint8_t[]> bytes;
  std::size_t capacity = 0;
  std::size_t size = 0;

  [[nodiscard]] std::span<const std::uint8_t> Span() const { return {bytes.get(), size}; }
};

/// Unpacks a whole stored entry, from its signature on. The output's length is always U: what a stream that ends early
/// leaves is zero, what a stream that goes on produces is cut.
///
/// @param name the entry's name, for the error
/// @throws FileError when the stream runs out or refers to what lies before the output's start
void Decompress(std::span<const std::uint8_t> input, Unpacked& output, const std::string& name = "the entry");

}  // namespace oravin
