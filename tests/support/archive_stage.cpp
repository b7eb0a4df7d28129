#include "support/archive_stage.h"
#include "files/file.h"

namespace oravin::test {

ArchiveStage::ArchiveStage() {
  MakeFolderAt(Game("ships"));
  MakeFolderAt(Program("backup"));
  MakeFolderAt(Program("addons/ships"));
}

void ArchiveStage::Write(const std::vector<demo::ArchiveFile>& files) const { Write(demo::BuildArchive(files)); }

void ArchiveStage::Write(const Bytes& archive) const { WriteFileAt(Game("resource.hog"), archive); }

void ArchiveStage::LengthenTo(std::uint64_t length) {
  File archive(host.files, hogPath, OpenFor::changing);
  SetLength(archive, length);
}

Bytes ArchiveStage::Archive() const { return ReadFileAt(Game("resource.hog")); }

HogTable ArchiveStage::Table() {
  File hog(host.files, hogPath, OpenFor::reading);
  return TableOf(GetHogData(hog, HogCount(hog)));
}

Bytes TableRow(std::uint32_t offset, std::uint32_t size, const std::string& name) {
  Bytes row(8);
  PutBigEndian32(row.data(), offset);
  PutBigEndian32(row.data() + 4, size);
  row.insert(row.end(), name.begin(), name.end());
  row.push_back(0);
  return row;
}

Bytes HeaderAnd(std::uint32_t count, const Bytes& table) {
  Bytes archive = BytesOf("BIGF");
  archive.resize(16);
  PutBigEndian32(&archive[4], static_cast<std::uint32_t>(16 + table.size()));
  PutBigEndian32(&archive[8], count);
  PutBigEndian32(&archive[12], static_cast<std::uint32_t>(16 + table.size()));
  archive.insert(archive.end(), table.begin(), table.end());
  return archive;
}

ShipRecord StockShip(const std::string& name, const std::string& file) {
  ShipRecord ship;
  ship.ShipName.Set(name);
  ship.ShipFile.Set(file);
  ship.ShipKind = Int16Value(1);
  ship.HogOffset = Int32Value(0);
  ship.HogSize = Int32Value(0);
  ship.HogFatPos = Int32Value(0);
  ship.StatsIndex = Int16Value(0);
  ship.SecondPartIndex = Int16Value(0);
  ship.ChangedToIndex = Int16Value(0);
  return ship;
}

ShipRecord ShipAt(const std::string& name, const std::string& file, const TableEntry& entry) {
  ShipRecord ship = StockShip(name, file);
  ship.HogOffset = Int32Value(entry.offset);
  ship.HogSize = Int32Value(entry.size);
  ship.HogFatPos = Int32Value(entry.position);
  return ship;
}

ShipRecord ImportedShip(const std::string& name, const std::string& file) {
  ShipRecord ship = StockShip(name, file);
  ship.ShipKind = Int16Value(importedKind);
  ship.Imported = true;
  return ship;
}

std::string NameIn(const Bytes& archive, const TableEntry& entry) {
  return TextOf(std::span(archive).subspan(entry.position + 8, entry.name.size()));
}

}  // namespace oravin::test
