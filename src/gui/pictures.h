#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>
#include <wx/vector.h>

#include "desk/controls.h"

/// The window's own drawings, and the program's icon, which packages use as well (`packaging/icons`).
namespace oravin::gui {

/// Which kind of ships a list of the switcher shows: the picture of a stock ship depends on it.
enum class ShipsShown { fighters, capitalShips };

/// The pictures of the ship lists, in the order of PictureOf: stock and imported ships differ in shape, as fighters and
/// capital ships do, and the two kinds of stock ship in colour.
wxVector<wxBitmapBundle> ShipPictures();

/// The picture of a row among ShipPictures; -1 for none.
int PictureOf(const ListRow& row, ShipsShown shown);

/// The program's emblem.
wxBitmapBundle Emblem(const wxSize& size);

/// The program's icon from 16 to 256 pixels.
wxIconBundle ProgramIcon();

}  // namespace oravin::gui
