#include "actions/convert_mesh.h"
#include "base/text.h"
#include "cli/commands.h"
#include "files/path.h"

namespace oravin {

std::optional<Result> ConvertMesh(Session& session, const Values& values) {
  const std::string& source = values.at(0);
  const std::string destination = values.arguments.size() > 1 ? values.at(1) : ChangeExtension(source, ".shp");
  const Main& main = session.main;
  const auto code = ConvertMesh(session.main.host, main.installation, source, "", destination);
  if (!code || *code != 0) return std::nullopt;
  return Result{{{"action", "convert"}, {"source", ToUtf8(source)}, {"file", ToUtf8(destination)}},
                "Converted to " + ToUtf8(destination) + "\n"};
}

}  // namespace oravin
