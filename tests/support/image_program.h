#pragma once

#include <filesystem>
#include <string>

#include "base/bytes.h"

namespace oravin::test {

/// What ImageMagick, a program that knows nothing of this one, says of an image: "FORMAT WIDTH HEIGHT". Empty when it
/// cannot open it.
std::string Identified(const std::filesystem::path& image);

/// The pixels that ImageMagick shows of an image: red, green, blue, the highest row first.
Bytes ShownPixels(const std::filesystem::path& image);

}  // namespace oravin::test
