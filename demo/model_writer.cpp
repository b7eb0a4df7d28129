// A model is a list of chunks from offset 0 to the end of the file. All numbers are little-endian.
//
//   0  type (16 bits)
//   2  size of one element (16 bits)
//   4  number of elements (16 bits)
//   6  the elements
//
// Chunks written here:
//
//   type 1  header, one element of 64 bytes: version (4), name (16), class byte (1; offset 26 of the file), ...
//   type 5  start of a level of detail, one element of 16 bytes: level, distance, vertices, faces
//   type 2  vertices, 20 bytes each: x, y, z (32 bits), normal (3 x 16 bits), flags (16 bits)
//   type 3  faces, 16 bytes each: three vertex numbers (16 bits), texture, flags, three pairs of texture coordinates
//   type 4  bounding boxes, 28 bytes each
//   type 6  texture names, 36 bytes each: zero-terminated name (32), flags (4)
//   type 9  weapon attachments, 108 bytes each:
//             0 kind (16 bits), 4 x, 8 y, 12 z (32 bits), 16 orientation (9 x 32 bits, 65536 is one),
//             52 external gun type (16 bits), 54 turret data, 100 gun type (16 bits), 102 its range
#include "demo/model_writer.h"

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>

#include "demo/random.h"

namespace oravin::demo {

namespace {

constexpr std::uint32_t kVertexSize = 20;
constexpr std::uint32_t kFaceSize = 16;
constexpr std::uint32_t kTextureElement = 36;
constexpr std::uint32_t kAttachmentElement = 108;

std::uint32_t Unsigned(std::int32_t value) { return static_cast<std::uint32_t>(value); }

std::size_t Count(int value) { return static_cast<std::size_t>(value); }

void PutChunkHeader(Bytes& out, std::uint32_t type, std::uint32_t size, std::size_t count) {
  if (count > 0xFFFF) throw std::length_error("too many elements for a chunk of a model");
  PutLittle16(out, type);
  PutLittle16(out, size);
  PutLittle16(out, static_cast<std::uint32_t>(count));
}

void PutHeader(Bytes& out, const ModelOptions& options, int radius) {
  PutChunkHeader(out, 1, 64, 1);
  const std::size_t start = out.size();
  PutLittle32(out, 0x00010003);
  PutField(out, options.name.substr(0, 15), 16);
  out.push_back(options.classByte);
  out.push_back(0);
  PutLittle16(out, 3);  // levels of detail
  PutLittle32(out, Unsigned(radius));
  PutLittle32(out, Unsigned(radius * 37));  // mass
  for (int i = 0; i < 3; ++i) PutLittle32(out, Unsigned(radius / (i + 1)));
  out.resize(start + 64);
}

// The hull: rings of vertices along the z axis with a smooth radius profile and small irregularities.
struct Hull {
  int rings, segments;
  int radius, length;
  std::array<int, 8> profile;  // radius along the hull, in 1/256
};

Hull ShapeHull(Random& random, bool capital) {
  Hull hull{};
  hull.radius = capital ? Between(random, 6000, 16000) : Between(random, 400, 900);
  hull.length = hull.radius * Between(random, 2, 5);
  for (int& p : hull.profile) p = Between(random, 90, 256);
  hull.profile.front() = 20;
  hull.profile.back() = Between(random, 60, 140);
  return hull;
}

int ProfileAt(const Hull& hull, int ring) {
  const int scaled = ring * 7 * 256 / std::max(hull.rings - 1, 1);
  const auto i = static_cast<std::size_t>(std::min(scaled / 256, 6));
  const int part = scaled - static_cast<int>(i) * 256;
  return (hull.profile[i] * (256 - part) + hull.profile[i + 1] * part) / 256;
}

// A point of a ring with its irregularity; the other half of the hull mirrors it.
struct RoughPoint {
  int r, dz;
};

void PutVertices(Bytes& out, const Hull& hull, Random& random) {
  PutChunkHeader(out, 2, kVertexSize, Count(hull.rings) * Count(hull.segments));
  const int rough = hull.radius / 32 + 1;
  std::vector<RoughPoint> half(static_cast<std::size_t>(hull.segments) / 2 + 1);
  for (int ring = 0; ring < hull.rings; ++ring) {
    const int radius = hull.radius * ProfileAt(hull, ring) / 256;
    const int z = ring * hull.length / std::max(hull.rings - 1, 1) - hull.length / 2;
    for (RoughPoint& point : half) {
      const bool moved = Below(random, 5) < 2;
      point = {radius + (moved ? Between(random, -rough, rough) : 0), moved ? Between(random, -rough, rough) : 0};
    }
    for (int segment = 0; segment < hull.segments; ++segment) {
      // Segments are numbered from the keel (-y) around through +x; those on the -x side mirror the others.
      const bool mirrored = 2 * segment > hull.segments;
      const int side = mirrored ? hull.segments - segment : segment;
      const RoughPoint& point = half[static_cast<std::size_t>(side)];
      const int angle = side * 1024 / hull.segments - 256;
      const int x = point.r * Cosine(angle) / 4096;
      PutLittle32(out, Unsigned(mirrored ? -x : x));
      PutLittle32(out, Unsigned(point.r * Sine(angle) / 8192));  // flatter than wide
      PutLittle32(out, Unsigned(z + point.dz));
      const int normal = Cosine(angle) / 128 * 128;
      PutLittle16(out, Unsigned(mirrored ? -normal : normal));
      PutLittle16(out, Unsigned(Sine(angle) / 128 * 128));
      PutLittle16(out, Unsigned(point.dz * 2048 / rough / 512 * 512));
      PutLittle16(out, ring % 5 == 0 ? 1 : 0);
    }
  }
}

void PutFaces(Bytes& out, const Hull& hull, std::size_t textures, Random& random) {
  const int bands = hull.rings - 1;
  PutChunkHeader(out, 3, kFaceSize, 2 * Count(bands) * Count(hull.segments));
  for (int ring = 0; ring < bands; ++ring) {
    const std::uint32_t texture = textures == 0 ? 0 : Below(random, static_cast<std::uint32_t>(textures));
    const int stretch = Between(random, 0, 5);
    for (int segment = 0; segment < hull.segments; ++segment) {
      const int next = (segment + 1) % hull.segments;
      const int a = ring * hull.segments + segment;
      const int b = ring * hull.segments + next;
      for (const auto& corners :
           {std::array{a, b, a + hull.segments}, std::array{b, b + hull.segments, a + hull.segments}}) {
        for (const int corner : corners) PutLittle16(out, Unsigned(corner));
        PutLittle16(out, texture);
        PutLittle16(out, Below(random, 8) == 0 ? 0x21 : 0x01);
        for (const int corner : corners) {
          out.push_back(static_cast<std::uint8_t>((corner % hull.segments) * 255 / hull.segments));
          out.push_back(static_cast<std::uint8_t>((corner / hull.segments) * 23 + stretch));
        }
      }
    }
  }
}

void PutLevel(Bytes& out, Hull hull, int level, int bytes, std::size_t textures, Random& random) {
  // Each quad of the grid adds one vertex and two faces.
  const int vertices = std::max(bytes / static_cast<int>(kVertexSize + 2 * kFaceSize), 24);
  hull.segments = vertices > 1500 ? 36 : vertices > 300 ? 20 : 8;
  hull.rings = std::max(vertices / hull.segments, 3);
  PutChunkHeader(out, 5, 16, 1);
  PutLittle32(out, Unsigned(level));
  PutLittle32(out, Unsigned(hull.radius * (level + 1) * 12));
  PutLittle32(out, Unsigned(hull.rings * hull.segments));
  PutLittle32(out, Unsigned(2 * (hull.rings - 1) * hull.segments));
  PutVertices(out, hull, random);
  PutFaces(out, hull, textures, random);
}

void PutBoxes(Bytes& out, const Hull& hull, Random& random) {
  const int boxes = Between(random, 6, 14);
  PutChunkHeader(out, 4, 28, static_cast<std::size_t>(boxes));
  for (int i = 0; i < boxes; ++i) {
    PutLittle32(out, Unsigned(i));
    for (int side = 0; side < 6; ++side) PutLittle32(out, Unsigned(Between(random, -hull.radius, hull.radius)));
  }
}

void PutTextureNames(Bytes& out, std::span<const std::string> names) {
  PutChunkHeader(out, 6, kTextureElement, names.size());
  for (const std::string& name : names) {
    PutField(out, name, 32);
    PutLittle32(out, 0x11);
  }
}

void PutAttachments(Bytes& out, std::span<const ModelAttachment> attachments) {
  PutChunkHeader(out, 9, kAttachmentElement, attachments.size());
  for (const ModelAttachment& a : attachments) {
    const std::size_t start = out.size();
    PutLittle16(out, Unsigned(a.kind));
    PutLittle16(out, 0);
    for (const std::int32_t v : {a.x, a.y, a.z}) PutLittle32(out, Unsigned(v));
    for (int i = 0; i < 9; ++i) PutLittle32(out, i % 4 == 0 ? 65536 : 0);
    PutLittle16(out, Unsigned(a.externalGun));
    PutLittle16(out, a.kind == kExternalGun ? 360 : 0);  // traverse of a turret in degrees
    PutLittle32(out, Unsigned(a.x < 0 ? -1 : 1));
    out.resize(start + 100);
    PutLittle16(out, Unsigned(a.gun));
    PutLittle16(out, 2200);
    PutLittle32(out, 0xFFFFFFFF);
  }
}

}  // namespace

Bytes BuildModel(const ModelOptions& options) {
  Random random{options.seed};
  const bool capital = (options.classByte & 1) != 0;
  const Hull hull = ShapeHull(random, capital);
  Bytes out;
  out.reserve(static_cast<std::size_t>(options.size) + 8192);
  PutHeader(out, options, hull.radius);
  PutLevel(out, hull, 0, options.size * 75 / 100, options.textures.size(), random);
  PutLevel(out, hull, 1, options.size * 18 / 100, options.textures.size(), random);
  PutLevel(out, hull, 2, options.size * 5 / 100, options.textures.size(), random);
  PutBoxes(out, hull, random);
  const std::span all(options.attachments);
  const std::size_t first = capital ? all.size() / 2 : all.size();
  if (!options.textures.empty()) PutTextureNames(out, options.textures);
  if (first > 0) PutAttachments(out, all.first(first));
  if (capital && !options.textures.empty()) {
    // The far model of a capital ship has a list of its own, which repeats the first texture.
    PutTextureNames(out, std::span(options.textures).first(1));
  }
  if (first < all.size()) PutAttachments(out, all.subspan(first));
  return out;
}

std::vector<ModelAttachment> ArmShip(std::uint64_t seed, std::uint8_t classByte) {
  Random random{seed ^ 0x57EA9045};
  std::vector<ModelAttachment> weapons;
  const auto pair = [&](ModelAttachment weapon) {
    weapons.push_back(weapon);
    weapon.x = -weapon.x + Between(random, -3, 3);
    weapons.push_back(weapon);
  };
  if ((classByte & 1) == 0) {
    for (int n = Between(random, 1, 3); n > 0; --n) {
      pair({kGun, 90 + 130 * n, Between(random, -60, 60), Between(random, 100, 500), 0, Between(random, 1, 11)});
    }
    for (int n = Between(random, 1, 4); n > 0; --n) {
      pair({kMissileLauncher, 150 + 110 * n, -80, Between(random, -80, 80), 0, 0});
    }
    if (Below(random, 4) == 0) weapons.push_back({kExternalGun, 0, 110, -320, Between(random, 0, 7), 0});
    return weapons;
  }
  constexpr std::array kTurretTypes{0, 1, 2, 3, 4, 5, 6, 7, 11};
  for (int n = Between(random, 4, 40); n > 0; --n) {
    const int type = kTurretTypes[Below(random, kTurretTypes.size())];
    pair({kExternalGun, Between(random, 600, 6000), Between(random, -2500, 2500), n * 700 - 14000, type, 0});
  }
  for (int n = Between(random, 1, 6); n > 0; --n) {
    pair({kGun, Between(random, 600, 6000), Between(random, -2000, 2000), n * 900, 0, Between(random, 12, 15)});
  }
  for (int n = Between(random, 0, 4); n > 0; --n) pair({kMissileLauncher, 400 * n, 900, 3000 + 100 * n, 0, 0});
  weapons.push_back({kGun, 0, -400, 9000, 0, 14 + static_cast<int>(Below(random, 2))});
  return weapons;
}

}  // namespace oravin::demo
