// Generated contents of archive entries other than stock models.
#pragma once

#include <cstddef>
#include <cstdint>

#include "demo/bytes.h"

namespace oravin::demo {

/// Kinds of content.
enum class Content { kSound, kScript, kPicture, kTable, kProp, kMusic };

/// Content of about `size` bytes (scripts and props may be a little longer). Never starts with the bytes 10 FB.
Bytes MakeContent(Content content, std::uint64_t seed, std::size_t size);

}  // namespace oravin::demo
