#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/bytes.h"
#include "support/cache_files.h"
#include "support/fault.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

/// What the tests of the texture room share: a folder for caches and bitmaps.
namespace oravin::test {

/// 24-bit pixels as the cache stores them.
Bytes As16Bits(const Bytes& pixels);

/// A folder with the cache "tcachehw.dat" and a host with a scripted desk.
struct CacheStage : testing::Test {
  TemporaryFolder folder;
  ScriptedHost at;

  [[nodiscard]] std::string Path() const { return folder.Windows("tcachehw.dat"); }
  void Make(const Bytes& bytes) const { WriteFileAt(folder.Native("tcachehw.dat"), bytes); }
  [[nodiscard]] Bytes Now() const { return ReadFileAt(folder.Native("tcachehw.dat")); }
  void Write(const std::string& name, const Bytes& bytes) const { WriteFileAt(folder.Native(name), bytes); }
};

}  // namespace oravin::test
