#include <string>
#include <vector>

#include "base/text.h"
#include "cli/commands.h"
#include "models/texture_names.h"

namespace oravin {

std::optional<Result> ListModelTextures(Session& session, const Values& values) {
  std::string path = values.at(0);
  std::vector<std::string> names;
  const int failuresBefore = session.console.failures;
  GetShpTextureNames(session.main.host, path, names);
  if (session.console.failures > failuresBefore) return std::nullopt;
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
