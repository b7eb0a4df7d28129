#include <string>
#include <vector>

#include "base/text.h"
#include "cli/commands.h"
#include "desk/error_trap.h"
#include "models/texture_names.h"

namespace oravin {

std::optional<Result> ListModelTextures(Session& session, const Values& values) {
  const std::string path = Trim(values.at(0));
  std::vector<std::string> names;
  Host& host = session.main.host;
  if (!Trap(host, "GetShpTextureNames", [&] { names = ReadShpTextureNames(host.files, path); })) return std::nullopt;
  Json textures = Json::array();
  std::string text;
  for (const std::string& name : names) {
    textures.push_back(ToUtf8(name));
    text += ToUtf8(name) + "\n";
  }
  return Result{{{"file", ToUtf8(path)}, {"textures", textures}},
                names.empty() ? "The model names no texture.\n" : text};
}

}  // namespace oravin
