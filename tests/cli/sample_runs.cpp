#include "sample_runs.h"

#include <sstream>
#include <stdexcept>

#include "cli/run_command.h"
#include "support/sample_copy.h"

namespace oravin::test {

namespace {

constexpr int stockRecords = 12;

}  // namespace

std::vector<Json> Outcome::ErrorLines() const {
  std::vector<Json> lines;
  std::istringstream stream(err);
  for (std::string line; std::getline(stream, line);) lines.push_back(Json::parse(line));
  return lines;
}

Outcome RunWords(const std::vector<std::string>& words, const std::string& typed, bool terminal) {
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in(typed);
  Outcome outcome;
  outcome.status = RunCommand(words, out, err, in, terminal);
  outcome.out = out.str();
  outcome.err = err.str();
  return outcome;
}

Json BoxLine(const std::string& title, const std::string& text, const std::string& icon, const std::string& buttons,
             const std::string& answer) {
  return Json::parse(R"({"box":{}})")
      .patch(Json::array({{{"op", "add"}, {"path", "/box/title"}, {"value", title}},
                          {{"op", "add"}, {"path", "/box/text"}, {"value", text}},
                          {{"op", "add"}, {"path", "/box/icon"}, {"value", icon}},
                          {{"op", "add"}, {"path", "/box/buttons"}, {"value", buttons}},
                          {{"op", "add"}, {"path", "/box/answer"}, {"value", answer}}}));
}

SampleRuns::SampleRuns()
    : sample(NewSample(folder.Native("sample"), {0, stockRecords, 0})),
      config("XDG_CONFIG_HOME", sample.config.string()),
      prefix("WINEPREFIX", folder.Native("no-prefix").string()) {}

void SampleRuns::Enable() {
  const Outcome outcome = RunWords({"--yes", "enable"});
  if (outcome.status != 0) throw std::runtime_error("enabling failed: " + outcome.err);
}

void SampleRuns::EditShipList(const std::string& from, const std::string& to) {
  const auto path = sample.program / "shipsData.txt";
  std::string text = ReadTextAt(path);
  const std::size_t at = text.find(from);
  if (at == std::string::npos) throw std::runtime_error("the ship list does not hold " + from);
  WriteFileAt(path, text.replace(at, from.size(), to));
}

}  // namespace oravin::test
