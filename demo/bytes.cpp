#include "demo/bytes.h"

#include <bit>
#include <fstream>
#include <stdexcept>

namespace oravin::demo {

namespace {

std::uint8_t ByteOf(std::uint32_t value, int shift) { return static_cast<std::uint8_t>((value >> shift) & 0xFFU); }

}  // namespace

void PutLittle16(Bytes& bytes, std::uint32_t value) {
  bytes.push_back(ByteOf(value, 0));
  bytes.push_back(ByteOf(value, 8));
}

void PutLittle32(Bytes& bytes, std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) bytes.push_back(ByteOf(value, shift));
}

void PutBig32(Bytes& bytes, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(ByteOf(value, shift));
}

void PutFloat(Bytes& bytes, float value) { PutLittle32(bytes, std::bit_cast<std::uint32_t>(value)); }

void PutText(Bytes& bytes, std::string_view text) { bytes.insert(bytes.end(), text.begin(), text.end()); }

void PutField(Bytes& bytes, std::string_view text, std::size_t width) {
  if (text.size() >= width) throw std::length_error("text too long for its field: " + std::string(text));
  PutText(bytes, text);
  bytes.resize(bytes.size() + width - text.size());
}

std::string Padded(int number, std::size_t width) {
  std::string digits = std::to_string(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

void SetLittle32(Bytes& bytes, std::size_t offset, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) bytes.at(offset + static_cast<std::size_t>(i)) = ByteOf(value, 8 * i);
}

void SetBig32(Bytes& bytes, std::size_t offset, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) bytes.at(offset + static_cast<std::size_t>(i)) = ByteOf(value, 24 - 8 * i);
}

void WriteWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

void WriteWholeFile(const std::filesystem::path& path, std::string_view text) {
  WriteWholeFile(path, std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

}  // namespace oravin::demo
