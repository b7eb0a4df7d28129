#include "app/start_up.h"

#include <array>
#include <functional>

#include "actions/build_catalogue.h"
#include "actions/safekeeping.h"
#include "app/ship_list_offer.h"
#include "app/show_changes.h"
#include "base/delimited_text.h"
#include "base/text.h"
#include "catalogue/catalogue.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"
#include "files/look_up.h"
#include "files/path.h"
#include "files/whole_file.h"
#include "installation/program_folder.h"
#include "platform/current_folder.h"
#include "platform/native_path.h"
#include "platform/registry.h"

namespace oravin {

namespace {

constexpr const char* appPathsKey = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Oravin.exe\\";
constexpr const char* gameKey = "Software\\Microsoft\\Microsoft Games\\StarLancer\\1.0\\";
constexpr const char* directPlayKey = "Software\\Microsoft\\DirectPlay\\Applications\\StarLancer\\";
constexpr const char* chosenGameValue = "StarLancerPath";
constexpr const char* usualProgramFolder = "C:\\Program Files\\Oravin\\";
constexpr std::uint64_t longestIni = 65536;

struct RegistryValue {
  const char* key;
  const char* name;
};

/// Registry values that may have the game folder, in the order in which they are read.
constexpr std::array<RegistryValue, 4> gameFolderValues = {{{gameKey, "EXE Path"},
                                                            {gameKey, "InstallationDirectory"},
                                                            {directPlayKey, "Path"},
                                                            {appPathsKey, chosenGameValue}}};

bool HasArchive(Files& files, const Installation& places) { return FileExists(files, places.archivePath()); }

bool HasShipList(Files& files, const Installation& places) { return FileExists(files, places.shipListPath()); }

/// True when Oravin can work with a program folder. A lost ship list must not keep the player from "Disable / Restore",
/// which needs only the catalogue.
bool IsProgramFolder(Files& files, const Installation& places) {
  return HasShipList(files, places) || FeaturesEnabled(files, places.cataloguePath());
}

/// The program folder, first guess: where the registry says that the program is, else the usual folder, else the one
/// that the program's package names.
void GuessProgramFolder(Files& files, Installation& installation, const platform::PackagePlaces& package) {
  const auto executable = platform::RegReadString(platform::localMachine, appPathsKey, "");
  SetProgramFolder(installation, executable ? ParentFolder(*executable) : std::string());
  if (!executable || !FolderExists(files, installation.ProgramPath)) {
    if (FolderExists(files, usualProgramFolder)) {
      platform::SetCurrentFolder(usualProgramFolder);
      SetProgramFolder(installation, usualProgramFolder);
    } else if (IsPrintableText(package.program)) {
      SetProgramFolder(installation, package.program);
    }
  } else if (FileExists(files, installation.programFile(hogName))) {
    // Intentional: the archive is looked for here, not the catalogue.
    platform::SetCurrentFolder(installation.ProgramPath);
  }
}

bool GameFolderFromRegistry(Files& files, Installation& installation) {
  for (const RegistryValue& value : gameFolderValues) {
    const auto found = platform::RegReadString(platform::localMachine, value.key, value.name);
    if (!found) continue;
    SetGameFolder(installation, *found);
    if (HasArchive(files, installation)) return true;
    platform::SetCurrentFolder(installation.ProgramPath);
  }
  return false;
}

/// The INI file: two quoted lines, the game folder and the program folder.
/// @param programGiven the program folder is settled; only the game folder is taken from the file
bool FoldersFromIni(Host& host, Installation& installation, bool programGiven) {
  const std::string path = installation.iniPath();
  if (!FileExists(host.files, path) || FileLength(host.files, path) == 0) return false;
  return Trapped(host, "Form_Load", false, [&] {
    const std::string all = TextOf(ReadWhole(host.files, path, longestIni));
    DelimitedText text{path, all};
    SetGameFolder(installation, TakeText(text));
    const auto hasGame = [&] {
      return FolderExists(host.files, installation.GamePath) && HasArchive(host.files, installation);
    };
    if (programGiven) return hasGame();
    if (!HasShipList(host.files, installation)) SetProgramFolder(installation, TakeText(text));
    return FolderExists(host.files, installation.ProgramPath) && HasShipList(host.files, installation) && hasGame();
  });
}

/// Asks for a folder until it is the right one.
std::string AskFolder(Host& host, const char* prompt, const char* refusal,
                      const std::function<bool(const std::string& folder)>& isRight) {
  for (;;) {
    std::string folder = AddBackslash(BrowseForFolder(host, prompt));
    if (folder.empty()) throw ProgramEnd();
    if (isRight(folder)) return folder;
    Show(host, refusal, Icon::exclamation);
  }
}

std::string ChosenGameFolder(Host& host) {
  Show(host, "Registy entries for StarLancer not found!", Icon::exclamation);
  return AskFolder(host, "Select your StarLancer Game Directory", "This is not a StarLancer game directory",
                   [&](const std::string& folder) { return HasArchive(host.files, PlacesIn(folder, {})); });
}

void AskGameFolder(Host& host, Installation& installation) {
  SetGameFolder(installation, ChosenGameFolder(host));
  if (!platform::RegWriteString(platform::localMachine, appPathsKey, chosenGameValue, installation.GamePath)) {
    Show(host, "Can't Create Registry entry", Icon::none);
  }
}

/// True when the program folder is the one that the program's package names.
bool IsPackages(const Installation& installation, const GivenFolders& given) {
  return !given.package.program.empty() && SameName(installation.ProgramPath, given.package.program);
}

/// A package brings no ship list, so the folder that it laid out is offered one without having been chosen.
void OfferListForPackage(Main& main, const GivenFolders& given) {
  const Installation& installation = main.installation;
  if (!IsPackages(installation, given) || !given.offerShipList) return;
  if (IsProgramFolder(main.host.files, installation)) return;
  OfferShipList(main, installation.GamePath, installation.ProgramPath);
}

void SettleProgramFolder(Main& main, const GivenFolders& given) {
  Host& host = main.host;
  Installation& installation = main.installation;
  if (HasShipList(host.files, PlacesIn({}, usualProgramFolder))) {
    SetProgramFolder(installation, usualProgramFolder);
  } else if (installation.ProgramPath.empty() || !HasShipList(host.files, installation)) {
    Show(host, "Can't find Oravin local path in registry", Icon::exclamation);
    const auto isRight = [&](const std::string& folder) {
      return HasShipList(host.files, PlacesIn({}, folder)) ||
             (given.offerShipList && OfferShipList(main, installation.GamePath, folder));
    };
    SetProgramFolder(installation, AskFolder(host, "Select your Oravin directory (i.e. C:\\Program Files\\Oravin\\)",
                                             "This is not an Oravin directory", isRight));
  }
}

void WriteIni(Host& host, Installation& installation) {
  Trap(host, "Form_Load", [&] {
    const std::string text = '"' + installation.GamePath + "\"\r\n\"" + installation.ProgramPath + "\"\r\n";
    WriteWhole(host.files, installation.iniPath(), BytesOf(text));
  });
}

/// The game folder, from the registry or the INI file, else from the user.
/// @return whether the user was asked
bool SearchGameFolder(Main& main, const GivenFolders& given) {
  Installation& installation = main.installation;
  if (GameFolderFromRegistry(main.host.files, installation)) return false;
  if (FoldersFromIni(main.host, installation, !given.program.empty())) return false;
  AskGameFolder(main.host, installation);
  return true;
}

void SearchFolders(Main& main, const GivenFolders& given) {
  const bool asked = SearchGameFolder(main, given);
  OfferListForPackage(main, given);
  if (!asked) return;
  if (given.program.empty()) SettleProgramFolder(main, given);
  WriteIni(main.host, main.installation);
}

[[noreturn]] void RefuseGiven(Host& host, const std::string& folder, const char* refusal) {
  const char* hint = IsPrintableText(folder)
                         ? ""
                         : "\nIts path holds letters beyond plain English ones; Oravin cannot work in such a folder.";
  Show(host, folder + "\n" + refusal + hint, Icon::exclamation);
  throw ProgramEnd();
}

void TakeGivenGame(Host& host, Installation& installation, const std::string& given) {
  SetGameFolder(installation, platform::ToWindowsPath(given));
  if (!HasArchive(host.files, installation)) {
    RefuseGiven(host, installation.GamePath, "This is not a StarLancer game directory");
  }
}

/// Takes a given program folder, which must have a ship list or an enabled catalogue. Where a list may be drafted,
/// which takes the game's files, the game folder is found first.
/// @return whether the game folder is known now
bool TakeGivenProgram(Main& main, const GivenFolders& given) {
  Installation& installation = main.installation;
  SetProgramFolder(installation, platform::ToWindowsPath(given.program));
  if (IsProgramFolder(main.host.files, installation)) return false;
  const std::string program = installation.ProgramPath;
  if (given.offerShipList && FolderExists(main.host.files, program)) {
    bool asked = false;
    if (given.game.empty()) {
      asked = SearchGameFolder(main, given);
    } else {
      SetGameFolder(installation, platform::ToWindowsPath(given.game));
    }
    if (OfferShipList(main, installation.GamePath, program)) {
      if (asked) WriteIni(main.host, installation);
      return true;
    }
  }
  RefuseGiven(main.host, program, "This is not an Oravin directory");
}

void FindFolders(Main& main, const GivenFolders& given) {
  Installation& installation = main.installation;
  bool gameKnown = false;
  if (given.program.empty()) {
    GuessProgramFolder(main.host.files, installation, given.package);
    if (IsPackages(installation, given)) {
      Trap(main.host, "Form_Load",
           [&] { LayOutProgramFolder(main.host.files, given.package.data, given.package.program); });
    }
  } else {
    gameKnown = TakeGivenProgram(main, given);
  }
  if (!given.game.empty()) {
    TakeGivenGame(main.host, installation, given.game);
    if (given.program.empty()) {
      OfferListForPackage(main, given);
      SettleProgramFolder(main, given);
    }
    return;
  }
  if (!gameKnown) SearchFolders(main, given);
}

void LockInstallation(Main& main) {
  const Installation& installation = main.installation;
  // Asked only where the second folder is locked already: it may be the first one.
  const auto oneFolder = [&installation] {
    return platform::ToNativePath(installation.GamePath) == platform::ToNativePath(installation.ProgramPath);
  };
  main.readOnly = !platform::LockFolder(installation.GamePath, main.gameLock) ||
                  (!platform::LockFolder(installation.ProgramPath, main.programLock) && !oneFolder());
  if (!main.readOnly) return;
  Show(main.host,
       "Another copy of Oravin is working on this installation. This copy only looks: close the other one and start "
       "Oravin again to change anything.",
       Icon::information);
}

}  // namespace

void Form_Load(Main& main, const GivenFolders& given) {
  Installation& installation = main.installation;
  main.about.lblVersion.caption = VersionText(ORAVIN_VERSION_MAJOR, ORAVIN_VERSION_MINOR, ORAVIN_VERSION_REVISION);
  FindFolders(main, given);

  main.about.txtSLPath.text = installation.GamePath;
  main.about.txtProgramPath.text = installation.ProgramPath;
  main.hog.txtHogPath.text = installation.gameFile("Resource.hog");
  main.tcache.txtTcacheSource.text = installation.cachePath();

  LockInstallation(main);
  if (FeaturesEnabled(main.host.files, installation.cataloguePath())) {
    LoadCatalogue(main.host, installation);
    FillLists(main);
  }
  if (!main.readOnly) KeepDefaults(main.host, installation);
}

void FindGameFolder(Main& main, const GivenFolders& given) {
  Installation& installation = main.installation;
  if (given.program.empty()) {
    GuessProgramFolder(main.host.files, installation, given.package);
  } else {
    SetProgramFolder(installation, platform::ToWindowsPath(given.program));
  }
  if (!given.game.empty()) {
    TakeGivenGame(main.host, installation, given.game);
  } else if (!GameFolderFromRegistry(main.host.files, installation) &&
             !FoldersFromIni(main.host, installation, !given.program.empty())) {
    SetGameFolder(installation, ChosenGameFolder(main.host));
  }
  if (!FolderExists(main.host.files, installation.ProgramPath)) SetProgramFolder(installation, installation.GamePath);
}

}  // namespace oravin
