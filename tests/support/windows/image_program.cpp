#include "support/image_program.h"

#include <windows.h>
// Needs the header above.
#include <gdiplus.h>

namespace oravin::test {

namespace {

/// Windows' own reader of images, switched on for as long as this record lives.
struct Reader {
  Reader() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() { Gdiplus::GdiplusShutdown(token); }

  ULONG_PTR token = 0;
};

std::string FormatOf(Gdiplus::Bitmap& bitmap) {
  GUID format{};
  bitmap.GetRawFormat(&format);
  if (IsEqualGUID(format, Gdiplus::ImageFormatPNG)) return "PNG";
  return IsEqualGUID(format, Gdiplus::ImageFormatBMP) ? "BMP3" : "another";
}

}  // namespace

std::string Identified(const std::filesystem::path& image) {
  const Reader reader;
  Gdiplus::Bitmap bitmap(image.c_str());
  if (bitmap.GetLastStatus() != Gdiplus::Ok) return {};
  return FormatOf(bitmap) + " " + std::to_string(bitmap.GetWidth()) + " " + std::to_string(bitmap.GetHeight());
}

Bytes ShownPixels(const std::filesystem::path& image) {
  const Reader reader;
  Gdiplus::Bitmap bitmap(image.c_str());
  Gdiplus::BitmapData data{};
  const Gdiplus::Rect all(0, 0, static_cast<INT>(bitmap.GetWidth()), static_cast<INT>(bitmap.GetHeight()));
  if (bitmap.LockBits(&all, Gdiplus::ImageLockModeRead, PixelFormat24bppRGB, &data) != Gdiplus::Ok) return {};
  Bytes pixels;
  for (UINT y = 0; y < data.Height; ++y) {
    const auto* row = static_cast<const std::uint8_t*>(data.Scan0) + static_cast<std::ptrdiff_t>(y) * data.Stride;
    for (UINT x = 0; x < data.Width; ++x) pixels.insert(pixels.end(), {row[3 * x + 2], row[3 * x + 1], row[3 * x]});
  }
  bitmap.UnlockBits(&data);
  return pixels;
}

}  // namespace oravin::test
