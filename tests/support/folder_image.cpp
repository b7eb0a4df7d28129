#include "support/folder_image.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "support/temporary_folder.h"

namespace oravin::test {

namespace fs = std::filesystem;

namespace {

std::string Hex(const Bytes& bytes, std::size_t at) {
  constexpr std::size_t most = 8;
  std::string text;
  for (std::size_t i = at; i < bytes.size() && i < at + most; ++i) {
    std::array<char, 4> digits{};
    std::snprintf(digits.data(), digits.size(), " %02X", unsigned{bytes[i]});
    text += digits.data();
  }
  return text.empty() ? " (its end)" : text;
}

/// Empty when the two are the same.
std::string Difference(const Bytes& expected, const Bytes& actual) {
  if (expected == actual) return {};
  const auto [a, b] = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
  const auto at = static_cast<std::size_t>(a - expected.begin());
  std::string text;
  if (expected.size() != actual.size()) {
    text = std::to_string(actual.size()) + " bytes instead of " + std::to_string(expected.size()) + ", ";
  }
  return text + "from byte " + std::to_string(at) + " on" + Hex(actual, at) + " instead of" + Hex(expected, at);
}

}  // namespace

FolderImage ImageOf(const fs::path& folder) {
  FolderImage image;
  if (!fs::is_directory(folder)) return image;
  for (const fs::directory_entry& item : fs::recursive_directory_iterator(folder)) {
    const std::string name = item.path().lexically_relative(folder).generic_string();
    if (item.is_directory()) {
      image.emplace(name + "/", Bytes());
    } else {
      image.emplace(name, ReadFileAt(item.path()));
    }
  }
  return image;
}

FolderImage Without(FolderImage image, const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    std::erase_if(image, [&](const auto& item) {
      return item.first == path || (path.ends_with('/') && item.first.starts_with(path));
    });
  }
  return image;
}

std::string Differences(const FolderImage& expected, const FolderImage& actual) {
  std::string text;
  for (const auto& [name, bytes] : expected) {
    const auto found = actual.find(name);
    if (found == actual.end()) {
      text += "  missing: " + name + "\n";
      continue;
    }
    const std::string difference = Difference(bytes, found->second);
    if (!difference.empty()) text.append("  changed: ").append(name).append(": ").append(difference).append("\n");
  }
  for (const auto& [name, bytes] : actual) {
    if (!expected.contains(name)) text += "  new: " + name + " (" + std::to_string(bytes.size()) + " bytes)\n";
  }
  return text;
}

testing::AssertionResult SameImage(const FolderImage& expected, const FolderImage& actual) {
  const std::string text = Differences(expected, actual);
  if (text.empty()) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the folders differ:\n" << text;
}

testing::AssertionResult SameBytes(const Bytes& expected, const Bytes& actual) {
  const std::string text = Difference(expected, actual);
  if (text.empty()) return testing::AssertionSuccess();
  return testing::AssertionFailure() << text;
}

}  // namespace oravin::test
