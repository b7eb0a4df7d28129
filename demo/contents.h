// Made-up contents for the archive's entries that are no stock models.
#pragma once

#include <cstddef>
#include <cstdint>

#include "demo/bytes.h"

namespace oravin::demo {

/// What an entry holds.
enum class Content { kSound, kScript, kPicture, kTable, kProp, kMusic };

/// Content of about `size` bytes (a script and a prop may end a little later). It never begins with the bytes 10 FB.
Bytes MakeContent(Content content, std::uint64_t seed, std::size_t size);

}  // namespace oravin::demo
