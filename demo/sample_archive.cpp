#include "demo/sample_archive.h"

#include <algorithm>
#include <array>
#include <string>

#include "demo/archive_writer.h"
#include "demo/compressor.h"
#include "demo/contents.h"
#include "demo/random.h"

namespace oravin::demo {

namespace {

constexpr int kUsualEntries = 1000;  // further entries are small
constexpr std::uint64_t kMegabyte = 1048576;
constexpr std::uint64_t kPaddingEntry = 4 * kMegabyte;

struct PlannedEntry {
  std::string name;
  const PlannedShip* ship = nullptr;  // a stock model; if null,
  Content content = Content::kTable;  // generated content
  std::size_t size = 0;
  bool stored = false;
};

struct Family {
  const char* before;  // names are `before`, a four-digit number, `after`
  const char* after;
  Content content;
  int smallest, largest;  // size in bytes
  bool stored;
};

// One of each in turn, so that all families have a similar size.
constexpr std::array kFamilies{
    Family{"sounds\\radio\\wing_", ".wav", Content::kSound, 4000, 24000, false},
    Family{"sounds\\fx\\effect_", ".wav", Content::kSound, 1000, 12000, true},
    Family{"missions\\mission_", "\\script.txt", Content::kScript, 1500, 16000, false},
    Family{"textures\\ui\\panel_", ".raw", Content::kPicture, 4000, 30000, false},
    Family{"missions\\mission_", "\\objects.tbl", Content::kTable, 600, 9000, false},
    Family{"props\\debris_", ".shp", Content::kProp, 3000, 14000, false},
    Family{"sounds\\radio\\tower_", ".wav", Content::kSound, 4000, 20000, false},
    Family{"textures\\hud\\mark_", ".raw", Content::kPicture, 500, 6000, true},
    Family{"briefing\\text_", ".txt", Content::kScript, 500, 5000, false},
    Family{"music\\part_", ".str", Content::kMusic, 2000, 20000, true},
    Family{"textures\\ui\\back_", ".raw", Content::kPicture, 8000, 40000, false},
    Family{"table_", ".tbl", Content::kTable, 100, 3000, false},
};

PlannedEntry OtherEntry(int number) {
  const Family& family = kFamilies[static_cast<std::size_t>(number) % kFamilies.size()];
  const int inFamily = number / static_cast<int>(kFamilies.size()) + 1;
  PlannedEntry entry;
  entry.name = family.before + Padded(inFamily, 4) + family.after;
  entry.content = family.content;
  entry.stored = family.stored;
  Random random{SeedOf(entry.name)};
  const int size = Between(random, family.smallest, family.largest);
  // A large archive has many small entries.
  entry.size = static_cast<std::size_t>(number < kUsualEntries ? size : 64 + size / 16);
  return entry;
}

// Spreads the stock models evenly. A stored model is followed by a compressed entry: unpacking copies 50,000 bytes too
// many from a stored entry, and these then look like one huge chunk, without stray weapons.
std::vector<PlannedEntry> PlanEntries(const std::vector<PlannedShip>& ships, int entries) {
  std::vector<const PlannedShip*> models;
  for (const PlannedShip& ship : ships) {
    if (ship.ship.kind != 3) models.push_back(&ship);
  }
  const int others = std::max(entries - static_cast<int>(models.size()), 0);
  std::vector<PlannedEntry> plan;
  plan.reserve(models.size() + static_cast<std::size_t>(others));
  int other = 0;
  const auto addOthers = [&](int upTo) {
    for (; other < upTo; ++other) {
      PlannedEntry entry = OtherEntry(other);
      if (!plan.empty() && plan.back().ship != nullptr && plan.back().stored) entry.stored = false;
      plan.push_back(std::move(entry));
    }
  };
  for (std::size_t i = 0; i < models.size(); ++i) {
    const auto share =
        static_cast<long long>(others) * static_cast<long long>(i + 1) / static_cast<long long>(models.size() + 1);
    addOthers(static_cast<int>(share));
    PlannedEntry model;
    model.name = models[i]->ship.file;
    model.ship = models[i];
    model.stored = models[i]->ship.stored;
    plan.push_back(std::move(model));
  }
  addOthers(others);
  return plan;
}

Bytes EntryBytes(const PlannedEntry& entry) {
  Bytes plain =
      entry.ship != nullptr ? BuildShipModel(*entry.ship) : MakeContent(entry.content, SeedOf(entry.name), entry.size);
  if (entry.stored) return plain;
  return Compress(plain, entry.ship != nullptr ? Effort::kNormal : Effort::kFast);
}

void WritePadding(ArchiveStream& archive, std::size_t entries) {
  const Bytes piece = MakeContent(Content::kMusic, 4096, kMegabyte / 4);
  for (std::size_t i = 0; i < entries; ++i) {
    for (std::uint64_t done = 0; done < kPaddingEntry; done += piece.size()) AppendToEntry(archive, piece);
    FinishEntry(archive);
  }
}

}  // namespace

Bytes BuildShipModel(const PlannedShip& ship) {
  ModelOptions options;
  options.seed = SeedOf(ship.ship.file);
  options.name = ship.ship.file.substr(0, ship.ship.file.find('.'));
  options.classByte = ship.classByte;
  Random random{options.seed ^ 0x512E};
  options.size = ship.ship.capital ? Between(random, 90000, 195000) : Between(random, 24000, 70000);
  options.textures = ship.textures;
  options.attachments = ArmShip(options.seed, ship.classByte);
  return BuildModel(options);
}

void WriteSampleArchive(const std::filesystem::path& path, const std::vector<PlannedShip>& ships,
                        const SampleOptions& options) {
  const std::vector<PlannedEntry> plan = PlanEntries(ships, options.entries);
  const std::uint64_t wanted = static_cast<std::uint64_t>(options.megabytes) * kMegabyte;
  // The size without padding is not known in advance, so the padding alone has the requested size.
  const auto padding = static_cast<std::size_t>((wanted + kPaddingEntry - 1) / kPaddingEntry);
  std::vector<std::string> names;
  names.reserve(plan.size() + padding);
  for (const PlannedEntry& entry : plan) names.push_back(entry.name);
  for (std::size_t i = 0; i < padding; ++i)
    names.push_back("movies\\scene_" + Padded(static_cast<int>(i + 1), 4) + ".mov");
  ArchiveStream archive = BeginArchive(path, std::move(names));
  for (const PlannedEntry& entry : plan) {
    AppendToEntry(archive, EntryBytes(entry));
    FinishEntry(archive);
  }
  WritePadding(archive, padding);
  FinishArchive(archive);
}

}  // namespace oravin::demo
