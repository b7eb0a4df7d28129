#pragma once

#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/notebook.h>
#include <wx/statusbr.h>

#include <chrono>
#include <string>
#include <string_view>

#include "app/main.h"
#include "desk/message_box.h"
#include "gui/mirror.h"
#include "gui/options.h"

namespace oravin::gui {

/// The window and what belongs to it. The controls are null until OpenWindow has made them; the toolkit deletes them.
struct Window {
  wxFrame* frame = nullptr;
  wxNotebook* notebook = nullptr;
  wxStatusBar* status = nullptr;
  wxGauge* gauge = nullptr;
  Mirror mirror;

  bool running = false;   ///< an action runs; none may begin
  bool progress = false;  ///< it shows its progress; the controls are disabled
  std::chrono::steady_clock::time_point progressPainted;
  unsigned progressPaintings = 0;

  bool painted = false;             ///< the window has been on the screen
  std::string layoutFile;           ///< empty for none
  std::string layoutText;           ///< its contents
  const MessageBox* box = nullptr;  ///< the message box that is open
  unsigned boxesShown = 0;
};

/// Makes the window over the records and shows it.
void OpenWindow(Window& window, Main& main, const Options& options);

/// Runs an action of the handler table: what the person did is read before it, what it changed is shown after it.
/// Nothing happens while another one runs. An action that ends the program closes the window.
void Press(Window& window, Main& main, std::string_view action);

}  // namespace oravin::gui
