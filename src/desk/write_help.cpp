#include "desk/write_help.h"

#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

namespace {

std::string Help(const std::string& reason) {
  if (reason == "it is read-only") return "Take the read-only mark away and try again.";
  if (reason == "another program has it open") {
    return "Close StarLancer, and whatever else may be using the file, and try again.";
  }
  if (reason == "you have no permission") {
    return "Your user may not change what is there. Start Oravin as the user who may (under Windows: click it with the "
           "right mouse button and choose \"Run as administrator\"), or give your user the right to write there, and "
           "try again.";
  }
  return "Put that right and try again.";
}

// A folder that was created but never filled has no copies.
bool HoldsFiles(Files& files, const std::string& folder) { return !ListFolder(files, folder).items.empty(); }

}  // namespace

std::string VirtualCopies(Files& files, const std::string& store, const std::string& folder) {
  constexpr std::size_t drive = 3;  // as in C:\...
  const bool fromTheRoot = folder.size() > drive && folder[1] == ':' && folder[2] == '\\';
  if (store.empty() || !fromTheRoot) return {};
  std::string copies = store + folder.substr(drive);
  return HoldsFiles(files, copies) ? copies : std::string();
}

std::string RefusalToWrite(Files& files, const std::string& path, const std::string& reason, const std::string& store) {
  std::string text = path + " cannot be written: " + reason + ".\n" + Help(reason) + " Nothing has been changed.";
  const std::string folder = path.ends_with('\\') ? path : ParentFolder(path);
  const std::string copies = VirtualCopies(files, store, folder);
  if (!copies.empty()) {
    text += "\n\nWindows keeps copies of files of that folder in\n" + copies +
            "\nand shows them to the game in place of the real ones. As long as they are there, the game does not see "
            "what is changed in its own folder: move those that you need into it, and delete the others.";
  }
  return text;
}

}  // namespace oravin
