#include "platform/virtual_store.h"

#include "platform/windows/wide_text.h"

namespace oravin::platform {

std::string VirtualStore() {
  std::wstring local(GetEnvironmentVariableW(L"LOCALAPPDATA", nullptr, 0), L'\0');
  if (local.empty()) return {};
  local.resize(GetEnvironmentVariableW(L"LOCALAPPDATA", local.data(), static_cast<DWORD>(local.size())));
  return local.empty() ? std::string() : FromWide(local) + "\\VirtualStore\\";
}

}  // namespace oravin::platform
