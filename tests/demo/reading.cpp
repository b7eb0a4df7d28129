#include "reading.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace oravin::demo::reading {

namespace {

void Require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(what);
}

std::size_t Byte(std::span<const std::uint8_t> bytes, std::size_t at) {
  Require(at < bytes.size(), "the bytes run out");
  return bytes[at];
}

struct Command {
  std::size_t bytes = 1, literals = 0, copy = 0, distance = 0;
  bool end = false;
};

// The command table, line by line.
Command ReadCommand(std::span<const std::uint8_t> in, std::size_t i) {
  const std::size_t b0 = Byte(in, i);
  if (b0 <= 0x7F) {
    const std::size_t b1 = Byte(in, i + 1);
    return {2, b0 & 3, ((b0 >> 2) & 7) + 3, ((b0 >> 5) & 3) * 256 + b1 + 1, false};
  }
  if (b0 <= 0xBF) {
    const std::size_t b1 = Byte(in, i + 1);
    const std::size_t b2 = Byte(in, i + 2);
    return {3, (b1 >> 6) & 3, (b0 & 0x3F) + 4, (b1 & 0x3F) * 256 + b2 + 1, false};
  }
  if (b0 <= 0xDF) {
    const std::size_t b1 = Byte(in, i + 1);
    const std::size_t b2 = Byte(in, i + 2);
    const std::size_t b3 = Byte(in, i + 3);
    return {4, b0 & 3, ((b0 >> 2) & 3) * 256 + b3 + 5, ((b0 >> 4) & 1) * 65536 + b1 * 256 + b2 + 1, false};
  }
  if (b0 <= 0xFB) return {1, ((b0 & 0x1F) + 1) * 4, 0, 0, false};
  return {1, b0 & 3, 0, 0, true};
}

void Count(const Command& command, Forms& forms) {
  if (command.end) ++forms.ends;
  if (!command.end && command.copy == 0) ++forms.literalRuns;
  if (command.copy == 0) return;
  if (command.bytes == 2) ++forms.shortCopies;
  if (command.bytes == 3) ++forms.mediumCopies;
  if (command.bytes == 4) ++forms.longCopies;
  ++forms.literalsOnCopies.at(command.literals);
  forms.farthest = std::max(forms.farthest, command.distance);
  forms.longest = std::max(forms.longest, command.copy);
  if (command.copy > command.distance) ++forms.overlapping;
}

}  // namespace

std::uint32_t Little16(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint32_t>(Byte(bytes, at) | Byte(bytes, at + 1) << 8);
}

std::uint32_t Little32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return Little16(bytes, at) | Little16(bytes, at + 2) << 16;
}

std::uint32_t Big32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint32_t>(Byte(bytes, at) << 24 | Byte(bytes, at + 1) << 16 | Byte(bytes, at + 2) << 8 |
                                    Byte(bytes, at + 3));
}

std::string TextAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  std::string text;
  for (; Byte(bytes, at) != 0; ++at) text += static_cast<char>(bytes[at]);
  return text;
}

Bytes FileBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  Require(file.good(), "a file is missing");
  return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::filesystem::path FreshPath(const std::string& name) {
  std::random_device chance;  // several processes of this test may run at once
  const std::string unique = std::to_string(chance()) + std::to_string(chance());
  return std::filesystem::temp_directory_path() / ("oravin_demo_test_" + name + "_" + unique);
}

std::map<std::string, Bytes> AllFiles(const std::filesystem::path& folder) {
  std::map<std::string, Bytes> files;
  for (const auto& item : std::filesystem::recursive_directory_iterator(folder)) {
    if (item.is_regular_file()) files[item.path().lexically_relative(folder).generic_string()] = FileBytes(item.path());
  }
  return files;
}

Bytes Decode(std::span<const std::uint8_t> entry, Forms* forms) {
  Require(Byte(entry, 0) == 0x10 && Byte(entry, 1) == 0xFB, "not a compressed entry");
  const std::size_t size = Byte(entry, 2) << 16 | Byte(entry, 3) << 8 | Byte(entry, 4);
  Bytes out;
  std::size_t i = 5;
  for (bool ended = false; !ended;) {
    const Command command = ReadCommand(entry, i);
    i += command.bytes;
    for (std::size_t k = 0; k < command.literals; ++k) out.push_back(static_cast<std::uint8_t>(Byte(entry, i + k)));
    i += command.literals;
    Require(command.distance <= out.size(), "a copy reaches before the start");
    for (std::size_t k = 0; k < command.copy; ++k) out.push_back(out[out.size() - command.distance]);
    if (forms != nullptr) Count(command, *forms);
    ended = command.end;
  }
  Require(i == entry.size(), "bytes follow the end command");
  Require(out.size() == size, "the declared size is wrong");
  return out;
}

std::vector<Entry> ReadTable(std::span<const std::uint8_t> archive) {
  Require(std::string(archive.begin(), archive.begin() + 4) == "BIGF", "no archive");
  Require(Big32(archive, 4) == archive.size(), "wrong archive size");
  std::vector<Entry> entries(Big32(archive, 8));
  std::size_t p = 16;
  for (Entry& entry : entries) {
    entry = {TextAt(archive, p + 8), Big32(archive, p), Big32(archive, p + 4)};
    p += 8 + entry.name.size() + 1;
    Require(entry.offset + entry.size <= archive.size(), "an entry lies outside");
  }
  Require(p == Big32(archive, 12), "wrong size of header and table");
  return entries;
}

std::vector<Chunk> WalkChunks(std::span<const std::uint8_t> model) {
  std::vector<Chunk> chunks;
  std::size_t p = 0;
  while (p < model.size()) {
    const Chunk chunk{Little16(model, p), Little16(model, p + 2), Little16(model, p + 4), p + 6};
    p = chunk.elements + std::size_t{chunk.elementSize} * chunk.count;
    chunks.push_back(chunk);
  }
  Require(p == model.size(), "the last chunk does not end at the file's end");
  return chunks;
}

}  // namespace oravin::demo::reading
