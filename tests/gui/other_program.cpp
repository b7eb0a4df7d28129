#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dnd.h>
#include <wx/frame.h>

#include <cstdio>
#include <string>
#include <vector>

/// Stands for the other programs of a desktop.
///
///   other_program drag FILE...    a window from which the files can be dragged, all at once
///   other_program clipboard FILE  writes the clipboard's text into the file

namespace {

constexpr int windowSize = 120;

void OpenDragWindow(const std::vector<wxString>& dragged) {
  auto* frame = new wxFrame(nullptr, wxID_ANY, "Files", wxPoint(0, 0), wxSize(windowSize, windowSize));
  auto* pane = new wxWindow(frame, wxID_ANY);
  pane->Bind(wxEVT_LEFT_DOWN, [pane, dragged](wxMouseEvent&) {
    wxFileDataObject files;
    for (const wxString& file : dragged) files.AddFile(file);
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
    if (argc < 3) return false;
    if (argv[1] == "drag") {
      std::vector<wxString> files;
      for (int i = 2; i < argc; ++i) files.push_back(argv[i]);
      OpenDragWindow(files);
    }
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
