#pragma once

#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/notebook.h>
#include <wx/statusbr.h>
#include <wx/weakref.h>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/main.h"
#include "desk/message_box.h"
#include "gui/mirror.h"
#include "gui/options.h"
#include "gui/progress.h"

namespace oravin::gui {

/// A form: a dialog that shows a record and runs actions of its own.
struct Form {
  std::string name;
  wxDialog* dialog = nullptr;
  Mirror mirror;
  std::function<bool()> wanted;  ///< false once its record asks to close it
  ProgressPlace progress = {};   ///< for its long actions; if empty, the window's is used
};

/// The window's state. Controls are null until OpenWindow; the toolkit deletes them.
struct Window {
  wxFrame* frame = nullptr;
  wxNotebook* notebook = nullptr;
  wxStatusBar* status = nullptr;
  Mirror mirror;

  /// Steps to do after the first paint: the contents of each page, by page number, then other parts. Empty once done.
  std::vector<std::function<void()>> unfilled;

  std::map<std::string, std::function<void()>> forms;  ///< each shows a form until it is closed; by form name
  Form* form = nullptr;                                ///< the open form

  bool running = false;             ///< an action runs; no other may start
  bool progress = false;            ///< the action shows its progress; controls are disabled
  bool stoppable = false;           ///< the action can be stopped
  bool stop = false;                ///< the user has asked to stop it
  wxWeakRef<wxWindow> focusBefore;  ///< had focus before the action
  ProgressPlace progressPlace;      ///< the status line
  wxDialog* waiting = nullptr;      ///< shows an action's progress before the window exists
  ProgressPlace waitingPlace;
  ProgressPlace* progressAt = nullptr;  ///< where progress is shown now
  wxString progressText;
  std::optional<std::chrono::steady_clock::time_point>
      progressAsked;  ///< first request for progress before the window exists
  std::chrono::steady_clock::time_point progressPainted;
  unsigned progressPaintings = 0;

  bool painted = false;               ///< the window has been painted
  std::function<void()> whenPainted;  ///< called once, after the first paint; may be empty
  std::string layoutFile;             ///< empty for none
  std::string layoutText;             ///< its contents
  const Message* box = nullptr;       ///< the open message box
  unsigned boxesShown = 0;
};

/// Registers the forms, which an action may need before the window exists.
void PrepareWindow(Window& window, Main& main, const Options& options);

/// Makes the window for the records and shows it.
void OpenWindow(Window& window, Main& main, const Options& options);

/// Runs a handler: copies the user's input to the records, runs it and shows the changed records. Does nothing while
/// another action runs. An action that ends the program closes the window.
/// @param from the form whose control was used, null for the window itself. While a form is open, only its own actions
///   run.
void Press(Window& window, Main& main, std::string_view action, Form* from = nullptr);

/// Opens the import form for a ship model or a ship pack, as if its path had been typed on the import page. Does
/// nothing while an action runs or a form is open.
void ImportIntoWindow(Window& window, Main& main, const std::string& path);

/// Shows a form until it is closed, by the user or by an action that clears `wanted`.
void ShowModally(Window& window, Form& form);

/// The parent of message boxes.
wxWindow* OnTop(const Window& window);

}  // namespace oravin::gui
