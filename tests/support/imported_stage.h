#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/swap_stage.h"

namespace oravin::test {

/// An enabled installation with imported ships.
struct ImportedStage : SwitcherStage {
  ImportedStage();

  /// Builds the catalogue once more, from the ship list as it is.
  bool Rebuild() { return Build(archive); }
  /// Reads the catalogue anew, as another run of the program would.
  void Reload();

  /// Names the ship's textures in its record, in memory and on disk.
  void SetTextures(int ship, const std::vector<std::string>& names);
  /// Adds a texture of 4 bytes to the end of the cache.
  void AddUserTexture(const std::string& name) const;
  [[nodiscard]] Bytes Cache() const { return ReadFileAt(files.Game("tcachehw.dat")); }

  HogTable archive;  ///< the archive's table as it was before
};

/// The records of a catalogue's file.
Ships RecordsIn(const Bytes& catalogue);

/// A catalogue's file with these records.
Bytes CatalogueOf(const Ships& records);

/// Changes the records of an image's catalogue.
void ChangeRecords(FolderImage& image, const std::function<void(Ships&)>& change);

/// Replaces a text of an image's ship list, which must be there.
void ChangeList(FolderImage& image, const std::string& from, const std::string& to);

}  // namespace oravin::test
