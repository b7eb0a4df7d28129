#include "import_session.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace oravin::test {

namespace {

std::vector<std::string> NamesIn(const Session& session, const std::string& list) {
  std::vector<std::string> names;
  const Json control = Control(session, list);
  for (const Json& row : control["rows"]) names.push_back(row["texts"][0]);
  return names;
}

}  // namespace

ImportSession::ImportSession() {
  if (!EnableFeatures(*this)) throw std::runtime_error("not enabled");
  if (!ChooseTab(*this, "Import Ships")) throw std::runtime_error("no tab");
}

std::string ImportSession::Pack(const std::string& name) const { return folder.Windows("sample/Oravin/packs/" + name); }

unsigned ImportSession::Textures() const {
  const Bytes cache = ReadFileAt(sample.game / "tcachehw.dat");
  return cache[4] | static_cast<unsigned>(cache[5]) << 8U;
}

testing::AssertionResult ImportOpened(const Session& session, const std::string& path) {
  if (const auto typed = TypeInto(session, "imports.txtImportFighter", path); !typed) return typed;
  PressKey(session.desktop, "Return");
  return FormIs(session, importForm);
}

testing::AssertionResult ShipsImported(const Session& session,
                                       const std::vector<std::pair<std::string, std::string>>& boxes) {
  ClickOn(session, "Fighter_PACK.cmdImportShips");
  for (const auto& [text, key] : boxes) {
    if (const auto came = BoxCame(session, text); !came) return came;
    if (const auto answered = AnswerBox(session, key); !answered) return answered;
  }
  return FormIs(session, "");
}

testing::AssertionResult RowRenamed(const Session& session, const std::string& list, const std::string& from,
                                    const std::string& to) {
  if (!SelectRow(session, list, from)) return testing::AssertionFailure() << "no row " << from;
  PressKey(session.desktop, "F2");
  if (!Eventually([&] { return Layout(session)["focus"] == "text"; })) {
    return testing::AssertionFailure() << "the keyboard is in " << Layout(session)["focus"];
  }
  PressKey(session.desktop, "ctrl+a");
  TypeText(session.desktop, to);
  PressKey(session.desktop, "Return");
  return testing::AssertionSuccess();
}

testing::AssertionResult RowsBecome(const Session& session, const std::string& list,
                                    const std::vector<std::string>& names) {
  std::vector<std::string> now;
  if (Eventually([&] { return (now = NamesIn(session, list)) == names; })) return testing::AssertionSuccess();
  return testing::AssertionFailure() << list << " holds " << Json(now).dump();
}

Point BoxOf(const Session& session, const std::string& list, const std::string& text) {
  constexpr int intoBox = 14;
  const Json rectangle = RowOf(session, list, text)["rectangle"];
  return {rectangle["x"].get<int>() + intoBox, MiddleOf(rectangle).y};
}

testing::AssertionResult RowBecomes(const Session& session, const std::string& list, const std::string& text,
                                    const std::string& field, const Json& value) {
  Json row;
  const auto is = [&] {
    row = RowOf(session, list, text);
    return !row.is_null() && row[field] == value;
  };
  if (Eventually(is)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << text << " is " << row.dump();
}

void ChooseInDialog(const Session& session, const std::string& path) {
  const auto isOpen = [&] { return ActiveWindowTitle(session.desktop) == "Find texture file"; };
  if (!Eventually(isOpen)) throw std::runtime_error("no file dialog");
  // The dialog lists the folder and looks the name up in its own time; what comes meanwhile is lost.
  constexpr std::chrono::milliseconds itsTime(700);
  std::this_thread::sleep_for(itsTime);
  TypeText(session.desktop, path);
  const auto taken = [&] {
    std::this_thread::sleep_for(itsTime);
    if (isOpen()) PressKey(session.desktop, "Return");
    std::this_thread::sleep_for(itsTime);
    return !isOpen();
  };
  if (!Eventually(taken)) throw std::runtime_error("the file dialog does not take " + path);
}

}  // namespace oravin::test
