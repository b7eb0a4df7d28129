#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "actions/convert_mesh.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"
#include "tabs/convert_panel.h"

namespace oravin::test {

/// A game folder and a program folder with a converter in it that stands in for the real one.
struct ConvertStage : testing::Test {
  ConvertStage();
  ConvertStage(const ConvertStage&) = delete;
  ConvertStage& operator=(const ConvertStage&) = delete;
  ~ConvertStage() override;

  /// Puts a library into the program folder as the converter.
  void Install(const std::filesystem::path& library) const;
  [[nodiscard]] std::filesystem::path Library() const;
  /// Writes a mesh that tells the converter what to do.
  /// @param name in the game folder
  void WriteMesh(const std::string& name, int result, bool writes) const;

  std::optional<std::int32_t> Convert(const std::string& source, const std::string& options,
                                      const std::string& destination);

  [[nodiscard]] std::filesystem::path Game(const std::string& name) const { return folder.Native("game/" + name); }
  [[nodiscard]] std::string GamePath(const std::string& name) const { return installation.GamePath + name; }
  /// What the converter writes into the destination after a call.
  [[nodiscard]] std::string Report(const std::string& source, const std::string& option,
                                   const std::string& destination) const;

  void ExpectResult(const std::string& text) { here.desk.ExpectBox(text, ".3ds to SL Converter"); }
  void ExpectSuccess() { here.desk.ExpectSuccess("Conversion Successful!", ".3ds to SL Converter", Icon::exclamation); }
  void ExpectRefused(const std::string& text) { here.desk.ExpectBox(text, "Oravin - 3DS2SL Mesh Converter"); }
  /// The box of a converter that cannot be called.
  void ExpectUnusable(const std::string& why);

  TemporaryFolder folder;
  ScriptedHost here;
  Installation installation;
  std::filesystem::path folderBefore;  ///< the current one
};

}  // namespace oravin::test
