#pragma once

#include "session.h"

namespace oravin::test {

/// Files of the player's own in the game's ships folder: their texts by their names.
using PlayersFiles = std::map<std::string, std::string>;

/// An installation for actions that stop or fail half-way: however they end, Disable must leave the game folder as it
/// was.
struct InterruptionStage {
  explicit InterruptionStage(const PlayersFiles& own) {
    for (const auto& [name, text] : own) WriteFileAt(installation.Game("ships/" + name), text);
    before = GameFolder();
  }

  /// Every file of the game folder but the defaults of the statistics.
  [[nodiscard]] FolderImage GameFolder() const {
    return Without(ImageOf(installation.folder.Native("game")), {"shipstats.def"});
  }

  /// A run in which every question is answered with Yes, whatever boxes come.
  [[nodiscard]] std::unique_ptr<Session> Start() const {
    auto session = std::make_unique<Session>(installation, false);
    session->desk.AllowOthers([](const Message& box) { return box.buttons == Buttons::ok ? Answer::ok : Answer::yes; });
    Form_Load(session->main, {installation.gamePath, installation.programPath});
    return session;
  }

  SmallInstallation installation;
  FolderImage before;
};

}  // namespace oravin::test
