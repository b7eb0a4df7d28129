#include "hog/hog_tab.h"

namespace oravin {

HogTab NewHogTab() {
  HogTab tab;
  tab.purpose.caption = "Here you will browse the game's archive, extract its files and edit its table.";
  return tab;
}

}  // namespace oravin
