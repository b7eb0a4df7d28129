#include "support/temporary_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "platform/native_path.h"

namespace oravin::test {

namespace fs = std::filesystem;

namespace {

fs::path NewFolder() {
  std::random_device random;
  for (;;) {
    fs::path folder =
        fs::temp_directory_path() / ("oravin-test-" + std::to_string(random()) + "-" + std::to_string(random()));
    if (fs::create_directory(folder)) return folder;
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder() : native(NewFolder()), windows(platform::ToWindowsPath(native.string()) + "\\") {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code failure;
  fs::remove_all(native, failure);
}

fs::path TemporaryFolder::Native(std::string_view name) const { return (native / name).make_preferred(); }

std::string TemporaryFolder::Windows(std::string_view name) const {
  std::string path = windows + std::string(name);
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

void WriteFileAt(const fs::path& path, std::string_view text) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file) throw std::runtime_error("the test cannot write " + path.string());
}

void WriteFileAt(const fs::path& path, const Bytes& bytes) { WriteFileAt(path, std::string_view(TextOf(bytes))); }

std::string ReadTextAt(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("the test cannot read " + path.string());
  std::string text(static_cast<std::size_t>(fs::file_size(path)), '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (!file) throw std::runtime_error("the test cannot read " + path.string());
  return text;
}

Bytes ReadFileAt(const fs::path& path) { return BytesOf(ReadTextAt(path)); }

void MakeFolderAt(const fs::path& path) { fs::create_directories(path); }

void PatchFileAt(const fs::path& path, std::uint64_t offset, const Bytes& bytes) {
  std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
  const std::string text = TextOf(bytes);
  file.seekp(static_cast<std::streamoff>(offset));
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file) throw std::runtime_error("the test cannot patch " + path.string());
}

}  // namespace oravin::test
