#include "app/open_file.h"

#include "app/handlers.h"
#include "app/import_file.h"
#include "files/path.h"

namespace oravin {

namespace {

// The tabs' places in the strip, counted from 1.
constexpr int importPlace = 3;
constexpr int hogPlace = 4;
constexpr int tcachePlace = 5;

}  // namespace

void OpenFileOnItsTab(Main& main, const std::string& path) {
  const std::string extension = ExtensionOf(path);
  if (extension == "shp" || extension == "pak") {
    main.tabStrip.chosen = importPlace;
    return ImportFile(main, path);
  }
  const bool cache = extension == "dat";
  main.tabStrip.chosen = cache ? tcachePlace : hogPlace;
  (cache ? main.tcache.txtTcacheSource : main.hog.txtHogPath).text = path;
  Run(main, cache ? "tcache.cmdOpenTcache" : "hog.cmdOpen");
}

}  // namespace oravin
