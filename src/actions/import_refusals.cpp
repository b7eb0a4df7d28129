#include "actions/import_refusals.h"

#include "base/text.h"

#include "desk/dialogs.h"
#include "desk/program_end.h"
#include "files/file.h"
#include "files/look_up.h"

namespace oravin {

bool ReadCacheToAddTo(Host& host, std::string& cachePath, TcacheBytes& cache) {
  TrimInPlace(cachePath);
  if (!FileExists(host.files, cachePath)) {
    Show(host, "Error. Path(s) not found", Icon::exclamation, importTitle);
    return false;
  }
  File file(host.files, cachePath, OpenFor::reading);
  cache = ReadTcache(file);
  return true;
}

void EndForFullCache(Host& host) {
  Show(host, "Critical Error - TCACHE is FULL! Use Disable/Restore.", Icon::critical, "ERROR!!!");
  throw ProgramEnd();
}

bool RefuseCache(Host& host) {
  Show(host, "Error - not a valid TCACHE file!", Icon::critical, importTitle);
  return false;
}

bool RefuseBitmap(Host& host) {
  Show(host, "Operation terminated", Icon::none);
  return false;
}

bool NameIsFree(Host& host, const TcacheBytes& cache, const std::string& name) {
  if (SlotNamed(cache, name) < 0) return true;
  Show(host, "A texture with the name of '" + name + "' already exists.\nUnable to import.", Icon::exclamation);
  return false;
}

}  // namespace oravin
