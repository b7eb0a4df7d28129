#include <cstdlib>

#include "sample_runs.h"

namespace oravin::test {
namespace {

struct Executable : SampleRuns {
  /// Runs the program itself, away from a terminal.
  Outcome Call(const std::string& words) {
    const auto quoted = [&](const char* name) { return "'" + folder.Native(name).string() + "'"; };
    const std::string command = std::string("'" ORAVIN_CLI "' ") + words + " </dev/null >" + quoted("out") + " 2>" +
                                quoted("err") + "; echo $? >" + quoted("status");
    EXPECT_EQ(std::system(command.c_str()), 0);
    Outcome outcome;
    outcome.status = std::stoi(ReadTextAt(folder.Native("status")));
    outcome.out = ReadTextAt(folder.Native("out"));
    outcome.err = ReadTextAt(folder.Native("err"));
    return outcome;
  }
};

TEST_F(Executable, TellsItsVersion) {
  const Outcome outcome = Call("--version");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "oravin-cli 0.1.0\n");
}

TEST_F(Executable, DoesTheWholeCycle) {
  EXPECT_EQ(Call("enable").out, "Nothing was done.\n");
  EXPECT_EQ(Call("--yes enable").status, 0);
  const Bytes before = ReadFileAt(sample.game / "ships" / "kestrel.shp");
  EXPECT_EQ(Call("ships swap kestrel manta").out, "Kestrel is switched to Manta.\n");
  EXPECT_NE(ReadFileAt(sample.game / "ships" / "kestrel.shp"), before);
  EXPECT_EQ(Call("--json ships unswap-all").Document()["ships"][0]["target"], "Kestrel");
  EXPECT_EQ(ReadFileAt(sample.game / "ships" / "kestrel.shp"), before);
  EXPECT_EQ(Call("disable --answers yes").status, 0);
  EXPECT_FALSE(std::filesystem::exists(sample.program / "ships.dat"));
}

TEST_F(Executable, ReturnsEveryExitStatus) {
  EXPECT_EQ(Call("status").status, 0);
  EXPECT_EQ(Call("ships unswap -5").status, 1);
  EXPECT_EQ(Call("ships").status, 2);
  EXPECT_EQ(Call("--game / status").status, 3);
}

}  // namespace
}  // namespace oravin::test
