#include "archive/entry_path.h"

#include <algorithm>

#include "base/text.h"
#include "files/path.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

/// Limits of the file systems of Windows and Linux for one name, and for a path with room left for the destination.
constexpr std::size_t longestPart = 255;
constexpr std::size_t longestPath = 3000;

EntryPath NotWritten(const char* why) { return {{}, {}, why}; }

}  // namespace

EntryPath PathOfEntry(const std::string& name) {
  if (name.empty()) return NotWritten("it has no name");
  if (ToUtf8(name).size() > longestPath) return NotWritten("its name is too long");
  EntryPath path;
  for (std::size_t begin = 0; begin <= name.size();) {
    const std::size_t end = std::min(name.find_first_of("\\/", begin), name.size());
    std::string part = name.substr(begin, end - begin);
    if (part.empty()) return NotWritten(begin == 0 ? "it would leave the destination" : "a part of its path is empty");
    if (part == ".." || part.find(':') != std::string::npos) return NotWritten("it would leave the destination");
    if (ToUtf8(part).size() > longestPart) return NotWritten("its name is too long");
    if (LowerCase(part).ends_with(besideSuffix)) return NotWritten("Oravin gives such names to files it is writing");
    if (!IsPlainFileName(part)) return NotWritten("no file can bear its name");
    if (end == name.size()) {
      path.file = std::move(part);
    } else {
      path.folders.push_back(std::move(part));
    }
    begin = end + 1;
  }
  return path;
}

}  // namespace oravin
