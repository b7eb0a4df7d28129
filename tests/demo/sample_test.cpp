#include "demo/sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "demo/bytes.h"
#include "demo/random.h"
#include "demo/text_files.h"
#include "reading.h"
#include "support/sample_copy.h"

namespace fs = std::filesystem;

namespace oravin::demo {
namespace {

using reading::AllFiles;
using reading::Entry;
using reading::FileBytes;
using reading::FreshPath;

std::string TextOf(const fs::path& path) {
  const Bytes bytes = FileBytes(path);
  return std::string(bytes.begin(), bytes.end());
}

// The default sample, written once for all tests that only look at it.
class DefaultSample : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder = FreshPath("default");
    sample = test::NewSample(folder);
    archive = FileBytes(sample.game / "resource.hog");
    entries = reading::ReadTable(archive);
  }
  static void TearDownTestSuite() { fs::remove_all(folder); }

  static std::span<const std::uint8_t> Stored(const Entry& entry) {
    return std::span(archive).subspan(entry.offset, entry.size);
  }
  static bool IsCompressed(const Entry& entry) {
    return entry.size >= 2 && archive[entry.offset] == 0x10 && archive[entry.offset + 1] == 0xFB;
  }
  static Bytes Content(const Entry& entry) {
    const auto stored = Stored(entry);
    return IsCompressed(entry) ? reading::Decode(stored) : Bytes(stored.begin(), stored.end());
  }
  static const Entry& Find(const std::string& name) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.name == name; });
    if (found == entries.end()) throw std::runtime_error("no entry " + name);
    return *found;
  }

  inline static fs::path folder;
  inline static Sample sample;
  inline static Bytes archive;
  inline static std::vector<Entry> entries;
};

TEST_F(DefaultSample, TheArchiveHas1000EntriesWithDistinctNames) {
  EXPECT_EQ(entries.size(), 1000U);
  std::set<std::string> names;
  for (Entry entry : entries) {
    std::transform(entry.name.begin(), entry.name.end(), entry.name.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
    EXPECT_FALSE(entry.name.empty());
  }
}

TEST_F(DefaultSample, EntriesFollowOneAnotherToTheFilesEnd) {
  std::size_t position = reading::Big32(archive, 12);
  for (const Entry& entry : entries) {
    EXPECT_EQ(entry.offset, position);
    position += entry.size;
  }
  EXPECT_EQ(position, archive.size());
}

TEST_F(DefaultSample, EveryCommandFormOccursInTheArchive) {
  reading::Forms forms;
  std::size_t compressed = 0;
  for (const Entry& entry : entries) {
    if (!IsCompressed(entry)) continue;
    ++compressed;
    ASSERT_NO_THROW(reading::Decode(Stored(entry), &forms)) << entry.name;
  }
  EXPECT_GT(forms.shortCopies, 0U);
  EXPECT_GT(forms.mediumCopies, 0U);
  EXPECT_GT(forms.longCopies, 0U);
  EXPECT_GT(forms.literalRuns, 0U);
  EXPECT_EQ(forms.ends, compressed);
  EXPECT_GT(forms.overlapping, 0U);
  EXPECT_GT(forms.farthest, 65536U);
  for (const std::size_t count : forms.literalsOnCopies) EXPECT_GT(count, 0U);
  EXPECT_GT(compressed, 500U);
  EXPECT_GT(entries.size() - compressed, 100U);
}

TEST_F(DefaultSample, EveryStockModelLiesInTheArchiveUnderItsFileName) {
  int stored = 0;
  for (const SampleShip& ship : sample.ships) {
    if (ship.kind == 3) continue;
    const Entry& entry = Find(ship.file);
    EXPECT_EQ(IsCompressed(entry), !ship.stored) << ship.file;
    stored += ship.stored ? 1 : 0;
    const Bytes model = Content(entry);
    ASSERT_NO_THROW(reading::WalkChunks(model)) << ship.file;
    EXPECT_GE(model.size(), 20000U) << ship.file;
    EXPECT_LE(model.size(), 210000U) << ship.file;
    const bool capital = model[26] == 1 || model[26] == 3 || model[26] == 5;
    EXPECT_EQ(capital, ship.capital) << ship.file;
  }
  EXPECT_GE(stored, 4);
}

TEST_F(DefaultSample, ModelsCompressLikeMeshes) {
  std::size_t plain = 0;
  std::size_t packed = 0;
  for (const SampleShip& ship : sample.ships) {
    if (ship.kind == 3 || ship.stored) continue;
    plain += Content(Find(ship.file)).size();
    packed += Find(ship.file).size;
  }
  EXPECT_GT(plain * 10, packed * 16);
  EXPECT_LT(plain * 10, packed * 30);
}

// A stored model is unpacked with the 50,000 bytes that follow it; a walk over its chunks then must not meet weapons or
// texture names in them.
TEST_F(DefaultSample, WhatFollowsAStoredModelLooksLikeNoWeapons) {
  for (const SampleShip& ship : sample.ships) {
    if (!ship.stored) continue;
    const Entry& entry = Find(ship.file);
    const std::size_t end = entry.offset + entry.size;
    ASSERT_LE(end + 6, archive.size());
    const std::uint32_t type = reading::Little16(archive, end);
    const std::size_t length = std::size_t{reading::Little16(archive, end + 2)} * reading::Little16(archive, end + 4);
    EXPECT_NE(type, 6U) << ship.file;
    EXPECT_NE(type, 9U) << ship.file;
    EXPECT_GE(length + 6, 50000U) << ship.file;
  }
}

TEST_F(DefaultSample, ModelsNameTexturesOfTheCache) {
  const Bytes cache = FileBytes(sample.game / "tcachehw.dat");
  std::set<std::string> textures;
  ASSERT_EQ(reading::Little32(cache, 4), 426U);
  for (std::size_t i = 0; i < 426; ++i) textures.insert(reading::TextAt(cache, 12 + 240 * i + 72));
  for (const SampleShip& ship : sample.ships) {
    if (ship.kind == 3) continue;
    EXPECT_EQ(textures.count(ship.texture0), 1U) << ship.texture0;
    EXPECT_EQ(textures.count(ship.texture1), 1U) << ship.texture1;
    const Bytes model = Content(Find(ship.file));
    std::size_t names = 0;
    for (const reading::Chunk& chunk : reading::WalkChunks(model)) {
      for (std::size_t i = 0; chunk.type == 6 && i < chunk.count; ++i, ++names) {
        EXPECT_EQ(textures.count(reading::TextAt(model, chunk.elements + i * chunk.elementSize)), 1U);
      }
    }
    EXPECT_GE(names, 2U);
  }
}

TEST_F(DefaultSample, ShipsDataListsEveryShipWithSixValues) {
  std::istringstream lines(TextOf(sample.program / "shipsData.txt"));
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, "63\r");
  for (const SampleShip& ship : sample.ships) {
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(line, std::to_string(ship.kind) + ",\"" + ship.name + "\",\"" + ship.file + "\"," +
                        std::to_string(ship.statsIndex) + ",\"" + ship.texture0 + "\",\"" + ship.texture1 + "\"\r");
  }
  EXPECT_FALSE(std::getline(lines, line));
}

TEST_F(DefaultSample, TheListHasShipsOfEverySort) {
  std::map<int, int> fighters, capitals;
  int twoParts = 0;
  for (std::size_t i = 0; i < sample.ships.size(); ++i) {
    const SampleShip& ship = sample.ships[i];
    ++(ship.capital ? capitals : fighters)[ship.kind];
    EXPECT_LE(ship.name.size(), 30U);
    EXPECT_LE(ship.file.size(), 30U);
    if (i + 1 < sample.ships.size() && sample.ships[i + 1].name == ship.name) {
      ++twoParts;
      EXPECT_EQ(sample.ships[i + 1].file, "t_" + ship.file);
      EXPECT_EQ(sample.ships[i + 1].kind, ship.kind);
    }
  }
  EXPECT_EQ(sample.ships.size(), 63U);
  EXPECT_GE(twoParts, 8);
  for (const int kind : {1, 2}) {
    EXPECT_GE(fighters[kind], 15);
    EXPECT_GE(capitals[kind], 4);
  }
  EXPECT_EQ(fighters[3], 2);
  EXPECT_EQ(capitals[3], 1);
  EXPECT_TRUE(std::all_of(sample.ships.end() - 3, sample.ships.end(), [](const SampleShip& s) { return s.kind == 3; }));
}

TEST_F(DefaultSample, ExactlyOnePairOfDisguisedNamesIsEqual) {
  std::map<std::string, int> disguised;
  for (const SampleShip& ship : sample.ships) {
    if (ship.kind != 3) ++disguised["S47" + ship.file.substr(3)];
  }
  const auto pairs = std::count_if(disguised.begin(), disguised.end(), [](const auto& d) { return d.second == 2; });
  EXPECT_EQ(pairs, 1);
  EXPECT_EQ(disguised.size(), 59U);
}

TEST_F(DefaultSample, FileNamesAreDistinct) {
  std::set<std::string> files;
  for (const SampleShip& ship : sample.ships) EXPECT_TRUE(files.insert(ship.file).second) << ship.file;
}

TEST_F(DefaultSample, StatisticsOfEveryStockRecordLieWithinTheirLimits) {
  const Bytes stats = FileBytes(sample.game / "shipstats.bin");
  EXPECT_EQ(stats.size(), 60U * 352);
  std::set<int> rows;
  std::set<Bytes> tails;
  for (const SampleShip& ship : sample.ships) {
    if (ship.kind == 3) continue;
    EXPECT_TRUE(rows.insert(ship.statsIndex).second);
    ASSERT_LT(ship.statsIndex, 60);
    const std::size_t block = static_cast<std::size_t>(ship.statsIndex) * 352;
    EXPECT_EQ(reading::TextAt(stats, block).substr(0, ship.name.size()), ship.name);
    for (std::size_t i = 0; i < 15; ++i) {
      const std::uint32_t bits = reading::Little32(stats, block + 64 + 4 * i);
      float value = 0;
      std::memcpy(&value, &bits, 4);
      EXPECT_GE(value, 0.0F);
      EXPECT_LE(value, i == 1 || i == 3 || i == 5 || i == 7 ? 1.0F : 10000000.0F);
    }
    const Bytes tail(stats.begin() + static_cast<std::ptrdiff_t>(block) + 124,
                     stats.begin() + static_cast<std::ptrdiff_t>(block) + 352);
    EXPECT_EQ(std::count(tail.begin(), tail.end(), 0), 0);
    EXPECT_TRUE(tails.insert(tail).second);
  }
}

TEST_F(DefaultSample, AddOnShipsHaveModelsAndBitmapsAndTwoOfThemStatistics) {
  int texts = 0;
  int deep = 0;
  for (const SampleShip& ship : sample.ships) {
    if (ship.kind != 3) continue;
    const fs::path addons = sample.program / "addons";
    const Bytes model = FileBytes(addons / "ships" / ship.file);
    EXPECT_NO_THROW(reading::WalkChunks(model));
    for (const std::string& texture : {ship.texture0, ship.texture1}) {
      const Bytes bitmap = FileBytes(addons / "textures" / (texture + ".bmp"));
      const std::size_t pixels = bitmap.size() - reading::Little32(bitmap, 10);
      const bool isDeep = reading::Little16(bitmap, 28) == 24;
      EXPECT_EQ(pixels, isDeep ? 256U * 256 * 3 : 87380U);
      deep += isDeep ? 1 : 0;
    }
    const fs::path text = addons / "stats" / fs::path(ship.file).replace_extension(".txt");
    if (!fs::exists(text)) continue;
    ++texts;
    std::istringstream values(TextOf(text));
    double value = 0;
    int count = 0;
    for (; values >> value; ++count) EXPECT_GE(value, 0);
    EXPECT_EQ(count, 15);
  }
  EXPECT_EQ(texts, 2);
  EXPECT_EQ(deep, 1);
}

TEST_F(DefaultSample, TheTwoPacksHaveAClashAMissingBitmapAndASuggestedSwitch) {
  ASSERT_EQ(sample.packs.size(), 2U);
  int ships = 0, clashes = 0, missing = 0, switches = 0;
  for (const fs::path& pack : sample.packs) {
    std::istringstream lines(TextOf(pack));
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
      ++ships;
      std::vector<std::string> items;
      for (std::size_t at = 0; (at = line.find('"', at)) != std::string::npos;) {
        const std::size_t end = line.find('"', at + 1);
        items.push_back(line.substr(at + 1, end - at - 1));
        at = end + 1;
      }
      ASSERT_EQ(items.size(), 3U);
      ASSERT_EQ(items[0].front(), '\\');
      const Bytes model = FileBytes(pack.parent_path() / items[0].substr(1));
      for (const reading::Chunk& chunk : reading::WalkChunks(model)) {
        if (chunk.type != 6 || chunk.count < 1) continue;
        for (std::size_t i = 0; i < chunk.count; ++i) {
          const std::string name = reading::TextAt(model, chunk.elements + i * chunk.elementSize);
          missing += fs::exists(pack.parent_path() / (name + ".bmp")) ? 0 : 1;
        }
      }
      std::string name = items[1];
      std::transform(name.begin() + 1, name.end(), name.begin() + 1, [](unsigned char c) { return std::tolower(c); });
      clashes += std::any_of(sample.ships.begin(), sample.ships.end(), [&](const auto& s) { return s.name == name; });
      switches +=
          std::any_of(sample.ships.begin(), sample.ships.end(), [&](const auto& s) { return s.name == items[2]; });
    }
  }
  EXPECT_EQ(ships, 5);
  EXPECT_EQ(clashes, 1);
  EXPECT_EQ(missing, 1);
  EXPECT_EQ(switches, 1);
}

TEST_F(DefaultSample, ProgramFilesAreThere) {
  EXPECT_EQ(FileBytes(sample.program / "gloadconv.dat").size(), 2048U);
  for (const char* name : {"cube.bmp", "gcube.bmp"}) {
    const Bytes bitmap = FileBytes(sample.program / "3D" / name);
    EXPECT_EQ(reading::Little32(bitmap, 10), 1078U);
    EXPECT_EQ(bitmap.size(), 1078U + 256);
  }
}

TEST_F(DefaultSample, TheReadmeIsTheManualBehindAWordOnTheSample) {
  const std::string readme = TextOf(sample.program / "readme.txt");
  EXPECT_EQ(readme.rfind("SAMPLE INSTALLATION\r\n", 0), 0U);
  std::string manual;
  for (const char c : TextOf(ORAVIN_DATA "/readme.txt")) manual += c == '\n' ? std::string("\r\n") : std::string(1, c);
  ASSERT_GT(readme.size(), manual.size());
  EXPECT_TRUE(readme.substr(readme.size() - manual.size()) == manual);
}

TEST_F(DefaultSample, TheRegistryPointsAtBothFolders) {
  const std::string text = TextOf(sample.config / "oravin" / "registry.reg");
  EXPECT_EQ(text.rfind("REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\", 0), 0U);
  std::string game = WindowsPath(sample.game);
  for (std::size_t at = 0; (at = game.find('\\', at)) != std::string::npos; at += 2) game.insert(at, "\\");
  EXPECT_NE(text.find("\"EXE Path\"=\"" + game + "\"\n"), std::string::npos);
  EXPECT_NE(text.find("\\\\Oravin\\\\Oravin.exe\"\n"), std::string::npos);
}

TEST_F(DefaultSample, TwoRunsGiveTheSameBytes) {
  const fs::path other = FreshPath("other");
  WriteSample(other);
  const auto first = AllFiles(folder);
  auto second = AllFiles(other);
  const std::string registry = "config/oravin/registry.reg";
  EXPECT_NE(first.at(registry), second.at(registry));  // the paths differ
  second[registry] = first.at(registry);
  EXPECT_TRUE(first == second);
  fs::remove_all(other);
}

// The sum tells whether another machine or compiler writes other bytes. Whoever changes the sample on purpose changes
// it. The manual is not part of it.
TEST_F(DefaultSample, TheBytesAreTheSameOnEveryMachine) {
  std::uint64_t sum = 0;
  for (const auto& [name, bytes] : AllFiles(folder)) {
    if (name == "config/oravin/registry.reg" || name == "Oravin/readme.txt") continue;
    sum = sum * 31 + SeedOf(std::string(bytes.begin(), bytes.end())) + SeedOf(name);
  }
  EXPECT_EQ(sum, 14540457540361808321U);
}

TEST(WindowsPath, ANativePathLiesOnDriveZ) {
  if (fs::path("/a/b").is_absolute()) {
    EXPECT_EQ(WindowsPath("/a/b c/d"), "Z:\\a\\b c\\d");
  } else {
    EXPECT_EQ(WindowsPath("C:/a/b c/d"), "C:\\a\\b c\\d");
  }
}

TEST(SampleWriter, WritingAgainMakesItPristine) {
  const fs::path folder = FreshPath("pristine");
  SampleOptions options;
  options.entries = 100;
  options.ships = 10;
  const Sample sample = WriteSample(folder, options);
  const auto first = AllFiles(folder);
  for (const fs::path& path :
       {sample.game / "ships" / "predator.org", sample.game / "shipstats.def", sample.program / "ships.dat",
        sample.program / "oravin.ini", sample.game / "resource.hog"}) {
    WriteWholeFile(path, "left behind");
  }
  fs::create_directories(sample.program / "backup" / "ships");
  WriteWholeFile(sample.program / "backup" / "resource.fat", "left behind");
  EXPECT_FALSE(first == AllFiles(folder));
  WriteSample(folder, options);
  EXPECT_TRUE(first == AllFiles(folder));
  fs::remove_all(folder);
}

TEST(SampleWriter, AFolderWithOtherThingsIsLeftAlone) {
  const fs::path folder = FreshPath("foreign");
  fs::create_directories(folder);
  WriteWholeFile(folder / "letter.txt", "dear reader");
  EXPECT_THROW(WriteSample(folder), std::runtime_error);
  EXPECT_EQ(AllFiles(folder).size(), 1U);
  EXPECT_EQ(TextOf(folder / "letter.txt"), "dear reader");
  fs::remove_all(folder);
}

TEST(SampleWriter, AFileInPlaceOfTheFolderIsReported) {
  const fs::path path = FreshPath("file");
  WriteWholeFile(path, "x");
  EXPECT_THROW(WriteSample(path), std::runtime_error);
  EXPECT_EQ(TextOf(path), "x");
  fs::remove(path);
}

TEST(SampleWriter, OptionsOutOfRangeAreRefusedBeforeAnythingIsWritten) {
  const fs::path folder = FreshPath("range");
  for (const SampleOptions& options : {SampleOptions{1000, 0, 0}, SampleOptions{1000, 30001, 0},
                                       SampleOptions{-1, 60, 0}, SampleOptions{1000, 60, 2001}}) {
    EXPECT_THROW(WriteSample(folder, options), std::runtime_error);
  }
  EXPECT_FALSE(fs::exists(folder));
}

TEST(SampleWriter, MoreShipsHaveDistinctNamesFilesAndStatistics) {
  const fs::path folder = FreshPath("ships");
  SampleOptions options;
  options.ships = 200;
  options.entries = 0;
  const Sample sample = WriteSample(folder, options);
  ASSERT_EQ(sample.ships.size(), 203U);
  std::set<std::string> files;
  std::set<int> rows;
  for (const SampleShip& ship : sample.ships) {
    EXPECT_TRUE(files.insert(ship.file).second) << ship.file;
    if (ship.kind != 3) rows.insert(ship.statsIndex);
  }
  EXPECT_EQ(rows.size(), 200U);
  EXPECT_EQ(reading::ReadTable(FileBytes(sample.game / "resource.hog")).size(), 200U);
  fs::remove_all(folder);
}

TEST(SampleWriter, OneShipAloneInAnArchivePaddedByStoredEntries) {
  const fs::path folder = FreshPath("padded");
  const Sample sample = WriteSample(folder, {20, 1, 9});
  EXPECT_EQ(sample.ships.size(), 4U);
  const Bytes archive = FileBytes(sample.game / "resource.hog");
  EXPECT_GE(archive.size(), 9U * 1024 * 1024);
  const auto entries = reading::ReadTable(archive);
  EXPECT_GT(entries.size(), 20U);
  EXPECT_EQ(entries[19].name.rfind("movies", 0), std::string::npos);
  for (std::size_t i = 20; i < entries.size(); ++i) {
    EXPECT_EQ(entries[i].name.rfind("movies\\", 0), 0U);
    EXPECT_NE(archive[entries[i].offset], 0x10);
  }
  fs::remove_all(folder);
}

}  // namespace
}  // namespace oravin::demo
