#include "session.h"

namespace oravin::test {

Session::Session(const SmallInstallation& installation, bool start)
    : gamePath(installation.gamePath), programPath(installation.programPath) {
  if (start) Form_Load(main, {gamePath, programPath});
}

void Session::Press(std::string_view action) { Run(main, action); }

void Session::Enable() {
  desk.ExpectQuestion(enableQuestion, Answer::yes);
  desk.ExpectSuccess(enabledText, programTitle, Icon::none);
  Run(main, "switcher.cmdEnable");
}

void Session::Disable() {
  desk.ExpectQuestion(disableQuestion, Answer::yes);
  desk.ExpectSuccess("Restoration complete");
  Run(main, "switcher.cmdDisable");
}

std::optional<std::size_t> RowOf(const ListView& list, int ship) {
  for (std::size_t i = 0; i < list.rows.size(); ++i) {
    if (list.rows[i].item == static_cast<int>(ship)) return i;
  }
  return std::nullopt;
}

void Session::Select(int target, int source) {
  if (!RowOf(main.switcher.swapOrgList, target)) Run(main, "switcher.cmdToggle");
  ASSERT_TRUE(RowOf(main.switcher.swapOrgList, target).has_value()) << "ship " << target << " is not listed";
  SelectOnly(main.switcher.swapOrgList, RowOf(main.switcher.swapOrgList, target));
  SelectOnly(main.switcher.swapToList, RowOf(main.switcher.swapToList, source));
}

void Session::Swap(int target, int source) {
  Select(target, source);
  Run(main, "switcher.cmdSwap");
}

void Session::Unswap(int target) {
  Select(target);
  Run(main, "switcher.cmdUnswap");
}

void Session::UnswapAll() { Run(main, "switcher.cmdUnswapAll"); }

}  // namespace oravin::test
