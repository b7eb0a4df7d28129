#include "installation/program_folder.h"

#include "files/look_up.h"
#include "files/whole_file.h"
#include "installation/installation.h"

namespace oravin {

namespace {

void CopyMissing(Files& files, const std::string& from, const std::string& to) {
  MakeFolders(files, to);
  for (const FileFacts& item : ListOrThrow(files, from).items) {
    if (item.folder) {
      CopyMissing(files, from + item.name + "\\", to + item.name + "\\");
      continue;
    }
    const bool there = FileIsThere(files, to + item.name);
    const bool renew = there && item.name == manualName && !SameContent(files, from + item.name, to + item.name);
    if (!there || renew) CopyWhole(files, from + item.name, to + item.name);
  }
}

}  // namespace

void LayOutProgramFolder(Files& files, const std::string& data, const std::string& program) {
  if (data != program) CopyMissing(files, data, program);
  for (const std::string& folder : PlacesIn({}, program).addOnFolders()) MakeFolders(files, folder);
}

}  // namespace oravin
