#include "cli/commands.h"

namespace oravin {

namespace {

const Argument archive = {"FILE", "the archive, a .hog file", WordKind::path};
const Argument names = {"NAME", "names of files in the archive, which may hold * and ?; without any, all files",
                        WordKind::text, true};
const CommandOption cache = {"--cache", "FILE", "the texture cache; the game's own if not given", WordKind::path};
const Argument textures = {"NAME", "names of textures, which may hold * and ?; without any, all textures",
                           WordKind::text, true};
const CommandOption destination = {"--to", "DIR", "an existing folder for the files", WordKind::path, true};

}  // namespace

std::span<const Command> Commands() {
  static const std::vector<Command> commands = {
      {"", "status", {}, "Shows the folders, the state and the game's files.", TellStatus},
      {"", "enable", {}, "Enables the editing features. Asks first.", Enable},
      {"", "disable", {}, "Disables the editing features and restores the game's files. Asks first.", Disable},
      {"ships", "list", {}, "Lists the ships of the catalogue.", ListShips},
      {"ships",
       "swap",
       {{"TARGET", "the name of the ship to change, one of the game's own"},
        {"SOURCE", "the name of the ship that is to fly in its place"}},
       "Makes the ship SOURCE fly in place of the ship TARGET.",
       SwapShips},
      {"ships", "unswap", {{"TARGET", "the name of the ship to put back"}}, "Puts the ship TARGET back.", UnswapOne},
      {"ships", "unswap-all", {}, "Puts every changed ship back.", UnswapAll},
      {"stats", "show", {{"SHIP", "the ship's name"}}, "Shows the 15 statistics of a ship.", ShowStats},
      {"hog", "list", {archive}, "Lists the files of an archive.", ListHog, {}, WorksOn::file},
      {"hog",
       "extract",
       {archive, names},
       "Extracts files from an archive as they are stored.",
       ExtractHog,
       {destination},
       WorksOn::file},
      {"hog",
       "unpack",
       {archive, names},
       "Extracts and unpacks files. Asks about those that are not packed.",
       UnpackHog,
       {destination},
       WorksOn::file},
      {"hog", "backup-fat", {archive}, "Saves a copy of the archive's table beside it.", BackupFat, {}, WorksOn::file},
      {"hog",
       "restore-fat",
       {archive},
       "Writes that copy back over the archive's table. Asks first.",
       RestoreFat,
       {},
       WorksOn::file},
      {"hog",
       "edit",
       {archive, {"NAME", "the name of the file in the archive"}},
       "Changes a file's entry in the archive's table.",
       EditHog,
       {{"--name", "NEW", "its new name, as long as the old one"},
        {"--offset", "HEX", "where its data begin in the archive, hexadecimal"},
        {"--size", "HEX", "how many bytes these are as stored, hexadecimal"}},
       WorksOn::file},
      {"tcache", "list", {}, "Lists the textures of a texture cache.", ListTcache, {cache}},
      {"tcache",
       "extract",
       {textures},
       "Extracts textures as bitmaps.",
       ExtractTcache,
       {cache, {"--to", "DIR", "an existing folder for the bitmaps", WordKind::path, true}}},
      {"tcache",
       "import",
       {{"BITMAP", "a bitmap of 8, 16 or 24 bits", WordKind::path}, {"NAME", "the new texture's name"}},
       "Imports a bitmap into the game's texture cache.",
       ImportOneTexture,
       {{"--fighter", "", "makes a fighter's texture of it, with its companion"}}},
      {"tcache",
       "rename",
       {{"OLD", "the texture's name"}, {"NEW", "its new name"}},
       "Renames a texture in the game's texture cache.",
       RenameTexture},
      {"tcache", "restore", {}, "Removes all added textures. Asks first.", RestoreTcache},
      {"tcache",
       "preview",
       {{"NAME", "the texture's name"}},
       "Writes the picture that the window shows of a texture.",
       PreviewTexture,
       {cache, {"--to", "FILE", "the picture's file, .png or .bmp", WordKind::path, true}}},
      {"loadout",
       "learn",
       {},
       "Learns the loadout maps from the game's own textures.",
       LearnLoadoutMaps,
       {{"--to", "FILE", "where to write them; gloadconv.dat in Oravin's folder if not given", WordKind::path}}}};
  return commands;
}

std::string NameOf(const Command& command) {
  return command.group.empty() ? command.verb : command.group + " " + command.verb;
}

}  // namespace oravin
