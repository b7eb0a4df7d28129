// The converter library is in the process only while it works.

#include <windows.h>

#include "../stage.h"
#include "platform/converter.h"

namespace oravin::test {
namespace {

struct LoadedLibrary : ConvertStage {
  static bool InTheProcess() { return GetModuleHandleA(platform::converterLibrary) != nullptr; }
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
  EXPECT_EQ(platform::Converter("version.dll").whyNot, "it is not there");
}

/// The function takes its arguments off the stack. A caller that did so as well would be twelve bytes off each time.
TEST_F(LoadedLibrary, IsCalledByStdcall) {
  WriteMesh("mesh.3ds", 2, false);
  const platform::Converter converter(installation.ProgramPath + platform::converterLibrary);
  ASSERT_EQ(converter.whyNot, "");
  const std::string mesh = Game("mesh.3ds").string();
  const std::string model = Game("mesh.shp").string();
  for (int i = 0; i < 200; ++i) ASSERT_EQ(platform::Convert(converter, mesh.c_str(), "", model.c_str()), 2);
}

TEST_F(LoadedLibrary, AFunctionWhoseNameCarriesItsArgumentsSizeIsFound) {
  WriteMesh("mesh.3ds", 1, false);
  Install(DECORATED_LIBRARY);
  const platform::Converter converter(installation.ProgramPath + platform::converterLibrary);
  ASSERT_EQ(converter.whyNot, "");
  EXPECT_EQ(platform::Convert(converter, Game("mesh.3ds").string().c_str(), "", Game("x.shp").string().c_str()), 1);
}

}  // namespace
}  // namespace oravin::test
