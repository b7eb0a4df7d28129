#include "support/small_installation.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "demo/compressor.h"
#include "support/cache_files.h"

namespace oravin::test {

namespace {

constexpr int stockBlocks = 12;
constexpr int factoryTextures = 426;

Bytes Model(const std::string& name, std::uint8_t classByte) {
  demo::ModelOptions options;
  for (const char c : name) options.seed = options.seed * 31 + static_cast<std::uint8_t>(c);
  options.name = name.substr(0, 12);
  options.classByte = classByte;
  options.size = 1500;
  options.textures = {"hull"};
  options.attachments = SmallShipWeapons();
  return demo::BuildModel(options);
}

SmallShip Ship(int kind, const std::string& name, const std::string& file, const std::string& entryName, int stats,
               std::uint8_t classByte, bool stored) {
  return {kind, name, file, entryName, stats, classByte, stored, Model(file, classByte)};
}

Bytes Statistics() {
  Bytes all;
  for (int block = 0; block < stockBlocks; ++block) {
    Bytes bytes(352);
    for (std::size_t i = 0; i < bytes.size(); ++i)
      bytes[i] = static_cast<std::uint8_t>(block * 7 + static_cast<int>(i));
    const Bytes name = BytesOf("SHIP" + std::to_string(block));
    std::fill_n(bytes.begin(), 64, std::uint8_t{0});
    std::copy(name.begin(), name.end(), bytes.begin());
    for (int value = 0; value < 15; ++value) {
      PutLittleEndian32(&bytes.at(64 + 4 * static_cast<std::size_t>(value)),
                        std::bit_cast<std::uint32_t>(static_cast<float>(100 * block + value) + 0.5F));
    }
    all.insert(all.end(), bytes.begin(), bytes.end());
  }
  return all;
}

/// A cache of the factory's 426 textures, each of one image of 2 by 2 bytes.
Bytes Cache() {
  Bytes cache(240012 + factoryTextures * 4);
  PutLittleEndian32(&cache.at(0), 102);
  PutLittleEndian32(&cache.at(4), factoryTextures);
  PutLittleEndian32(&cache.at(8), static_cast<std::uint32_t>(cache.size()));
  for (std::size_t slot = 0; slot < factoryTextures; ++slot) {
    const std::size_t at = 12 + slot * 240;
    PutLittleEndian32(&cache.at(at), 1);
    for (const std::size_t field : {64U, 68U, 120U, 124U}) PutLittleEndian32(&cache.at(at + field), 2);
    const Bytes name = BytesOf("texture" + std::to_string(slot));
    std::copy(name.begin(), name.end(), cache.begin() + static_cast<std::ptrdiff_t>(at + 72));
    PutLittleEndian32(&cache.at(at + 116), 1);
    PutLittleEndian32(&cache.at(at + 224), static_cast<std::uint32_t>(240012 + slot * 4));
  }
  for (std::size_t i = 240012; i < cache.size(); ++i) cache[i] = static_cast<std::uint8_t>(i);
  return cache;
}

}  // namespace

std::vector<demo::ModelAttachment> SmallShipWeapons() {
  return {{demo::kGun, 40, 0, 10, 0, 2},
          {demo::kGun, -40, 0, 10, 0, 2},
          {demo::kGun, 0, 90, 400, 0, 11},
          {demo::kMissileLauncher, 250, -40, 0, 0, 0},
          {demo::kMissileLauncher, -250, -40, 0, 0, 0},
          {demo::kExternalGun, 0, 200, -300, 7, 0}};
}

SmallInstallation::SmallInstallation() : gamePath(folder.Windows("game\\")), programPath(folder.Windows("program\\")) {
  ships = {
      Ship(1, "Alpha", "alpha.shp", "alpha.shp", 0, 0, false),
      Ship(2, "Bravo", "bravo.shp", "Bravo.SHP", 1, 2, false),
      Ship(1, "Tiger", "tiger.shp", "tiger.shp", 2, 0, false),
      Ship(1, "TIGER ", "t_tiger.shp", "t_tiger.shp", 3, 0, false),
      Ship(1, "Cruiser", "cruiser.shp", "cruiser.shp", 4, 1, false),
      Ship(2, "Carrier", "carrier.shp", "carrier.shp", 5, 5, false),
      Ship(1, "Stored", "stored.shp", "stored.shp", 6, 0, true),
      Ship(1, "Fire A", "abcfire.shp", "abcfire.shp", 7, 0, false),
      Ship(2, "Fire B", "xyzfire.shp", "xyzfire.shp", 8, 0, false),
      Ship(2, "Twin", "twin.shp", "twin.shp", 9, 3, false),
      Ship(2, "Twin", "t_twin.shp", "t_twin.shp", 10, 3, false),
      Ship(3, "Manta", "manta.shp", "", 0, 0, false),
      Ship(3, "Wraith", "wraith.shp", "", 0, 0, false),
      Ship(3, "Colossus", "colossus.shp", "", 0, 5, false),
  };
  WriteShipList();
  WriteArchive();
  WriteFileAt(Game("shipstats.bin"), Statistics());
  WriteFileAt(Game("tcachehw.dat"), Cache());
  WriteFileAt(Game("ships/players own.txt"), "nothing of the program's business");
  WriteFileAt(Program("readme.txt"), "readme");
  for (const SmallShip& ship : ships) {
    if (ship.kind == 3) WriteFileAt(Program("addons/ships/" + ship.file), ship.model);
  }
  WriteFileAt(Program("addons/textures/hull.bmp"), Bitmap(4, 4, 8, Pattern(16)));
  WriteFileAt(Program("gloadconv.dat"), LoadoutMapsForTests());
  WriteFileAt(Program("addons/stats/manta.txt"), "1,0.5,3,0.5,5,0.5,7,0.5,9\r\n10\r\n11\r\n12,13,14,15\r\n");
}

void SmallInstallation::WriteShipList() const {
  std::string text = std::to_string(ships.size()) + "\r\n";
  for (const SmallShip& ship : ships) {
    text += std::to_string(ship.kind) + ",\"" + ship.name + "\",\"" + ship.file + "\"," +
            std::to_string(ship.statsIndex) + ",\"hull\",\"\"\r\n";
  }
  WriteFileAt(Program("shipsData.txt"), text);
}

void SmallInstallation::WriteArchive() const {
  std::vector<demo::ArchiveFile> files;
  files.push_back({"sounds\\hum.wav", BytesOf("the engines hum")});
  for (const SmallShip& ship : ships) {
    if (ship.kind == 3) continue;
    files.push_back({ship.entryName, ship.stored ? ship.model : demo::Compress(ship.model)});
    files.push_back({"textures\\" + ship.file, BytesOf("something else of a similar name")});
  }
  files.push_back({"S47stats.txt", Bytes(60000, 0x20)});
  WriteFileAt(Game("resource.hog"), demo::BuildArchive(files));
}

std::vector<TableEntry> TableIn(const Bytes& archive) {
  std::vector<TableEntry> table;
  std::size_t at = 16;
  for (std::uint32_t i = 0; i < BigEndian32(&archive.at(8)); ++i) {
    const auto end = std::find(archive.begin() + static_cast<std::ptrdiff_t>(at) + 8, archive.end(), 0);
    const std::string name(archive.begin() + static_cast<std::ptrdiff_t>(at) + 8, end);
    table.push_back(
        {name, BigEndian32(&archive.at(at)), BigEndian32(&archive.at(at + 4)), static_cast<std::uint32_t>(at)});
    at += 9 + name.size();
  }
  return table;
}

TableEntry EntryNamed(const Bytes& archive, const std::string& name) {
  for (const TableEntry& entry : TableIn(archive)) {
    if (entry.name == name) return entry;
  }
  throw std::out_of_range("no entry " + name);
}

Bytes UnpackedBytes(const Bytes& archive, const TableEntry& entry, const SmallShip& ship) {
  if (!ship.stored) return ship.model;
  Bytes bytes(entry.size + 50000);
  for (std::size_t i = 0; i < bytes.size() && entry.offset + i < archive.size(); ++i)
    bytes[i] = archive[entry.offset + i];
  return bytes;
}

}  // namespace oravin::test
