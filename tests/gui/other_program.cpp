#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dnd.h>
#include <wx/frame.h>

#include <cstdio>

/// Stands for the other programs of a desktop.
///
///   other_program drag FILE       a window from which the file can be dragged
///   other_program clipboard FILE  writes the clipboard's text into the file

namespace {

constexpr int windowSize = 120;

void OpenDragWindow(const wxString& file) {
  auto* frame = new wxFrame(nullptr, wxID_ANY, "Files", wxPoint(0, 0), wxSize(windowSize, windowSize));
  auto* pane = new wxWindow(frame, wxID_ANY);
  pane->Bind(wxEVT_LEFT_DOWN, [pane, file](wxMouseEvent&) {
    wxFileDataObject files;
    files.AddFile(file);
    wxDropSource source(files, pane);
    source.DoDragDrop(wxDrag_CopyOnly);
  });
  frame->Show();
}

bool WriteClipboard(const wxString& path) {
  const wxClipboardLocker clipboard;
  wxTextDataObject text;
  if (!clipboard || !wxTheClipboard->GetData(text)) return false;
  std::FILE* file = std::fopen(path.utf8_str(), "wb");
  if (file == nullptr) return false;
  const std::string bytes = text.GetText().utf8_string();
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && written;
}

class OtherProgram : public wxApp {
 private:
  bool OnInit() override {
    if (argc != 3) return false;
    if (argv[1] == "drag") OpenDragWindow(argv[2]);
    if (argv[1] == "clipboard") {
      CallAfter([this] {
        status_ = WriteClipboard(argv[2]) ? 0 : 1;
        ExitMainLoop();
      });
    }
    return true;
  }

  int OnRun() override {
    wxApp::OnRun();
    return status_;
  }

  int status_ = 0;
};

}  // namespace

wxIMPLEMENT_APP(OtherProgram);
