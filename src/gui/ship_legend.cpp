#include "gui/ship_legend.h"

#include <wx/dcclient.h>
#include <wx/settings.h>

#include <algorithm>
#include <utility>

#include "gui/pages.h"
#include "gui/pictures.h"
#include "tabs/switcher_tab.h"

namespace oravin::gui {

namespace {

struct Kind {
  std::vector<int> images;
  ShipsShown shown;
  const char* meaning;
};

std::vector<Kind> Kinds() {
  return {{{stockImage, otherStockImage}, ShipsShown::fighters, "Stock fighter"},
          {{stockImage, otherStockImage}, ShipsShown::capitalShips, "Stock capital ship"},
          {{importedFighterImage}, ShipsShown::fighters, "Imported fighter"},
          {{importedCapitalImage}, ShipsShown::capitalShips, "Imported capital ship"}};
}

}  // namespace

ShipLegend::ShipLegend(wxWindow* parent)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE) {
  const wxVector<wxBitmapBundle> pictures = ShipPictures();
  wxString words;
  for (const Kind& kind : Kinds()) {
    Entry entry{{}, kind.meaning};
    for (const int image : kind.images) {
      entry.pictures.push_back(
          pictures[static_cast<std::size_t>(PictureOf(ListRow{{}, {}, image, false}, kind.shown))]);
    }
    words += (words.empty() ? "" : ", ") + entry.meaning;
    entries_.push_back(std::move(entry));
  }
  SetLabel(words);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
}

wxSize ShipLegend::DoGetBestSize() const {
  const int space = FromDIP(gap);
  wxSize size;
  for (const Entry& entry : entries_) {
    if (size.x > 0) size.x += 2 * space;
    for (const wxBitmapBundle& picture : entry.pictures) {
      const wxSize drawn = picture.GetPreferredLogicalSizeFor(this);
      size.x += drawn.x + space / 2;
      size.y = std::max(size.y, drawn.y);
    }
    const wxSize text = GetTextExtent(entry.meaning);
    size.x += text.x;
    size.y = std::max(size.y, text.y);
  }
  return size;
}

void ShipLegend::Paint() {
  wxPaintDC dc(this);
  dc.SetFont(GetFont());
  dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  const int space = FromDIP(gap);
  const int height = GetClientSize().y;
  int x = 0;
  for (const Entry& entry : entries_) {
    for (const wxBitmapBundle& bundle : entry.pictures) {
      const wxBitmap picture = bundle.GetBitmapFor(this);
      dc.DrawBitmap(picture, x, (height - static_cast<int>(picture.GetLogicalHeight())) / 2, true);
      x += static_cast<int>(picture.GetLogicalWidth()) + space / 2;
    }
    const wxSize text = dc.GetTextExtent(entry.meaning);
    dc.DrawText(entry.meaning, x, (height - text.y) / 2);
    x += text.x + 2 * space;
  }
}

}  // namespace oravin::gui
