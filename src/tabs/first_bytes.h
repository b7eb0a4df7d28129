#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "desk/host.h"
#include "tabs/archive_tab.h"

namespace oravin {

/// How many of an entry's bytes the view under the list shows.
inline constexpr std::size_t firstBytesShown = 256;

/// Shows the first bytes of the first selected entry, in hexadecimal and as text, in txtFirstBytes; nothing without a
/// selection or while the view is hidden. Also updates the line about the selection.
void hogList_ItemClick(HogTab& tab);

/// Hides or shows the view.
void cmdFirstBytes_Click(HogTab& tab);

/// A hex dump: lines of sixteen bytes with their offset, hexadecimal values and characters.
std::string HexView(std::span<const std::uint8_t> bytes);

}  // namespace oravin
