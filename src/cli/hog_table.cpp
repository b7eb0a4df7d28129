#include "cli/hog_table.h"

#include "archive/unpack.h"
#include "base/hex_text.h"
#include "base/text.h"
#include "cli/text_table.h"
#include "files/path.h"

namespace oravin {

namespace {

const char* KindOf(File& hog, const HogEntry& entry) {
  if (!LiesInside(hog, entry)) return "damaged";
  return IsCompressed(hog, entry) ? "packed" : "stored";
}

}  // namespace

Json JsonOf(Main& main, const HogEntry& entry) {
  return {{"name", ToUtf8(entry.Name)},
          {"offset", entry.Offset},
          {"size", entry.Size},
          {"fatPosition", entry.FatPos},
          {"extension", ToUtf8(ExtensionOf(entry.Name))},
          {"kind", KindOf(main.hog.archive.file, entry)}};
}

Json HogJson(Main& main) {
  Json document = Json::array();
  for (const HogEntry& entry : main.hog.archive.entries) document.push_back(JsonOf(main, entry));
  return document;
}

std::string HogText(Main& main) {
  std::vector<std::vector<std::string>> rows;
  for (const HogEntry& entry : main.hog.archive.entries) {
    rows.push_back({entry.Name, DecToHex(entry.Offset), DecToHex(entry.Size), DecToHex(entry.FatPos),
                    ExtensionOf(entry.Name), KindOf(main.hog.archive.file, entry)});
  }
  return TextTable({{"Name"}, {"Offset", true}, {"Size", true}, {"FAT position", true}, {"Ext."}, {"Stored as"}}, rows);
}

}  // namespace oravin
