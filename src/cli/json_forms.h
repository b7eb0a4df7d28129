#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "actions/status.h"
#include "catalogue/ship_record.h"
#include "desk/message_box.h"

/// The JSON forms of what the command line tells. Keys keep the order in which they stand here; texts are UTF-8.
namespace oravin {

/// A document whose keys keep their order.
using Json = nlohmann::ordered_json;

/// {"box":{"title":..,"text":..,"icon":..,"buttons":..,"answer":..}}
Json JsonOf(const Message& box, Answer answer);

/// Every field of a record of the catalogue, and its index, from 0.
Json JsonOf(const ShipRecord& ship, std::size_t index);

/// Folders, state, numbers of ships, and the game's files.
Json JsonOf(const Status& status);

/// The document as text, in one line.
std::string OneLine(const Json& json);

}  // namespace oravin
