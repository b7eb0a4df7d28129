#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "models/attachments.h"

namespace oravin::test {

inline void AddWord(Bytes& bytes, std::uint32_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value & 255U));
  bytes.push_back(static_cast<std::uint8_t>(value >> 8U & 255U));
}

inline void AddChunkHeader(Bytes& model, std::uint32_t type, std::uint32_t size, std::uint32_t count) {
  AddWord(model, type);
  AddWord(model, size);
  AddWord(model, count);
}

/// A chunk of one element, whose bytes are all `fill`.
inline void AddOther(Bytes& model, std::uint32_t type, std::uint32_t size, std::uint8_t fill = 0xA5) {
  AddChunkHeader(model, type, size, 1);
  model.insert(model.end(), size, fill);
}

/// Writes an attachment's fields into bytes that begin with its element, as far as there are any.
inline void PutElement(Bytes& bytes, std::size_t at, const ShpAttachment& attachment) {
  const auto put = [&](std::size_t offset, std::uint32_t value, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i) {
      if (at + offset + i < bytes.size()) {
        bytes[at + offset + i] = static_cast<std::uint8_t>(value >> (8 * i) & 255U);
      }
    }
  };
  put(0, attachment.kind, 2);
  put(4, static_cast<std::uint32_t>(attachment.x), 4);
  put(8, static_cast<std::uint32_t>(attachment.y), 4);
  put(12, static_cast<std::uint32_t>(attachment.z), 4);
  put(52, attachment.externalGunType, 2);
  put(100, attachment.gunType, 2);
}

/// A chunk of attachments; bytes that no field has are 0x5A. Their file positions are filled in.
inline void AddAttachments(Bytes& model, ShpAttachments& attachments, std::uint32_t size = 108) {
  AddChunkHeader(model, 9, size, static_cast<std::uint32_t>(attachments.size()));
  for (ShpAttachment& attachment : attachments) {
    attachment.filePosition = static_cast<std::int32_t>(model.size());
    Bytes element(size, 0x5A);
    PutElement(element, 0, attachment);
    model.insert(model.end(), element.begin(), element.end());
  }
}

/// A chunk of texture names, each in an element of `size` bytes and the rest of the element is unknown bytes.
inline void AddTextures(Bytes& model, const std::vector<std::string>& names, std::uint32_t size = 36) {
  AddChunkHeader(model, 6, size, static_cast<std::uint32_t>(names.size()));
  for (const std::string& name : names) {
    Bytes element(size, 0x77);
    std::copy(name.begin(), name.end(), element.begin());
    element.at(name.size()) = 0;
    model.insert(model.end(), element.begin(), element.end());
  }
}

/// The header chunk of 64 bytes, with the class byte at offset 26 of the file.
inline Bytes ModelHead(std::uint8_t classByte = 0) {
  Bytes model;
  AddOther(model, 1, 64, 0x11);
  model[26] = classByte;
  return model;
}

inline ShpAttachment Gun(std::int32_t x, std::int32_t y, std::int32_t z, std::uint16_t type = 1) {
  return {0, gunKind, x, y, z, type, 0};
}

inline ShpAttachment ExternalGun(std::int32_t x, std::int32_t y, std::int32_t z, std::uint16_t type = 0) {
  return {0, externalGunKind, x, y, z, 0, type};
}

inline ShpAttachment Missile(std::int32_t x, std::int32_t y, std::int32_t z) {
  return {0, missileKind, x, y, z, 64, 6};
}

/// A model with these attachments in one chunk; their file positions are filled in.
inline Bytes ModelWith(ShpAttachments& attachments, std::uint8_t classByte = 0) {
  Bytes model = ModelHead(classByte);
  AddTextures(model, {"hull"});
  AddAttachments(model, attachments);
  AddOther(model, 4, 28);
  return model;
}

}  // namespace oravin::test
