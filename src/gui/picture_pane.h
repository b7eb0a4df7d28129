#pragma once

#include <wx/bitmap.h>
#include <wx/scrolwin.h>

#include "gui/pages.h"
#include "tabs/texture_preview.h"

namespace oravin::gui {

/// Converts a picture of the core to one of the toolkit.
/// @param scale screen pixels per window pixel
wxBitmap BitmapOf(const Picture& picture, double scale);

/// Shows a texture's picture on a chequered background: fitted to the pane in its proportions, or pixel by pixel with
/// scroll bars. No smoothing.
class PicturePane : public wxScrolledCanvas {
 public:
  /// @param record must outlive the window
  PicturePane(wxWindow* parent, const TexturePreview& record);

  /// Shows the record's picture, if it or its size has changed.
  void ShowRecord();

  /// The picture's rectangle in the window's coordinates; empty without one.
  [[nodiscard]] wxRect PictureRectangle() const;

 private:
  wxSize DoGetBestSize() const override;
  bool AcceptsFocus() const override;
  [[nodiscard]] wxSize PictureSize() const;
  void Arrange();
  void Paint();

  const TexturePreview& record_;
  unsigned shownRevision_ = 0;
  bool shownFitted_ = false;
  wxBitmap ground_;
  wxBitmap drawn_;  ///< the picture in the size drawn last
};

/// Makes the controls of a preview, from top to bottom: description, picture, view options.
/// @param name of its record; a prefix of its controls' names
/// @param chain true if there may be several mipmap levels
wxSizer* NewPreview(wxWindow* parent, const Surroundings& surroundings, const std::string& name, TexturePreview& record,
                    bool chain);

}  // namespace oravin::gui
