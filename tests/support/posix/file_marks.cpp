#include "support/file_marks.h"

#include <sys/xattr.h>

#include <string>

namespace oravin::test {

const bool readOnlyFoldersTakeFiles = false;

bool SetDosAttributes(const std::filesystem::path& path, unsigned attributes) {
  const std::string text = "0x" + std::to_string(attributes);
  return setxattr(path.c_str(), "user.DOSATTRIB", text.data(), text.size(), 0) == 0;
}

void SetReadOnly(const std::filesystem::path& path, bool readOnly) {
  using std::filesystem::perms;
  constexpr perms write = perms::owner_write | perms::group_write | perms::others_write;
  std::filesystem::permissions(path, readOnly ? write : perms::owner_write,
                               readOnly ? std::filesystem::perm_options::remove : std::filesystem::perm_options::add);
}

}  // namespace oravin::test
