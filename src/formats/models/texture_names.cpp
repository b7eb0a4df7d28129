#include "models/texture_names.h"

#include "base/text.h"

#include <algorithm>
#include <utility>

#include "desk/dialogs.h"
#include "desk/error_trap.h"
#include "files/look_up.h"

namespace oravin {

namespace {

void AddNames(ModelReader& reader, const ModelChunk& chunk, std::vector<std::string>& names) {
  // Elements of no size all stand at one place and bear one name.
  const std::uint32_t different = chunk.elementSize == 0 ? std::min(chunk.count, 1U) : chunk.count;
  for (std::uint32_t i = 0; i < different; ++i) {
    std::string name = NameAt(reader, chunk.elements + std::uint64_t{i} * chunk.elementSize);
    if (name.empty() || std::find(names.begin(), names.end(), name) != names.end()) continue;
    if (names.size() == mostTextureNames) {
      throw FileError("could not read", reader.path,
                      "it names more than " + std::to_string(mostTextureNames) + " textures");
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
  ModelReader reader(files, path);
  return TextureNamesOf(reader);
}

int GetShpTextureNames(Host& host, std::string& path, std::vector<std::string>& names) {
  TrimInPlace(path);
  if (!FileExists(host.files, path)) {
    Show(host, "Error - Path not found", Icon::exclamation, "ORAVIN");
    return 0;
  }
  return Trapped(host, "GetShpTextureNames", 0, [&] {
    std::vector<std::string> read = ReadShpTextureNames(host.files, path);
    if (read.empty()) return 0;
    names = std::move(read);
    return static_cast<int>(names.size());
  });
}

}  // namespace oravin
