// oravin-demo: writes the sample installation.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>

#include "demo/sample.h"

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "Writes a complete sample installation of the game and of Oravin into a folder, so that Oravin can be tried\n"
      "without the game: made-up ships, drawn textures and made-up numbers in the game's own file formats.\n"
      "An existing sample is reset."};
  app.name("oravin-demo");
  std::string folder;
  oravin::demo::SampleOptions options;
  app.add_option("DIR", folder, "The folder to write to: a new or empty one, or an existing sample")->required();
  app.add_option("--entries", options.entries, "Number of entries in the game's archive (at least one per ship)")
      ->check(CLI::Range(0, 2000000))
      ->capture_default_str();
  app.add_option("--ships", options.ships, "Number of stock ships in the ship list, plus three add-on ships")
      ->check(CLI::Range(1, 30000))
      ->capture_default_str();
  app.add_option("--megabytes", options.megabytes, "Minimum size of the archive in MiB")
      ->check(CLI::Range(0, 2000))
      ->capture_default_str();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  }
  try {
    const oravin::demo::Sample sample = oravin::demo::WriteSample(folder, options);
    std::printf("Sample installation written: %zu ships, %zu ship packs.\n", sample.ships.size(), sample.packs.size());
    std::printf("  game folder     %s\n", sample.game.string().c_str());
    std::printf("  program folder  %s\n", sample.program.string().c_str());
    std::printf("  configuration   %s\n", sample.config.string().c_str());
    return kDone;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "oravin-demo: %s\n", error.what());
    return kFailed;
  }
}
