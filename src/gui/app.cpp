#include "gui/app.h"

#include <utility>

#include "app/open_file.h"
#include "app/start_up.h"
#include "desk/program_end.h"
#include "gui/file_drop.h"
#include "gui/window_desk.h"
#include "platform/native_path.h"

namespace oravin::gui {

App::App(Options options) : options_(std::move(options)) {
  options_.folders.offerShipList = true;
  options_.folders.package = platform::PlacesOfPackage();
}

bool App::OnInit() {
  // The command line has been parsed already; the toolkit must not parse it.
  SetAppName("oravin");
  SetClassName("Oravin");
  SetAppDisplayName(programTitle);
  return true;
}

int App::OnRun() {
  main_.host.desk = WindowDesk(window_);
  PrepareWindow(window_, main_, options_);
  try {
    Form_Load(main_, options_.folders);
  } catch (const ProgramEnd&) {
    return 0;  // the user has seen a message or chose to leave
  }
  const std::string file = options_.file.empty() ? std::string() : platform::ToWindowsPath(options_.file);
  const bool imports = IsShipFile(file);  // through the import form, which needs the window
  if (!file.empty() && !imports) OpenFileOnItsTab(main_, file);
  if (imports) window_.whenPainted = [this, file] { ImportIntoWindow(window_, main_, file); };
  OpenWindow(window_, main_, options_);
  return wxApp::OnRun();
}

}  // namespace oravin::gui
