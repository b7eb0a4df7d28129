#include "cli/run_command.h"

#include <exception>

#include "app/start_up.h"
#include "cli/command_line.h"
#include "cli/console.h"
#include "desk/error_trap.h"
#include "desk/program_end.h"

namespace oravin {

namespace {

constexpr int documentIndent = 2;

void WriteResult(Console& console, const Result& result) {
  ClearProgressLine(console);
  if (console.json) {
    console.out << result.document.dump(documentIndent, ' ', false, Json::error_handler_t::replace) << '\n';
  } else {
    console.out << result.text;
  }
  console.out.flush();
  if (!console.out) SayError(console, "the result could not be written to standard output");
}

void Work(Console& console, const CommandLine& line) {
  Main main;
  main.host.desk = DeskOf(console);
  Trap(main.host, "oravin-cli", [&] {
    GivenFolders folders = line.folders;
    folders.package = platform::PlacesOfPackage();
    if (line.command->worksOn == WorksOn::installation) Form_Load(main, folders);
    if (line.command->worksOn == WorksOn::game) FindGameFolder(main, folders);
    Session session{main, console};
    if (const auto result = line.command->run(session, line.values)) WriteResult(console, *result);
  });
}

}  // namespace

int RunCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& err, std::istream& in,
               bool terminal) {
  const CommandLine line = ReadCommandLine(Commands(), words);
  if (line.kind == CommandLine::Kind::wrong) {
    err << line.text;
    return exitWrongUsage;
  }
  Console console{out, err, in, terminal, line.json, line.answers};
  if (line.kind == CommandLine::Kind::show) {
    out << line.text << std::flush;
    return out ? exitDone : exitFailed;
  }
  try {
    Work(console, line);
  } catch (const ProgramEnd&) {
    ClearProgressLine(console);
    return exitProgramEnd;
  } catch (const std::exception& error) {
    SayError(console, error.what());
  }
  return console.failures > 0 ? exitFailed : exitDone;
}

}  // namespace oravin
