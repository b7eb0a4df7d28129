#include "platform/registry.h"

#include "platform/windows/wide_text.h"

namespace oravin::platform {

namespace {

// The game's installer is a 32-bit program and writes to that view.
constexpr REGSAM installersView = KEY_WOW64_32KEY;

/// The key's path without a trailing backslash; empty if the root is not localMachine.
std::wstring KeyPath(const std::string& root, const std::string& key) {
  if (root != localMachine) return {};
  return ToWide(key.substr(0, key.find_last_not_of('\\') + 1));
}

}  // namespace

std::optional<std::string> RegReadString(const std::string& root, const std::string& key, const std::string& value) {
  const std::wstring path = KeyPath(root, key);
  HKEY opened = nullptr;
  if (path.empty() ||
      RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ | installersView, &opened) != ERROR_SUCCESS)
    return std::nullopt;
  const std::wstring name = ToWide(value);
  std::wstring text;
  LSTATUS status = ERROR_MORE_DATA;
  // Another program may write a longer text between the two calls.
  for (int i = 0; i < 4 && status == ERROR_MORE_DATA; ++i) {
    DWORD size = 0;
    status = RegGetValueW(opened, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size);
    if (status != ERROR_SUCCESS) break;
    text.assign(size / sizeof(wchar_t) + 1, L'\0');
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = RegGetValueW(opened, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size);
  }
  RegCloseKey(opened);
  if (status != ERROR_SUCCESS) return std::nullopt;
  return FromWide(text.c_str());
}

bool RegWriteString(const std::string& root, const std::string& key, const std::string& value,
                    const std::string& text) {
  const std::wstring path = KeyPath(root, key);
  HKEY opened = nullptr;
  if (path.empty() || RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                      KEY_WRITE | installersView, nullptr, &opened, nullptr) != ERROR_SUCCESS)
    return false;
  const std::wstring wide = ToWide(text);
  const auto* bytes = reinterpret_cast<const BYTE*>(wide.c_str());  // including the terminating zero
  const LSTATUS status = RegSetValueExW(opened, ToWide(value).c_str(), 0, REG_SZ, bytes,
                                        static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(opened);
  return status == ERROR_SUCCESS;
}

}  // namespace oravin::platform
