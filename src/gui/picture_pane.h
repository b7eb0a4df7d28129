#pragma once

#include <wx/bitmap.h>
#include <wx/scrolwin.h>

#include "gui/pages.h"
#include "tabs/texture_preview.h"

namespace oravin::gui {

/// A picture of the core as one of the toolkit's.
/// @param scale pixels of the screen to one of the window
wxBitmap BitmapOf(const Picture& picture, double scale);

/// Shows a texture's picture on a checked ground: as large as there is room, in its proportions, or pixel by pixel and
/// scrolled where that is larger than the pane. Nothing is smoothed.
class PicturePane : public wxScrolledCanvas {
 public:
  /// @param record must outlive the window
  PicturePane(wxWindow* parent, const TexturePreview& record);

  /// Shows the record's picture, if that or the size it is to have has changed.
  void ShowRecord();

  /// Where the picture is, in the window's own coordinates; an empty rectangle without one.
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
  wxBitmap drawn_;  ///< the picture in the size that it had last
};

/// Makes the controls of a preview and lays them out below each other: what it shows, the picture, and how.
/// @param name of its record; its controls' names begin with it
/// @param chain whether there may be several images to choose from
wxSizer* NewPreview(wxWindow* parent, const Surroundings& surroundings, const std::string& name, TexturePreview& record,
                    bool chain);

}  // namespace oravin::gui
