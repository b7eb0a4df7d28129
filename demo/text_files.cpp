#include "demo/text_files.h"

#include <algorithm>

namespace oravin::demo {

namespace {

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

// In the registry store, backslashes and quotes are escaped by a backslash.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\\' || c == '"') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

}  // namespace

std::string BuildShipsData(const std::vector<SampleShip>& ships) {
  std::string text = std::to_string(ships.size()) + "\r\n";
  for (const SampleShip& ship : ships) {
    text += std::to_string(ship.kind) + "," + Quoted(ship.name) + "," + Quoted(ship.file) + "," +
            std::to_string(ship.statsIndex) + "," + Quoted(ship.texture0) + "," + Quoted(ship.texture1) + "\r\n";
  }
  return text;
}

std::string BuildPack(const std::string& header, const std::vector<PackLine>& ships) {
  std::string text = Quoted(header) + "\r\n";
  for (const PackLine& ship : ships) {
    text += Quoted("\\" + ship.file) + "," + Quoted(ship.name) + "," + Quoted(ship.third) + "\r\n";
  }
  return text;
}

std::string WindowsPath(const std::filesystem::path& path) {
  const std::u8string native = path.generic_u8string();
  std::string text(native.begin(), native.end());
  if (!path.has_root_name()) text.insert(0, "Z:");
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

std::string BuildRegistry(const std::filesystem::path& game, const std::filesystem::path& program) {
  const std::string gamePath = Escaped(WindowsPath(game));
  const std::string programPath = Escaped(WindowsPath(program / "Oravin.exe"));
  return "REGEDIT4\n\n"
         "[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Microsoft Games\\StarLancer\\1.0]\n"
         "\"EXE Path\"=\"" +
         gamePath +
         "\"\n\n"
         "[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Oravin.exe]\n"
         "@=\"" +
         programPath + "\"\n";
}

std::string ProgramReadme() {
  std::string text =
      "SAMPLE INSTALLATION\n"
      "===================\n"
      "\n"
      "This folder and the folder StarLancer next to it are a sample installation:\n"
      "drawn textures, made-up ships and made-up numbers in the game's own file\n"
      "formats. Nothing here comes from the game, and the game cannot run from it.\n"
      "\n"
      "Try everything: enable the editing features, switch ships, change their\n"
      "statistics and weapons, import the ship packs in the folder packs, and restore\n"
      "everything with Disable / Restore. If something breaks, write the sample again\n"
      "with oravin-demo. The manual follows.\n"
      "\n"
      "\n";
  text += Manual();
  std::string withLineEnds;
  for (const char c : text) withLineEnds += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return withLineEnds;
}

std::string ShipsFolderReadme() {
  return "Loose ship models go into this folder. The game takes a model from here before it looks into "
         "resource.hog.\r\n"
         "mywing.shp is a model of the player's own; it belongs to no ship of the list.\r\n";
}

std::string MarkerText() {
  return "This folder holds a sample installation written by oravin-demo, which may write it again at any time.\n"
         "Do not keep anything of value in it.\n";
}

}  // namespace oravin::demo
