#include "program_under_test.h"

#include <cstdlib>

namespace oravin::test {

namespace {

/// What the machine's shell does; its words are the folder of the programs, the run's folder, the registry file, the
/// program and its arguments.
constexpr const char* script = R"sh(
programs=$1 folder=$2 registry=$3 program=$4
shift 4
cd "$folder"
[ ! -e "$registry" ] || wine regedit /S "$(winepath -w "$registry")"
wine "$programs/$program" "$@"
status=$?
wine reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\App Paths\Oravin.exe' >registry.new 2>/dev/null
mv registry.new registry.txt
exit $status
)sh";

}  // namespace

std::optional<std::string> WindowsPrograms() {
  const char* folder = std::getenv("ORAVIN_WINDOWS_PROGRAMS");
  return folder == nullptr ? std::nullopt : std::optional<std::string>(folder);
}

std::vector<std::string> CommandOf(const Desktop& desktop, const std::string& program, const WindowsRun& run) {
  const std::string programs = WindowsPrograms().value();
  std::vector<std::string> command = {WINDOWS_MACHINE,
                                      "--read",
                                      programs,
                                      "--write",
                                      run.folder,
                                      "--display",
                                      desktop.variables.at("DISPLAY").substr(1),
                                      "sh",
                                      "-c",
                                      run.before + script,
                                      "sh",
                                      programs,
                                      run.folder,
                                      run.registry,
                                      program};
  command.insert(command.end(), run.arguments.begin(), run.arguments.end());
  return command;
}

}  // namespace oravin::test
