#pragma once

#include <wx/colour.h>
#include <wx/settings.h>
#include <wx/window.h>

#include <algorithm>

/// Colours and sizes of the window's own drawings.
namespace oravin::gui {

/// A mix of two colours.
/// @param share of the first colour, from 0 to 1
inline wxColour Between(const wxColour& first, const wxColour& second, double share) {
  const auto mixed = [share](unsigned char a, unsigned char b) {
    return static_cast<unsigned char>(a * share + b * (1 - share));
  };
  return {mixed(first.Red(), second.Red()), mixed(first.Green(), second.Green()), mixed(first.Blue(), second.Blue())};
}

/// List background, text, dimmed text, highlight.
inline wxColour ListGround() { return wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX); }
inline wxColour ListText() { return wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOXTEXT); }
inline wxColour FadedText() { return Between(ListText(), ListGround(), 0.6); }
inline wxColour FaintLine() { return Between(ListText(), ListGround(), 0.2); }
inline wxColour StandingOut() { return wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT); }

/// The unit of small symbols: a pixel at 100 %, larger with the screen's scale or the font.
inline int Unit(const wxWindow& window) {
  constexpr int usualTextHeight = 15;
  return std::max({1, window.FromDIP(1), window.GetCharHeight() / usualTextHeight});
}

}  // namespace oravin::gui
