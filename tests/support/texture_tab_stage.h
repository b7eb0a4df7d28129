#pragma once

#include <algorithm>

#include "support/cache_stage.h"
#include "tabs/texture_tab.h"

namespace oravin::test {

/// The "Tcache Editor" tab over a game folder, a program folder with templates, and a folder for what is extracted.
struct TheTab : CacheStage {
  TheTab() {
    installation.GamePath = folder.Windows("game\\");
    installation.ProgramPath = folder.Windows("program\\");
    cube = Bitmap(16, 16, 8, Pattern(256));
    gcube = Bitmap(16, 16, 8, Pattern(256));
    for (std::size_t i = 0; i < 256; ++i) {
      SetLong(cube, 54 + 4 * i, static_cast<std::uint32_t>(i * 40503 % 0x1000000));
      SetLong(gcube, 54 + 4 * i, static_cast<std::uint32_t>(i * 30011 % 0x1000000));
    }
    Write("program/3D/cube.bmp", cube);
    Write("program/3D/gcube.bmp", gcube);
    MakeFolderAt(folder.Native("out"));
    tab.txtTcacheSource.text = folder.Windows("game/tcachehw.dat");
    tab.txtTcacheDestination.text = folder.Windows("out\\");
  }
  void SetCache(const Bytes& bytes) { Write("game/tcachehw.dat", bytes); }
  [[nodiscard]] Bytes CacheNow() const { return ReadFileAt(folder.Native("game/tcachehw.dat")); }
  void Open(const Bytes& bytes) {
    SetCache(bytes);
    cmdOpenTcache_Click(at.host, tab);
  }
  /// Selects the rows of these names alone.
  void Select(const std::vector<std::string>& names) {
    for (ListRow& row : tab.lstTcache.rows) {
      row.selected = std::find(names.begin(), names.end(), row.texts[0]) != names.end();
    }
  }
  void Extract() { cmdExtractTcache_Click(at.host, tab, installation); }
  void ExpectComplete(const std::string& more = "") { at.desk.ExpectSuccess("Extraction complete" + more); }
  [[nodiscard]] Bytes Extracted(const std::string& name) const { return ReadFileAt(folder.Native("out/" + name)); }
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const ListRow& row : tab.lstTcache.rows) names.push_back(row.texts[0]);
    return names;
  }

  Installation installation;
  TcacheTab tab = NewTcacheTab();
  Bytes cube;
  Bytes gcube;
};

}  // namespace oravin::test
