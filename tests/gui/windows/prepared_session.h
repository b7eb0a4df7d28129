#pragma once

#include <string>

#include "session.h"
#include "support/folder_image.h"

namespace oravin::test {

/// A session whose machine does something before the program starts.
struct PreparedSession : Session {
  /// @param shell what it does, with the sample's folders in $game and $program
  explicit PreparedSession(const std::string& shell) : Session(Beginning::desktop) {
    before = "game='" + sample.game.string() + "' program='" + sample.program.string() + "'\n" + shell;
    StartProgram(*this);
    AwaitWindow(*this);
  }
  [[nodiscard]] FolderImage Image() const { return ImageOf(folder.Native("sample")); }
};

}  // namespace oravin::test
