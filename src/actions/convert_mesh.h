#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "desk/host.h"
#include "installation/installation.h"

namespace oravin {

/// The title of the message boxes that are shown before the conversion.
inline constexpr const char* meshConverterTitle = "Oravin - 3DS2SL Mesh Converter";

/// Converts a mesh of 3D Studio to a model of the game with the converter library in the program folder
/// (platform/converter.h), and shows the result in a message box. The call blocks until the library returns. The
/// current folder becomes the program folder, so that the library finds its own files there.
///
/// An existing destination is deleted before the call, so a conversion that fails leaves none unless the library wrote
/// it. Message boxes after which nothing was deleted: "File not Found" for a missing source; one for a destination that
/// is the source itself, and one for a library that is missing or cannot be called. A destination that cannot be
/// deleted gives the error trap's.
///
/// @param source,destination Windows paths; spaces at their ends do not count
/// @param options for the library, which gets them trimmed and in lower case
/// @return the library's result code, 0 for success; nothing when it was not called
std::optional<std::int32_t> ConvertMesh(Host& host, const Installation& installation, const std::string& source,
                                        const std::string& options, const std::string& destination);

}  // namespace oravin
