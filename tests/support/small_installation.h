#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "demo/archive_writer.h"
#include "demo/model_writer.h"
#include "support/temporary_folder.h"

namespace oravin::test {

/// A ship of the small installation's list, and what its model unpacks to.
struct SmallShip {
  int kind;
  std::string name;
  std::string file;       ///< as the ship list spells it
  std::string entryName;  ///< as the archive spells it
  int statsIndex;
  std::uint8_t classByte;  ///< 1, 3, 5 capital, 2 cloaked, 0 fighter
  bool stored;             ///< not compressed in the archive
  Bytes model;             ///< the model itself
};

/// The ships' places in the list.
enum SmallShipIndex {
  alpha,
  bravo,
  tiger,
  tigerVariant,
  cruiser,
  carrier,
  stored,
  fireA,
  fireB,
  twin,
  twinVariant,
  manta,
  wraith,
  colossus
};

/// One entry of the archive's table, read by the tests themselves.
struct TableEntry {
  std::string name;
  std::uint32_t offset;
  std::uint32_t size;
  std::uint32_t position;
};

/// The weapons of every model: a pair of guns, a single gun, a pair of missile launchers, an external gun. A fighter's
/// stand in one table that ends the file.
std::vector<demo::ModelAttachment> SmallShipWeapons();

/// A complete installation of a dozen ships, small enough to be made anew for every test: two-part ships, capital
/// ships, a stored model, two ships whose disguised names collide, add-on ships with and without a statistics text.
struct SmallInstallation {
  SmallInstallation();

  TemporaryFolder folder;
  std::string gamePath;     ///< Windows path, ending in a backslash
  std::string programPath;  ///< the same
  std::vector<SmallShip> ships;

  [[nodiscard]] std::filesystem::path Game(const std::string& name) const { return folder.Native("game/" + name); }
  [[nodiscard]] std::filesystem::path Program(const std::string& name) const {
    return folder.Native("program/" + name);
  }

  /// Writes the ship list from `ships`.
  void WriteShipList() const;
  /// Writes the archive from `ships`, with other files between them.
  void WriteArchive() const;
};

/// The table of an archive's bytes.
std::vector<TableEntry> TableIn(const Bytes& archive);

/// The entry of one name, spelled exactly; throws std::out_of_range without one.
TableEntry EntryNamed(const Bytes& archive, const std::string& name);

/// What unpacking an entry of the archive writes: its content, or for a stored one its bytes and 50,000 more.
Bytes UnpackedBytes(const Bytes& archive, const TableEntry& entry, const SmallShip& ship);

}  // namespace oravin::test
