#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "archive/archive_table.h"
#include "catalogue/ship_record.h"
#include "demo/archive_writer.h"
#include "installation/installation.h"
#include "support/scripted_desk.h"
#include "support/small_installation.h"
#include "support/temporary_folder.h"

namespace oravin::test {

/// A game folder for an archive, and a program folder; without files at first.
struct ArchiveStage {
  ArchiveStage();

  void Write(const std::vector<demo::ArchiveFile>& files) const;
  void Write(const Bytes& archive) const;
  /// Lets the archive grow by zeros, which take no room where the file system can leave them out.
  void LengthenTo(std::uint64_t length);
  [[nodiscard]] Bytes Archive() const;
  /// The archive's table, read by the program; a count of 0 is taken as it is.
  [[nodiscard]] HogTable Table();
  /// Both folders as an installation with that catalogue.
  [[nodiscard]] Installation Installed(const Ships& ships = {}) const { return {gamePath, programPath, ships}; }

  [[nodiscard]] std::filesystem::path Game(const std::string& name) const { return folder.Native("game/" + name); }
  [[nodiscard]] std::filesystem::path Program(const std::string& name) const {
    return folder.Native("program/" + name);
  }
  /// Both folders as they are now.
  [[nodiscard]] FolderImage Image() const { return ImageOf(folder.native); }

  TemporaryFolder folder;
  std::string gamePath = folder.Windows("game\\");
  std::string programPath = folder.Windows("program\\");
  std::string hogPath = gamePath + "resource.hog";
  std::string shipsFolder = gamePath + "ships\\";
  Host host;
  ScriptedDesk desk{host};
};

/// The entry's bytes in the table: offset, size, name and the zero byte.
Bytes TableRow(std::uint32_t offset, std::uint32_t size, const std::string& name);

/// A header with that count, and the table after it.
Bytes HeaderAnd(std::uint32_t count, const Bytes& table);

/// A stock ship whose record has no place in the archive.
ShipRecord StockShip(const std::string& name, const std::string& file);

/// A stock ship whose record has that entry.
ShipRecord ShipAt(const std::string& name, const std::string& file, const TableEntry& entry);

/// An imported ship.
ShipRecord ImportedShip(const std::string& name, const std::string& file);

/// What a place of the archive's table names.
std::string NameIn(const Bytes& archive, const TableEntry& entry);

}  // namespace oravin::test
