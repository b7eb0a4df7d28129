#include "models/weapons.h"

#include <array>

namespace oravin {

namespace {

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

template <std::size_t count>
std::string NameOf(const std::array<const char*, count>& names, int code, const char* otherwise) {
  const bool known = code >= 0 && static_cast<std::size_t>(code) < count;
  const char* name = known ? names.at(static_cast<std::size_t>(code)) : nullptr;
  return name == nullptr ? otherwise : name;
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

}  // namespace oravin
