// Importing ships and removing imported ones, as the form and the tab do it, against cp of the same bytes.

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>

#include "app/handlers.h"
#include "app/import_file.h"
#include "app/start_up.h"
#include "benches.h"
#include "demo/bitmap_writer.h"
#include "demo/model_writer.h"
#include "demo/sample.h"
#include "platform/native_path.h"
#include "stopwatch.h"

namespace oravin::bench {

namespace {

namespace fs = std::filesystem;

constexpr int side = 256;
constexpr std::size_t imagesOfChain = 87381;  // bytes of eight 8-bit mipmap levels, the largest 256 x 256
constexpr int manyShips = 300;

void WriteFile(const fs::path& path, const Bytes& bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!file) throw std::runtime_error("could not write " + path.string());
}

/// A different picture for each texture.
Bytes Picture(std::size_t size, int number) {
  Bytes pixels(size);
  for (std::size_t i = 0; i < size; ++i)
    pixels[i] = static_cast<std::uint8_t>(i * 7 + static_cast<std::size_t>(number));
  return pixels;
}

struct PackShape {
  int ships;
  int textures;    ///< per ship
  bool deep;       ///< 24-bit bitmaps with one level, else 8-bit mipmap chains
  int modelSize;   ///< in bytes, about
  bool withStats;  ///< a statistics text in each model's folder
};

/// Makes a folder with a pack and its files.
/// @return the pack
fs::path WritePack(const fs::path& folder, const PackShape& shape) {
  fs::remove_all(folder);
  fs::create_directories(folder);
  std::string pack = "\"pack\"\r\n";
  for (int number = 0; number < shape.ships; ++number) {
    const std::string stem = "new" + std::to_string(number);
    demo::ModelOptions model;
    model.seed = static_cast<std::uint64_t>(number);
    model.name = stem;
    model.classByte = shape.deep ? 5 : 0;
    model.size = shape.modelSize;
    for (int i = 0; i < shape.textures; ++i) {
      model.textures.push_back(stem + "skin" + std::to_string(i));
      const int picture = number * shape.textures + i;
      WriteFile(folder / (model.textures.back() + ".bmp"),
                shape.deep ? demo::BuildBitmap24(side, side, Picture(std::size_t{3} * side * side, picture))
                           : demo::BuildBitmap8(side, side, {}, Picture(imagesOfChain, picture)));
    }
    WriteFile(folder / (stem + ".shp"), demo::BuildModel(model));
    if (shape.withStats) std::ofstream(folder / (stem + ".txt")) << "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\n";
    pack += "\"\\" + stem + ".shp\",\"New " + std::to_string(number) + "\",\"\"\r\n";
  }
  std::ofstream(folder / "ships.pak", std::ios::binary) << pack;
  return folder / "ships.pak";
}

/// The program on an installation; every question is answered with Yes.
struct Desktop {
  explicit Desktop(const fs::path& sample) {
    main.host.desk.showBox = [](const Message& box) {
      const bool failure = !box.success && (box.icon == Icon::exclamation || box.icon == Icon::critical);
      if (failure) throw std::runtime_error(box.text);
      return box.buttons == Buttons::ok ? Answer::ok : Answer::yes;
    };
    main.host.desk.showForm = [this](const std::string&) { Run(main, "Fighter_PACK.cmdImportShips"); };
    Form_Load(main, {(sample / "StarLancer").string(), (sample / "Oravin").string()});
  }
  void Enable() { Run(main, "switcher.cmdEnable"); }
  void Import(const fs::path& pack) { ImportFile(main, platform::ToWindowsPath(pack.string())); }
  void RemoveRow(std::size_t row) {
    SelectOnly(main.imports.lstImported, row);
    Run(main, "imports.lstImported.ItemClick");
    Run(main, "imports.cmdRemoveShips");
  }
  void ExpectShips(std::size_t number) const {
    if (main.imports.lstImported.rows.size() != number) throw std::runtime_error("the wrong number of imported ships");
  }

  Main main;
};

/// Copies the pristine installation again and waits until it is on the disk.
void Renew(const fs::path& kept, const fs::path& live) {
  fs::remove_all(live);
  RunShell("cp -r '" + kept.string() + "' '" + live.string() + "' && sync -f '" + live.string() + "'");
}

/// Copies files with cp into several folders.
double CopySeconds(const fs::path& work, const std::string& files, int times, bool wait) {
  std::string command = "true";
  for (int i = 0; i < times; ++i) {
    const fs::path to = work / ("copy" + std::to_string(i));
    fs::remove_all(to);
    fs::create_directories(to);
    command += " && cp " + files + " '" + to.string() + "'";
    if (wait) command += " && sync '" + to.string() + "'/*";
  }
  RunShell("sync -f '" + work.string() + "'");
  return Seconds([&] { RunShell(command); });
}

void AddPackImport(const fs::path& work) {
  constexpr int ships = 50;
  const fs::path kept = work / "import-kept";
  const fs::path live = work / "import-live";
  demo::WriteSample(kept);
  const fs::path pack = WritePack(work / "pack", {ships, 4, false, 40000, true});
  Desktop(kept).Enable();
  const std::string files = "'" + (work / "pack").string() + "'/*";
  RegisterPair(
      "Import a pack of 50 ships", "cp of its files three times over (wanted: below 2)",
      [=] {
        Renew(kept, live);
        Desktop desktop(live);
        const double seconds = Seconds([&] { desktop.Import(pack); });
        desktop.ExpectShips(3 + ships);
        return seconds;
      },
      [=] { return CopySeconds(work, files, 3, false); });
  Register("Import a pack of 50 ships/cp and sync of its files three times over",
           [=] { return CopySeconds(work, files, 3, true); });
}

void AddRemoval(const fs::path& work) {
  const fs::path kept = work / "removal-kept";
  const fs::path live = work / "removal-live";
  demo::WriteSample(kept);
  const fs::path pack = WritePack(work / "many", {manyShips - 3, 1, true, 3000, false});
  {
    Desktop desktop(kept);
    desktop.Enable();
    desktop.Import(pack);
    desktop.ExpectShips(manyShips);
  }
  const std::string cache = "'" + (kept / "StarLancer" / "tcachehw.dat").string() + "'";
  RegisterPair(
      "Remove one of 300 imported ships", "cp of the cache (wanted: below 1.5)",
      [=] {
        Renew(kept, live);
        Desktop desktop(live);
        const double seconds = Seconds([&] { desktop.RemoveRow(manyShips / 2); });
        desktop.ExpectShips(manyShips - 1);
        return seconds;
      },
      [=] { return CopySeconds(work, cache, 1, false); });
  // A removal waits for the disk and frees the old cache, which is slower on some disks if it is fragmented. A cp that
  // replaces the cache of the same installation does both as well.
  const fs::path replaced = work / "replaced";
  Register("Remove one of 300 imported ships/cp of the cache over the old one and mv, with sync", [=] {
    Renew(kept, replaced);
    const std::string old = (replaced / "StarLancer" / "tcachehw.dat").string();
    return Seconds([&] {
      RunShell("cp '" + old + "' '" + old + "2' && sync '" + old + "2' && mv -f '" + old + "2' '" + old + "'");
    });
  });
  Register("Remove one of 300 imported ships/cp and sync of the cache",
           [=] { return CopySeconds(work, cache, 1, true); });
}

}  // namespace

void AddImports(const fs::path& work) {
  AddPackImport(work);
  AddRemoval(work);
}

}  // namespace oravin::bench
