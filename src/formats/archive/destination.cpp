#include "archive/destination.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>

#include "base/file_error.h"
#include "base/text.h"
#include "files/file.h"
#include "files/look_up.h"
#include "files/whole_file.h"

namespace oravin {

namespace {

/// The temporary file. One name is enough: files are extracted one after another, and a leftover of an interrupted run
/// is overwritten by the next run.
const std::string temporaryName = std::string("extracting") + besideSuffix;

Destination::Folder ListedFolder(Files& files, const std::string& path) {
  Destination::Folder folder;
  folder.path = path;
  for (const FileFacts& item : ListFolder(files, path).items) {
    folder.items.emplace(UpperCase(item.name), Destination::Item{item.name, item.folder});
  }
  return folder;
}

/// The item of a name; null without one. Of several spellings it is the one written or made in this extraction, else
/// the name's own, else the first in byte order, which is also what a look-up of a path finds.
const Destination::Item* Find(const Destination::Folder& folder, const std::string& name) {
  const auto rank = [&](const Destination::Item& item) {
    return std::tuple(!item.ours, item.spelling != name, std::string_view(item.spelling));
  };
  const Destination::Item* found = nullptr;
  const auto [first, last] = folder.items.equal_range(UpperCase(name));
  for (auto item = first; item != last; ++item) {
    if (found == nullptr || rank(item->second) < rank(*found)) found = &item->second;
  }
  return found;
}

void Forget(Destination::Folder& folder, const std::string& spelling) {
  const auto [first, last] = folder.items.equal_range(UpperCase(spelling));
  const auto item = std::find_if(first, last, [&](const auto& known) { return known.second.spelling == spelling; });
  if (item != last) folder.items.erase(item);
}

/// A subfolder; it is made if it is missing.
Destination::Folder& Enter(Files& files, Destination& destination, const std::string& key, Destination::Folder& above,
                           const std::string& name) {
  const auto known = destination.folders.find(key);
  if (known != destination.folders.end()) return known->second;
  const Destination::Item* item = Find(above, name);
  const std::string path = above.path + (item != nullptr ? item->spelling : name) + "\\";
  Destination::Folder entered;
  if (item != nullptr) {
    entered = ListedFolder(files, path);
  } else {
    MakeFolder(files, path);
    above.items.emplace(UpperCase(name), Destination::Item{name, true, true});
    entered.path = path;
  }
  return destination.folders.emplace(key, std::move(entered)).first->second;
}

std::string WhyNotReplaced(Files& files, const Destination& destination, const std::string& path,
                           const Destination::Item& item) {
  if (item.folder) return "a folder bears its name";
  if (item.ours) return "another file of the same name was extracted before it";
  if (IsSameFile(files, path, destination.spared)) return "it would overwrite the archive itself";
  const std::string why = WhyNotWritable(files, path);
  return why.empty() ? why : "there is a file of its name, and " + why;
}

}  // namespace

Destination DestinationAt(Files& files, const std::string& path, const std::string& spared) {
  Destination destination;
  destination.path = path;
  destination.spared = spared;
  destination.folders[""] = ListedFolder(files, path);
  return destination;
}

std::string WhyNotExtracted(Files& files, const Destination& destination, const EntryPath& entry) {
  if (!entry.whyNot.empty()) return entry.whyNot;
  const Destination::Folder* folder = &destination.folders.at("");
  Destination::Folder unseen;
  std::string key;
  for (const std::string& name : entry.folders) {
    const Destination::Item* item = Find(*folder, name);
    if (item == nullptr) return {};  // the rest of the path is new
    if (!item->folder)
      return item->ours ? "a file that was extracted before bears its folder's name" : "a file bears its folder's name";
    key += UpperCase(name) + "\\";
    const auto known = destination.folders.find(key);
    if (known != destination.folders.end()) {
      folder = &known->second;
    } else {
      unseen = ListedFolder(files, folder->path + item->spelling + "\\");
      folder = &unseen;
    }
  }
  const Destination::Item* item = Find(*folder, entry.file);
  return item == nullptr ? std::string() : WhyNotReplaced(files, destination, folder->path + item->spelling, *item);
}

void WriteExtracted(Files& files, Destination& destination, const EntryPath& entry,
                    const std::function<void(File& file)>& write) {
  Destination::Folder* folder = &destination.folders.at("");
  std::string key;
  for (const std::string& name : entry.folders) {
    key += UpperCase(name) + "\\";
    folder = &Enter(files, destination, key, *folder, name);
  }
  const Destination::Item* old = Find(*folder, entry.file);
  const std::string name = old != nullptr ? old->spelling : entry.file;
  try {
    File file(files, folder->path, temporaryName);
    write(file);
    // A new file needs no flush: if it is lost, the archive still has it. Waiting for the disk after every file would
    // take most of the time.
    if (old != nullptr) Flush(file);
    Close(file);
    RenameSpelled(files, folder->path, temporaryName, name);
  } catch (...) {
    EraseIfThere(files, folder->path + temporaryName);
    throw;
  }
  Forget(*folder, name);
  folder->items.emplace(UpperCase(name), Destination::Item{name, false, true});
}

void EraseExtracted(Files& files, Destination& destination, const EntryPath& entry) {
  Destination::Folder* folder = &destination.folders.at("");
  std::string key;
  for (const std::string& name : entry.folders) {
    if (Find(*folder, name) == nullptr) return;
    key += UpperCase(name) + "\\";
    folder = &Enter(files, destination, key, *folder, name);
  }
  const Destination::Item* old = Find(*folder, entry.file);
  if (old == nullptr) return;
  const std::string spelling = old->spelling;
  EraseFile(files, folder->path + spelling);
  Forget(*folder, spelling);
}

}  // namespace oravin
