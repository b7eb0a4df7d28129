#include "stats_session.h"

#include <stdexcept>

namespace oravin::test {

StatsSession::StatsSession() {
  if (!EnableFeatures(*this)) throw std::runtime_error("not enabled");
  if (!ChooseTab(*this, "Ship Stats / Guns")) throw std::runtime_error("no tab");
  before = Now();
}

std::size_t ShortAt(const Bytes& bytes, std::size_t at) { return bytes.at(at) + (std::size_t{bytes.at(at + 1)} << 8U); }

std::vector<std::size_t> AttachmentsIn(const Bytes& model) {
  constexpr std::size_t attachmentChunk = 9;
  std::vector<std::size_t> places;
  for (std::size_t at = 0; at + 6 <= model.size();) {
    const std::size_t size = ShortAt(model, at + 2);
    const std::size_t count = ShortAt(model, at + 4);
    for (std::size_t i = 0; i < count && ShortAt(model, at) == attachmentChunk; ++i)
      places.push_back(at + 6 + i * size);
    at += 6 + size * count;
  }
  return places;
}

testing::AssertionResult ImageBecomes(const StatsSession& session, const FolderImage& image) {
  Eventually([&] { return session.Now() == image; });
  return SameImage(image, session.Now());
}

testing::AssertionResult ShipChosen(const Session& session, const std::string& name) {
  if (!SelectRow(session, stats_page::ships, name)) return testing::AssertionFailure() << "no row " << name;
  return Becomes(session, stats_page::chart, "selected", name);
}

int WindowsWithoutMenu(const Session& session) {
  const Json client = Layout(session)["client"];
  MoveTo(session.desktop, {client["x"].get<int>() + 2, client["y"].get<int>() + client["height"].get<int>() - 60});
  int now = 0;
  Eventually([&] { return (now = WindowsInSight(session.desktop, "Oravin")) == 1; });  // a tooltip closes
  return now;
}

testing::AssertionResult WindowsBecome(const Session& session, int count) {
  int now = 0;
  if (Eventually([&] { return (now = WindowsInSight(session.desktop, "Oravin")) == count; })) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << now << " windows instead of " << count;
}

void Press(const Session& session, const std::string& key, int times) {
  for (int i = 0; i < times; ++i) PressKey(session.desktop, key);
}

testing::AssertionResult MenuOpened(const Session& session, const Json& row, int& windows) {
  windows = WindowsWithoutMenu(session);
  RightClick(session.desktop, MiddleOf(row["rectangle"]));
  return WindowsBecome(session, windows + 1);
}

testing::AssertionResult SubmenuChosen(const Session& session, int windows, int menu, int item) {
  Press(session, "Down", menu);
  Press(session, "Right");
  if (const auto opened = WindowsBecome(session, windows + 2); !opened) return opened;
  Press(session, "Down", item - 1);
  SaveScreenshot(session.desktop, "stats_weapon_menu");
  Press(session, "Return");
  return WindowsBecome(session, windows);
}

testing::AssertionResult WeaponMenuChosen(const Session& session, std::size_t row, int menu, int item) {
  int windows = 0;
  const Json control = Control(session, stats_page::weapons);
  if (const auto opened = MenuOpened(session, control["rows"][row], windows); !opened) return opened;
  return SubmenuChosen(session, windows, menu, item);
}

testing::AssertionResult WeaponBecomes(const Session& session, std::size_t row, const std::string& text) {
  Json now;
  const auto is = [&] { return (now = Control(session, stats_page::weapons)["rows"][row]["texts"][0]) == text; };
  if (Eventually(is)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the weapon is " << now;
}

}  // namespace oravin::test
