#include "hog/decompress.h"

#include <cstring>

#include "util/run_time_error.h"

// The loop below reads commands as long as the longest one still lies inside the input, and copies in pieces of 8 and
// 16 bytes that may reach past a command's end: the bytes behind are written again by the next command or cut off at
// the end, and both buffers have room for them. The last few commands are read by the careful loop, byte by byte.
//
// A reference with a distance of less than 8 repeats a short pattern. Eight bytes of it are written one by one; from
// there on the pattern can be copied in pieces of 8 from the greatest multiple of the distance that reaches back far
// enough.

namespace oravin {

namespace {

/// The longest command: one control byte and 112 literals; with room for a copy of 16 bytes that begins at its last
/// one.
constexpr std::ptrdiff_t longestCommand = 1 + 112 + 16;

struct Command {
  std::size_t controls;
  std::size_t literals;
  std::size_t copied;
  std::size_t distance;
  bool last;
};

[[noreturn]] void Fail(const std::string& name, const char* why) {
  throw RunTimeError("could not unpack", name, why);
}

void Copy8(std::uint8_t* to, const std::uint8_t* from) {
  std::memcpy(to, from, 8);
}
void Copy16(std::uint8_t* to, const std::uint8_t* from) {
  std::memcpy(to, from, 16);
}

/// Copies `count` bytes from `distance` bytes behind `to`, up to 16 bytes more than asked for.
inline void CopyBack(std::uint8_t* to, std::size_t distance, std::size_t count) {
  const std::uint8_t* from = to - distance;
  std::uint8_t* const end = to + count;
  if (distance >= 16) {
    do {
      Copy16(to, from);
      to += 16;
      from += 16;
    } while (to < end);
    return;
  }
  if (distance < 8) {
    for (int i = 0; i < 8; ++i) to[i] = from[i];
    static constexpr std::uint8_t reach[8] = {0, 8, 8, 9, 8, 10, 12, 14};
    to += 8;
    from = to - reach[distance];
  }
  while (to < end) {
    Copy8(to, from);
    to += 8;
    from += 8;
  }
}

inline void CopyLiterals(std::uint8_t* to, const std::uint8_t* from, std::size_t count) {
  std::uint8_t* const end = to + count;
  do {
    Copy16(to, from);
    to += 16;
    from += 16;
  } while (to < end);
}

/// Takes a command apart. `in` must have its control bytes.
inline Command Decode(const std::uint8_t* in) {
  const std::size_t b0 = in[0];
  if (b0 < 0x80) return {2, b0 & 3, ((b0 >> 2) & 7) + 3, ((b0 >> 5) & 3) * 256 + in[1] + 1, false};
  if (b0 < 0xC0) return {3, std::size_t{in[1]} >> 6U, (b0 & 0x3F) + 4, (in[1] & 0x3FU) * 256U + in[2] + 1U, false};
  if (b0 < 0xE0) {
    return {4, b0 & 3, ((b0 >> 2) & 3) * 256 + in[3] + 5, ((b0 >> 4) & 1) * 65536 + in[1] * 256U + in[2] + 1, false};
  }
  if (b0 < 0xFC) return {1, ((b0 & 0x1F) + 1) * 4, 0, 0, false};
  return {1, b0 & 3, 0, 0, true};
}

std::size_t ControlsOf(std::uint8_t b0) {
  return b0 < 0x80 ? 2 : b0 < 0xC0 ? 3 : b0 < 0xE0 ? 4 : 1;
}

/// Where the two loops stand.
struct Cursor {
  const std::uint8_t* in;
  const std::uint8_t* inEnd;
  std::uint8_t* out;
  std::uint8_t* outBegin;
  std::uint8_t* outEnd;  ///< U bytes behind the beginning
  bool ended = false;
};

void FastLoop(Cursor& cursor, const std::string& name) {
  const std::uint8_t* in = cursor.in;
  std::uint8_t* out = cursor.out;
  while (out < cursor.outEnd && cursor.inEnd - in >= longestCommand) {
    const std::size_t b0 = in[0];
    std::size_t literals = 0;
    std::size_t copied = 0;
    std::size_t distance = 0;
    if (b0 < 0x80) {
      literals = b0 & 3;
      copied = ((b0 >> 2) & 7) + 3;
      distance = ((b0 & 0x60) << 3) + in[1] + 1;
      std::memcpy(out, in + 2, 4);
      in += 2 + literals;
    } else if (b0 < 0xC0) {
      literals = in[1] >> 6U;
      copied = (b0 & 0x3F) + 4;
      distance = (in[1] & 0x3FU) * 256U + in[2] + 1U;
      std::memcpy(out, in + 3, 4);
      in += 3 + literals;
    } else if (b0 < 0xE0) {
      const Command command = Decode(in);
      literals = command.literals;
      copied = command.copied;
      distance = command.distance;
      std::memcpy(out, in + 4, 4);
      in += 4 + literals;
    } else {
      if (b0 >= 0xFC) break;
      literals = ((b0 & 0x1F) + 1) * 4;
      CopyLiterals(out, in + 1, literals);
      in += 1 + literals;
      out += literals;
      continue;
    }
    out += literals;
    if (distance > static_cast<std::size_t>(out - cursor.outBegin))
      Fail(name, "it refers to what lies before its start");
    CopyBack(out, distance, copied);
    out += copied;
  }
  cursor.in = in;
  cursor.out = out;
}

void CarefulLoop(Cursor& cursor, const std::string& name) {
  while (cursor.out < cursor.outEnd && !cursor.ended) {
    const std::size_t left = static_cast<std::size_t>(cursor.inEnd - cursor.in);
    if (left == 0 || left < ControlsOf(*cursor.in)) Fail(name, "its compressed data end too early");
    const Command command = Decode(cursor.in);
    if (left - command.controls < command.literals) Fail(name, "its compressed data end too early");
    std::memcpy(cursor.out, cursor.in + command.controls, command.literals);
    cursor.in += command.controls + command.literals;
    cursor.out += command.literals;
    if (command.distance > static_cast<std::size_t>(cursor.out - cursor.outBegin)) {
      Fail(name, "it refers to what lies before its start");
    }
    for (std::size_t i = 0; i < command.copied; ++i) cursor.out[i] = *(cursor.out + i - command.distance);
    cursor.out += command.copied;
    cursor.ended = command.last;
  }
}

}  // namespace

void Decompress(std::span<const std::uint8_t> input, Unpacked& output, const std::string& name) {
  const std::size_t sizeAt = !input.empty() && (input[0] & 1) != 0 ? 5 : 2;
  if (input.size() < sizeAt + 3) Fail(name, "its compressed data end too early");
  const std::size_t size = std::size_t{input[sizeAt]} << 16 | std::size_t{input[sizeAt + 1]} << 8 | input[sizeAt + 2];
  if (output.capacity < size + unpackMargin) {
    output.capacity = size + unpackMargin;
    output.bytes = std::make_unique_for_overwrite<std::uint8_t[]>(output.capacity);
  }
  output.size = 0;
  std::uint8_t* const begin = output.bytes.get();
  Cursor cursor{input.data() + sizeAt + 3, input.data() + input.size(), begin, begin, begin + size};
  FastLoop(cursor, name);
  CarefulLoop(cursor, name);
  if (cursor.out < cursor.outEnd) std::memset(cursor.out, 0, static_cast<std::size_t>(cursor.outEnd - cursor.out));
  output.size = size;
}

}  // namespace oravin
