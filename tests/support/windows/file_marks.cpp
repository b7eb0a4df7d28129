#include "support/file_marks.h"

#include <windows.h>
// Needs the header above.
#include <aclapi.h>

#include <array>
#include <stdexcept>

namespace oravin::test {

namespace {

/// Denies everybody, and so this user too, to make or change anything in a folder; or gives it back.
void SetRights(const std::filesystem::path& folder, bool denied) {
  std::array<BYTE, SECURITY_MAX_SID_SIZE> everybody{};
  DWORD size = static_cast<DWORD>(everybody.size());
  CreateWellKnownSid(WinWorldSid, nullptr, everybody.data(), &size);
  EXPLICIT_ACCESSW access{};
  access.grfAccessPermissions = denied ? FILE_GENERIC_READ | FILE_GENERIC_EXECUTE | WRITE_DAC | DELETE : GENERIC_ALL;
  access.grfAccessMode = SET_ACCESS;
  access.Trustee.TrusteeForm = TRUSTEE_IS_SID;
  access.Trustee.ptstrName = reinterpret_cast<wchar_t*>(everybody.data());
  ACL* rights = nullptr;
  std::wstring name = folder.wstring();
  const bool done = SetEntriesInAclW(1, &access, nullptr, &rights) == ERROR_SUCCESS &&
                    SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                          DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, nullptr,
                                          nullptr, rights, nullptr) == ERROR_SUCCESS;
  LocalFree(rights);
  if (!done) throw std::runtime_error("the test cannot set the rights of " + folder.string());
}

}  // namespace

bool SetDosAttributes(const std::filesystem::path& path, unsigned attributes) {
  SetFileAttributesW(path.c_str(), attributes);
  return (GetFileAttributesW(path.c_str()) & attributes) == attributes;
}

void SetReadOnly(const std::filesystem::path& path, bool readOnly) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) throw std::runtime_error("the test cannot mark " + path.string());
  // A folder's read-only mark says nothing on Windows.
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return SetRights(path, readOnly);
  constexpr DWORD mark = FILE_ATTRIBUTE_READONLY;
  SetFileAttributesW(path.c_str(), readOnly ? attributes | mark : attributes & ~mark);
}

}  // namespace oravin::test
