#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "desk/controls.h"
#include "desk/host.h"
#include "installation/installation.h"
#include "tabs/texture_preview.h"
#include "textures/texture_cache.h"

namespace oravin {

/// The controls of the "Tcache Editor" tab, and the cache that it shows.
struct TcacheTab {
  Button cmdRestoreTCACHE;
  Button cmdExit;
  Button cmdSelectNoneTcache;
  Button cmdExtractTcache;
  Button cmdSelectAllTcache;
  Button cmdCloseTcache;
  Button cmdOpenTcache;
  Button cmdBrowseTcacheDestination;
  Button cmdBrowseTcacheSource;
  TextBox txtTcacheDestination;  ///< the folder for extracted bitmaps
  TextBox txtTcacheSource;       ///< the cache's path
  ListView lstTcache;            ///< a row's item is the index of its texture in `table`; nothing else links the two
  Label lblTcacheSize;
  Label lblTcachePath;
  Label lblTcacheStructs;          ///< the number of textures; while extracting, which one
  std::array<Label, 2> lblTCACHE;  ///< the captions of the two text boxes: destination, cache

  Label lblTcacheStatus;   ///< says so when the cache has changed since it was opened
  Button cmdReopenTcache;  ///< enabled then: opens it again

  CheckBox chkThumbnails;  ///< the list is shown as small pictures
  TexturePreview preview;  ///< of the first selected texture

  int sortKey = -1;               ///< the column that the list was sorted by last; -1 for none
  std::string openCache;          ///< the path of the open cache; empty when none is
  std::int32_t textureCount = 0;  ///< as the open cache's header states it
  TcacheTable table;              ///< the textures of the open cache
  std::uint64_t seal = 0;         ///< tells whether header, table or length of the open cache have changed
};

/// The tab as it looks before a cache is opened.
TcacheTab NewTcacheTab();

/// Asks for the cache's file.
void cmdBrowseTcacheSource_Click(Host& host, TcacheTab& tab, const Installation& installation);

/// Asks for the folder for extracted bitmaps.
void cmdBrowseTcacheDestination_Click(Host& host, TcacheTab& tab);

/// Opens the cache and lists its textures. A missing file gives the box "Error - File not found" titled "Oravin -
/// cmdOpenTcache_Click()". For one that is no cache the box is GetTcacheTable's, and the list stays empty.
void cmdOpenTcache_Click(Host& host, TcacheTab& tab);

/// Empties the list and forgets the cache.
void cmdCloseTcache_Click(TcacheTab& tab);

/// Closes the cache and opens it again.
void cmdReopenTcache_Click(Host& host, TcacheTab& tab);

/// Looks whether the open cache has changed on disk since it was opened, and says so in the status line. It reads
/// header and table, 240 KB.
void CheckTcacheOnDisk(Host& host, TcacheTab& tab);

void cmdSelectAllTcache_Click(TcacheTab& tab);
void cmdSelectNoneTcache_Click(TcacheTab& tab);

/// Extracts the selected textures, each to a bitmap of its name in the destination folder; existing files are replaced.
/// "Extraction complete" tells at the end which ones got another name, because no file can bear theirs, and which ones
/// were left out, because their data do not lie in the cache. A missing folder gives "Destination path not found".
/// @param installation its program folder holds the template bitmaps
void cmdExtractTcache_Click(Host& host, TcacheTab& tab, const Installation& installation);

/// Sorts the list by the text of a column, ascending.
/// @param column counted from 0
void lstTcache_ColumnClick(TcacheTab& tab, int column);

/// Shows the first selected texture, its largest image to begin with, in the preview.
/// @param installation its program folder holds the template bitmaps, whose palettes 8-bit textures are shown through
void lstTcache_ItemClick(Host& host, TcacheTab& tab, const Installation& installation);

/// Shows the next larger, or smaller, image of that texture.
void cmdLargerImage_Click(Host& host, TcacheTab& tab, const Installation& installation);
void cmdSmallerImage_Click(Host& host, TcacheTab& tab, const Installation& installation);

/// A small picture of the texture of a row, at most `side` pixels wide and high; nothing where it cannot be shown.
std::optional<Picture> ThumbnailOf(Host& host, const TcacheTab& tab, const Installation& installation,
                                   const ListRow& row, int side);

/// Renames the texture of a row, in the game's own cache, whichever is open: that is meant. The name is trimmed and cut
/// to 30 characters. One that a texture has already gives "Name already exists", one that cannot be stored the box of
/// NameCanBeStored, and the row's text stays.
/// @param row in the list, from 0
void lstTcache_AfterLabelEdit(Host& host, TcacheTab& tab, const Installation& installation, std::size_t row,
                              const std::string& text);

/// Extracts the selected texture to "temp.bmp" in the program folder and opens that in the system's paint program. A
/// missing cache gives "TCACHE path not found", a missing program folder "Destination path not found".
void lstTcache_DblClick(Host& host, TcacheTab& tab, const Installation& installation);

/// The Enter key (13) does what a double click does; other keys do nothing.
void lstTcache_KeyDown(Host& host, TcacheTab& tab, const Installation& installation, int keyCode);

/// Puts the game's cache back to the factory state, after asking; refused while the editing features are enabled.
void cmdRestoreTCACHE_Click(Host& host, const Installation& installation);

}  // namespace oravin
