#include "archive/decompress.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/bytes.h"
#include "base/file_error.h"

// The fast loop runs as long as the longest command still fits in the input. It copies in pieces of 8 and 16 bytes that
// may reach past a command's end: the next command overwrites those bytes, or they are cut off at the end. Both buffers
// have room for them. The careful loop handles the first 16 bytes and the last few commands.
//
// The form of the next command cannot be predicted, so a branch on it would often be mispredicted. Instead a table
// lists the fields of a command by its first byte, and the same few steps decode all forms; a run of literals is a
// reference that copies nothing. The chain of dependent steps from one command to the next is short, because the next
// command can only be looked up once its start is known.
//
// A reference with a distance of less than 8 repeats a short pattern. Its first 8 bytes are written one by one; after
// them the pattern can be copied in pieces of 8, from the largest multiple of the distance that reaches back far
// enough.

namespace oravin {

namespace {

/// The longest command: one control byte and 112 literals, and room for a copy of 16 bytes that starts at the last one.
constexpr std::ptrdiff_t longestCommand = 1 + 112 + 16;

struct Command {
  std::size_t controls;
  std::size_t literals;
  std::size_t copied;
  std::size_t distance;
};

/// How to decode the fields of a command, by its first byte.
struct alignas(16) Form {
  std::uint32_t distanceBase;  ///< plus b1 * 256 + b2, masked and shifted
  std::uint16_t distanceMask;
  std::uint8_t distanceShift;
  std::uint8_t controls;
  std::uint16_t copiedBase;  ///< plus b3, masked
  std::uint8_t copiedMask;
  std::uint8_t literalsBase;  ///< plus the upper two bits of b1, masked
  std::uint8_t literalsMask;
  std::uint8_t advance;  ///< controls + literalsBase: the command's length without the literals from b1
};

/// Dummy distance for literal runs, which copy 0 bytes; must lie within the output.
constexpr std::size_t runDistance = 16;

constexpr std::size_t firstRun = 0xE0;
constexpr std::size_t firstEnd = 0xFC;

constexpr Form FormOf(std::uint32_t b0) {
  Form form{};
  if (b0 < 0x80) {
    form = {((b0 >> 5 & 3) << 8) + 1, 0xFF00, 8, 2, static_cast<std::uint16_t>((b0 >> 2 & 7) + 3), 0, 0, 0, 0};
  } else if (b0 < 0xC0) {
    form = {1, 0x3FFF, 0, 3, static_cast<std::uint16_t>((b0 & 0x3F) + 4), 0, 0, 3, 0};
  } else if (b0 < firstRun) {
    form = {
        ((b0 >> 4 & 1) << 16) + 1, 0xFFFF, 0, 4, static_cast<std::uint16_t>(((b0 >> 2 & 3) << 8) + 5), 0xFF, 0, 0, 0};
  } else {
    form = {runDistance, 0, 0, 1, 0, 0, 0, 0, 0};
  }
  const bool run = b0 >= firstRun && b0 < firstEnd;
  if (run) form.literalsBase = static_cast<std::uint8_t>(((b0 & 0x1F) + 1) * 4);
  if (!run && form.literalsMask == 0) form.literalsBase = static_cast<std::uint8_t>(b0 & 3);
  form.advance = static_cast<std::uint8_t>(form.controls + form.literalsBase);
  return form;
}

constexpr std::array<Form, 256> forms = [] {
  std::array<Form, 256> table{};
  for (std::uint32_t b0 = 0; b0 < table.size(); ++b0) table[b0] = FormOf(b0);
  return table;
}();

[[noreturn]] void Fail(const std::string& name, const char* why) {
  throw FileError("could not unpack", name, why, ErrorKind::damaged);
}

void Copy8(std::uint8_t* to, const std::uint8_t* from) { std::memcpy(to, from, 8); }
void Copy16(std::uint8_t* to, const std::uint8_t* from) { std::memcpy(to, from, 16); }

/// Copies `count` bytes from `distance` bytes before `to`; may write up to 16 bytes more.
inline void CopyBack(std::uint8_t* to, std::size_t distance, std::size_t count) {
  const std::uint8_t* from = to - distance;
  if (distance >= 8) {
    // Usually a single piece of 8. Larger pieces would more often have to wait for bytes that were just written.
    Copy8(to, from);
    if (count <= 8) return;
    Copy8(to + 8, from + 8);
    for (std::size_t done = 16; done < count; done += 8) Copy8(to + done, from + done);
    return;
  }
  for (int i = 0; i < 8; ++i) to[i] = from[i];
  static constexpr std::uint8_t reach[8] = {0, 8, 8, 9, 8, 10, 12, 14};
  for (std::size_t done = 8; done < count; done += 8) Copy8(to + done, to + done - reach[distance]);
}

inline void CopyLiterals(std::uint8_t* to, const std::uint8_t* from, std::size_t count) {
  std::uint8_t* const end = to + count;
  do {
    Copy16(to, from);
    to += 16;
    from += 16;
  } while (to < end);
}

/// Decodes a command. `in` must have four bytes.
inline Command DecodeReference(const std::uint8_t* in) {
  const Form& form = forms[in[0]];
  const std::uint32_t both = std::uint32_t{in[1]} << 8 | in[2];
  return {form.controls, form.literalsBase + (std::size_t{in[1]} >> 6U & form.literalsMask),
          form.copiedBase + (std::size_t{in[3]} & form.copiedMask),
          form.distanceBase + ((both & form.distanceMask) >> form.distanceShift)};
}

/// The position of both loops in input and output.
struct Cursor {
  const std::uint8_t* in;
  const std::uint8_t* inEnd;
  std::uint8_t* out;
  std::uint8_t* outBegin;
  std::uint8_t* outEnd;  ///< outBegin + U
};

void FastLoop(Cursor& cursor, const std::string& name) {
  const std::uint8_t* in = cursor.in;
  std::uint8_t* out = cursor.out;
  // Local copies: bytes may alias anything, so the compiler would load the cursor's fields again in every iteration.
  const std::uint8_t* const outBegin = cursor.outBegin;
  const std::uint8_t* const outEnd = cursor.outEnd;
  const std::ptrdiff_t room = cursor.inEnd - in - longestCommand;
  const std::uint8_t* const inLimit = in + std::max<std::ptrdiff_t>(room, -1) + 1;
  while (out < outEnd && in < inLimit) {
    const Form& form = forms[in[0]];
    if (in[0] >= firstEnd) break;
    const std::uint32_t second = in[1];
    const std::uint32_t both = second << 8 | in[2];
    const std::uint32_t fourth = in[3];
    const std::uint8_t* const from = in + form.controls;
    const std::size_t more = second >> 6 & form.literalsMask;
    const std::size_t literals = form.literalsBase + more;
    in += form.advance + more;
    Copy8(out, from);
    if (literals > 8) CopyLiterals(out + 8, from + 8, literals - 8);
    out += literals;
    const std::size_t distance = form.distanceBase + ((both & form.distanceMask) >> form.distanceShift);
    if (distance > static_cast<std::size_t>(out - outBegin)) Fail(name, "it refers to what lies before its start");
    const std::size_t copied = form.copiedBase + (fourth & form.copiedMask);
    CopyBack(out, distance, copied);
    out += copied;
  }
  cursor.in = in;
  cursor.out = out;
}

/// Executes commands until the output reaches `until` or the stream ends.
void CarefulLoop(Cursor& cursor, const std::uint8_t* until, const std::string& name) {
  bool ended = false;
  while (cursor.out < until && !ended) {
    const std::size_t left = static_cast<std::size_t>(cursor.inEnd - cursor.in);
    if (left == 0 || left < forms[*cursor.in].controls) Fail(name, "its compressed data end too early");
    std::array<std::uint8_t, 4> controls{};
    std::memcpy(controls.data(), cursor.in, forms[*cursor.in].controls);
    const Command command = DecodeReference(controls.data());
    if (left - command.controls < command.literals) Fail(name, "its compressed data end too early");
    std::memcpy(cursor.out, cursor.in + command.controls, command.literals);
    cursor.in += command.controls + command.literals;
    cursor.out += command.literals;
    if (command.copied > 0 && command.distance > static_cast<std::size_t>(cursor.out - cursor.outBegin)) {
      Fail(name, "it refers to what lies before its start");
    }
    for (std::size_t i = 0; i < command.copied; ++i) cursor.out[i] = *(cursor.out + i - command.distance);
    cursor.out += command.copied;
    ended = controls[0] >= firstEnd;
  }
  if (ended && cursor.out < cursor.outEnd) {
    // The stream ended early: the rest of the output is zero.
    std::memset(cursor.out, 0, static_cast<std::size_t>(cursor.outEnd - cursor.out));
    cursor.out = cursor.outEnd;
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
  CarefulLoop(cursor, begin + std::min(size, runDistance), name);
  FastLoop(cursor, name);
  CarefulLoop(cursor, cursor.outEnd, name);
  output.size = size;
}

}  // namespace oravin
