#pragma once

#include <gtest/gtest.h>

#include "actions/draft_ship_list.h"
#include "demo/archive_writer.h"
#include "demo/compressor.h"
#include "demo/model_writer.h"
#include "support/scripted_desk.h"
#include "support/temporary_folder.h"

namespace oravin::test {

/// An installation that a ship list is drafted from: an archive of the test's own and statistics of given names.
struct DraftStage : testing::Test {
  DraftStage() {
    installation.GamePath = folder.Windows("game\\");
    installation.ProgramPath = folder.Windows("program\\");
    MakeFolderAt(folder.Native("program"));
  }

  static Bytes ModelOf(std::uint8_t classByte, const std::vector<std::string>& textures = {}) {
    demo::ModelOptions options;
    options.classByte = classByte;
    options.size = 1200;
    options.textures = textures;
    return demo::BuildModel(options);
  }
  /// Adds an entry to the archive.
  void Model(const std::string& name, std::uint8_t classByte = 0, const std::vector<std::string>& textures = {"hull"}) {
    entries.push_back({name, demo::Compress(ModelOf(classByte, textures))});
  }
  void Stored(const std::string& name, const Bytes& bytes) { entries.push_back({name, bytes}); }

  [[nodiscard]] Bytes Statistics() const {
    Bytes bytes(blocks.size() * 352);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      std::copy(blocks[i].begin(), blocks[i].end(), bytes.begin() + static_cast<std::ptrdiff_t>(i * 352));
    }
    return bytes;
  }
  void Write() const {
    WriteFileAt(folder.Native("game/resource.hog"), demo::BuildArchive(entries));
    WriteFileAt(folder.Native("game/shipstats.bin"), Statistics());
  }
  ShipListDraft Draft() {
    Write();
    return DraftShipList(here.host, installation);
  }

  TemporaryFolder folder;
  ScriptedHost here;
  Installation installation;
  std::vector<demo::ArchiveFile> entries;
  std::vector<std::string> blocks;
};

/// The models of a draft, in its order.
inline std::vector<std::string> FilesIn(const ShipListDraft& draft) {
  std::vector<std::string> files;
  for (const DraftedShip& ship : draft.ships) files.push_back(ship.ship.file);
  return files;
}

inline std::vector<std::string> NamesIn(const ShipListDraft& draft) {
  std::vector<std::string> names;
  for (const DraftedShip& ship : draft.ships) names.push_back(ship.ship.name);
  return names;
}

}  // namespace oravin::test
