// The Tcache Editor tab's pictures: the preview of the selected texture, and the thumbnails.

#include "base/file_error.h"
#include "tabs/texture_tab.h"
#include "textures/extract_texture.h"

namespace oravin {

namespace {

/// The texture that a row shows; null for a row without one.
const TcacheEntry* TextureOf(const TcacheTab& tab, const ListRow& row) {
  const auto index = static_cast<std::size_t>(row.item);
  return index < tab.table.size() ? &tab.table[index] : nullptr;
}

std::string TemplateOf(const TcacheTab& tab, const Installation& installation, const TcacheEntry& entry) {
  return installation.programFile(TemplateFor(tab.table, entry.name));
}

void ShowImage(Host& host, TcacheTab& tab, const Installation& installation, int image) {
  const auto row = SelectedRow(tab.lstTcache);
  const TcacheEntry* entry = row ? TextureOf(tab, tab.lstTcache.rows[*row]) : nullptr;
  if (entry == nullptr) return ShowNoTexture(tab.preview, "");
  ShowTexture(host, tab.preview, tab.openCache, *entry, TemplateOf(tab, installation, *entry), image);
}

}  // namespace

void lstTcache_ItemClick(Host& host, TcacheTab& tab, const Installation& installation) {
  ShowImage(host, tab, installation, 0);
}

void cmdLargerImage_Click(Host& host, TcacheTab& tab, const Installation& installation) {
  ShowImage(host, tab, installation, tab.preview.image - 1);
}

void cmdSmallerImage_Click(Host& host, TcacheTab& tab, const Installation& installation) {
  ShowImage(host, tab, installation, tab.preview.image + 1);
}

std::optional<Picture> ThumbnailOf(Host& host, const TcacheTab& tab, const Installation& installation,
                                   const ListRow& row, int side) {
  const TcacheEntry* entry = TextureOf(tab, row);
  if (entry == nullptr) return std::nullopt;
  try {
    const Palette palette = TemplatePalette(host.files, TemplateOf(tab, installation, *entry));
    return TextureThumbnail(host.files, tab.openCache, *entry, palette, side);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

}  // namespace oravin
