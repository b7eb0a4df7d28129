#pragma once

#include <wx/colour.h>
#include <wx/settings.h>
#include <wx/window.h>

#include <algorithm>

/// What the window's own drawings are made with: the desktop's colours, those between them, and a measure.
namespace oravin::gui {

/// A colour between two.
/// @param share of the first, from 0 to 1
inline wxColour Between(const wxColour& first, const wxColour& second, double share) {
  const auto mixed = [share](unsigned char a, unsigned char b) {
    return static_cast<unsigned char>(a * share + b * (1 - share));
  };
  return {mixed(first.Red(), second.Red()), mixed(first.Green(), second.Green()), mixed(first.Blue(), second.Blue())};
}

/// The ground of lists, and the text on it; the same faded; and what stands out.
inline wxColour ListGround() { return wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX); }
inline wxColour ListText() { return wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOXTEXT); }
inline wxColour FadedText() { return Between(ListText(), ListGround(), 0.6); }
inline wxColour FaintLine() { return Between(ListText(), ListGround(), 0.2); }
inline wxColour StandingOut() { return wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT); }

/// What small signs are measured in: a pixel at 100 %, more where the screen or the font is larger.
inline int Unit(const wxWindow& window) {
  constexpr int usualTextHeight = 15;
  return std::max({1, window.FromDIP(1), window.GetCharHeight() / usualTextHeight});
}

}  // namespace oravin::gui
