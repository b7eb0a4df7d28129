#include "support/expected_files.h"

#include <algorithm>
#include <bit>
#include <cctype>

#include "support/cache_files.h"

namespace oravin::test {

namespace {

constexpr std::size_t blockSize = 352;
constexpr std::size_t statsAt = 64;
constexpr std::size_t statsSize = 60;

std::string Plain(std::string name) {
  while (!name.empty() && name.back() == ' ') name.pop_back();
  for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return name;
}

std::string Org(const std::string& file) { return file.substr(0, file.size() - 4) + ".org"; }

void AddText(Bytes& record, const std::string& text) {
  for (std::size_t i = 0; i < 30; ++i) record.push_back(i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0x20);
}

void AddTagged(Bytes& record, int tag, std::uint32_t value, int width) {
  record.push_back(static_cast<std::uint8_t>(tag));
  record.push_back(0);
  for (int i = 0; i < width; ++i) record.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void AddFlag(Bytes& record, bool flag) { record.insert(record.end(), 2, flag ? 0xFF : 0x00); }

void AddToFloat(Bytes& stats, std::size_t at, float value, bool set) {
  const float old = std::bit_cast<float>(LittleEndian32(&stats.at(at)));
  PutLittleEndian32(&stats.at(at), std::bit_cast<std::uint32_t>(set ? value : old + value));
}

}  // namespace

ExpectedFiles::ExpectedFiles(const SmallInstallation& installation)
    : ships(installation.ships),
      before(ImageOf(installation.folder.native)),
      archive(before.at("game/resource.hog")),
      stockStats(before.at("game/shipstats.bin")),
      stats(stockStats),
      changes(ships.size()),
      textures(ships.size(), {"hull"}),
      pixels{{"hull", Pattern(16)}},
      // The text lists Shield Recharge as its 10th value; the block has it behind Afterburner Fuel.
      texts{{"Manta", {1, 0.5F, 3, 0.5F, 5, 0.5F, 7, 0.5F, 9, 11, 12, 10, 13, 14, 15}}} {
  const Bytes& text = before.at("program/shipsData.txt");
  list.assign(text.begin(), text.end());
}

/// The block that an add-on ship's statistics make: from its text where it has one, else the first stock block's.
Bytes ExpectedFiles::AddedBlock(const SmallShip& ship) const {
  Bytes block(blockSize);
  std::copy(ship.name.begin(), ship.name.end(), block.begin());
  std::copy_n(stockStats.begin() + statsAt, statsSize, block.begin() + statsAt);
  const auto text = texts.find(ship.name);
  for (std::size_t i = 0; text != texts.end() && i < text->second.size(); ++i) {
    PutLittleEndian32(&block[statsAt + 4 * i], std::bit_cast<std::uint32_t>(text->second[i]));
  }
  return block;
}

void ExpectedFiles::AddBlock(int ship) {
  if (!addedBlocks.contains(ship)) {
    addedBlocks[ship] = static_cast<int>(defaults->size() / blockSize);
    defaults->resize(defaults->size() + blockSize);
  }
  const Bytes block = AddedBlock(ships[static_cast<std::size_t>(ship)]);
  std::copy(block.begin(), block.end(), defaults->begin() + static_cast<std::ptrdiff_t>(blockSize) * addedBlocks[ship]);
}

void ExpectedFiles::AddTextures(int ship) {
  for (const std::string& name : textures[static_cast<std::size_t>(ship)]) {
    if (std::find(inCache.begin(), inCache.end(), name) == inCache.end()) inCache.push_back(name);
  }
}

/// The game's cache and the added textures, each with its companion, because all have 8 bits.
Bytes ExpectedFiles::Cache() const {
  Bytes cache = before.at("game/tcachehw.dat");
  for (const std::string& name : inCache) {
    cache = After(cache, {name, 1, 4, 4, 1, pixels.at(name), 16});
    cache = After(cache, {"g" + name, 1, 4, 4, 1, Mapped(pixels.at(name)), 16});
  }
  return cache;
}

void ExpectedFiles::Import(const SmallShip& ship, const std::vector<Texture>& shipsTextures,
                           const std::string& statsText, const std::vector<float>& values) {
  const int index = static_cast<int>(ships.size());
  ships.push_back(ship);
  changes.emplace_back();
  textures.emplace_back();
  for (const Texture& texture : shipsTextures) {
    textures.back().push_back(texture.name);
    pixels[texture.name] = texture.pixels;
    addOns["program/addons/textures/" + texture.name + ".bmp"] = Bitmap(4, 4, 8, texture.pixels);
  }
  const std::string base = ship.file.substr(0, ship.file.size() - 4);
  if (!statsText.empty()) {
    texts[ship.name] = values;
    addOns["program/addons/stats/" + base + ".txt"] = BytesOf(statsText);
  }
  AddBlock(index);
  AddTextures(index);
  looseModels[ship.file] = ship.model;
  looseModels[base + ".bak"] = ship.model;
  addOns["program/addons/ships/" + ship.file] = ship.model;
  list.replace(0, list.find('\r'), std::to_string(ships.size()));
  list += "3,\"" + ship.name + "\",\"" + ship.file + "\"," + std::to_string(BlockOf(index));
  for (std::size_t t = 0; t < 2; ++t) list += ",\"" + (t < textures.back().size() ? textures.back()[t] : "") + "\"";
  list += "\r\n";
}

void ExpectedFiles::RemoveLast(bool withTextures) {
  const SmallShip ship = ships.back();
  const std::string base = ship.file.substr(0, ship.file.size() - 4);
  const std::string removed = "program/addons/removed/" + ship.name + "/";
  const int block = addedBlocks.at(static_cast<int>(ships.size()) - 1);
  std::fill_n(defaults->begin() + static_cast<std::ptrdiff_t>(blockSize) * block, blockSize, std::uint8_t{0});
  addedBlocks.erase(static_cast<int>(ships.size()) - 1);
  looseModels.erase(ship.file);
  looseModels.erase(base + ".bak");
  const auto move = [&](const std::string& folder, const std::string& name) {
    const auto file = addOns.find("program/addons/" + folder + name);
    if (file == addOns.end()) return;
    addOns[removed + name] = file->second;
    addOns.erase(file);
  };
  addOns["program/addons/removed/"];
  addOns[removed];
  move("ships/", ship.file);
  move("stats/", base + ".txt");
  for (const std::string& name : textures.back()) {
    if (!withTextures) continue;
    move("textures/", name + ".bmp");
    std::erase(inCache, name);
  }
  marksWritten = true;
  ships.pop_back();
  changes.pop_back();
  textures.pop_back();
  list.erase(list.rfind('\n', list.size() - 2) + 1);
  list.replace(0, list.find('\r'), std::to_string(ships.size()));
}

int ExpectedFiles::Parts(int ship) const {
  const auto index = static_cast<std::size_t>(ship);
  return index + 1 < ships.size() && Plain(ships[index].name) == Plain(ships[index + 1].name) ? 2 : 1;
}

int ExpectedFiles::BlockOf(int ship) const {
  const auto added = addedBlocks.find(ship);
  return added == addedBlocks.end() ? ships[static_cast<std::size_t>(ship)].statsIndex : added->second;
}

void ExpectedFiles::StartUp() {
  if (!defaults) defaults = stats;
}

void ExpectedFiles::Enable() {
  if (enabled) UnswapAll();
  StartUp();
  backedUp = true;
  marksWritten = false;
  changes.assign(ships.size(), {});
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (ships[i].kind != 3) continue;
    AddBlock(static_cast<int>(i));
    AddTextures(static_cast<int>(i));
    looseModels[ships[i].file] = ships[i].model;
  }
  for (std::size_t i = 0; i < ships.size(); ++i) {
    if (ships[i].kind == 3) continue;
    const Bytes model = UnpackedBytes(archive, EntryNamed(archive, ships[i].entryName), ships[i]);
    looseModels[ships[i].file] = model;
    if (Parts(static_cast<int>(i)) != 2) continue;
    looseModels[ships[i + 1].file] = model;  // the first part's model serves both
    ++i;
  }
  enabled = true;
}

void ExpectedFiles::PutStats(int block, const Bytes& from, int fromBlock) {
  std::copy_n(from.begin() + static_cast<std::ptrdiff_t>(blockSize) * fromBlock + statsAt, statsSize,
              stats.begin() + static_cast<std::ptrdiff_t>(blockSize) * block + statsAt);
}

void ExpectedFiles::Swap(int target, int source) {
  const auto t = static_cast<std::size_t>(target);
  const auto s = static_cast<std::size_t>(source);
  if (ships[t].name == ships[s].name) return;
  if (changes[t].to && ships[static_cast<std::size_t>(*changes[t].to)].name == ships[s].name) return;
  const bool sourceChanged = changes[s].to.has_value();
  for (int part = target; part < target + Parts(target); ++part) {
    const auto p = static_cast<std::size_t>(part);
    changes[p] = {source, false};
    const std::string file = ships[p].file;
    if (!looseModels.contains(Org(file))) looseModels[Org(file)] = looseModels.at(file);
    const std::string from = ships[s].file;
    looseModels[file] = looseModels.contains(Org(from)) ? looseModels.at(Org(from)) : looseModels.at(from);
  }
  const bool imported = ships[s].kind == 3;
  Bytes from = imported || sourceChanged ? *defaults : stats;
  const std::size_t block = blockSize * static_cast<std::size_t>(BlockOf(source));
  if (!imported && ships[s].kind == 2) {
    AddToFloat(from, block + statsAt + 48, 50.0F, false);
    AddToFloat(from, block + statsAt + 52, 6.0F, true);
  }
  for (int part = target; part < target + Parts(target); ++part) PutStats(BlockOf(part), from, BlockOf(source));
}

void ExpectedFiles::Unswap(int target) {
  if (!changes[static_cast<std::size_t>(target)].to) return;
  for (int part = target; part < target + Parts(target); ++part) {
    const auto p = static_cast<std::size_t>(part);
    changes[p] = {std::nullopt, true};
    looseModels[ships[p].file] = looseModels.at(Org(ships[p].file));
    looseModels.erase(Org(ships[p].file));
    PutStats(BlockOf(part), *defaults, BlockOf(part));
  }
}

void ExpectedFiles::UnswapAll() {
  for (std::size_t i = 0; i < ships.size(); ++i) Unswap(static_cast<int>(i));
}

void ExpectedFiles::Disable() {
  enabled = false;
  stats = stockStats;
  inCache.clear();
  defaults.reset();
  addedBlocks.clear();
  looseModels.clear();
}

Bytes ExpectedFiles::DisguisedArchive() const {
  Bytes disguised = archive;
  for (const SmallShip& ship : ships) {
    if (ship.kind == 3) continue;
    const std::string name = "S47" + ship.file.substr(3);
    std::copy(name.begin(), name.end(), disguised.begin() + EntryNamed(archive, ship.entryName).position + 8);
  }
  return disguised;
}

Bytes ExpectedFiles::Catalogue() const {
  Bytes all;
  for (std::size_t i = 0; i < ships.size(); ++i) {
    const SmallShip& ship = ships[i];
    const bool imported = ship.kind == 3;
    const TableEntry entry = imported ? TableEntry{"", 0, 0, 0} : EntryNamed(archive, ship.entryName);
    Bytes record;
    AddText(record, ship.name);
    AddText(record, ship.file);
    AddTagged(record, 2, static_cast<std::uint32_t>(ship.kind), 2);
    AddTagged(record, 3, entry.offset, 4);
    AddTagged(record, 3, entry.size, 4);
    AddTagged(record, 3, entry.position, 4);
    AddTagged(record, 2, static_cast<std::uint32_t>(BlockOf(static_cast<int>(i))), 2);
    for (std::size_t t = 0; t < 21; ++t) AddText(record, t < textures[i].size() ? textures[i][t] : "");
    // The second part is found at every load: the build writes 0, a record that a swap wrote holds what was loaded.
    const bool rewritten = marksWritten || changes[i].to || changes[i].everUnswapped;
    const bool second = rewritten && Parts(static_cast<int>(i)) == 2;
    AddFlag(record, second);
    AddTagged(record, 2, second ? static_cast<std::uint32_t>(i + 1) : 0, 2);
    AddFlag(record, changes[i].to.has_value());
    if (changes[i].everUnswapped) {
      AddTagged(record, 11, 0, 2);
    } else {
      AddTagged(record, 2, static_cast<std::uint32_t>(changes[i].to.value_or(0)), 2);
    }
    AddFlag(record, imported);
    const auto by = changes[i].to ? std::optional(ships[static_cast<std::size_t>(*changes[i].to)]) : std::nullopt;
    AddText(record, by ? by->name : "");
    AddText(record, by ? by->file : "");
    record.resize(868);
    all.insert(all.end(), record.begin(), record.end());
  }
  return all;
}

FolderImage ExpectedFiles::Image() const {
  FolderImage image = before;
  image["game/shipstats.bin"] = stats;
  image["game/tcachehw.dat"] = Cache();
  image["program/shipsData.txt"] = BytesOf(list);
  for (const auto& [path, bytes] : addOns) image[path] = bytes;
  if (defaults) image["game/shipstats.def"] = *defaults;
  for (const auto& [name, bytes] : looseModels) image["game/ships/" + name] = bytes;
  if (enabled) {
    image["game/resource.hog"] = DisguisedArchive();
    image["program/ships.dat"] = Catalogue();
  }
  if (backedUp) {
    image["program/backup/"];
    image["program/backup/ships/"];
    image["program/backup/shipstats.def"] = stockStats;
    const auto table = static_cast<std::ptrdiff_t>(BigEndian32(&archive.at(12)));
    image["program/backup/resource.fat"] = Bytes(archive.begin(), archive.begin() + table);
  }
  return image;
}

}  // namespace oravin::test
