#include "models/attachments.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/file.h"
#include "files/look_up.h"

namespace oravin {

namespace {

constexpr std::uint64_t classByteOffset = 26;
constexpr std::uint8_t cloaked = 2;

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

constexpr std::array<const char*, 16> gunNames = {"Unspecified Gun",
                                                  "Laser",
                                                  "Pulse Cannon",
                                                  "Messon Blaster",
                                                  "Proton Cannon",
                                                  "Gatling Lasers",
                                                  "Tachyon Gun",
                                                  "Neutron Particle Gun",
                                                  "Collapser Guns",
                                                  "Gattling Plasma Cannon",
                                                  "Vulcan Battery",
                                                  "Nova Cannon",
                                                  "Turret Flak Projectiles",
                                                  "Turret Lasers",
                                                  "Allied Huge Gun",
                                                  "Coalition Huge Gun"};

constexpr std::array<const char*, 12> externalGunNames = {"Pulse Cannon",
                                                          "Gatling Laser",
                                                          "Proton Cannon",
                                                          "Dbl. Barrel Lasers",
                                                          "Laser Cannon Type 1",
                                                          "Laser Cannon Type 2",
                                                          "Laser Cannon Type 3",
                                                          "Laser Cannon Type 4",
                                                          nullptr,
                                                          nullptr,
                                                          nullptr,
                                                          "Laser Cannon Type 5"};

template <std::size_t Count>
std::string NameOf(const std::array<const char*, Count>& names, int code, const char* otherwise) {
  const bool known = code >= 0 && static_cast<std::size_t>(code) < Count;
  const char* name = known ? names.at(static_cast<std::size_t>(code)) : nullptr;
  return name == nullptr ? otherwise : name;
}

bool ModelThere(Host& host, std::string& path) {
  TrimInPlace(path);
  if (FileExists(host.files, path)) return true;
  Show(host, "Error - Path not found", Icon::exclamation);
  return false;
}

bool Present(Host& host, std::string& path, const std::string& title) {
  TrimInPlace(path);
  if (FileExists(host.files, path)) return true;
  Show(host, "Error - file not found", Icon::exclamation, title);
  return false;
}

/// The class byte; nothing when the file cannot be read that far, which the queries pass over.
std::optional<std::uint8_t> ClassByte(Files& files, const std::string& path) {
  try {
    ModelReader reader(files, path);
    return ClassByteOf(reader);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

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

/// Reads the element at `position`. The fields stand where they stand, whatever size the chunk gives its elements.
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

/// Some bytes of an element as they are to be.
struct Patch {
  std::uint64_t at = 0;
  Bytes bytes;
};

/// What has to be written so that the file holds these attachments; elements that hold them already need nothing.
std::vector<Patch> PatchesFor(Files& files, const std::string& path, std::span<const ShpAttachment> attachments) {
  std::vector<std::pair<const ShpAttachment*, std::size_t>> places;
  ModelReader reader(files, path);
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

bool Pairable(const ShpAttachment& attachment) {
  return attachment.kind == missileKind || attachment.kind == externalGunKind || attachment.kind == gunKind;
}

std::int64_t Distance(std::int64_t a, std::int64_t b) { return a < b ? b - a : a - b; }

/// How far `b` is from mirroring `a`. 64 bits hold every sum of two 32-bit coordinates.
std::int64_t MirrorDistance(std::int64_t b, std::int64_t a) { return Distance(Distance(b, a), Distance(2 * a, 0)); }

bool AcceptPair(const ShpAttachment& a, const ShpAttachment& b) {
  if (MirrorDistance(b.x, a.x) >= 70 || Distance(b.z, a.z) >= 25) return false;
  return Distance(b.y, a.y) < 30 || MirrorDistance(b.y, a.y) < 30;
}

}  // namespace

ShpAttachments ReadAttachments(Files& files, const std::string& path) {
  ShpAttachments attachments;
  std::uint32_t count = 0;
  ModelReader reader(files, path);
  while (const auto chunk = NextChunk(reader, attachmentsChunk)) {
    for (std::uint32_t i = 0; i < chunk->count && attachments.size() < mostAttachments; ++i) {
      attachments.push_back(AttachmentAt(reader, chunk->elements + std::uint64_t{i} * chunk->elementSize));
    }
    count = std::min(count + chunk->count, highestCount);
  }
  attachments.resize(count);
  return attachments;
}

int GetAttachments(Host& host, std::string path, ShpAttachments& attachments) {
  if (!ModelThere(host, path)) return 0;
  try {
    ShpAttachments read = ReadAttachments(host.files, path);
    if (read.empty()) return 0;
    attachments = std::move(read);
    return static_cast<int>(attachments.size());
  } catch (const FileError&) {
    return 0;  // what the system cannot read is passed over, as in the queries of the class byte
  }
}

bool PutAttachments(Host& host, std::string path, std::span<const ShpAttachment> attachments) {
  if (!ModelThere(host, path)) return false;
  return Trap(host, "PutAttachments", [&] {
    const std::vector<Patch> patches = PatchesFor(host.files, path, attachments);
    File file(host.files, path, OpenFor::changing);
    for (const Patch& patch : patches) Put(file, patch.at, patch.bytes);
    Flush(file);
  });
}

bool CanPutAttachments(Files& files, const std::string& path, std::span<const ShpAttachment> attachments) {
  std::size_t roomy = 0;
  ModelReader reader(files, path);
  FindElements(reader, attachments,
               [&](const ShpAttachment&, std::size_t room) { roomy += room == fieldsSize ? 1U : 0U; });
  return roomy == attachments.size();
}

std::string GetGunName(int code) { return NameOf(gunNames, code, "Unknown Gun"); }

std::string GetExtGunName(int code) { return NameOf(externalGunNames, code, "Unknown"); }

WeaponPairs FindWeaponPairs(std::span<const ShpAttachment> attachments) {
  WeaponPairs pairs{std::vector<std::int32_t>(attachments.size(), -1), std::vector<bool>(attachments.size(), false)};
  for (std::size_t i = 0; i < attachments.size(); ++i) {
    if (pairs.paired[i] || !Pairable(attachments[i])) continue;
    for (std::size_t j = i + 1; j < attachments.size(); ++j) {
      if (pairs.paired[j] || attachments[j].kind != attachments[i].kind) continue;
      if (!AcceptPair(attachments[i], attachments[j])) continue;
      pairs.partner[i] = static_cast<std::int32_t>(j);
      pairs.partner[j] = static_cast<std::int32_t>(i);
      pairs.paired[i] = true;
      pairs.paired[j] = true;
      break;
    }
  }
  return pairs;
}

std::optional<std::uint8_t> ClassByteOf(ModelReader& reader) {
  const auto byte = BytesAt(reader, classByteOffset, 1);
  return byte.empty() ? std::nullopt : std::optional(byte[0]);
}

bool MarksCapitalShip(std::uint8_t classByte) { return classByte == 1 || classByte == 3 || classByte == 5; }

bool IsCapitalShip(Host& host, std::string path) {
  if (!Present(host, path, "IsCapitalShip")) return false;
  const auto byte = ClassByte(host.files, path);
  return byte && MarksCapitalShip(*byte);
}

bool IsCloaked(Host& host, std::string path) {
  if (!Present(host, path, "IsCloaked")) return false;
  return ClassByte(host.files, path) == cloaked;
}

void ToggleCloak(Host& host, std::string path) {
  if (!Present(host, path, "IsCloaked")) return;
  Trap(host, "ToggleCloak", [&] {
    File file(host.files, path, OpenFor::changing);
    std::array<std::uint8_t, 1> byte{};
    Get(file, classByteOffset, byte);
    byte[0] = byte[0] == cloaked ? std::uint8_t{0} : cloaked;
    Put(file, classByteOffset, byte);
  });
}

}  // namespace oravin
