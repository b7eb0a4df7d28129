#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "desk/host.h"
#include "tabs/archive_tab.h"

namespace oravin {

/// How many of an entry's bytes the view under the list shows.
inline constexpr std::size_t firstBytesShown = 256;

/// Shows the first bytes of the first selected entry, in hexadecimal and as text, in txtFirstBytes; nothing without
/// one, and while the view is folded away. Also brings the line about the selection up to date.
void hogList_ItemClick(HogTab& tab);

/// Folds the view away, or out again.
void cmdFirstBytes_Click(HogTab& tab);

/// Bytes in lines of sixteen: their offset, each in hexadecimal, and their characters.
std::string HexView(std::span<const std::uint8_t> bytes);

}  // namespace oravin
