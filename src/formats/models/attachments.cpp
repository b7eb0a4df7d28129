#include "models/attachments.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

#include "base/text.h"
#include "files/file.h"
#include "files/look_up.h"

namespace oravin {

namespace {

/// A number of attachments has 16 bits.
constexpr std::uint32_t highestCount = 65535;

/// The part of an element that holds the six fields.
constexpr std::size_t fieldsSize = 102;

constexpr std::size_t kindAt = 0;
constexpr std::size_t xAt = 4;
constexpr std::size_t yAt = 8;
constexpr std::size_t zAt = 12;
constexpr std::size_t externalGunTypeAt = 52;
constexpr std::size_t gunTypeAt = 100;

/// A field of an element as far as the file has the element; 0 where it does not have the whole field.
std::uint16_t Field16(std::span<const std::uint8_t> element, std::size_t at) {
  if (at + 2 > element.size()) return 0;
  return static_cast<std::uint16_t>(element[at] + element[at + 1] * 256);
}

std::int32_t Field32(std::span<const std::uint8_t> element, std::size_t at) {
  return at + 4 > element.size() ? 0 : static_cast<std::int32_t>(LittleEndian32(&element[at]));
}

void PutField16(std::span<std::uint8_t> element, std::size_t at, std::uint16_t value) {
  if (at + 2 > element.size()) return;
  element[at] = static_cast<std::uint8_t>(value & 255U);
  element[at + 1] = static_cast<std::uint8_t>(value >> 8U);
}

void PutField32(std::span<std::uint8_t> element, std::size_t at, std::int32_t value) {
  if (at + 4 <= element.size()) PutLittleEndian32(&element[at], static_cast<std::uint32_t>(value));
}

/// Reads the element at `position`. The chunk's element size does not change where the fields are.
ShpAttachment AttachmentAt(ModelReader& reader, std::uint64_t position) {
  ShpAttachment attachment;
  if (position > std::numeric_limits<std::int32_t>::max()) return attachment;  // no record can hold such a place
  const auto element = BytesAt(reader, position, fieldsSize);
  attachment.filePosition = static_cast<std::int32_t>(position);
  attachment.kind = Field16(element, kindAt);
  attachment.x = Field32(element, xAt);
  attachment.y = Field32(element, yAt);
  attachment.z = Field32(element, zAt);
  attachment.externalGunType = Field16(element, externalGunTypeAt);
  attachment.gunType = Field16(element, gunTypeAt);
  return attachment;
}

void PutFields(std::span<std::uint8_t> element, const ShpAttachment& attachment) {
  PutField16(element, kindAt, attachment.kind);
  PutField32(element, xAt, attachment.x);
  PutField32(element, yAt, attachment.y);
  PutField32(element, zAt, attachment.z);
  PutField16(element, externalGunTypeAt, attachment.externalGunType);
  PutField16(element, gunTypeAt, attachment.gunType);
}

using Found = std::function<void(const ShpAttachment&, std::size_t room)>;

/// Calls `found` for each of the attachments that is an element of the file's own tables.
/// @param found is given the attachment and how many bytes of its fields its element and the file have room for
void FindElements(ModelReader& reader, std::span<const ShpAttachment> attachments, const Found& found) {
  std::vector<const ShpAttachment*> sorted;
  for (const ShpAttachment& attachment : attachments) {
    if (attachment.filePosition > 0) sorted.push_back(&attachment);
  }
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const ShpAttachment* a, const ShpAttachment* b) { return a->filePosition < b->filePosition; });
  const auto positionOf = [](const ShpAttachment* attachment) {
    return static_cast<std::uint64_t>(attachment->filePosition);
  };
  auto at = sorted.begin();
  while (at != sorted.end()) {
    const auto chunk = NextChunk(reader, attachmentsChunk);
    if (!chunk) return;
    at = std::find_if(at, sorted.end(), [&](const auto* item) { return positionOf(item) >= chunk->elements; });
    for (; at != sorted.end() && positionOf(*at) < EndOf(*chunk); ++at) {
      const std::uint64_t position = positionOf(*at);
      const bool elementBegins = (position - chunk->elements) % chunk->elementSize == 0;
      if (!elementBegins || position >= reader.length) continue;
      const std::uint64_t room = std::min<std::uint64_t>(chunk->elementSize, reader.length - position);
      found(**at, static_cast<std::size_t>(std::min<std::uint64_t>(room, fieldsSize)));
    }
  }
}

/// New bytes of an element.
struct Patch {
  std::uint64_t at = 0;
  Bytes bytes;
};

/// What has to be written so that the file holds these attachments; elements that hold them already need nothing.
std::vector<Patch> PatchesFor(ModelReader reader, std::span<const ShpAttachment> attachments) {
  std::vector<std::pair<const ShpAttachment*, std::size_t>> places;
  FindElements(reader, attachments,
               [&](const ShpAttachment& attachment, std::size_t room) { places.emplace_back(&attachment, room); });
  std::vector<Patch> patches;
  for (const auto& [attachment, room] : places) {
    Patch patch;
    patch.at = static_cast<std::uint64_t>(attachment->filePosition);
    const auto before = BytesAt(reader, patch.at, room);
    patch.bytes.assign(before.begin(), before.end());
    PutFields(patch.bytes, *attachment);
    if (!std::equal(before.begin(), before.end(), patch.bytes.begin())) patches.push_back(std::move(patch));
  }
  return patches;
}

/// @throws FileError of the kind `missing` where there is no model
ModelReader OpenModel(Files& files, const std::string& path) {
  std::string place = Trim(path);
  RequireFile(files, place);
  return {files, std::move(place)};
}

}  // namespace

ShpAttachments AttachmentsOf(ModelReader& reader) {
  ShpAttachments attachments;
  std::uint32_t count = 0;
  while (const auto chunk = NextChunk(reader, attachmentsChunk)) {
    for (std::uint32_t i = 0; i < chunk->count && attachments.size() < mostAttachments; ++i) {
      attachments.push_back(AttachmentAt(reader, chunk->elements + std::uint64_t{i} * chunk->elementSize));
    }
    count = std::min(count + chunk->count, highestCount);
  }
  attachments.resize(count);
  return attachments;
}

ShpAttachments ReadAttachments(Files& files, const std::string& path) {
  ModelReader reader = OpenModel(files, path);
  return AttachmentsOf(reader);
}

void PutAttachments(Files& files, const std::string& path, std::span<const ShpAttachment> attachments) {
  const std::vector<Patch> patches = PatchesFor(OpenModel(files, path), attachments);
  File file(files, Trim(path), OpenFor::changing);
  for (const Patch& patch : patches) Put(file, patch.at, patch.bytes);
  Flush(file);
}

bool CanPutAttachments(Files& files, const std::string& path, std::span<const ShpAttachment> attachments) {
  std::size_t roomy = 0;
  ModelReader reader = OpenModel(files, path);
  FindElements(reader, attachments,
               [&](const ShpAttachment&, std::size_t room) { roomy += room == fieldsSize ? 1U : 0U; });
  return roomy == attachments.size();
}

}  // namespace oravin
