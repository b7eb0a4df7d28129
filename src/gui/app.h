#pragma once

#include <wx/app.h>

#include "app/main.h"
#include "gui/options.h"
#include "gui/window.h"

namespace oravin::gui {

/// The application: owns the record of all state and the window.
class App : public wxApp {
 public:
  explicit App(Options options);

 private:
  bool OnInit() override;
  int OnRun() override;

  Options options_;
  Main main_;
  Window window_;
};

}  // namespace oravin::gui
