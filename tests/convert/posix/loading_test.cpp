// The converter library is in the process only while it works.

#include <dlfcn.h>

#include "../stage.h"
#include "platform/converter.h"

namespace oravin::test {
namespace {

struct LoadedLibrary : ConvertStage {
  [[nodiscard]] bool InTheProcess() const {
    void* library = dlopen(Library().c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr) dlclose(library);
    return library != nullptr;
  }
};

TEST_F(LoadedLibrary, IsUnloadedBehindTheCall) {
  WriteMesh("mesh.3ds", 0, true);
  ExpectSuccess();
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), 0);
  EXPECT_FALSE(InTheProcess());
}

TEST_F(LoadedLibrary, IsUnloadedWhereItHasNoSuchFunction) {
  WriteMesh("mesh.3ds", 0, true);
  Install(OTHER_LIBRARY);
  ExpectUnusable("it has no function named convert3ds2sl");
  EXPECT_EQ(Convert(GamePath("mesh.3ds"), "", GamePath("mesh.shp")), std::nullopt);
  EXPECT_FALSE(InTheProcess());
}

TEST_F(LoadedLibrary, StaysAsLongAsItsRecord) {
  const platform::Converter converter(installation.ProgramPath + platform::converterLibrary);
  EXPECT_EQ(converter.whyNot, "");
  EXPECT_TRUE(InTheProcess());
}

TEST_F(LoadedLibrary, IsNotLookedForInTheSystemsOwnFolders) {
  std::filesystem::current_path(folder.Native("game"));
  EXPECT_EQ(platform::Converter("libc.so.6").whyNot, "it is not there");
}

}  // namespace
}  // namespace oravin::test
