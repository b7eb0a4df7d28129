// Pictures as files.
#include <new>

#include "textures/picture.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace oravin {

Bytes BitmapFileOf(const Picture& picture) {
  const auto width = static_cast<std::size_t>(picture.width);
  const auto height = static_cast<std::size_t>(picture.height);
  const std::size_t row = (width * 3 + 3) / 4 * 4;
  Bytes file(colourHeaderSize + row * height);
  file[0] = 'B';
  file[1] = 'M';
  PutLittleEndian32(&file[2], static_cast<std::uint32_t>(file.size()));
  file[bitmapPixelsAt] = colourHeaderSize;
  file[bitmapInfoSizeAt] = 40;
  PutLittleEndian32(&file[bitmapWidthAt], static_cast<std::uint32_t>(width));
  PutLittleEndian32(&file[bitmapHeightAt], static_cast<std::uint32_t>(height));
  file[26] = 1;
  file[bitmapBitsAt] = 24;
  for (std::size_t y = 0; y < height; ++y) {
    const std::uint8_t* from = &picture.rgb[y * width * 3];
    std::uint8_t* to = &file[colourHeaderSize + (height - 1 - y) * row];
    for (std::size_t x = 0; x < width * 3; x += 3) {
      to[x] = from[x + 2];
      to[x + 1] = from[x + 1];
      to[x + 2] = from[x];
    }
  }
  return file;
}

Bytes PngFileOf(const Picture& picture) {
  Bytes file;
  const auto append = [](void* to, void* from, int count) {
    const auto* bytes = static_cast<const std::uint8_t*>(from);
    static_cast<Bytes*>(to)->assign(bytes, bytes + count);  // the whole file at once
  };
  if (stbi_write_png_to_func(append, &file, picture.width, picture.height, 3, picture.rgb.data(), 0) == 0) {
    throw std::bad_alloc();
  }
  return file;
}

}  // namespace oravin
