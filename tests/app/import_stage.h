#pragma once

#include "app/import_file.h"
#include "demo/model_writer.h"
#include "session.h"
#include "support/cache_files.h"

namespace oravin::test {

inline constexpr const char* successful = "Importing Successfull!";
inline constexpr const char* withErrors = "Importing Completed - but there where errors on some ships";
inline constexpr const char* notFound = "Texture not found - skipping ship!";
inline constexpr const char* switchQuestion =
    "Would you like Oravin to make the ship switches\nsuggested by the ship pack file?\n"
    "(Note that Oravin might have to unswitch some ships, so you may lose\n"
    "some custom stat settings on currently switched ships.)";

inline Bytes ShipModel(const std::string& name, const std::vector<std::string>& textures, std::uint8_t classByte = 0) {
  demo::ModelOptions options;
  options.seed = name.size() * 77;
  options.name = name.substr(0, 12);
  options.classByte = classByte;
  options.size = 1500;
  options.textures = textures;
  options.attachments = {{demo::kGun, 40, 0, 10, 0, 2}, {demo::kGun, -40, 0, 10, 0, 2}};
  return demo::BuildModel(options);
}

using Texture = ExpectedFiles::Texture;

/// An enabled installation, and a folder of new ships next to it.
struct Importing : testing::Test {
  Importing() {
    session = std::make_unique<Session>(installation);
    expected.StartUp();
    session->Enable();
    expected.Enable();
  }

  [[nodiscard]] std::filesystem::path New(const std::string& name) const { return outside.Native(name); }
  [[nodiscard]] std::string NewPath(const std::string& name) const { return outside.Windows(name); }
  /// Writes a model and the bitmaps of its textures.
  SmallShip Make(const std::string& name, const std::string& file, const std::vector<Texture>& textures,
                 std::uint8_t classByte = 0) const {
    std::vector<std::string> names;
    for (const Texture& texture : textures) {
      names.push_back(texture.name);
      WriteFileAt(New(texture.name + ".bmp"), Bitmap(4, 4, 8, texture.pixels));
    }
    SmallShip ship{3, name, file, "", 0, classByte, false, ShipModel(name, names, classByte)};
    WriteFileAt(New(file), ship.model);
    return ship;
  }
  void MakePack(const std::string& text) const { WriteFileAt(New("ships.pak"), text); }

  /// Opens the form and does something with it.
  void Open(const std::string& file, const std::function<void()>& act) {
    session->desk.OnForm([act](const std::string& form) {
      EXPECT_EQ(form, "Fighter_PACK");
      act();
    });
    ImportFile(session->main, NewPath(file));
  }
  void Import() { session->Press("Fighter_PACK.cmdImportShips"); }
  void ImportAll(const std::string& file) {
    Open(file, [&] {
      Import();
      EXPECT_FALSE(session->main.importForm.shown);
    });
  }
  void ExpectSuccess(const std::string& notes = "") { session->desk.ExpectSuccess(successful + notes); }
  /// @param failed the names of the ships that were not imported
  void ExpectErrors(const std::vector<std::string>& failed, const std::string& notes = "") {
    std::string text = withErrors;
    if (!failed.empty()) text += "\n\nThese ships were not imported:";
    for (const std::string& name : failed) text += "\n" + name;
    session->desk.ExpectBox(text + notes);
  }
  void Compare(const char* step) const {
    EXPECT_TRUE(SameImage(expected.Image(), ImageOf(installation.folder.native))) << "after " << step;
  }

  SmallInstallation installation;
  TemporaryFolder outside;
  ExpectedFiles expected{installation};
  std::unique_ptr<Session> session;
  const Texture red{"red", Pattern(16, 3)};
  const Texture blue{"blue", Pattern(16, 90)};
};

}  // namespace oravin::test
