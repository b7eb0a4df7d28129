// Pictures as files.
//
// A PNG file is a signature of 8 bytes and chunks: the length of the data (4 bytes, the highest first), four letters,
// the data, and a check sum over letters and data. IHDR tells width, height, 8 bits a part, colour type 2 (red, green,
// blue); IDAT holds the rows, the highest first, each behind a byte 0 for "no filter", in a zlib stream; IEND ends it.
// The zlib stream is made of blocks that are stored as they are, at most 65535 bytes each.
#include <algorithm>
#include <array>
#include <string_view>

#include "textures/picture.h"

namespace oravin {

namespace {

constexpr std::size_t largestBlock = 65535;
constexpr std::array<std::uint8_t, 8> signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

void AppendBig32(Bytes& bytes, std::uint32_t value) {
  bytes.resize(bytes.size() + 4);
  PutBigEndian32(&bytes[bytes.size() - 4], value);
}

std::uint32_t Crc32(std::span<const std::uint8_t> bytes) {
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const std::uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~sum;
}

std::uint32_t Adler32(std::span<const std::uint8_t> bytes) {
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  for (const std::uint8_t byte : bytes) {
    a = (a + byte) % 65521;
    b = (b + a) % 65521;
  }
  return b << 16U | a;
}

void AppendChunk(Bytes& file, std::string_view letters, std::span<const std::uint8_t> data) {
  AppendBig32(file, static_cast<std::uint32_t>(data.size()));
  const std::size_t begin = file.size();
  file.insert(file.end(), letters.begin(), letters.end());
  file.insert(file.end(), data.begin(), data.end());
  AppendBig32(file, Crc32(std::span(file).subspan(begin)));
}

Bytes StoredStream(const Bytes& data) {
  Bytes stream = {0x78, 0x01};
  for (std::size_t at = 0; at < data.size(); at += largestBlock) {
    const std::size_t count = std::min(largestBlock, data.size() - at);
    stream.push_back(at + count == data.size() ? 1 : 0);
    for (const std::size_t value : {count, ~count}) {
      stream.push_back(static_cast<std::uint8_t>(value & 255U));
      stream.push_back(static_cast<std::uint8_t>(value >> 8U & 255U));
    }
    const auto from = data.begin() + static_cast<std::ptrdiff_t>(at);
    stream.insert(stream.end(), from, from + static_cast<std::ptrdiff_t>(count));
  }
  AppendBig32(stream, Adler32(data));
  return stream;
}

}  // namespace

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
  const std::size_t row = static_cast<std::size_t>(picture.width) * 3;
  Bytes rows;
  for (std::size_t at = 0; at + row <= picture.rgb.size() && row > 0; at += row) {
    rows.push_back(0);
    const auto from = picture.rgb.begin() + static_cast<std::ptrdiff_t>(at);
    rows.insert(rows.end(), from, from + static_cast<std::ptrdiff_t>(row));
  }
  Bytes header;
  AppendBig32(header, static_cast<std::uint32_t>(picture.width));
  AppendBig32(header, static_cast<std::uint32_t>(picture.height));
  header.insert(header.end(), {8, 2, 0, 0, 0});
  Bytes file(signature.begin(), signature.end());
  AppendChunk(file, "IHDR", header);
  AppendChunk(file, "IDAT", StoredStream(rows));
  AppendChunk(file, "IEND", {});
  return file;
}

}  // namespace oravin
