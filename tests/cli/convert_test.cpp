// The command "convert", through a library that stands in for the converter.

#include "platform/converter.h"
#include "sample_runs.h"
#include "support/folder_image.h"

namespace oravin::test {
namespace {

struct ConvertRuns : SampleRuns {
  ConvertRuns() {
    std::filesystem::copy_file(STAND_IN_LIBRARY, sample.program / platform::converterLibrary);
    MakeFolderAt(folder.Native("meshes"));
  }
  ~ConvertRuns() override { std::filesystem::current_path("/"); }

  /// Writes a mesh that makes the library return a result, and write a report of how it was called.
  [[nodiscard]] std::string Mesh(const std::string& name, int result, bool writes) const {
    WriteFileAt(folder.Native("meshes/" + name), "result " + std::to_string(result) + (writes ? "\nwrites\n" : "\n"));
    return folder.Native("meshes/" + name).string();
  }
  [[nodiscard]] std::string Native(const std::string& name) const { return folder.Native("meshes/" + name).string(); }
  [[nodiscard]] std::string Windows(const std::string& name) const { return folder.Windows("meshes/" + name); }
};

TEST_F(ConvertRuns, WritesTheModelBesideTheMesh) {
  const std::string mesh = Mesh("my ship.3ds", 0, true);
  const Outcome outcome = RunWords({"convert", mesh});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Converted to " + Windows("my ship.shp") + "\n");
  EXPECT_EQ(outcome.err, ".3ds to SL Converter: Conversion Successful!\n");
  EXPECT_EQ(ReadTextAt(Native("my ship.shp")), "source " + mesh + "\noption \ndestination " + Native("my ship.shp") +
                                                   "\nfolder " + sample.program.string() + "\n");
}

TEST_F(ConvertRuns, WritesTheModelWhereItIsWanted) {
  const Outcome outcome = RunWords({"convert", Mesh("mesh.3ds", 0, true), Native("other.shp"), "--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.Document(),
            (Json{{"action", "convert"}, {"source", Windows("mesh.3ds")}, {"file", Windows("other.shp")}}));
  EXPECT_EQ(outcome.ErrorLines(),
            (std::vector<Json>{BoxLine(".3ds to SL Converter", "Conversion Successful!", "exclamation", "ok", "ok")}));
  EXPECT_TRUE(std::filesystem::exists(Native("other.shp")));
  EXPECT_FALSE(std::filesystem::exists(Native("mesh.shp")));
}

TEST_F(ConvertRuns, APathBelowTheCurrentFolderStaysThere) {
  ASSERT_EQ(Mesh("mesh.3ds", 0, true), Native("mesh.3ds"));
  std::filesystem::current_path(folder.Native("meshes"));
  EXPECT_EQ(RunWords({"convert", "mesh.3ds"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(Native("mesh.shp")));
}

TEST_F(ConvertRuns, EveryErrorOfTheLibraryIsTold) {
  const std::vector<std::string> errors = {"Error: Can't find texture coordinates!",
                                           "Error: Problem reading texture coordinates! Break!",
                                           "Error: Can't open file!", ""};
  for (std::size_t i = 0; i < errors.size(); ++i) {
    const Outcome outcome = RunWords({"convert", Mesh("mesh.3ds", static_cast<int>(i) + 1, false)});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, ".3ds to SL Converter: " + errors[i] + "\n");
  }
}

TEST_F(ConvertRuns, AMissingMeshIsTold) {
  WriteFileAt(Native("none.shp"), "a model");
  const Outcome outcome = RunWords({"convert", Native("none.3ds")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "Oravin - 3DS2SL Mesh Converter: File not Found\n");
  EXPECT_EQ(ReadTextAt(Native("none.shp")), "a model");
}

TEST_F(ConvertRuns, WithoutTheLibraryTheBoxSaysWhereItBelongs) {
  std::filesystem::remove(sample.program / platform::converterLibrary);
  WriteFileAt(Native("mesh.shp"), "a model");
  const Outcome outcome = RunWords({"convert", Mesh("mesh.3ds", 0, true)});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, std::string("Oravin - 3DS2SL Mesh Converter: The converter library ") +
                             platform::converterLibrary +
                             " cannot be used: it is not there.\n"
                             "  It is no part of Oravin and belongs into Oravin's own folder, " +
                             folder.Windows("sample/Oravin") + "\\\n  Nothing was converted.\n");
  EXPECT_EQ(ReadTextAt(Native("mesh.shp")), "a model");
}

TEST_F(ConvertRuns, AModelThatIsItsOwnMeshIsRefused) {
  const std::string mesh = Mesh("mesh.shp", 0, true);
  const Bytes before = ReadFileAt(mesh);
  const Outcome outcome = RunWords({"convert", mesh});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "Oravin - 3DS2SL Mesh Converter: The destination is the source file itself. Nothing was converted.\n");
  EXPECT_EQ(ReadFileAt(mesh), before);
}

TEST_F(ConvertRuns, WrongUses) {
  EXPECT_EQ(RunWords({"convert"}).status, 2);
  EXPECT_EQ(RunWords({"convert", "a.3ds", "b.shp", "c.shp"}).status, 2);
}

TEST_F(ConvertRuns, WhatTheLibraryWroteIsWhatIsImported) {
  // The stand-in's report is no model, and the import says so.
  ASSERT_EQ(RunWords({"convert", Mesh("mesh.3ds", 0, true)}).status, 0);
  Enable();
  const Outcome outcome = RunWords({"import", Native("mesh.shp")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("Oravin - TextureList(): This is not a valid SL shp file\n"), std::string::npos)
      << outcome.err;
}

}  // namespace
}  // namespace oravin::test
