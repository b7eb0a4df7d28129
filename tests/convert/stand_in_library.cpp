// A library that stands in for the converter of meshes. The source's text tells what it is to return and whether it
// writes a destination:
//
//     result 2
//     writes
//
// What it writes is a report of how it was called. It returns 3 for a source that it cannot open, as the real one does,
// and a number of its own for arguments that no caller may give it.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr std::int32_t badArgument = 901;
constexpr std::int32_t cannotOpen = 3;

bool HasBlankAtAnEnd(const std::string& text) { return !text.empty() && (text.front() == ' ' || text.back() == ' '); }

bool HasCapital(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

}  // namespace

// The name is the library's.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" std::int32_t CONVERTER_CALL convert3ds2sl(const char* source, const char* option, const char* destination) {
  if (source == nullptr || option == nullptr || destination == nullptr) return badArgument;
  const std::string from = source;
  const std::string to = destination;
  if (HasBlankAtAnEnd(from) || HasBlankAtAnEnd(to) || HasBlankAtAnEnd(option) || HasCapital(option)) return badArgument;
  // The caller deletes what was there; a converter does not have to expect it.
  if (std::filesystem::exists(to)) return badArgument;
  std::ifstream mesh(from);
  std::string word;
  std::int32_t result = 0;
  if (!(mesh >> word >> result)) return cannotOpen;
  if (mesh >> word) {
    std::ofstream model(to, std::ios::binary);
    model << "source " << from << "\noption " << option << "\ndestination " << to << "\nfolder "
          << std::filesystem::current_path().string() << "\n";
  }
  return result;
}
