#include "gui/app.h"

#include <utility>

#include "app/open_file.h"
#include "app/start_up.h"
#include "desk/program_end.h"
#include "gui/window_desk.h"
#include "platform/native_path.h"

namespace oravin::gui {

App::App(Options options) : options_(std::move(options)) {}

bool App::OnInit() {
  // The command line has been read already, so nothing of it is left for the toolkit.
  SetAppName("oravin");
  SetClassName("Oravin");
  SetAppDisplayName(programTitle);
  return true;
}

int App::OnRun() {
  main_.host.desk = WindowDesk(window_);
  try {
    Form_Load(main_, options_.folders);
  } catch (const ProgramEnd&) {
    return 0;  // the person was told, or chose to leave
  }
  if (!options_.file.empty()) OpenFileOnItsTab(main_, platform::ToWindowsPath(options_.file));
  OpenWindow(window_, main_, options_);
  return wxApp::OnRun();
}

}  // namespace oravin::gui
