#pragma once

#include "desk/desk.h"
#include "files/files.h"

namespace oravin {

/// Access to files and to the user.
struct Host {
  Files files;
  Desk desk;
};

}  // namespace oravin
