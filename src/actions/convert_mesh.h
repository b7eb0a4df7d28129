#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "desk/host.h"

namespace oravin {

/// The title of the boxes that come before the conversion.
inline constexpr const char* meshConverterTitle = "Oravin - 3DS2SL Mesh Converter";

/// Turns a mesh of 3D Studio into a model of the game through the converter library in the program folder
/// (platform/converter.h), and says in a box how it went. The call blocks until the library returns. The current folder
/// becomes the program folder, so that the library finds its own files there.
///
/// An existing destination is deleted before the call, so a conversion that fails leaves none unless the library wrote
/// it. Boxes after which nothing was deleted: "File not Found" for a missing source; in our own words a destination
/// that is the source itself, and a library that is missing or cannot be called. A destination that cannot be deleted
/// gives the error trap's.
///
/// @param source,destination Windows paths; blanks at their ends do not count
/// @param options what the library is told, in lower case and without blanks at the ends
/// @return the library's result code, 0 for success; nothing when it was not called
std::optional<std::int32_t> m3DtoSL(Host& host, const std::string& programPath, const std::string& source,
                                    const std::string& options, const std::string& destination);

}  // namespace oravin
