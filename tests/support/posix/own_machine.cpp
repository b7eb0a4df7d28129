#include "support/own_machine.h"

#include "support/environment.h"

namespace oravin::test {

namespace fs = std::filesystem;

namespace {

struct Variables {
  Environment config;
  Environment prefix;
};

}  // namespace

OwnMachine::OwnMachine(const TemporaryFolder& place)
    : folder(place),
      kept(new Variables{{"XDG_CONFIG_HOME", place.Native("config").string()},
                         {"WINEPREFIX", place.Native("wine").string()}},
           [](Variables* variables) { delete variables; }) {
  fs::create_directories(folder.Native("wine/drive_c"));
  fs::create_directories(folder.Native("wine/dosdevices"));
  fs::create_directory_symlink("../drive_c", folder.Native("wine/dosdevices/c:"));
}

OwnMachine::~OwnMachine() = default;

fs::path OwnMachine::DriveC(std::string_view name) const { return folder.Native("wine/drive_c") / name; }

void OwnMachine::RefuseRegistry() { WriteFileAt(folder.Native("config"), "a file where the folder should be"); }

}  // namespace oravin::test
