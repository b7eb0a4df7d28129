#include "gui/pictures.h"

#include <wx/settings.h>

#include <wx/icon.h>

#include <array>

#include "drawings.h"
#include "tabs/switcher_tab.h"

namespace oravin::gui {

namespace {

constexpr int listPictureSize = 20;
constexpr int greatestSmallIcon = 24;  ///< up to this size the small drawing is clearer

enum ShipPicture {
  stockFighter,
  otherStockFighter,
  stockCapital,
  otherStockCapital,
  importedFighter,
  importedCapital,
  shipPictureCount
};

constexpr std::array<const char*, shipPictureCount> shipDrawings = {
    drawings::stock_fighter_blue, drawings::stock_fighter_red, drawings::stock_capital_blue,
    drawings::stock_capital_red,  drawings::imported_fighter,  drawings::imported_capital};

}  // namespace

wxVector<wxBitmapBundle> ShipPictures() {
  wxVector<wxBitmapBundle> pictures;
  for (const char* drawing : shipDrawings) {
    pictures.push_back(wxBitmapBundle::FromSVG(drawing, {listPictureSize, listPictureSize}));
  }
  return pictures;
}

int PictureOf(const ListRow& row, ShipsShown shown) {
  const bool capital = shown == ShipsShown::capitalShips;
  switch (row.image) {
    case stockImage:
      return capital ? stockCapital : stockFighter;
    case otherStockImage:
      return capital ? otherStockCapital : otherStockFighter;
    case importedFighterImage:
      return importedFighter;
    case importedCapitalImage:
      return importedCapital;
    default:
      return -1;
  }
}

wxBitmapBundle Emblem(const wxSize& size) { return wxBitmapBundle::FromSVG(drawings::oravin, size); }

wxIconBundle ProgramIcon() {
  wxIconBundle icons;
#ifdef __WXMSW__
  // Windows uses two sizes of the window and takes larger ones from the executable.
  const std::array<int, 2> sides = {wxSystemSettings::GetMetric(wxSYS_SMALLICON_X),
                                    wxSystemSettings::GetMetric(wxSYS_ICON_X)};
#else
  constexpr std::array<int, 9> sides = {16, 20, 24, 32, 40, 48, 64, 128, 256};
#endif
  for (const int side : sides) {
    const wxSize size(side, side);
    const char* drawing = side <= greatestSmallIcon ? drawings::oravin_small : drawings::oravin;
    icons.AddIcon(wxBitmapBundle::FromSVG(drawing, size).GetIcon(size));
  }
  return icons;
}

}  // namespace oravin::gui
