#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "base/bytes.h"

namespace oravin::test {

/// Every file of a folder, and of the folders below it, with its bytes. Paths are relative to the folder, spelled as on
/// disk, with forward slashes; a folder stands for itself with a slash at its end and no bytes.
using FolderImage = std::map<std::string, Bytes>;

/// Takes the image of a folder by its native path; a folder that is missing gives an empty image.
FolderImage ImageOf(const std::filesystem::path& folder);

/// The image without some of its paths. A path that ends in a slash stands for all that is below that folder too.
FolderImage Without(FolderImage image, const std::vector<std::string>& paths);

/// Tells what differs, one line a file: missing, new, or the first byte that is not the same. Empty when nothing does.
std::string Differences(const FolderImage& expected, const FolderImage& actual);

/// For EXPECT_TRUE: succeeds when both images are the same byte for byte, else tells the differences.
testing::AssertionResult SameImage(const FolderImage& expected, const FolderImage& actual);

/// The same for two runs of bytes: tells both lengths and the first byte that differs.
testing::AssertionResult SameBytes(const Bytes& expected, const Bytes& actual);

}  // namespace oravin::test
