#include "support/imported_stage.h"

namespace oravin::test {

ImportedStage::ImportedStage() : archive(Live()) { Enable(); }

void ImportedStage::Reload() {
  host.files.before = nullptr;
  installation.ships = ReadCatalogue(host.files, installation.cataloguePath());
}

void ImportedStage::SetTextures(int ship, const std::vector<std::string>& names) {
  for (ShipText& texture : Record(ship).Textures) texture.Set("");
  for (std::size_t i = 0; i < names.size(); ++i) Record(ship).Textures.at(i).Set(names[i]);
  PutShipRecord(host.files, installation.cataloguePath(), installation.ships, At(ship));
}

void ImportedStage::AddUserTexture(const std::string& name) const {
  Bytes cache = Cache();
  const std::uint32_t slot = LittleEndian32(&cache.at(4));
  const std::size_t at = 12 + std::size_t{240} * slot;
  PutLittleEndian32(&cache.at(at), 1);
  for (const std::size_t field : {64U, 68U, 120U, 124U}) PutLittleEndian32(&cache.at(at + field), 2);
  std::copy(name.begin(), name.end(), cache.begin() + static_cast<std::ptrdiff_t>(at + 72));
  PutLittleEndian32(&cache.at(at + 116), 1);
  PutLittleEndian32(&cache.at(at + 224), static_cast<std::uint32_t>(cache.size()));
  for (std::uint32_t i = 0; i < 4; ++i) cache.push_back(static_cast<std::uint8_t>(slot * 4 + i));
  PutLittleEndian32(&cache.at(4), slot + 1);
  PutLittleEndian32(&cache.at(8), static_cast<std::uint32_t>(cache.size()));
  WriteFileAt(files.Game("tcachehw.dat"), cache);
}

Ships RecordsIn(const Bytes& catalogue) {
  Ships ships;
  for (std::size_t at = 0; at + shipRecordSize <= catalogue.size(); at += shipRecordSize) {
    const auto record = RecordFrom(std::span(catalogue).subspan(at, shipRecordSize));
    EXPECT_TRUE(record.has_value());
    ships.push_back(record.value_or(ShipRecord()));
  }
  return ships;
}

Bytes CatalogueOf(const Ships& records) {
  Bytes all;
  for (const ShipRecord& ship : records) {
    const Bytes slot = SlotOf(ship).value_or(Bytes());
    all.insert(all.end(), slot.begin(), slot.end());
  }
  return all;
}

void ChangeRecords(FolderImage& image, const std::function<void(Ships&)>& change) {
  Bytes& catalogue = image.at("program/ships.dat");
  Ships ships = RecordsIn(catalogue);
  change(ships);
  catalogue = CatalogueOf(ships);
}

void ChangeList(FolderImage& image, const std::string& from, const std::string& to) {
  Bytes& bytes = image.at("program/shipsData.txt");
  std::string text = TextOf(bytes);
  const std::size_t at = text.find(from);
  ASSERT_NE(at, std::string::npos) << from;
  bytes = BytesOf(text.replace(at, from.size(), to));
}

}  // namespace oravin::test
