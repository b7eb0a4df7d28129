// Fuzzes the walk over a ship model's chunks: it must find the attachments and the texture names that a plain reader of
// the same bytes finds, end on every file, and write nowhere but into the elements of the file's own tables.

#include <algorithm>

#include "base/bytes.h"
#include "base/file_error.h"
#include "input_file.h"
#include "models/texture_names.h"
#include "models/weapons.h"

namespace {

using oravin::Bytes;
using oravin::ShpAttachment;
using oravin::ShpAttachments;

constexpr std::size_t longestName = 65535;

/// A little-endian number; 0 where the file does not have all of it.
std::uint32_t Number(const Bytes& file, std::uint64_t at, std::size_t width) {
  if (at + width > file.size()) return 0;
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = value * 256 + file[static_cast<std::size_t>(at) + i];
  return value;
}

ShpAttachment PlainAttachment(const Bytes& file, std::uint64_t at) {
  return {static_cast<std::int32_t>(at),
          static_cast<std::uint16_t>(Number(file, at, 2)),
          static_cast<std::int32_t>(Number(file, at + 4, 4)),
          static_cast<std::int32_t>(Number(file, at + 8, 4)),
          static_cast<std::int32_t>(Number(file, at + 12, 4)),
          static_cast<std::uint16_t>(Number(file, at + 100, 2)),
          static_cast<std::uint16_t>(Number(file, at + 52, 2))};
}

/// What the plainest walk finds.
struct Plain {
  ShpAttachments attachments;
  std::vector<std::string> names;
  bool namesRefused = false;
  std::vector<bool> inElements;  ///< for each byte: whether it belongs to an element of an attachment table
};

void TakeName(const Bytes& file, std::uint64_t at, Plain& plain) {
  const auto begin = file.begin() + static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(at, file.size()));
  const auto end = std::find(begin, file.end(), std::uint8_t{0});
  const std::string name(begin, end);
  plain.namesRefused = plain.namesRefused || end == file.end() || name.size() > longestName;
  if (name.empty() || std::find(plain.names.begin(), plain.names.end(), name) != plain.names.end()) return;
  plain.names.push_back(name);
  plain.namesRefused = plain.namesRefused || plain.names.size() > oravin::mostTextureNames;
}

Plain PlainWalk(const Bytes& file) {
  Plain plain;
  plain.inElements.resize(file.size());
  std::uint64_t at = 0;
  while (at + 6 <= file.size()) {
    const std::uint32_t type = Number(file, at, 2);
    const std::uint64_t size = Number(file, at + 2, 2);
    const std::uint64_t count = Number(file, at + 4, 2);
    at += 6;
    if (type == 9) {
      for (std::uint64_t i = 0; i < count && plain.attachments.size() < 65535; ++i) {
        const bool kept = plain.attachments.size() < oravin::mostAttachments;
        plain.attachments.push_back(kept ? PlainAttachment(file, at + i * size) : ShpAttachment());
      }
      for (std::uint64_t i = at; i < std::min<std::uint64_t>(at + size * count, file.size()); ++i) {
        plain.inElements[static_cast<std::size_t>(i)] = true;
      }
    }
    for (std::uint64_t i = 0; type == 6 && i < count && !plain.namesRefused; ++i) TakeName(file, at + i * size, plain);
    at += size * count;
  }
  return plain;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace oravin;
  const Bytes file(data, data + size);
  fuzz::WriteInput("model.shp", file);
  Files files;
  const std::string path = fuzz::Folder().windows + "model.shp";
  const Plain plain = PlainWalk(file);

  bool namesRefused = false;
  try {
    fuzz::Require(ReadShpTextureNames(files, path) == plain.names, "the plain reader finds the same names");
  } catch (const FileError&) {
    namesRefused = true;
  }
  fuzz::Require(namesRefused == plain.namesRefused, "names are refused exactly where the plain reader refuses them");

  // Whatever the file holds, its attachments can be read and written: a FileError here ends the process.
  ShpAttachments attachments = ReadAttachments(files, path);
  fuzz::Require(attachments == plain.attachments, "the plain reader finds the same attachments");
  ModelReader inMemory("model.shp", file);
  fuzz::Require(AttachmentsOf(inMemory) == attachments, "a model in memory has the same attachments");
  FindWeaponPairs(attachments);

  PutAttachments(files, path, attachments);
  fuzz::Require(fuzz::ReadInput("model.shp") == file, "written back unchanged they leave the file as it was");
  for (ShpAttachment& attachment : attachments) attachment = {attachment.filePosition, 0xABCD, -1, -2, -3, 0x1234, 7};
  PutAttachments(files, path, attachments);
  const Bytes changed = fuzz::ReadInput("model.shp");
  fuzz::Require(changed.size() == file.size(), "the file keeps its length");
  for (std::size_t i = 0; i < file.size(); ++i) {
    fuzz::Require(changed[i] == file[i] || plain.inElements[i], "nothing outside the elements is written");
  }
  return 0;
}
