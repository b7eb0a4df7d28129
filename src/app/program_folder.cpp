#include "app/program_folder.h"

#include "desk/error_trap.h"
#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/installation.h"

namespace oravin {

namespace {

constexpr const char* manual = "readme.txt";

void CopyMissing(Files& files, const std::string& from, const std::string& to) {
  MakeFolders(files, to);
  for (const FileFacts& item : ListFolder(files, from).items) {
    if (item.folder) {
      CopyMissing(files, from + item.name + "\\", to + item.name + "\\");
      continue;
    }
    const bool there = FileExists(files, to + item.name);
    const bool renew = there && item.name == manual && !SameContent(files, from + item.name, to + item.name);
    if (!there || renew) CopyWhole(files, from + item.name, to + item.name);
  }
}

}  // namespace

void LayOutProgramFolder(Host& host, const platform::PackagePlaces& package) {
  Trap(host, "Form_Load", [&] {
    if (package.data != package.program) CopyMissing(host.files, package.data, package.program);
    for (const char* folder : {addOnShipsFolder, addOnTexturesFolder, addOnStatsFolder}) {
      MakeFolders(host.files, package.program + folder);
    }
  });
}

}  // namespace oravin
