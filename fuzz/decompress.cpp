// Fuzzes the decompressor: it must do what the plain decoder does, byte for byte, and refuse what that refuses.

#include "archive/decompress.h"

#include <algorithm>

#include "base/file_error.h"
#include "input_file.h"
#include "reference_decoder.h"

namespace {

constexpr std::size_t largestOutput = 400'000;  // larger ones are legal, but fill memory instead of finding anything

std::size_t DeclaredSize(std::span<const std::uint8_t> input) {
  const std::size_t at = !input.empty() && (input[0] & 1) != 0 ? 5 : 2;
  if (input.size() < at + 3) return 0;
  return std::size_t{input[at]} * 65536 + std::size_t{input[at + 1]} * 256 + input[at + 2];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  const std::span<const std::uint8_t> input(data, size);
  if (DeclaredSize(input) > largestOutput) return 0;
  static Unpacked unpacked;  // used again and again, as the program does
  const auto expected = test::ReferenceDecompress(input);
  bool refused = false;
  try {
    Decompress(input, unpacked);
  } catch (const FileError&) {
    refused = true;
  }
  fuzz::Require(refused == !expected.has_value(), "the same streams are refused");
  if (!expected) return 0;
  const auto output = unpacked.Span();
  fuzz::Require(std::equal(output.begin(), output.end(), expected->begin(), expected->end()),
                "the same bytes come out");
  return 0;
}
