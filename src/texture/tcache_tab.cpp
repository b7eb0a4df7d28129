#include "texture/tcache_tab.h"

namespace oravin {

TcacheTab NewTcacheTab() {
  TcacheTab tab;
  tab.purpose.caption = "Here you will look at the game's textures, extract and rename them.";
  return tab;
}

}  // namespace oravin
