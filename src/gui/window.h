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

/// A form: a dialog over the window that shows a record and runs actions of its own.
struct Form {
  std::string name;
  wxDialog* dialog = nullptr;
  Mirror mirror;
  std::function<bool()> wanted;  ///< false once its record says that it is to be closed
  ProgressPlace progress = {};   ///< for its long actions; empty for the window's
};

/// The window and what belongs to it. The controls are null until OpenWindow has made them; the toolkit deletes them.
struct Window {
  wxFrame* frame = nullptr;
  wxNotebook* notebook = nullptr;
  wxStatusBar* status = nullptr;
  Mirror mirror;

  /// Makes what the window needs only after it has been painted: what a page holds, by the page's number, and more
  /// behind those. Empty ones have been called.
  std::vector<std::function<void()>> unfilled;

  std::map<std::string, std::function<void()>> forms;  ///< shows a form, by its name, until it is closed
  Form* form = nullptr;                                ///< the form that is open

  bool running = false;             ///< an action runs; none may begin
  bool progress = false;            ///< it shows its progress; the controls are disabled
  bool stoppable = false;           ///< it asks now and then whether it is to stop
  bool stop = false;                ///< it is
  wxWeakRef<wxWindow> focusBefore;  ///< had the keyboard before
  ProgressPlace progressPlace;      ///< the status line
  wxDialog* waiting = nullptr;      ///< tells of an action before there is a window
  ProgressPlace waitingPlace;
  ProgressPlace* progressAt = nullptr;  ///< where the progress is shown now
  wxString progressText;
  std::optional<std::chrono::steady_clock::time_point> progressAsked;  ///< when it was, before there is a window
  std::chrono::steady_clock::time_point progressPainted;
  unsigned progressPaintings = 0;

  bool painted = false;               ///< the window has been on the screen
  std::function<void()> whenPainted;  ///< called then, once; may be empty
  std::string layoutFile;             ///< empty for none
  std::string layoutText;             ///< its contents
  const Message* box = nullptr;       ///< the message box that is open
  unsigned boxesShown = 0;
};

/// Makes ready what an action may need before there is a window: its forms.
void PrepareWindow(Window& window, Main& main, const Options& options);

/// Makes the window over the records and shows it.
void OpenWindow(Window& window, Main& main, const Options& options);

/// Runs an action of the handler table: what the person did is read before it, what it changed is shown after it.
/// Nothing happens while another one runs. An action that ends the program closes the window.
/// @param from the form whose control asks for the action, null for the window itself. The action that opened a form
/// waits for it: until then only the form's own are run.
void Press(Window& window, Main& main, std::string_view action, Form* from = nullptr);

/// Opens the import form for a ship model or a ship pack, as if its path had been typed on the import page. Nothing
/// happens while an action runs or a form is open.
void ImportIntoWindow(Window& window, Main& main, const std::string& path);

/// Shows a form until it is closed: by an action after which it is not wanted any longer.
void ShowModally(Window& window, Form& form);

/// What a message box comes up over.
wxWindow* OnTop(const Window& window);

}  // namespace oravin::gui
