#include "session.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "program_under_test.h"
#include "support/sample_copy.h"

namespace oravin::test {

namespace {

constexpr int screenWidth = 1600;
constexpr int screenHeight = 1000;

/// Waits until two looks at the window tell the same place.
bool HoldsStill(const Session& session) {
  Json before;
  return Eventually([&] {
    const Json now = Layout(session).value("client", Json());
    const bool same = !now.is_null() && now == before;
    before = now;
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    return same;
  });
}

/// True when a form has the keyboard, or without one the window.
bool HasKeyboard(const Session& session, const std::string& form) {
  const std::string active = ActiveWindow(session.desktop);
  return !active.empty() && (active == session.frame) == form.empty();
}

}  // namespace

Session::Session(Beginning beginning)
    : sample(NewSample(folder.Native("sample"))),
      desktop(screenWidth, screenHeight),
      layoutFile(folder.Native("layout.json").string()) {
  desktop.variables["XDG_CONFIG_HOME"] = sample.config.string();
  desktop.variables["WINEPREFIX"] = folder.Native("no-prefix").string();
  desktop.variables["LC_ALL"] = "C.UTF-8";
  desktop.variables["PATH"] = folder.Native("bin").string() + ":" + std::getenv("PATH");
  desktop.variables["GDK_SCALE"] = "1";
  if (beginning == Beginning::desktop) return;
  StartProgram(*this);
  AwaitWindow(*this);
}

void StartProgram(Session& session, const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {"--layout", session.layoutFile};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> command = {ORAVIN_PROGRAM};
  if (WindowsPrograms()) {
    const std::string registry = (session.sample.config / "oravin" / "registry.reg").string();
    command =
        CommandOf(session.desktop, "Oravin.exe", {session.folder.native.string(), registry, session.before, words});
  } else {
    command.insert(command.end(), words.begin(), words.end());
  }
  session.program = Program(command, session.desktop.variables);
}

void AwaitWindow(Session& session) {
  const auto painted = [&] {
    const Json layout = Layout(session);
    return !layout.is_null() && layout.contains("client");
  };
  if (!Eventually(painted)) throw std::runtime_error("the window was not painted");
  if (!Eventually([&] { return !(session.frame = ActiveWindow(session.desktop)).empty(); })) {
    throw std::runtime_error("the window did not get the keyboard");
  }
  if (!HoldsStill(session)) throw std::runtime_error("the window does not hold still");
}

Json Layout(const Session& session) {
  std::ifstream file(session.layoutFile);
  return file ? Json::parse(file) : Json();
}

Json Control(const Session& session, const std::string& name) {
  const Json layout = Layout(session);
  for (const Json& control : layout["controls"]) {
    if (control["name"] == name) return control;
  }
  throw std::runtime_error("no control " + name);
}

Rectangle RectangleFrom(const Json& rectangle) {
  return {rectangle["x"].get<int>(), rectangle["y"].get<int>(), rectangle["width"].get<int>(),
          rectangle["height"].get<int>()};
}

Point MiddleOf(const Json& rectangle) {
  const Rectangle whole = RectangleFrom(rectangle);
  return {whole.x + whole.width / 2, whole.y + whole.height / 2};
}

void ClickOn(const Session& session, const std::string& control) {
  Click(session.desktop, MiddleOf(Control(session, control)["rectangle"]));
}

bool ChooseTab(const Session& session, const std::string& caption) {
  const Json layout = Layout(session);
  for (const Json& tab : layout["tabs"]) {
    if (tab["caption"] != caption) continue;
    Click(session.desktop, MiddleOf(tab["rectangle"]));
    return Eventually([&] { return Layout(session)["tab"] == caption; });
  }
  return false;
}

Json RowOf(const Session& session, const std::string& list, const std::string& text) {
  const Json control = Control(session, list);
  for (const Json& row : control["rows"]) {
    if (!row["texts"].empty() && row["texts"][0] == text) return row;
  }
  return {};
}

bool SelectRow(const Session& session, const std::string& list, const std::string& text) {
  const Json row = RowOf(session, list, text);
  if (row.is_null()) return false;
  Click(session.desktop, MiddleOf(row["rectangle"]));
  return Eventually([&] {
    const Json now = RowOf(session, list, text);
    return !now.is_null() && now["selected"] == true;
  });
}

void ClickHeading(const Session& session, const std::string& list, std::size_t column) {
  const Json control = Control(session, list);
  constexpr Point intoHeading = {20, 8};  // beside the line that is dragged to widen a column
  Point point{control["rectangle"]["x"].get<int>() + intoHeading.x,
              control["rectangle"]["y"].get<int>() + intoHeading.y};
  for (std::size_t i = 0; i < column; ++i) point.x += control["columns"][i]["width"].get<int>();
  Click(session.desktop, point);
}

testing::AssertionResult Becomes(const Session& session, const std::string& control, const std::string& field,
                                 const Json& value) {
  Json now;
  if (Eventually([&] { return (now = Control(session, control)[field]) == value; })) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << control << " has " << field << " " << now.dump();
}

testing::AssertionResult CaptionHolds(const Session& session, const std::string& control, const std::string& text) {
  std::string now;
  const auto holds = [&] {
    now = Control(session, control)["caption"];
    return now.find(text) != std::string::npos;
  };
  if (Eventually(holds)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << control << " says " << now << ", nothing of " << text;
}

testing::AssertionResult TypeInto(const Session& session, const std::string& control, const std::string& text) {
  ClickOn(session, control);
  if (!Eventually([&] { return Layout(session)["focus"] == control; })) {
    return testing::AssertionFailure() << control << " does not get the keyboard";
  }
  PressKey(session.desktop, "ctrl+a");
  PressKey(session.desktop, "BackSpace");
  if (!text.empty()) TypeText(session.desktop, text);
  return Becomes(session, control, "text", text);
}

testing::AssertionResult FocusIs(const Session& session, const std::string& control) {
  Json focus;
  if (Eventually([&] { return (focus = Layout(session)["focus"]) == control; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the keyboard is in " << focus.dump();
}

testing::AssertionResult FormIs(const Session& session, const std::string& name) {
  Json now;
  const bool is = Eventually([&] {
    now = Layout(session)["form"];
    return now == name && HasKeyboard(session, name);
  });
  if (is) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "open is the form " << now.dump();
}

testing::AssertionResult BoxCame(const Session& session, const std::string& text) {
  Json box;
  const bool came = Eventually([&] {
    box = Layout(session)["box"];
    if (box.is_null() || box["text"].get<std::string>().find(text) == std::string::npos) return false;
    const std::string active = ActiveWindow(session.desktop);
    return !active.empty() && active != session.frame;
  });
  if (came) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "no box with \"" << text << "\", but " << box.dump();
}

testing::AssertionResult AnswerBox(const Session& session, const std::string& key) {
  const Json before = Layout(session);
  if (before["box"].is_null()) return testing::AssertionFailure() << "no box is open";
  PressKey(session.desktop, key);
  // A key that came before the box had the keyboard is lost.
  auto pressed = std::chrono::steady_clock::now();
  const bool gone = Eventually([&] {
    const Json now = Layout(session);
    if (now["boxes"] != before["boxes"]) return true;  // the next one is there already
    if (now["box"].is_null()) return now["running"] == false && HasKeyboard(session, now["form"]);
    if (std::chrono::steady_clock::now() - pressed > std::chrono::seconds(5)) {
      PressKey(session.desktop, key);
      pressed = std::chrono::steady_clock::now();
    }
    return false;
  });
  if (gone) return testing::AssertionSuccess();
  return testing::AssertionFailure() << key << " does not answer " << before["box"].dump();
}

testing::AssertionResult EnableFeatures(const Session& session) {
  ClickOn(session, "switcher.cmdEnable");
  for (const auto& [text, key] :
       {std::pair("Are you sure you want to continue?", "alt+y"), {"Options Enabled.", "Return"}}) {
    if (const auto came = BoxCame(session, text); !came) return came;
    if (const auto answered = AnswerBox(session, key); !answered) return answered;
  }
  const bool filled = Eventually([&] {
    const Json layout = Layout(session);
    return layout["running"] == false && Control(session, "switcher.swapOrgList")["rowCount"] > 0 &&
           ActiveWindow(session.desktop) == session.frame;
  });
  if (filled) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "the lists stay empty";
}

}  // namespace oravin::test
