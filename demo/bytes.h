// Appends numbers and text to byte arrays, and writes whole files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace oravin::demo {

using Bytes = std::vector<std::uint8_t>;

/// Append a number in the named byte order; higher bits of a wider value are dropped.
void PutLittle16(Bytes& bytes, std::uint32_t value);
void PutLittle32(Bytes& bytes, std::uint32_t value);
void PutBig32(Bytes& bytes, std::uint32_t value);
/// Appends a 32-bit IEEE float, little-endian.
void PutFloat(Bytes& bytes, float value);
/// Appends the characters of `text`, without a terminator.
void PutText(Bytes& bytes, std::string_view text);
/// Appends `text` in a field of `width` bytes, zero-padded; the text must be shorter than the field.
void PutField(Bytes& bytes, std::string_view text, std::size_t width);

/// The number in decimal, padded with zeros to `width` digits.
std::string Padded(int number, std::size_t width);

/// Overwrite four bytes at `offset`, which must be in range.
void SetLittle32(Bytes& bytes, std::size_t offset, std::uint32_t value);
void SetBig32(Bytes& bytes, std::size_t offset, std::uint32_t value);

/// Writes a whole file. An existing one is removed first, so that other hard links to it keep their content. Throws
/// std::runtime_error with the path.
void WriteWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
void WriteWholeFile(const std::filesystem::path& path, std::string_view text);

}  // namespace oravin::demo
