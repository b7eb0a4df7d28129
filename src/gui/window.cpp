#include "gui/window.h"

#include <wx/app.h>
#include <wx/sizer.h>

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "app/handlers.h"
#include "desk/dialogs.h"
#include "desk/program_end.h"
#include "gui/fat_editor_form.h"
#include "gui/fighter_pack_form.h"
#include "gui/file_drop.h"
#include "gui/layout_file.h"
#include "gui/native_dialogs.h"
#include "gui/native_window.h"
#include "gui/pages.h"
#include "gui/pictures.h"
#include "gui/ship_list_window.h"
#include "gui/text_edge.h"

namespace oravin::gui {

namespace {

#ifdef __WXMSW__
constexpr bool fillsAtOnce = false;
#else
constexpr bool fillsAtOnce = true;
#endif

constexpr int importPlace = 3;  // number of the tab, counted from 1

/// Makes a page's contents, if not done yet.
void Fill(Window& window, std::size_t page) {
  if (page >= window.unfilled.size() || !window.unfilled[page]) return;
  const std::function<void()> fill = std::exchange(window.unfilled[page], nullptr);
  fill();
}

/// Returns false if nothing was left to do.
bool FillNext(Window& window) {
  const auto next =
      std::find_if(window.unfilled.begin(), window.unfilled.end(), [](const auto& fill) { return !!fill; });
  if (next == window.unfilled.end()) return false;
  Fill(window, static_cast<std::size_t>(next - window.unfilled.begin()));
  return true;
}

void FillAll(Window& window) {
  while (FillNext(window)) {
  }
}

/// On Windows pages start empty: the visible one is filled after layout, the others after the first paint. GTK fills
/// all at once: it is fast, would focus an empty page itself, and measures later contents differently.
void AddPages(Window& window, Main& main) {
  const Surroundings surroundings{main, window.mirror,
                                  [&window, &main](const std::string& action) { Press(window, main, action); },
                                  [&window, &main](const std::string& path) { ImportIntoWindow(window, main, path); }};
  using FillPage = void (*)(wxPanel*, const Surroundings&);
  constexpr std::array<FillPage, 6> fills = {FillSwitcherPage, FillStatsPage,  FillImportPage,
                                             FillHogPage,      FillTcachePage, FillAboutPage};
  for (std::size_t i = 0; i < fills.size() && i < main.tabStrip.captions.size(); ++i) {
    wxPanel* page = NewPanel(window.notebook);
    window.unfilled.emplace_back([page, surroundings, fill = fills.at(i)] {
      fill(page, surroundings);
      page->Layout();
      SettleLists(surroundings.mirror);
    });
    if (fillsAtOnce) Fill(window, i);
    window.notebook->AddPage(page, ToScreen(main.tabStrip.captions[i]));
  }
  Reflect(window.mirror, "main.TabStrip1", window.notebook, main.tabStrip);
  window.notebook->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [&window](wxBookCtrlEvent& event) {
    event.Skip();
    Fill(window, static_cast<std::size_t>(event.GetSelection()));
  });
}

/// The status line: the step of a long action and a progress bar.
void AddStatusLine(Window& window) {
  window.status = window.frame->CreateStatusBar(2);
  const std::array<int, 2> widths = {-1, window.frame->FromDIP(240)};
  window.status->SetStatusWidths(static_cast<int>(widths.size()), widths.data());
}

void PlaceGauge(const wxStatusBar& status, wxGauge* gauge) {
  wxRect field;
  if (status.GetFieldRect(1, field)) gauge->SetSize(field.Deflate(status.FromDIP(2)));
}

/// The parts of the status line for long actions.
void AddProgress(Window& window) {
  wxGauge* gauge = NewGauge(window.status);
  gauge->Hide();
  window.progressPlace = {gauge,
                          [status = window.status](const wxString& text) { status->SetStatusText(text); },
                          {window.notebook},
                          // Windows searches a page for access keys from the tab strip only if the strip has a sibling
                          // that can have focus.
                          NewKeys(window.notebook->GetParent())};
  window.status->Bind(wxEVT_SIZE, [status = window.status, gauge](wxSizeEvent& event) {
    event.Skip();
    PlaceGauge(*status, gauge);
  });
  PlaceGauge(*window.status, gauge);
}

void AddForms(Window& window, Main& main) {
  window.forms[fatEditorForm] = [&window, &main] { ShowFatEditor(window, main); };
  window.forms[fighterPackForm] = [&window, &main] { ShowFighterPack(window, main); };
  window.forms[shipListForm] = [&window, &main] { ShowShipList(window, main); };
}

/// Ctrl+PageUp and Ctrl+PageDown switch pages wherever the focus is; a list would consume them. Escape stops an action
/// that can be stopped.
void OnKey(Window& window, wxKeyEvent& event) {
  if (event.GetKeyCode() == WXK_ESCAPE && window.progress) {
    window.stop = true;
    return;
  }
  const bool next = event.GetKeyCode() == WXK_PAGEDOWN;
  if (!event.ControlDown() || (!next && event.GetKeyCode() != WXK_PAGEUP)) {
    event.Skip();
  } else if (!window.running) {
    window.notebook->AdvanceSelection(next);
  }
}

void FirstPainted(Window& window, const Options& options) {
  if (window.painted) return;
  window.painted = true;
  if (options.exitWhenPainted) {
    window.frame->Close(true);
  } else if (window.whenPainted) {
    FillAll(window);
    window.whenPainted();
  }
}

void BindEvents(Window& window, const Options& options) {
  window.frame->Bind(wxEVT_CHAR_HOOK, [&window](wxKeyEvent& event) { OnKey(window, event); });
  window.frame->Bind(wxEVT_CLOSE_WINDOW, [&window](wxCloseEvent& event) {
    if (window.running && event.CanVeto()) {
      event.Veto();  // a running action must finish
    } else {
      event.Skip();
    }
  });
  wxWindow* page = window.notebook->GetCurrentPage();
  page->Bind(wxEVT_PAINT, [&window, options](wxPaintEvent& event) {
    event.Skip();
    if (!window.painted) window.frame->CallAfter([&window, options] { FirstPainted(window, options); });
  });
  window.frame->Bind(wxEVT_IDLE, [&window](wxIdleEvent& event) {
    event.Skip();
    if (!window.painted) return;
    if (FillNext(window)) {
      event.RequestMore();
    } else {
      KeepLayout(window);
    }
  });
}

/// The main frame, centred on the screen.
wxFrame* NewFrame() {
  const wxRect screen = RoomOnScreen();
  const wxSize wanted = wxWindow::FromDIP(wxSize(1120, 720), nullptr);
  const wxSize size(std::min(wanted.x, screen.width), std::min(wanted.y, screen.height));
  auto* frame = new wxFrame(nullptr, wxID_ANY, programTitle, wxRect(size).CentreIn(screen).GetPosition(), size);
  frame->SetMinClientSize(frame->FromDIP(wxSize(900, 560)));
  frame->SetName("main");
  frame->SetIcons(ProgramIcon());
  return frame;
}

/// Runs the handler. Returns false if the program ends.
bool RunToItsEnd(Window& window, Main& main, std::string_view action) {
  try {
    Run(main, action);
  } catch (const ProgramEnd&) {
    return false;
  } catch (const std::exception& failure) {
    // Handlers throw nothing else, except when memory is exhausted.
    ShowMessage(OnTop(window), {.text = failure.what(), .icon = Icon::critical});
  }
  return true;
}

/// Restores the focus after an action. If the action has disabled that control, the next one that can have focus gets
/// it: with focus on a disabled control the Tab key would start at the first control.
void RestoreFocus(wxWindow* focus) {
  wxWindow* next = focus;
  if (next != nullptr && !next->IsThisEnabled()) {
    do {
      next = next->GetNextSibling();
    } while (next != nullptr && !next->CanAcceptFocusFromKeyboard());
  }
  if (next != nullptr && wxWindow::FindFocus() != next) next->SetFocus();
}

}  // namespace

wxWindow* OnTop(const Window& window) {
  return window.form != nullptr ? static_cast<wxWindow*>(window.form->dialog) : window.frame;
}

void Press(Window& window, Main& main, std::string_view action, Form* from) {
  if (window.running || from != window.form) return;
  FillAll(window);
  window.running = true;
  window.stoppable = false;
  window.stop = false;
  const wxWeakRef<wxWindow> focus = wxWindow::FindFocus();
  TakeAll(window.mirror);
  if (from != nullptr) TakeAll(from->mirror);
  const bool goesOn = RunToItsEnd(window, main, action);
  EndProgress(main.host);
  ShowAll(window.mirror);
  if (from != nullptr) ShowAll(from->mirror);
  RestoreFocus(focus);
  window.running = false;
  if (from != nullptr && !(goesOn && from->wanted())) from->dialog->EndModal(wxID_CLOSE);
  if (!goesOn && window.frame != nullptr) window.frame->Close(true);
}

void ImportIntoWindow(Window& window, Main& main, const std::string& path) {
  if (window.running || window.form != nullptr) return;
  FillAll(window);
  TakeAll(window.mirror);
  main.tabStrip.chosen = importPlace;
  main.imports.txtImportFighter.text = path;
  ShowAll(window.mirror);
  Press(window, main, "imports.txtImportFighter.Enter");
}

void ShowModally(Window& window, Form& form) {
  form.dialog->Bind(wxEVT_CHAR_HOOK, [&window](wxKeyEvent& event) {
    const bool stops = event.GetKeyCode() == WXK_ESCAPE && window.progress;
    if (stops) window.stop = true;
    event.Skip(!stops);
  });
  form.dialog->Bind(wxEVT_CLOSE_WINDOW, [&window](wxCloseEvent& event) {
    if (window.running) {
      event.Veto();  // a running action must finish
    } else {
      event.Skip();
    }
  });
  form.dialog->Bind(wxEVT_IDLE, [&window](wxIdleEvent& event) {
    event.Skip();
    KeepLayout(window);
  });
  // The form's actions read the window's controls too, so these must show the current records.
  ShowAll(window.mirror);
  const bool ran = window.running;
  window.form = &form;
  window.running = false;
  form.dialog->ShowModal();
  window.running = ran;
  window.form = nullptr;
  KeepLayout(window);
}

void PrepareWindow(Window& window, Main& main, const Options& options) {
  window.layoutFile = options.layoutFile;
  AddForms(window, main);
}

void OpenWindow(Window& window, Main& main, const Options& options) {
  window.frame = NewFrame();
  auto* ground = new wxPanel(window.frame);  // a frame has the wrong background colour on Windows
  // Plain page background: pictures and ellipsized labels do not adopt a theme's.
  window.notebook = new wxNotebook(ground, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxNB_NOPAGETHEME);
  PaintAroundPage(window.notebook);
  AddPages(window, main);
  AddStatusLine(window);
  if (fillsAtOnce) AddProgress(window);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(window.notebook, wxSizerFlags(1).Expand().Border(wxALL, window.frame->FromDIP(gap / 2)));
  ground->SetSizer(whole);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(ground, wxSizerFlags(1).Expand());
  window.frame->SetSizer(all);
  if (!fillsAtOnce) {
    // Lay out before showing, so that each control is painted once.
    window.frame->Layout();
    ground->Layout();
    Fill(window, static_cast<std::size_t>(window.notebook->GetSelection()));
  }
  BindEvents(window, options);
  window.unfilled.push_back([&window, &main] {
    if (!fillsAtOnce) AddProgress(window);
    OnFileDropped(window.frame, IsShipFile,
                  [&window, &main](const std::string& path) { ImportIntoWindow(window, main, path); });
  });
#ifdef __WXMSW__
  window.notebook->GetCurrentPage()->SetFocus();  // GTK focuses the first control by itself
#endif
  window.frame->Show();
  PaintAtOnce(window.frame);
}

}  // namespace oravin::gui
