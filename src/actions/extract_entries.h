#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "archive/open_archive.h"
#include "desk/host.h"

namespace oravin {

enum class ExtractionMode {
  stored,    ///< each entry's bytes as they are in the archive
  unpacked,  ///< compressed entries unpacked; the user is asked about the others
};

enum class ExtractionEnd {
  complete,
  stopped,    ///< the user asked for a stop
  cancelled,  ///< the user answered Cancel, or nobody could answer
  failed,     ///< a file or an entry failed, and its message box has been shown
};

struct ExtractionResult {
  ExtractionEnd end = ExtractionEnd::complete;
  unsigned files = 0;  ///< how many were written
};

/// The progress text for an entry.
/// @param entry its name
std::string ExtractionText(const std::string& entry, bool unpacking);

/// Called when an entry is about to be written, before the progress is shown.
using ExtractionStep = std::function<void(const HogEntry& entry, bool unpacking)>;

/// Writes entries of an open archive into a folder, in the given order, in the subfolders that their names state.
///
/// In the mode `unpacked` the user is asked about an entry that is not compressed: Yes writes it as it is stored, No
/// leaves it out, Cancel ends the extraction. Intentional: after No and Cancel, an older file of its name is deleted.
/// It stays if nobody could answer.
///
/// What was written completely stays, however the extraction ends. Message boxes: the question; the error trap's; one
/// that lists the entries that were not written and why (a name that would leave the destination, a second file of the
/// same name).
/// @param entries indices of the archive's entries
/// @param destination an existing folder, ending in a backslash
ExtractionResult ExtractEntries(Host& host, OpenArchive& archive, const std::vector<std::size_t>& entries,
                                const std::string& destination, ExtractionMode mode, const ExtractionStep& step);

}  // namespace oravin
