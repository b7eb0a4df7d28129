// The texture cache: rewriting it against cp of the same bytes, colours against memcpy, and the times to open, show and
// import.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "actions/import_texture.h"
#include "actions/remove_texture.h"
#include "actions/restore_cache.h"
#include "app/main.h"
#include "benches.h"
#include "demo/bitmap_writer.h"
#include "demo/cache_writer.h"
#include "platform/native_path.h"
#include "stopwatch.h"
#include "textures/colour.h"

namespace oravin::bench {

namespace {

namespace fs = std::filesystem;

constexpr int allSlots = 1000;
constexpr int side = 256;
constexpr int images = 8;

/// A cache with the given number of textures of the largest size.
Bytes FullCache(int textures) {
  const demo::CacheTexture shape{"", 1, side, side, images};
  Bytes pixels(demo::PixelBytes(shape));
  demo::CacheBuilder cache = demo::BeginCache(240012 + pixels.size() * static_cast<std::size_t>(textures));
  for (int i = 0; i < textures; ++i) {
    std::fill(pixels.begin(), pixels.end(), static_cast<std::uint8_t>(i));
    demo::AddTexture(cache, {"t" + std::to_string(i), 1, side, side, images}, pixels);
  }
  demo::FinishCache(cache);
  return cache.bytes;
}

void WriteFile(const fs::path& path, const Bytes& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

/// Every question is answered with Yes; a critical message box ends the program.
void Silence(Host& host) {
  host.desk.showBox = [](const Message& box) {
    if (box.icon == Icon::critical) throw std::runtime_error(box.text);
    return box.buttons == Buttons::ok ? Answer::ok : Answer::yes;
  };
}

ShipRecord ShipWith(const std::string& texture) {
  ShipRecord ship;
  ship.Imported = true;
  ship.Textures[0].Set(texture);
  return ship;
}

void AddRewriting(const fs::path& work) {
  const fs::path full = work / "full.dat";
  const fs::path cache = work / "tcachehw.dat";
  WriteFile(full, FullCache(allSlots));
  WriteFile(work / "factory.dat", FullCache(factoryTextures));
  const auto fresh = [=] {
    fs::copy_file(full, cache, fs::copy_options::overwrite_existing);
    return platform::ToWindowsPath(cache.string());
  };
  const auto copy = [=](const fs::path& from) {
    return [=] {
      fs::remove(work / "copied.dat");
      return Seconds([&] { RunShell("cp '" + from.string() + "' '" + (work / "copied.dat").string() + "'"); });
    };
  };
  // Oravin waits until the new cache is on the disk before it replaces the old one.
  const auto copyAndWait = [=](const fs::path& from) {
    return [=] {
      const std::string to = (work / "copied.dat").string();
      fs::remove(to);
      return Seconds([&] { RunShell("cp '" + from.string() + "' '" + to + "' && sync '" + to + "'"); });
    };
  };
  RegisterPair(
      "RemoveTexture, 1000 textures", "cp of the same bytes (wanted: below 1.3)",
      [=] {
        Host host;
        Silence(host);
        const std::string path = fresh();
        return Seconds([&] { RemoveTexture(host, path, {ShipWith("t500")}, {}); });
      },
      copy(full));
  Register("RemoveTexture, 1000 textures/cp and sync of the same bytes", copyAndWait(full));
  RegisterPair(
      "RestoreTcacheFile, 1000 textures", "cp of the same bytes (wanted: below 1.3)",
      [=] {
        Host host;
        Silence(host);
        const std::string path = fresh();
        return Seconds([&] { RestoreTcacheFile(host, path); });
      },
      copy(work / "factory.dat"));
  Register("RestoreTcacheFile, 1000 textures/cp and sync of the same bytes", copyAndWait(work / "factory.dat"));
}

/// A conversion against memcpy, per byte written.
void AddColours() {
  static const Bytes pixels(12 << 20, 0x5A);
  static Bytes output(24 << 20);
  const auto timed = [](auto work) {
    return [work](benchmark::State& state) {
      for (auto _ : state) {
        work();
        benchmark::ClobberMemory();
      }
    };
  };
  const auto add = [&](const std::string& figure, std::size_t written, auto convert) {
    benchmark::RegisterBenchmark((figure + "/oravin").c_str(), timed(convert));
    benchmark::RegisterBenchmark((figure + "/memcpy of the bytes written (wanted: below 4)").c_str(),
                                 timed([written] { std::memcpy(&output[written], output.data(), written); }));
  };
  static constexpr std::size_t half = 4 << 20;
  add("16-bit to 24-bit pixels", Size24Of16(half), [] { Convert16To24({pixels.data(), half}, output); });
  add("24-bit to 16-bit pixels", Size16Of24(pixels.size()), [] { Convert24To16(pixels, output); });
}

}  // namespace

void AddTextures(const fs::path& work) {
  AddRewriting(work);
  AddColours();
}

void PrintTextureTab(const fs::path& work) {
  WriteFile(work / "tcachehw.dat", FullCache(allSlots));
  Main main;
  Silence(main.host);
  TcacheTab& tab = main.tcache;
  main.installation.ProgramPath = platform::ToWindowsPath((work / "program").string()) + "\\";
  tab.txtTcacheSource.text = platform::ToWindowsPath((work / "tcachehw.dat").string());
  PrintLimit("Open a cache of 1000 textures", MedianOf(9, [&] { cmdOpenTcache_Click(main.host, tab); }), 0.2);
  std::size_t row = 0;
  PrintLimit("Preview of a texture",
             MedianOf(50,
                      [&] {
                        SelectOnly(tab.lstTcache, row++);
                        lstTcache_ItemClick(main.host, tab, main.installation);
                      }),
             0.01);
  PrintLimit("Thumbnails of 1000 textures",
             MedianOf(3,
                      [&] {
                        for (const ListRow& shown : tab.lstTcache.rows) {
                          ThumbnailOf(main.host, tab, main.installation, shown, 64);
                        }
                      }),
             1.5);
  const Bytes chain(demo::PixelBytes({"", 1, side, side, images}), 7);
  WriteFile(work / "chain.bmp", demo::BuildBitmap8(side, side, {}, chain));
  int imported = 0;
  WriteFile(work / "tcachehw.dat", FullCache(500));
  const std::string chainPath = platform::ToWindowsPath((work / "chain.bmp").string());
  const auto import = [&] {
    const BmpInfo info{1078, side, side, 1, images};
    ImportTexture(main.host, tab.txtTcacheSource.text, chainPath, "new" + std::to_string(imported++), info);
  };
  PrintLimit("Import of a chain, own time", MedianOf(50, import, OwnSeconds), 0.002);
}

}  // namespace oravin::bench
