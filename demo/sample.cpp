#include "demo/sample.h"

#include <array>
#include <stdexcept>
#include <string>

#include "demo/bitmap_writer.h"
#include "demo/bytes.h"
#include "demo/palettes.h"
#include "demo/pictures.h"
#include "demo/random.h"
#include "demo/sample_archive.h"
#include "demo/stats_writer.h"
#include "demo/text_files.h"
#include "demo/texture_plan.h"

namespace fs = std::filesystem;

namespace oravin::demo {

namespace {

constexpr const char* kMarkerFile = "oravin-sample.txt";

// Common settings of the bitmap writers.
struct Paintbox {
  Palette space = SpacePalette();
  Palette loadout = LoadoutPalette();
  Quantizer quantizer = MakeQuantizer(space);
  NoiseField noise = MakeNoise(7);
};

void CheckOptions(const SampleOptions& options) {
  if (options.ships < 1 || options.ships > 30000) throw std::runtime_error("the number of ships must be 1 to 30000");
  if (options.entries < 0 || options.entries > 2000000) {
    throw std::runtime_error("the number of entries must be 0 to 2000000");
  }
  if (options.megabytes < 0 || options.megabytes > 2000) throw std::runtime_error("megabytes must be 0 to 2000");
}

void ClaimFolder(const fs::path& folder) {
  if (fs::exists(folder) && !fs::is_directory(folder)) throw std::runtime_error(folder.string() + " is not a folder");
  fs::create_directories(folder);
  if (!fs::is_empty(folder) && !fs::exists(folder / kMarkerFile)) {
    throw std::runtime_error(folder.string() +
                             " is not empty and is not a sample installation; nothing was written.\n"
                             "Choose a new or empty folder, or an existing sample.");
  }
  WriteWholeFile(folder / kMarkerFile, MarkerText());
}

// Files that Oravin creates in an installation.
void RemoveLeftovers(const Sample& sample) {
  for (const char* name :
       {"ships", "shipstats.def", "shipstats.bak", "tcachehw.old", "temp", "resource.FAT", "backup"}) {
    fs::remove_all(sample.game / name);
  }
  for (const char* name :
       {"ships.dat", "oravin.ini", "backup", "addons", "packs", "import", "gimport", "tmpweapn", "temp.bmp"}) {
    fs::remove_all(sample.program / name);
  }
  for (const fs::path& path :
       {sample.game / "ships", sample.program / "addons" / "ships", sample.program / "addons" / "textures",
        sample.program / "addons" / "stats", sample.program / "3D", sample.config / "oravin"}) {
    fs::create_directories(path);
  }
}

void WriteStats(const Sample& sample, const std::vector<PlannedShip>& ships) {
  std::size_t blocks = 0;
  for (const PlannedShip& ship : ships) blocks += ship.ship.kind == 3 ? 0U : 1U;
  Bytes file(blocks * kStatsBlockSize);
  for (const PlannedShip& planned : ships) {
    if (planned.ship.kind == 3) continue;
    const std::string name = planned.variant ? planned.ship.name + " Tiger" : planned.ship.name;
    const Bytes block = BuildStatsBlock(name, MakeStats(SeedOf(planned.ship.file), planned.ship.capital));
    const auto at = static_cast<std::ptrdiff_t>(static_cast<std::size_t>(planned.ship.statsIndex) * kStatsBlockSize);
    std::copy(block.begin(), block.end(), file.begin() + at);
  }
  WriteWholeFile(sample.game / "shipstats.bin", file);
}

void WriteChainBitmap(const fs::path& folder, const std::string& texture, Motif motif, const Paintbox& box) {
  Picture picture = Draw(motif, 256, 256, SeedOf(texture), box.noise);
  const Bytes pixels = IndexedChain(std::move(picture), 8, box.quantizer);
  WriteWholeFile(folder / (texture + ".bmp"), BuildBitmap8(256, 256, box.space, pixels));
}

void WriteDeepBitmap(const fs::path& folder, const std::string& texture, const Paintbox& box) {
  const Bytes pixels = Colour24(Draw(Motif::kCapitalHull, 256, 256, SeedOf(texture), box.noise));
  WriteWholeFile(folder / (texture + ".bmp"), BuildBitmap24(256, 256, pixels));
}

void WriteStatsText(const fs::path& folder, const std::string& stem, bool capital) {
  WriteWholeFile(folder / (stem + ".txt"), BuildStatsText(MakeStats(SeedOf(stem), capital)));
}

std::string StemOf(const std::string& file) { return file.substr(0, file.find('.')); }

void WriteAddOns(const Sample& sample, const std::vector<PlannedShip>& ships, const Paintbox& box) {
  const fs::path addons = sample.program / "addons";
  for (const PlannedShip& planned : ships) {
    if (planned.ship.kind != 3) continue;
    WriteWholeFile(addons / "ships" / planned.ship.file, BuildShipModel(planned));
    for (const std::string& texture : planned.textures) {
      if (texture == "colhull") {
        WriteDeepBitmap(addons / "textures", texture, box);
      } else {
        WriteChainBitmap(addons / "textures", texture, planned.ship.capital ? Motif::kCapitalHull : Motif::kHull, box);
      }
    }
    // One add-on ship has no statistics.
    const std::string stem = StemOf(planned.ship.file);
    if (stem != "wraithwing") WriteStatsText(addons / "stats", stem, planned.ship.capital);
  }
}

struct PackShip {
  PackLine line;
  std::uint8_t classByte;
  std::vector<std::string> textures;
  std::string missing;  // a texture without a bitmap in the pack
  bool stats;
};

void WritePack(const fs::path& path, const std::string& header, const std::vector<PackShip>& ships,
               const Paintbox& box) {
  const fs::path folder = path.parent_path();
  fs::create_directories(folder);
  std::vector<PackLine> lines;
  for (const PackShip& ship : ships) {
    lines.push_back(ship.line);
    PlannedShip planned;
    planned.ship.file = ship.line.file;
    planned.ship.capital = (ship.classByte & 1) != 0;
    planned.classByte = ship.classByte;
    planned.textures = ship.textures;
    WriteWholeFile(folder / ship.line.file, BuildShipModel(planned));
    for (const std::string& texture : ship.textures) {
      if (texture != ship.missing) WriteChainBitmap(folder, texture, Motif::kHull, box);
    }
    if (ship.stats) WriteStatsText(folder, StemOf(ship.line.file), planned.ship.capital);
  }
  WriteWholeFile(path, BuildPack(header, lines));
}

void WritePacks(const Sample& sample, const Paintbox& box) {
  const std::vector<PackShip> raiders{
      {{"locust.shp", "Locust", ""}, 0, {"locust1", "locust2"}, "", true},
      {{"hornetq.shp", "Hornet Queen", "Sabrewing"}, 0, {"hornet1"}, "", true},
      {{"raptor.shp", "PREDATOR", ""}, 2, {"raptor1"}, "", false},  // the name of a stock ship
  };
  const std::vector<PackShip> sentinels{
      {{"sentinel.shp", "Sentinel Monitor", ""}, 5, {"sentinel1", "sentinel2"}, "", true},
      {{"dragonfly.shp", "Dragonfly", ""}, 0, {"dragon1", "dragon2"}, "dragon2", true},
  };
  WritePack(sample.packs[0], "Raiders of the outer rim, 3 ships", raiders, box);
  WritePack(sample.packs[1], "Sentinels, 2 ships", sentinels, box);
}

void WriteProgramFiles(const Sample& sample, std::span<const std::uint8_t> maps, const Paintbox& box) {
  WriteWholeFile(sample.program / "gloadconv.dat", maps);
  // Small, like the templates that are shipped: an extracted bitmap has the file length of its template's header, and
  // image programs refuse one that is shorter.
  const Bytes cube = IndexedChain(Draw(Motif::kCube, 16, 16, 1, box.noise), 1, box.quantizer);
  WriteWholeFile(sample.program / "3D" / "cube.bmp", BuildBitmap8(16, 16, box.space, cube));
  WriteWholeFile(sample.program / "3D" / "gcube.bmp", BuildBitmap8(16, 16, box.loadout, ConvertPixels(cube, maps)));
  WriteWholeFile(sample.program / "shipsData.txt", BuildShipsData(sample.ships));
  WriteWholeFile(sample.program / "readme.txt", ProgramReadme());
  WriteWholeFile(sample.config / "oravin" / "registry.reg", BuildRegistry(sample.game, sample.program));
}

void WriteLooseFiles(const Sample& sample) {
  WriteWholeFile(sample.game / "ships" / "readme.txt", ShipsFolderReadme());
  PlannedShip own;
  own.ship.file = "mywing.shp";
  own.textures = {"kestrel1"};
  WriteWholeFile(sample.game / "ships" / own.ship.file, BuildShipModel(own));
}

}  // namespace

Sample WriteSample(const fs::path& folder, const SampleOptions& options) {
  CheckOptions(options);
  Sample sample = DescribeSample(folder, options);
  ClaimFolder(sample.game.parent_path());
  RemoveLeftovers(sample);
  const std::vector<PlannedShip> ships = PlanShips(options.ships);
  const Paintbox box;
  const Bytes maps = BuildConversionMaps(box.space, box.loadout);
  WriteSampleArchive(sample.game / "resource.hog", ships, options);
  WriteWholeFile(sample.game / "tcachehw.dat", BuildFactoryCache(box.space, maps));
  WriteStats(sample, ships);
  WriteLooseFiles(sample);
  WriteProgramFiles(sample, maps, box);
  WriteAddOns(sample, ships, box);
  WritePacks(sample, box);
  return sample;
}

Sample DescribeSample(const fs::path& folder, const SampleOptions& options) {
  const fs::path root = fs::absolute(folder).lexically_normal();
  const fs::path packs = root / "Oravin" / "packs";
  Sample sample{root / "StarLancer",
                root / "Oravin",
                root / "config",
                {},
                {packs / "raiders" / "raiders.pak", packs / "sentinels" / "sentinels.pak"}};
  for (const PlannedShip& ship : PlanShips(options.ships)) sample.ships.push_back(ship.ship);
  return sample;
}

}  // namespace oravin::demo
