#include "tabs/texture_preview.h"

#include <algorithm>

#include "base/file_error.h"
#include "base/text.h"

namespace oravin {

TexturePreview NewTexturePreview() {
  TexturePreview preview;
  preview.cmdLargerImage = {"Larger", "Shows the next larger image of this texture", false};
  preview.cmdSmallerImage = {"Smaller", "Shows the next smaller image of this texture", false};
  preview.chkFitted = {"Fit to the pane", "Shows the picture as large as there is room", true, true};
  return preview;
}

void ShowNoTexture(TexturePreview& preview, const std::string& why) {
  preview.lblPreview.caption = why;
  preview.cmdLargerImage.enabled = false;
  preview.cmdSmallerImage.enabled = false;
  preview.picture.reset();
  preview.image = 0;
  preview.images = 0;
  ++preview.revision;
}

void ShowTexture(Host& host, TexturePreview& preview, const std::string& cachePath, const TcacheEntry& entry,
                 const std::string& templatePath, int image) {
  const std::string name = Trim(entry.name);
  const int images = VisibleImages(entry);
  const int shown = std::clamp(image, 0, std::max(0, images - 1));
  std::optional<Picture> picture;
  std::string why = "it cannot be shown";
  try {
    picture = TexturePicture(host.files, cachePath, entry, shown, TemplatePalette(host.files, templatePath));
  } catch (const FileError& error) {
    why = error.reason;  // a preview shows no box
  }
  if (!picture) return ShowNoTexture(preview, name + ": " + why);
  preview.lblPreview.caption = name + ", image " + std::to_string(shown + 1) + " of " + std::to_string(images) + ": " +
                               std::to_string(picture->width) + " x " + std::to_string(picture->height);
  preview.picture = std::move(picture);
  preview.image = shown;
  preview.images = images;
  preview.cmdLargerImage.enabled = shown > 0;
  preview.cmdSmallerImage.enabled = shown + 1 < images;
  ++preview.revision;
}

void ShowBitmap(Host& host, TexturePreview& preview, const std::string& path, const BmpInfo& info) {
  std::optional<Picture> picture;
  try {
    picture = BitmapPicture(host.files, path, info);
  } catch (const FileError&) {
    picture.reset();  // the import shows what is wrong with it
  }
  ShowNoTexture(preview, picture ? "" : "This bitmap cannot be shown.");
  preview.picture = std::move(picture);
}

}  // namespace oravin
