#include "gui/native_window.h"

#include <wx/dcclient.h>
#include <wx/msw/wrapwin.h>

namespace oravin::gui {

namespace {

/// Paints one rectangle of a tab strip by way of a picture in memory. Nothing beyond it is drawn, though the strip
/// believes that it draws all of itself.
void PaintPart(wxNotebook& tabs, HDC screen, const wxRect& part) {
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP picture = CreateCompatibleBitmap(screen, part.width, part.height);
  const HGDIOBJ before = SelectObject(memory, picture);
  SetViewportOrgEx(memory, -part.x, -part.y, nullptr);
  const RECT all{part.x, part.y, part.x + part.width, part.y + part.height};
  FillRect(memory, &all, GetSysColorBrush(COLOR_BTNFACE));
  tabs.MSWDefWindowProc(WM_PAINT, reinterpret_cast<WXWPARAM>(memory), 0);
  SetViewportOrgEx(memory, -part.x, -part.y, nullptr);  // wherever the strip left it
  BitBlt(screen, part.x, part.y, part.width, part.height, memory, part.x, part.y, SRCCOPY);
  SelectObject(memory, before);
  DeleteObject(picture);
  DeleteDC(memory);
}

}  // namespace

wxRect RoomOnScreen() {
  RECT room{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);  // the toolkit would make a window to hear of other screens
  return {room.left, room.top, room.right - room.left, room.bottom - room.top};
}

void HoldList(wxWindow* list) { SendMessageW(list->GetHWND(), WM_SETREDRAW, FALSE, 0); }

void SettleList(wxWindow* list) {
  // Wine's list learns its rows' height when it is drawn first, and draws the scroll bars that follow from it once
  // more: so it is drawn first to where nobody sees it.
  const HDC nowhere = CreateCompatibleDC(nullptr);
  SendMessageW(list->GetHWND(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(nowhere), PRF_CLIENT);
  DeleteDC(nowhere);
  SendMessageW(list->GetHWND(), WM_SETREDRAW, TRUE, 0);
}

void PaintAroundPage(wxNotebook* tabs) {
  // The toolkit's own way is a picture of the strip and the whole page, for which Wine stretches a ground of that size.
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
