#include "demo/contents.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "demo/model_writer.h"
#include "demo/random.h"

namespace oravin::demo {

namespace {

// Speech and effects: swelling tones with noise, 8 bits at 11,025 Hz.
Bytes MakeSound(Random& random, std::size_t size) {
  Bytes out;
  out.reserve(size + 44);
  const auto length = static_cast<std::uint32_t>(size);
  PutText(out, "RIFF");
  PutLittle32(out, length + 36);
  PutText(out, "WAVEfmt ");
  PutLittle32(out, 16);
  PutLittle16(out, 1);
  PutLittle16(out, 1);
  PutLittle32(out, 11025);
  PutLittle32(out, 11025);
  PutLittle16(out, 1);
  PutLittle16(out, 8);
  PutText(out, "data");
  PutLittle32(out, length);
  const int step = Between(random, 9, 60);
  const int hiss = Between(random, 0, 10);
  for (std::size_t i = 0; i < size; ++i) {
    const int t = static_cast<int>(i);
    const int loud = std::abs(Sine(t / 24));
    const int tone = (Sine(t * step) + Sine(t * step * 3 / 2) / 2) / 64 * loud / 4096;
    const int noise = hiss == 0 || loud < 600 ? 0 : Between(random, -hiss, hiss);
    out.push_back(static_cast<std::uint8_t>(std::clamp(128 + tone + noise, 0, 255)));
  }
  return out;
}

Bytes MakeScript(Random& random, std::size_t size) {
  constexpr std::array<std::string_view, 24> kWords{"patrol",   "wing",  "escort",  "the",    "convoy", "at",
                                                    "waypoint", "until", "carrier", "under",  "attack", "jump",
                                                    "gate",     "alpha", "torpedo", "enemy",  "bravo",  "defend",
                                                    "return",   "to",    "base",    "leader", "clear",  "and"};
  std::string text = "; mission script\r\n";
  while (text.size() < size) {
    switch (Below(random, 4)) {
      case 0:
        text += "spawn ";
        break;
      case 1:
        text += "say \"";
        break;
      case 2:
        text += "goto " + std::to_string(Between(random, -90000, 90000));
        text += "," + std::to_string(
                          Between(random, 0, 9000));  // a separate statement: the operands of + have no fixed order
        break;
      default:
        text += "wait " + std::to_string(Between(random, 1, 240)) + " ";
        break;
    }
    for (int n = Between(random, 1, 9); n > 0; --n) {
      text += kWords[Below(random, kWords.size())];
      text += n > 1 ? " " : "\r\n";
    }
  }
  Bytes out;
  PutText(out, text);
  return out;
}

// A 16-bit picture: plain areas, gradients and dithering.
Bytes MakePicture(Random& random, std::size_t size) {
  Bytes out;
  out.reserve(size + 64);
  PutText(out, "PIC2");
  const std::uint32_t base = Below(random, 0xFFFF);
  while (out.size() < size) {
    const int run = Between(random, 4, 90);
    const std::uint32_t colour = (base + Below(random, 7) * 0x0841U) & 0xFFFFU;
    const auto kind = Below(random, 3);
    for (int i = 0; i < run; ++i) {
      std::uint32_t pixel = colour;
      if (kind == 1) pixel += static_cast<std::uint32_t>(i / 4) * 0x0020U;
      if (kind == 2) pixel ^= Below(random, 4);
      PutLittle16(out, pixel);
    }
  }
  out.resize(size);
  return out;
}

Bytes MakeTable(Random& random, std::size_t size) {
  Bytes out;
  out.reserve(size + 32);
  PutText(out, "TBL1");
  for (std::uint32_t row = 0; out.size() < size; ++row) {
    PutLittle32(out, row);
    PutLittle16(out, Below(random, 64));
    PutLittle16(out, 0);
    PutFloat(out, static_cast<float>(Below(random, 4000)) / 8.0F);
    PutLittle32(out, 0xFFFFFFFF);
  }
  out.resize(size);
  return out;
}

// Packed music and film: random bytes.
Bytes MakeMusic(Random& random, std::size_t size) {
  Bytes out;
  out.reserve(size + 8);
  PutText(out, "MUS0");
  while (out.size() < size) {
    const std::uint64_t bits = Next(random);
    PutLittle32(out, static_cast<std::uint32_t>(bits));
    PutLittle32(out, static_cast<std::uint32_t>(bits >> 32));
  }
  out.resize(size);
  return out;
}

}  // namespace

Bytes MakeContent(Content content, std::uint64_t seed, std::size_t size) {
  Random random{seed};
  size = std::max<std::size_t>(size, 16);
  switch (content) {
    case Content::kSound:
      return MakeSound(random, size);
    case Content::kScript:
      return MakeScript(random, size);
    case Content::kPicture:
      return MakePicture(random, size);
    case Content::kTable:
      return MakeTable(random, size);
    case Content::kProp: {
      ModelOptions options;
      options.seed = seed;
      options.name = "prop";
      options.size = static_cast<int>(size);
      options.textures = {"flare01"};
      return BuildModel(options);
    }
    case Content::kMusic:
      break;
  }
  return MakeMusic(random, size);
}

}  // namespace oravin::demo
