#include "gui/native_window.h"

#include <wx/dcclient.h>
#include <wx/msw/wrapwin.h>

namespace oravin::gui {

namespace {

/// Paints one rectangle of a tab strip through a bitmap in memory, so that nothing outside it is drawn, although the
/// strip paints all of itself.
void PaintPart(wxNotebook& tabs, HDC screen, const wxRect& part) {
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP picture = CreateCompatibleBitmap(screen, part.width, part.height);
  const HGDIOBJ before = SelectObject(memory, picture);
  SetViewportOrgEx(memory, -part.x, -part.y, nullptr);
  const RECT all{part.x, part.y, part.x + part.width, part.y + part.height};
  FillRect(memory, &all, GetSysColorBrush(COLOR_BTNFACE));
  tabs.MSWDefWindowProc(WM_PAINT, reinterpret_cast<WXWPARAM>(memory), 0);
  SetViewportOrgEx(memory, -part.x, -part.y, nullptr);  // the strip may have changed it
  BitBlt(screen, part.x, part.y, part.width, part.height, memory, part.x, part.y, SRCCOPY);
  SelectObject(memory, before);
  DeleteObject(picture);
  DeleteDC(memory);
}

}  // namespace

wxRect RoomOnScreen() {
  RECT room{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &room,
                        0);  // not by the toolkit, which creates a hidden window for display changes
  return {room.left, room.top, room.right - room.left, room.bottom - room.top};
}

void HoldList(wxWindow* list) { SendMessageW(list->GetHWND(), WM_SETREDRAW, FALSE, 0); }

void SettleList(wxWindow* list) {
  // Wine's list computes its row height at its first paint and then paints its scroll bars again; so the first paint is
  // done off screen.
  const HDC nowhere = CreateCompatibleDC(nullptr);
  SendMessageW(list->GetHWND(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(nowhere), PRF_CLIENT);
  DeleteDC(nowhere);
  SendMessageW(list->GetHWND(), WM_SETREDRAW, TRUE, 0);
}

void PaintAroundPage(wxNotebook* tabs) {
  // The toolkit buffers the strip with the whole page, and Wine is slow at stretching a theme background of that size.
  tabs->Bind(wxEVT_PAINT, [tabs](wxPaintEvent&) {
    const wxPaintDC screen(tabs);
    wxRegion around(tabs->GetUpdateRegion());
    if (const wxWindow* page = tabs->GetCurrentPage(); page != nullptr) around.Subtract(page->GetRect());
    for (wxRegionIterator part(around); part.HaveRects(); ++part) {
      PaintPart(*tabs, screen.GetHDC(), part.GetRect());
    }
  });
}

void PaintAtOnce(wxWindow* window) {
  RedrawWindow(window->GetHWND(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

}  // namespace oravin::gui
