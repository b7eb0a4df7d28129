#pragma once

#include <optional>
#include <string>

#include "desk/controls.h"
#include "desk/host.h"
#include "textures/bitmap.h"
#include "textures/picture.h"

namespace oravin {

/// The pane next to a list of textures that shows one of them.
struct TexturePreview {
  Label lblPreview;  ///< which texture and mipmap level it is, or why there is no picture
  Button cmdLargerImage;
  Button cmdSmallerImage;
  CheckBox chkFitted;  ///< the picture fills the pane; otherwise it has its own size

  std::optional<Picture> picture;
  int image = 0;          ///< the mipmap level, from 0, the largest
  int images = 0;         ///< the number of levels
  unsigned revision = 0;  ///< counts the changes of the picture
};

TexturePreview NewTexturePreview();

/// Shows a mipmap level of a texture, or the nearest one that it has.
/// @param cachePath the cache with the texture's data
/// @param templatePath the bitmap whose palette an 8-bit texture is shown in
void ShowTexture(Host& host, TexturePreview& preview, const std::string& cachePath, const TcacheEntry& entry,
                 const std::string& templatePath, int image);

/// Shows a bitmap that is to be imported.
void ShowBitmap(Host& host, TexturePreview& preview, const std::string& path, const BmpInfo& info);

/// Shows no texture, and says why.
void ShowNoTexture(TexturePreview& preview, const std::string& why);

}  // namespace oravin
