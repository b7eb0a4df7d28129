#include "tabs/first_bytes.h"

#include <algorithm>
#include <array>

#include "archive/unpack.h"
#include "base/file_error.h"
#include "base/text.h"
#include "files/file.h"

namespace oravin {

namespace {

constexpr std::size_t bytesInLine = 16;

std::string Hex(std::size_t value, int digits) {
  static constexpr const char* figures = "0123456789ABCDEF";
  std::string text;
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) text += figures[value >> shift & 15U];
  return text;
}

/// Printable ASCII as it is, a dot for any other byte.
char CharacterOf(std::uint8_t byte) { return byte >= ' ' && byte < 127 ? static_cast<char>(byte) : '.'; }

std::string ViewOf(File& hog, const HogEntry& entry) {
  if (!LiesInside(hog, entry)) {
    return Presentable(entry.Name) + ": its place in the archive lies past that file's end.";
  }
  Bytes bytes(std::min<std::size_t>(entry.Size, firstBytesShown));
  Get(hog, entry.Offset, bytes);
  const char* kind = IsCompressed(hog, entry) ? ", packed" : ", stored";
  return Presentable(entry.Name) + kind + "\n" + HexView(bytes);
}

}  // namespace

std::string HexView(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += bytesInLine) {
    text += (at > 0 ? "\n" : "") + Hex(at, 4) + " ";
    std::string characters;
    for (std::size_t i = at; i < at + bytesInLine; ++i) {
      text += i % 8 == 0 ? "  " : " ";
      text += i < bytes.size() ? Hex(bytes[i], 2) : "  ";
      if (i < bytes.size()) characters += CharacterOf(bytes[i]);
    }
    text += "   " + characters;
  }
  return text;
}

void hogList_ItemClick(HogTab& tab) {
  ShowHog(tab);
  tab.txtFirstBytes.text.clear();
  const auto index = SelectedEntry(tab);
  if (!index || !tab.txtFirstBytes.shown) return;
  try {
    tab.txtFirstBytes.text = ViewOf(tab.archive.file, tab.archive.entries.at(*index));
  } catch (const FileError& error) {
    // Intentional: a preview that fails shows no message box.
    tab.txtFirstBytes.text = error.what();
  }
}

void cmdFirstBytes_Click(HogTab& tab) {
  tab.txtFirstBytes.shown = !tab.txtFirstBytes.shown;
  hogList_ItemClick(tab);
}

}  // namespace oravin
