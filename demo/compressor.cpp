// The command stream of a compressed entry. A command is 1 to 4 control bytes, then its literals (bytes copied as they
// are), then, for the copy forms, a copy of earlier output:
//
//   form      control bytes (bits, highest first)                          literals   copy length   distance
//   short     0ddccclll... : 0 dd ccc ll | dddddddd                        0..3       3..10         1..1024
//   medium    10 cccccc | ll dddddd | dddddddd                             0..3       4..67         1..16384
//   long      110 d cc ll | dddddddd | dddddddd | cccccccc                 0..3       5..1028       1..131072
//   literals  111 nnnnn  (nnnnn up to 27)                                  4..112 by fours
//   end       111111 ll                                                    0..3
//
// The search uses hash chains: positions of equal 4-byte strings are chained, newest first, within the window of
// 131,072 bytes; a second table without chains has the newest position of every 3-byte string, for the short form. The
// value of a match is its length minus its control bytes. A match is postponed by one byte if the next position has a
// better one (lazy matching). All arithmetic is integer, so the output is the same on every machine.
#include "demo/compressor.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>

namespace oravin::demo {

namespace {

constexpr std::uint32_t kWindow = 131072;
constexpr std::uint32_t kShortDistance = 1024;
constexpr std::uint32_t kMediumDistance = 16384;
constexpr std::uint32_t kShortLength = 10;
constexpr std::uint32_t kMediumLength = 67;
constexpr std::uint32_t kLongLength = 1028;
constexpr std::uint32_t kGoodLength = 12;
constexpr std::uint32_t kNone = 0xFFFFFFFF;

struct Limits {
  int candidates;          // examined per position
  std::uint32_t nice;      // a match of this length ends the search and is not postponed
  std::uint32_t patience;  // log2 of the literal run after which positions are skipped
};

Limits LimitsOf(Effort effort) {
  switch (effort) {
    case Effort::kFast:
      return {2, 32, 5};
    case Effort::kNormal:
      return {6, 64, 7};
    case Effort::kBest:
      break;
  }
  return {256, kLongLength, 31};
}

struct Match {
  std::uint32_t length = 0;
  std::uint32_t distance = 0;
  int worth = 0;  // bytes saved; 0 without a useful match
};

// The number of control bytes of a copy, or 0 if no form can encode it.
int CostOf(std::uint32_t length, std::uint32_t distance) {
  if (length <= kShortLength && distance <= kShortDistance) return length >= 3 ? 2 : 0;
  if (length <= kMediumLength && distance <= kMediumDistance) return length >= 4 ? 3 : 0;
  return length >= 5 ? 4 : 0;
}

struct Finder {
  const std::uint8_t* data;
  std::uint32_t size;
  int shift;                           // of the multiplied hash
  std::vector<std::uint32_t> newest3;  // position of the newest 3-byte string by hash
  std::vector<std::uint32_t> newest4;
  std::vector<std::uint32_t> older;  // the next older position of the same 4-byte hash, by position within the window
  std::uint32_t olderMask;
};

std::uint32_t Load32(const std::uint8_t* p) {
  std::uint32_t value = 0;
  std::memcpy(&value, p, 4);
  if constexpr (std::endian::native == std::endian::big) {
    value = (value >> 24) | ((value >> 8) & 0xFF00U) | ((value << 8) & 0xFF0000U) | (value << 24);
  }
  return value;
}

std::uint32_t HashOf(std::uint32_t value, int shift) { return (value * 2654435761U) >> shift; }

Finder MakeFinder(std::span<const std::uint8_t> data) {
  const auto size = static_cast<std::uint32_t>(data.size());
  // Small contents use small tables: clearing large ones would be slower than the search.
  const int bits = std::clamp(static_cast<int>(std::bit_width(size)), 8, 16);
  const std::uint32_t window = std::min(kWindow, std::bit_ceil(std::max(size, 1U)));
  Finder finder{data.data(), size, 32 - bits, {}, {}, {}, window - 1};
  finder.newest3.assign(std::size_t{1} << bits, kNone);
  finder.newest4.assign(std::size_t{1} << bits, kNone);
  finder.older.resize(window);
  return finder;
}

// The number of equal bytes at a and b, at most `limit`.
std::uint32_t EqualBytes(const std::uint8_t* a, const std::uint8_t* b, std::uint32_t limit) {
  std::uint32_t n = 0;
  while (n + 8 <= limit) {
    std::uint64_t x = 0;
    std::uint64_t y = 0;
    std::memcpy(&x, a + n, 8);
    std::memcpy(&y, b + n, 8);
    if (x != y) {
      const int equalBits =
          std::endian::native == std::endian::little ? std::countr_zero(x ^ y) : std::countl_zero(x ^ y);
      return n + static_cast<std::uint32_t>(equalBits) / 8;
    }
    n += 8;
  }
  while (n < limit && a[n] == b[n]) ++n;
  return n;
}

// Uses the candidate if it saves more than the best so far. Candidates come in order of distance, so one that is not
// longer than the best cannot save more.
void Consider(const Finder& finder, std::uint32_t position, std::uint32_t candidate, std::uint32_t limit, Match& best) {
  const std::uint8_t* here = finder.data + position;
  const std::uint8_t* there = finder.data + candidate;
  if (best.length >= limit) return;
  if (best.length >= 4) {
    // A longer match must also match the four bytes ending one past the best; most candidates fail here.
    if (std::memcmp(here + best.length - 3, there + best.length - 3, 4) != 0) return;
  } else if (here[best.length] != there[best.length]) {
    return;
  }
  const std::uint32_t length = EqualBytes(here, there, limit);
  const std::uint32_t distance = position - candidate;
  const int cost = CostOf(length, distance);
  const int worth = static_cast<int>(length) - cost;
  if (cost != 0 && worth > best.worth) best = {length, distance, worth};
}

// Adds the position to the tables and, if `best` is given, searches for its best match.
void Visit(Finder& finder, std::uint32_t position, const Limits& limits, int candidates, Match* best) {
  if (position + 4 > finder.size) return;
  const std::uint32_t bytes = Load32(finder.data + position);
  std::uint32_t& slot3 = finder.newest3[HashOf(bytes << 8, finder.shift)];
  std::uint32_t& slot4 = finder.newest4[HashOf(bytes, finder.shift)];
  if (best != nullptr) {
    const std::uint32_t limit = std::min(finder.size - position, kLongLength);
    if (slot3 != kNone && position - slot3 <= kShortDistance) Consider(finder, position, slot3, limit, *best);
    std::uint32_t candidate = slot4;
    for (int n = candidates; n > 0 && candidate != kNone; --n) {
      if (position - candidate > kWindow || best->length >= limits.nice) break;
      Consider(finder, position, candidate, limit, *best);
      const std::uint32_t next = finder.older[candidate & finder.olderMask];
      if (next != kNone && next >= candidate) break;  // the slot has been reused by a newer position
      candidate = next;
    }
  }
  slot3 = position;
  finder.older[position & finder.olderMask] = slot4;
  slot4 = position;
}

std::uint8_t Byte(std::uint32_t value) { return static_cast<std::uint8_t>(value & 0xFFU); }

// The output buffer has the worst-case size: a copy is used only if it saves at least one byte, and it can split one
// literal run into two, which costs one byte. So no result is longer than literals alone: one control byte per 112 of
// them, plus header and end.
std::size_t WorstCase(std::size_t size) { return size + size / 112 + 16; }

std::uint8_t* PutLiterals(std::uint8_t* out, const std::uint8_t* from, std::uint32_t count) {
  for (std::uint32_t i = 0; i < count; ++i) out[i] = from[i];
  return out + count;
}

// Writes literal runs until at most three literals are left, which the next command includes.
std::uint8_t* PutRuns(std::uint8_t* out, const std::uint8_t*& from, std::uint32_t& count) {
  while (count >= 4) {
    const std::uint32_t run = std::min(count & ~3U, 112U);
    *out++ = Byte(0xE0U | (run / 4 - 1));
    std::memcpy(out, from, run);
    out += run;
    from += run;
    count -= run;
  }
  return out;
}

std::uint8_t* PutCopy(std::uint8_t* out, const std::uint8_t* literals, std::uint32_t count, const Match& match) {
  out = PutRuns(out, literals, count);
  const std::uint32_t d = match.distance - 1;
  switch (CostOf(match.length, match.distance)) {
    case 2:
      *out++ = Byte(((d >> 8) << 5) | ((match.length - 3) << 2) | count);
      *out++ = Byte(d);
      break;
    case 3:
      *out++ = Byte(0x80U | (match.length - 4));
      *out++ = Byte((count << 6) | (d >> 8));
      *out++ = Byte(d);
      break;
    default:
      *out++ = Byte(0xC0U | ((d >> 16) << 4) | (((match.length - 5) >> 8) << 2) | count);
      *out++ = Byte(d >> 8);
      *out++ = Byte(d);
      *out++ = Byte(match.length - 5);
      break;
  }
  return PutLiterals(out, literals, count);
}

// Adds the positions inside a copy; for a very long one (mostly a run of one byte) only its ends, which works as well.
void VisitCopied(Finder& finder, std::uint32_t from, std::uint32_t to, const Limits& limits) {
  constexpr std::uint32_t kEnds = 64;
  for (std::uint32_t p = from; p < to; ++p) {
    if (to - from > 2 * kEnds && p == from + kEnds) p = to - kEnds;
    Visit(finder, p, limits, 0, nullptr);
  }
}

}  // namespace

std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> data, Effort effort) {
  if (data.size() > kMaxContent) throw std::length_error("content too large for an archive entry");
  const Limits limits = LimitsOf(effort);
  const auto size = static_cast<std::uint32_t>(data.size());
  std::vector<std::uint8_t> packed(WorstCase(data.size()));
  std::uint8_t* out = packed.data();
  for (const std::uint32_t b : {0x10U, 0xFBU, size >> 16, size >> 8, size}) *out++ = Byte(b);

  Finder finder = MakeFinder(data);
  std::uint32_t literals = 0;  // start of the pending literals
  std::uint32_t position = 0;
  Match match;  // at `position`, if found by the previous lazy search
  bool carried = false;
  while (position < size) {
    if (!carried) {
      match = {};
      Visit(finder, position, limits, limits.candidates, &match);
    }
    carried = false;
    if (match.worth <= 0) {
      position += 1 + ((position - literals) >> limits.patience);
      continue;
    }
    std::uint32_t visited = position + 1;
    if (match.length < limits.nice) {
      // A good match is rarely beaten by the next one: search less.
      Match next;
      const int candidates = match.length >= kGoodLength ? limits.candidates / 4 : limits.candidates;
      Visit(finder, position + 1, limits, candidates, &next);
      visited = position + 2;
      if (next.worth > match.worth) {
        ++position;
        match = next;
        carried = true;
        continue;
      }
    }
    out = PutCopy(out, finder.data + literals, position - literals, match);
    const std::uint32_t end = position + match.length;
    VisitCopied(finder, visited, end, limits);
    position = literals = end;
  }
  const std::uint8_t* rest = finder.data + literals;
  std::uint32_t count = size - literals;
  out = PutRuns(out, rest, count);
  *out++ = Byte(0xFCU | count);
  out = PutLiterals(out, rest, count);
  packed.resize(static_cast<std::size_t>(out - packed.data()));
  packed.shrink_to_fit();
  return packed;
}

}  // namespace oravin::demo
