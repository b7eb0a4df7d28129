#include "reference_decoder.h"

#include <stdexcept>

namespace oravin::test {

namespace {

struct Reader {
  std::span<const std::uint8_t> input;
  std::size_t at = 0;

  std::size_t Take() {
    if (at >= input.size()) throw std::out_of_range("input");
    return input[at++];
  }
};

std::vector<std::uint8_t> Unpack(Reader reader) {
  const std::size_t flag = reader.Take() % 2;
  reader.at = flag == 1 ? 5 : 2;
  std::size_t size = 0;
  for (int i = 0; i < 3; ++i) size = size * 256 + reader.Take();
  std::vector<std::uint8_t> output;
  bool ended = false;
  while (output.size() < size && !ended) {
    const std::size_t b0 = reader.Take();
    std::size_t literals = 0;
    std::size_t count = 0;
    std::size_t distance = 0;
    if (b0 <= 0x7F) {
      const std::size_t b1 = reader.Take();
      literals = b0 % 4;
      count = b0 / 4 % 8 + 3;
      distance = b0 / 32 % 4 * 256 + b1 + 1;
    } else if (b0 <= 0xBF) {
      const std::size_t b1 = reader.Take();
      const std::size_t b2 = reader.Take();
      literals = b1 / 64;
      count = b0 % 64 + 4;
      distance = b1 % 64 * 256 + b2 + 1;
    } else if (b0 <= 0xDF) {
      const std::size_t b1 = reader.Take();
      const std::size_t b2 = reader.Take();
      const std::size_t b3 = reader.Take();
      literals = b0 % 4;
      count = b0 / 4 % 4 * 256 + b3 + 5;
      distance = b0 / 16 % 2 * 65536 + b1 * 256 + b2 + 1;
    } else if (b0 <= 0xFB) {
      literals = (b0 % 32 + 1) * 4;
    } else {
      literals = b0 % 4;
      ended = true;
    }
    for (std::size_t i = 0; i < literals; ++i) output.push_back(static_cast<std::uint8_t>(reader.Take()));
    for (std::size_t i = 0; i < count; ++i) {
      if (distance > output.size()) throw std::out_of_range("output");
      output.push_back(output[output.size() - distance]);
    }
  }
  output.resize(size);
  return output;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> ReferenceDecompress(std::span<const std::uint8_t> input) {
  try {
    return Unpack({input});
  } catch (const std::out_of_range&) {
    return std::nullopt;
  }
}

}  // namespace oravin::test
