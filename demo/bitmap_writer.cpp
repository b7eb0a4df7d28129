// A Windows bitmap, all numbers little-endian:
//
//   0   "BM"                       14  size of this header, 40      26  planes, 1 (16 bits)
//   2   size of the file           18  width                        28  bits per pixel (16 bits)
//   6   zero                       22  height                       30  compression, 0
//   10  offset of the pixels       34  size of the image, 0         38  resolution, colours: 4 x 32 bits
//   54  the palette of an 8-bit bitmap: 256 times blue, green, red, zero
#include "demo/bitmap_writer.h"

namespace oravin::demo {

namespace {

void PutHeader(Bytes& out, int width, int height, std::uint32_t bits, std::size_t start, std::size_t pixels) {
  PutText(out, "BM");
  PutLittle32(out, static_cast<std::uint32_t>(start + pixels));
  PutLittle32(out, 0);
  PutLittle32(out, static_cast<std::uint32_t>(start));
  PutLittle32(out, 40);
  PutLittle32(out, static_cast<std::uint32_t>(width));
  PutLittle32(out, static_cast<std::uint32_t>(height));
  PutLittle16(out, 1);
  PutLittle16(out, bits);
  PutLittle32(out, 0);
  PutLittle32(out, 0);
  for (const std::uint32_t v : {2835U, 2835U, 0U, 0U}) PutLittle32(out, v);
}

}  // namespace

Bytes BuildBitmap8(int width, int height, const Palette& palette, std::span<const std::uint8_t> pixels) {
  Bytes out;
  out.reserve(1078 + pixels.size());
  PutHeader(out, width, height, 8, 1078, pixels.size());
  for (const Colour& c : palette) {
    for (const std::uint8_t b : {c.blue, c.green, c.red, std::uint8_t{0}}) out.push_back(b);
  }
  out.insert(out.end(), pixels.begin(), pixels.end());
  return out;
}

Bytes BuildBitmap24(int width, int height, std::span<const std::uint8_t> pixels) {
  Bytes out;
  out.reserve(54 + pixels.size());
  PutHeader(out, width, height, 24, 54, pixels.size());
  out.insert(out.end(), pixels.begin(), pixels.end());
  return out;
}

}  // namespace oravin::demo
