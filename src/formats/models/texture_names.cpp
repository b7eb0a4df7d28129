#include "models/texture_names.h"

#include <algorithm>
#include <utility>

#include "base/file_error.h"
#include "base/text.h"
#include "files/look_up.h"

namespace oravin {

namespace {

void AddNames(ModelReader& reader, const ModelChunk& chunk, std::vector<std::string>& names) {
  // Elements of no size are all at one place and have one name.
  const std::uint32_t different = chunk.elementSize == 0 ? std::min(chunk.count, 1U) : chunk.count;
  for (std::uint32_t i = 0; i < different; ++i) {
    std::string name = NameAt(reader, chunk.elements + std::uint64_t{i} * chunk.elementSize);
    if (name.empty() || std::find(names.begin(), names.end(), name) != names.end()) continue;
    if (names.size() == mostTextureNames) {
      throw FileError("could not read", reader.path,
                      "it names more than " + std::to_string(mostTextureNames) + " textures", ErrorKind::tooMany);
    }
    names.push_back(std::move(name));
  }
}

}  // namespace

std::vector<std::string> TextureNamesOf(ModelReader& reader) {
  std::vector<std::string> names;
  while (const auto chunk = NextChunk(reader, textureNamesChunk)) AddNames(reader, *chunk, names);
  return names;
}

std::vector<std::string> ReadShpTextureNames(Files& files, const std::string& path) {
  const std::string place = Trim(path);
  RequireFile(files, place);
  ModelReader reader(files, place);
  return TextureNamesOf(reader);
}

}  // namespace oravin
