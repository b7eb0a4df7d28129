#pragma once

#include <string>

#include "app/main.h"
#include "cli/json_forms.h"

/// The entries of the open archive, as the command line prints them.
namespace oravin {

/// {"name":..,"offset":..,"size":..,"fatPosition":..,"extension":..,"kind":"packed" or "stored"}; the kind is "damaged"
/// where the entry does not lie inside the archive.
Json JsonOf(Main& main, const HogEntry& entry);

/// All entries, in table order.
Json HogJson(Main& main);

/// The same as a table of text; offsets, sizes and positions are hexadecimal, as the window shows them.
std::string HogText(Main& main);

}  // namespace oravin
