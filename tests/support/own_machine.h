#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "support/temporary_folder.h"

namespace oravin::test {

/// A machine of the test's own, for as long as this record lives: a registry without a value, and a drive C: where the
/// program was never installed. On Windows the registry is the real one, turned to a key that goes with this record,
/// and the drive is the real one too; what the test puts into the program's usual folder goes as well.
struct OwnMachine {
  /// @param place what the machine consists of lies in this folder, where it is not the system's own
  explicit OwnMachine(const TemporaryFolder& place);
  OwnMachine(const OwnMachine&) = delete;
  OwnMachine& operator=(const OwnMachine&) = delete;
  ~OwnMachine();

  /// The native path of something on drive C:; `name` has forward slashes.
  [[nodiscard]] std::filesystem::path DriveC(std::string_view name) const;
  /// From here on no key of the registry can be made.
  void RefuseRegistry();

  const TemporaryFolder& folder;
  std::shared_ptr<void> kept;  ///< what is put back at the end, system by system
};

}  // namespace oravin::test
