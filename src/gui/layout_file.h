#pragma once

#include "gui/window.h"

/// A file for tests that click: what the window shows and where. All rectangles are in the screen's own pixels.
///
///   {"scale": 1.0, "frame": RECT, "client": RECT, "focus": "switcher.cmdSwap", "running": false, "boxes": 2,
///    "progressPaintings": 5, "status": the status line's text,
///    "box": {"title": .., "text": ..} or null, "form": "FAT_Editor" or "",
///    "tab": "Switcher", "tabs": [{"caption": .., "rectangle": RECT}, ..],
///    "controls": [{"name": "switcher.cmdSwap", "shown": true, "enabled": true, "caption": .., "rectangle": RECT,
///                  "wants": SIZE}, ..]}
///
/// SIZE is what the caption needs. RECT is {"x", "y", "width", "height"}. "boxes" counts the message boxes that have
/// been opened. The controls of an open form come last. A text box has "text", a list "rowCount", "columns"
/// ({"heading", "width"}), "sorted" ({"column", "descending"} or null), "selected", the number of rows that the record
/// has as selected, and "rows", the rows that are in sight: {"row", "key", "texts", "selected", "rectangle"}. There
/// "selected" is what the screen shows.
namespace oravin::gui {

/// Writes the layout file anew if it was asked for, the window has been painted and something changed. It is written
/// beside itself and renamed; a failure is told on standard error.
void KeepLayout(Window& window);

}  // namespace oravin::gui
