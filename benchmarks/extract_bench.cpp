// Extracting and unpacking every file of a large archive, against cp of the same files; and the times of the archive's
// tab for an archive of a hundred thousand files.

#include <random>
#include <string>

#include "app/handlers.h"
#include "archive/decompress.h"
#include "benches.h"
#include "demo/archive_writer.h"
#include "demo/compressor.h"
#include "files/whole_file.h"
#include "platform/native_path.h"
#include "stopwatch.h"

namespace oravin::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t megabytes = 500;
constexpr std::size_t files = 4000;
constexpr std::size_t unpackedSize = 128 << 10;

/// Content that compresses to about half, like the game's.
Bytes Content(unsigned seed) {
  std::mt19937 dice(seed);
  Bytes bytes;
  while (bytes.size() < unpackedSize) {
    if (dice() % 3 == 0 && bytes.size() > 300) {
      const std::size_t from = bytes.size() - 1 - dice() % 256;
      for (std::size_t i = 0, count = 8 + dice() % 32; i < count; ++i) bytes.push_back(bytes[from + i]);
    } else {
      for (std::size_t i = 0, count = 4 + dice() % 12; i < count; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(dice()));
      }
    }
  }
  bytes.resize(unpackedSize);
  return bytes;
}

/// An archive with many folders; the files' sizes cycle through the given ones.
fs::path WriteArchive(const fs::path& path, const std::vector<Bytes>& entries, std::size_t count) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < count; ++i) {
    names.push_back("folder" + std::to_string(i / 100) + "\\file" + std::to_string(i) + ".dat");
  }
  demo::ArchiveStream archive = demo::BeginArchive(path, names);
  for (std::size_t i = 0; i < count; ++i) {
    demo::AppendToEntry(archive, entries[i % entries.size()]);
    demo::FinishEntry(archive);
  }
  demo::FinishArchive(archive);
  return path;
}

/// An archive on its tab, with all files selected and every question answered with Yes.
struct OpenedHog {
  explicit OpenedHog(const fs::path& path) {
    main.host.desk.showBox = [](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; };
    main.hog.txtHogPath.text = platform::ToWindowsPath(path.string());
    Run(main, "hog.cmdOpen");
    Run(main, "hog.cmdSelectAll");
  }
  double SecondsToExtract(const char* action, const fs::path& to) {
    fs::remove_all(to);
    fs::create_directories(to);
    main.hog.txtHogDest.text = platform::ToWindowsPath(to.string());
    return Seconds([&] { Run(main, action); });
  }
  Main main;
};

double SecondsToCopy(const fs::path& from, const fs::path& to) {
  fs::remove_all(to);
  return Seconds([&] { RunShell("cp -r '" + from.string() + "' '" + to.string() + "'"); });
}

}  // namespace

void AddExtraction(const fs::path& work) {
  std::vector<Bytes> plain;
  std::vector<Bytes> packed;
  for (unsigned seed = 0; seed < 40; ++seed) {
    plain.push_back(Content(seed));
    packed.push_back(demo::Compress(plain.back(), demo::Effort::kFast));
  }
  const fs::path stored = WriteArchive(work / "stored.hog", plain, (megabytes << 20) / unpackedSize);
  const fs::path compressed = WriteArchive(work / "packed.hog", packed, files);
  OpenedHog(stored).SecondsToExtract("hog.cmdExtract", work / "stored");
  OpenedHog(compressed).SecondsToExtract("hog.cmdUnpackExtract", work / "unpacked");
  RegisterPair(
      "Extract all of 500 MiB", "cp -r of the same files (wanted: below 1.3)",
      [=] { return OpenedHog(stored).SecondsToExtract("hog.cmdExtract", work / "extracted"); },
      [=] { return SecondsToCopy(work / "stored", work / "copied"); });
  RegisterPair(
      "Unpack all to 500 MiB", "decompressor's own time and cp -r (wanted: below 1.3)",
      [=] { return OpenedHog(compressed).SecondsToExtract("hog.cmdUnpackExtract", work / "extracted"); },
      [=] {
        Unpacked unpacked;
        const double own = Seconds([&] {
          for (std::size_t i = 0; i < files; ++i) Decompress(packed[i % packed.size()], unpacked);
        });
        return own + SecondsToCopy(work / "unpacked", work / "copied");
      });
}

void PrintArchiveTab(const fs::path& work) {
  const std::vector<Bytes> one = {{1}};
  const fs::path archive = WriteArchive(work / "many.hog", one, 100000);
  OpenedHog tab(archive);
  PrintLimit("Open 100,000 entries (list filled)", MedianOf(9, [&] { Run(tab.main, "hog.cmdOpen"); }), 0.25);
  int turn = 0;
  PrintLimit("Filter 100,000 entries",
             MedianOf(9,
                      [&] {
                        tab.main.hog.txtFilter.text = turn++ % 2 == 0 ? "le99" : "*5?.dat";
                        Run(tab.main, "hog.txtFilter.Change");
                      }),
             0.03);
}

}  // namespace oravin::bench
