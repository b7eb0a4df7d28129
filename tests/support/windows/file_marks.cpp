#include "support/file_marks.h"

#include <windows.h>

#include <stdexcept>

namespace oravin::test {

const bool readOnlyFoldersTakeFiles = true;

bool SetDosAttributes(const std::filesystem::path& path, unsigned attributes) {
  SetFileAttributesW(path.c_str(), attributes);
  return (GetFileAttributesW(path.c_str()) & attributes) == attributes;
}

void SetReadOnly(const std::filesystem::path& path, bool readOnly) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) throw std::runtime_error("the test cannot mark " + path.string());
  constexpr DWORD mark = FILE_ATTRIBUTE_READONLY;
  SetFileAttributesW(path.c_str(), readOnly ? attributes | mark : attributes & ~mark);
}

}  // namespace oravin::test
