#include "input_file.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>

#include "platform/native_path.h"

namespace oravin::fuzz {

namespace fs = std::filesystem;

namespace {

fs::path NewFolder() {
  std::random_device random;
  fs::path folder =
      fs::temp_directory_path() / ("oravin-fuzz-" + std::to_string(random()) + "-" + std::to_string(random()));
  fs::create_directories(folder);
  return folder;
}

}  // namespace

InputFolder::InputFolder() : native(NewFolder()), windows(platform::ToWindowsPath(native.string()) + "\\") {}

InputFolder::~InputFolder() {
  std::error_code failure;
  fs::remove_all(native, failure);
}

const InputFolder& Folder() {
  static const InputFolder folder;
  return folder;
}

void WriteInput(const std::string& name, std::span<const std::uint8_t> bytes) {
  std::ofstream file(Folder().native / name, std::ios::binary | std::ios::trunc);
  for (const std::uint8_t byte : bytes) file.put(static_cast<char>(byte));
  file.close();
  Require(!file.fail(), "the input could be written");
}

std::vector<std::uint8_t> ReadInput(const std::string& name) {
  std::ifstream file(Folder().native / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

CountingHost::CountingHost() {
  host.desk.showBox = [this](const Message&) {
    ++boxes;
    return Answer::ok;
  };
}

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "It does not hold that %s.\n", what);
  std::abort();
}

}  // namespace oravin::fuzz
