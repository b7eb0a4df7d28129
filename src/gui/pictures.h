#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>
#include <wx/vector.h>

#include "desk/controls.h"
#include "tabs/switcher_tab.h"

/// The window's own drawings, and the program's icon, which packages use as well (`packaging/icons`).
namespace oravin::gui {

/// The pictures of the ship lists, in the order of PictureOf: stock and imported ships differ in shape, as fighters and
/// capital ships do, and the two kinds of stock ship in colour.
wxVector<wxBitmapBundle> ShipPictures();

/// The picture of a row among ShipPictures; -1 for none. That of a stock ship depends on the kind that the list shows.
int PictureOf(const ListRow& row, ShipsShown shown);

/// The program's emblem.
wxBitmapBundle Emblem(const wxSize& size);

/// The program's icon from 16 to 256 pixels.
wxIconBundle ProgramIcon();

}  // namespace oravin::gui
