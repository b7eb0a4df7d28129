#pragma once

#include <string>

#include "catalogue/ship_record.h"

namespace oravin {

/// The catalogue as a table for people: the main fields of every record that is not inert.
std::string ShipsTable(const Ships& ships);

}  // namespace oravin
