#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>
#include <wx/vector.h>

#include "desk/controls.h"
#include "tabs/switcher_tab.h"

/// The window's pictures, and the program's icon, which packages use as well (`packaging/icons`).
namespace oravin::gui {

/// The pictures of the ship lists, indexed by PictureOf. Stock and imported ships, and fighters and capital ships,
/// differ in shape; the two kinds of stock ships in colour.
wxVector<wxBitmapBundle> ShipPictures();

/// Index of a row's picture in ShipPictures; -1 for none.
int PictureOf(const ListRow& row, ShipsShown shown);

/// The program's logo.
wxBitmapBundle Emblem(const wxSize& size);

/// The program's icon from 16 to 256 pixels.
wxIconBundle ProgramIcon();

}  // namespace oravin::gui
