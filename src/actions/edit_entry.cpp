#include "actions/edit_entry.h"

#include <array>

#include "base/bytes.h"
#include "base/hex_text.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "desk/new_name.h"

namespace oravin {

namespace {

constexpr const char* editorTitle = "Table Editor";
constexpr std::size_t longestEdited = 1000;

bool RefuseEdit(Host& host, const std::string& text) {
  Show(host, text, Icon::exclamation, editorTitle);
  return false;
}

/// @param procedure the handler's name, for the error trap
/// @return whether it was written
bool SaveEntry(Host& host, OpenArchive& archive, std::size_t index, const EntryChange& change, const char* procedure) {
  return Trapped(host, procedure, false, [&] {
    if (!IsAsRead(archive, index)) {
      return RefuseEdit(host, "Another program has changed the table of " + Presentable(archive.path) +
                                  "\nsince it was opened. Open the archive again. Changes not saved");
    }
    WriteEntry(archive, index, change);
    return true;
  });
}

/// @param what "offset" or "size", for the message box
bool TakeNumber(Host& host, std::string& text, const std::string& what, std::uint32_t& number) {
  std::array<std::uint8_t, 4> bytes{};
  if (!HexToByteArray(text, bytes)) {
    return RefuseEdit(host, "The value entered for " + what + " is an invalid hexadecimal number");
  }
  number = BigEndian32(bytes.data());
  return true;
}

/// @param change gets the name if it is a new one
bool TakeName(Host& host, const HogEntry& entry, const std::string& typed, EntryChange& change) {
  if (!NameIsEditable(entry) || typed == entry.Name) return true;
  // The name is stored without spaces at its ends, so that length must match too.
  change.name = Trim(typed);
  if (typed.size() != entry.Name.size() || change.name.size() != entry.Name.size()) {
    return RefuseEdit(host,
                      "The name of the file MUST be the same length or the\n"
                      "entire .hog file will have to be rebuilt. Changes not saved");
  }
  return NameCanBeStored(host, change.name, editorTitle);
}

}  // namespace

std::string ReadOnlyRemark(const OpenArchive& archive) {
  const std::string& why = archive.whyReadOnly;
  return why.empty() ? why : "This archive can only be looked at and extracted from: " + why + ".";
}

bool MayWriteArchive(Host& host, const OpenArchive& archive) {
  const std::string remark = ReadOnlyRemark(archive);
  if (!remark.empty()) Show(host, remark, Icon::exclamation);
  return remark.empty();
}

bool NameIsEditable(const HogEntry& entry) { return entry.Name.size() <= longestEdited; }

bool EditEntry(Host& host, OpenArchive& archive, std::size_t index, EntryTexts& texts) {
  if (index >= archive.entries.size() || !MayWriteArchive(host, archive)) return false;
  EntryChange change;
  return TakeName(host, archive.entries[index], texts.name, change) &&
         TakeNumber(host, texts.offset, "offset", change.offset) && TakeNumber(host, texts.size, "size", change.size) &&
         SaveEntry(host, archive, index, change, "cmdSave_Click()");
}

bool PasteEntry(Host& host, OpenArchive& archive, std::size_t index, const RememberedPlace& place) {
  if (index >= archive.entries.size() || !MayWriteArchive(host, archive)) return false;
  const std::string question = "Do you want " + Presentable(place.name) + "\nto stand in for " +
                               Presentable(archive.entries[index].Name) +
                               "?\nThe table will then give the second file the place and the size of the first.";
  return AskYesNo(host, question) &&
         SaveEntry(host, archive, index, {"", place.offset, place.size}, "pldHogPaste_Click()");
}

}  // namespace oravin
