#include "demo/ship_list.h"

#include <array>
#include <numeric>
#include <string_view>

namespace oravin::demo {

namespace {

struct StockShip {
  int kind;
  std::uint8_t classByte;
  std::string_view name;
  std::string_view stem;  // of the model's file name
  bool twoParts;          // followed by its "Tiger" variant
};

// 50 ships, 10 of them in two parts: 60 records. Only "foxfire" and "bonfire" become equal when their first three
// letters are replaced.
constexpr std::array kStockShips{
    StockShip{1, 0, "Predator", "predator", true},
    StockShip{1, 0, "Sabrewing", "sabrewing", false},
    StockShip{1, 0, "Longbow", "longbow", true},
    StockShip{2, 0, "Scimitar", "scimitar", false},
    StockShip{2, 0, "Kindjal", "kindjal", true},
    StockShip{1, 1, "Ascension Carrier", "ascension", false},
    StockShip{2, 3, "Boyar Battle Cruiser", "boyar", false},
    StockShip{1, 2, "Nightjar", "nightjar", false},
    StockShip{1, 0, "Kestrel", "kestrel", false},
    StockShip{1, 0, "Halberd", "halberd", true},
    StockShip{1, 0, "Foxfire", "foxfire", false},
    StockShip{2, 0, "Bonfire", "bonfire", false},
    StockShip{1, 3, "Meridian Cruiser", "meridian", true},
    StockShip{2, 5, "Druzhina Destroyer", "druzhina", false},
    StockShip{1, 0, "Corsair", "corsair", false},
    StockShip{1, 0, "Vanguard", "vanguard", true},
    StockShip{1, 0, "Stormcrow", "stormcrow", false},
    StockShip{1, 0, "Merlin", "merlin", false},
    StockShip{1, 0, "Paladin", "paladin", false},
    StockShip{1, 0, "Javelin", "javelin", false},
    StockShip{1, 0, "Outrider", "outrider", false},
    StockShip{1, 2, "Ghostlight", "ghostlight", false},
    StockShip{1, 0, "Courier Shuttle", "courier", false},
    StockShip{1, 0, "Rescue Tug", "resctug", false},
    StockShip{1, 5, "Bulwark Frigate", "bulwark", false},
    StockShip{1, 1, "Caravel Freighter", "caravel", false},
    StockShip{1, 1, "Orpheus Hospital Ship", "orpheus", false},
    StockShip{1, 5, "Highport Station", "highport", false},
    StockShip{2, 0, "Varg", "varg", true},
    StockShip{2, 0, "Tarantul", "tarantul", false},
    StockShip{2, 0, "Molniya", "molniya", true},
    StockShip{2, 0, "Ermak", "ermak", false},
    StockShip{2, 0, "Burya", "burya", false},
    StockShip{2, 0, "Groza", "groza", true},
    StockShip{2, 0, "Vityaz", "vityaz", false},
    StockShip{2, 0, "Sokol", "sokol", false},
    StockShip{2, 2, "Tuman", "tuman", false},
    StockShip{2, 0, "Yastreb", "yastreb", true},
    StockShip{2, 0, "Strelets", "strelets", false},
    StockShip{2, 0, "Gornostai", "gornostai", false},
    StockShip{2, 0, "Lev Gunship", "levgun", false},
    StockShip{2, 0, "Pchela Mine Layer", "pchela", false},
    StockShip{2, 0, "Krechet", "krechet", false},
    StockShip{2, 1, "Vladimir Carrier", "vladimir", false},
    StockShip{2, 3, "Ural Tanker", "ural_tanker", false},
    StockShip{2, 5, "Zastava Guard Post", "zastava", false},
    StockShip{1, 0, "Lancer Mk IV", "lancer4", false},
    StockShip{1, 0, "Wayfarer Scout", "wayfarer", false},
    StockShip{2, 0, "Ognivo Torpedo Boat", "ognivo", false},
    StockShip{1, 3, "Sovereign Line Ship", "sovereign", false},
};

bool IsCapital(std::uint8_t classByte) { return classByte == 1 || classByte == 3 || classByte == 5; }

// Further ships: a name and a number; every ninth has two parts, every seventh is a capital ship.
struct MadeUp {
  std::string name, stem;
  int kind;
  std::uint8_t classByte;
  bool twoParts;
};

MadeUp MakeUpShip(int number) {
  constexpr std::array<std::string_view, 12> kNames{"Aurora",  "Basalt",  "Cinder", "Dagger",  "Ember",   "Falchion",
                                                    "Granite", "Harrier", "Icarus", "Jackdaw", "Komodor", "Lodestar"};
  const std::string name(kNames[static_cast<std::size_t>(number) % kNames.size()]);
  constexpr std::array<std::uint8_t, 3> kCapitalClasses{1, 3, 5};
  std::uint8_t classByte = 0;
  if (number % 7 == 3) classByte = kCapitalClasses[static_cast<std::size_t>(number / 7) % 3];
  if (number % 31 == 2) classByte = 2;
  // The number makes the name unique, so it is after the first three characters, which get disguised.
  return {name + " " + std::to_string(number), "ser" + std::to_string(number), 1 + number % 2, classByte,
          number % 9 == 4};
}

// The blocks of shipstats.bin have another order than the list: block = record * step + 3.
int StatsStep(int records) {
  int step = 7;
  while (std::gcd(step, records) != 1) ++step;
  return step;
}

PlannedShip AddOn(const char* name, const char* stem, std::uint8_t classByte, std::vector<std::string> textures) {
  PlannedShip planned;
  planned.ship = {3, name, std::string(stem) + ".shp", 0, textures.at(0), textures.at(1), IsCapital(classByte), false};
  planned.classByte = classByte;
  planned.textures = std::move(textures);
  return planned;
}

}  // namespace

std::vector<NamedModel> NamedModels() {
  std::vector<NamedModel> models;
  models.reserve(kStockShips.size());
  for (const StockShip& ship : kStockShips) models.push_back({std::string(ship.stem), IsCapital(ship.classByte)});
  return models;
}

std::vector<PlannedShip> PlanShips(int stockRecords) {
  std::vector<PlannedShip> ships;
  const auto records = static_cast<std::size_t>(stockRecords);
  const int step = StatsStep(stockRecords);
  const auto add = [&](const MadeUp& ship, const std::string& textureStem, bool variant) {
    if (ships.size() == records) return;
    const auto index = static_cast<int>(ships.size());
    PlannedShip planned;
    planned.classByte = ship.classByte;
    planned.variant = variant;
    planned.textures = {textureStem + "1", textureStem + "2"};
    const auto block = static_cast<int>((static_cast<long long>(index) * step + 3) % stockRecords);
    planned.ship = {ship.kind,
                    ship.name,
                    (variant ? "t_" : "") + ship.stem + ".shp",
                    block,
                    planned.textures[0],
                    planned.textures[1],
                    IsCapital(ship.classByte),
                    index % 8 == 5};
    ships.push_back(std::move(planned));
  };
  for (const StockShip& stock : kStockShips) {
    const MadeUp ship{std::string(stock.name), std::string(stock.stem), stock.kind, stock.classByte, stock.twoParts};
    add(ship, ship.stem, false);
    if (stock.twoParts) add(ship, ship.stem, true);
  }
  for (int number = 100; ships.size() < records; ++number) {
    const MadeUp ship = MakeUpShip(number);
    const StockShip& like = kStockShips[static_cast<std::size_t>(number) % kStockShips.size()];
    const std::string textureStem(like.stem);
    add(ship, textureStem, false);
    if (ship.twoParts) add(ship, textureStem, true);
  }
  ships.push_back(AddOn("Manta", "manta", 0, {"manta1", "manta2"}));
  ships.push_back(AddOn("Wraithwing", "wraithwing", 0, {"wraith1", "wraith2"}));
  ships.push_back(AddOn("Colossus Carrier", "colossus", 3, {"coldeck", "colhull"}));
  return ships;
}

}  // namespace oravin::demo
