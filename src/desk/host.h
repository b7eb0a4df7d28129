#pragma once

#include "desk/desk.h"
#include "files/files.h"

namespace oravin {

/// What a procedure of the core reaches the outside by.
struct Host {
  Files files;
  Desk desk;
};

}  // namespace oravin
