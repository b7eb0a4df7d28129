#include "support/image_program.h"

#include <array>
#include <cstdio>

namespace oravin::test {

namespace {

/// Runs a command of the shell; returns what it printed, nothing when it failed.
Bytes PrintedBy(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return {};
  Bytes printed;
  std::array<std::uint8_t, 65536> block{};
  for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), pipe)) > 0;) {
    printed.insert(printed.end(), block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count));
  }
  return pclose(pipe) == 0 ? printed : Bytes();
}

std::string Quoted(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

}  // namespace

std::string Identified(const std::filesystem::path& image) {
  return TextOf(PrintedBy("identify -format '%m %w %h' " + Quoted(image)));
}

Bytes ShownPixels(const std::filesystem::path& image) {
  return PrintedBy("convert " + Quoted(image) + " -depth 8 rgb:-");
}

}  // namespace oravin::test
