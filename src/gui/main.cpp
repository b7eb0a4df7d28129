#include <wx/init.h>

#include <array>

#include "gui/app.h"
#include "platform/arguments.h"

int main(int argc, char** argv) {
  oravin::gui::Options options;
  if (const auto status = oravin::gui::ReadOptions(oravin::platform::Arguments(argc, argv), options)) return *status;
  wxApp::SetInstance(new oravin::gui::App(options));  // owned by the toolkit
  std::array<char*, 2> nameAlone = {*argv, nullptr};
  int one = 1;
  return wxEntry(one, nameAlone.data());
}
