#include "support/own_machine.h"

#include <windows.h>

#include <stdexcept>
#include <string>

namespace oravin::test {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* usualFolder = L"C:\\Program Files\\Oravin";

void Require(LSTATUS status, const char* what) {
  if (status != ERROR_SUCCESS) throw std::runtime_error(std::string("the test cannot ") + what);
}

/// A key of this user's, which stands for the machine's root as long as this record lives.
struct OtherRoot {
  explicit OtherRoot(DWORD lasting) : path(L"Software\\Oravin-test-" + std::to_wstring(GetCurrentProcessId())) {
    Require(
        RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, lasting, KEY_ALL_ACCESS, nullptr, &key, nullptr),
        "make a key for the registry of its own");
    Require(RegOverridePredefKey(HKEY_LOCAL_MACHINE, key), "turn the registry's root");
  }
  OtherRoot(const OtherRoot&) = delete;
  OtherRoot& operator=(const OtherRoot&) = delete;
  ~OtherRoot() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(key);
    RegDeleteTreeW(HKEY_CURRENT_USER, path.c_str());
  }

  std::wstring path;
  HKEY key = nullptr;
};

}  // namespace

OwnMachine::OwnMachine(const TemporaryFolder& place)
    : folder(place), kept(std::make_shared<OtherRoot>(REG_OPTION_NON_VOLATILE)) {
  if (fs::exists(usualFolder)) throw std::runtime_error("the program is installed on this machine");
}

OwnMachine::~OwnMachine() {
  std::error_code failure;
  fs::current_path(folder.native, failure);  // the current folder cannot be removed
  fs::remove_all(usualFolder, failure);
}

fs::path OwnMachine::DriveC(std::string_view name) const { return (fs::path("C:\\") / name).make_preferred(); }

void OwnMachine::RefuseRegistry() {
  kept = nullptr;
  // Below a key that goes with the session the system makes none that stays.
  kept = std::make_shared<OtherRoot>(REG_OPTION_VOLATILE);
}

}  // namespace oravin::test
