#include "gui/picture_pane.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cmath>

namespace oravin::gui {

namespace {

constexpr int smallestPane = 160;
constexpr int scrollStep = 16;
constexpr int squareSide = 8;
constexpr unsigned char lightSquare = 0xB4;
constexpr unsigned char darkSquare = 0xA2;

/// Four squares of the chequered background.
wxBitmap NewGround(int side) {
  wxImage image(2 * side, 2 * side, false);
  for (int y = 0; y < 2 * side; ++y) {
    for (int x = 0; x < 2 * side; ++x) {
      const unsigned char shade = (x < side) == (y < side) ? lightSquare : darkSquare;
      image.SetRGB(x, y, shade, shade, shade);
    }
  }
  return wxBitmap(image);
}

}  // namespace

wxBitmap BitmapOf(const Picture& picture, double scale) {
  wxImage image(picture.width, picture.height, false);
  std::copy(picture.rgb.begin(), picture.rgb.end(), image.GetData());
  return {image, wxBITMAP_SCREEN_DEPTH, scale};
}

PicturePane::PicturePane(wxWindow* parent, const TexturePreview& record)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      record_(record),
      shownRevision_(record.revision - 1),
      ground_(NewGround(FromDIP(squareSide))) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetScrollRate(FromDIP(scrollStep), FromDIP(scrollStep));
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  ShowRecord();
}

void PicturePane::ShowRecord() {
  if (shownRevision_ == record_.revision && shownFitted_ == record_.chkFitted.checked) return;
  shownRevision_ = record_.revision;
  shownFitted_ = record_.chkFitted.checked;
  drawn_ = wxNullBitmap;
  Arrange();
  Refresh();
}

wxSize PicturePane::DoGetBestSize() const { return FromDIP(wxSize(smallestPane, smallestPane)); }

/// Accept focus only if there is something to scroll.
bool PicturePane::AcceptsFocus() const {
  const wxSize whole = GetVirtualSize();
  const wxSize seen = GetClientSize();
  return whole.x > seen.x || whole.y > seen.y;
}

/// The picture's size on the screen, in the window's pixels.
wxSize PicturePane::PictureSize() const {
  if (!record_.picture) return {0, 0};
  const wxSize picture(record_.picture->width, record_.picture->height);
  if (!shownFitted_) {
    const double scale = GetContentScaleFactor();
    return {static_cast<int>(std::ceil(picture.x / scale)), static_cast<int>(std::ceil(picture.y / scale))};
  }
  const wxSize room = GetClientSize();
  const double times = std::min(static_cast<double>(room.x) / picture.x, static_cast<double>(room.y) / picture.y);
  return {std::max(1, static_cast<int>(picture.x * times)), std::max(1, static_cast<int>(picture.y * times))};
}

void PicturePane::Arrange() {
  // A fitted picture fills the pane, without scroll bars.
  SetVirtualSize(shownFitted_ || !record_.picture ? wxSize(1, 1) : PictureSize());
}

wxRect PicturePane::PictureRectangle() const {
  const wxSize size = PictureSize();
  const wxSize room = GetClientSize();
  const wxPoint at(std::max(0, (room.x - size.x) / 2), std::max(0, (room.y - size.y) / 2));
  return {CalcScrolledPosition(at), size};
}

void PicturePane::Paint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(ground_));
  dc.DrawRectangle(GetClientRect());
  if (!record_.picture) return;
  const wxRect place = PictureRectangle();
  const double scale = GetContentScaleFactor();
  const auto onScreen = [scale](int length) { return static_cast<int>(std::lround(length * scale)); };
  const wxSize pixels = shownFitted_ ? wxSize(onScreen(place.width), onScreen(place.height))
                                     : wxSize(record_.picture->width, record_.picture->height);
  if (!drawn_.IsOk() || drawn_.GetSize() != pixels) {
    drawn_ = BitmapOf(shownFitted_ ? Scaled(*record_.picture, pixels.x, pixels.y) : *record_.picture, scale);
  }
  dc.DrawBitmap(drawn_, place.GetPosition());
}

wxSizer* NewPreview(wxWindow* parent, const Surroundings& surroundings, const std::string& name, TexturePreview& record,
                    bool chain) {
  Mirror& mirror = surroundings.mirror;
  const int space = parent->FromDIP(gap);
  wxStaticText* what = NewLabel(parent, mirror, name + ".lblPreview", record.lblPreview, wxST_ELLIPSIZE_END);
  wxWindow* edge = NewEdge(parent);
  auto* pane = new PicturePane(edge, record);
  Enframe(edge, pane);
  const auto show = [pane] {
    pane->ShowRecord();
    return false;
  };
  Reflect(mirror, name + ".picture", pane, show);
  auto* how = new wxBoxSizer(wxHORIZONTAL);
  if (chain) {
    wxButton* larger = NewButton(parent, surroundings, name + ".cmdLargerImage", record.cmdLargerImage);
    wxButton* smaller = NewButton(parent, surroundings, name + ".cmdSmallerImage", record.cmdSmallerImage);
    EqualWidths({larger, smaller});
    how->Add(larger, wxSizerFlags().CentreVertical());
    how->Add(smaller, wxSizerFlags().CentreVertical().Border(wxLEFT, space));
    how->AddSpacer(2 * space);
  }
  how->Add(NewCheckBox(parent, mirror, name + ".chkFitted", record.chkFitted, show), wxSizerFlags().CentreVertical());

  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(what, wxSizerFlags().Expand());
  whole->Add(edge, wxSizerFlags(1).Expand().Border(wxTOP | wxBOTTOM, space));
  whole->Add(how, wxSizerFlags().Expand());
  return whole;
}

}  // namespace oravin::gui
