#include "installation/installation.h"

#include "files/look_up.h"
#include "files/path.h"

namespace oravin {

void SetGameFolder(Installation& installation, std::string_view folder) {
  installation.GamePath = AddBackslash(folder);
}

void SetProgramFolder(Installation& installation, std::string_view folder) {
  installation.ProgramPath = AddBackslash(folder);
}

Installation PlacesIn(std::string_view game, std::string_view program) {
  Installation places;
  SetGameFolder(places, game);
  SetProgramFolder(places, program);
  return places;
}

bool FeaturesEnabled(Files& files, const Installation& installation) {
  const std::string catalogue = installation.cataloguePath();
  return VisibleFileIsThere(files, catalogue) && LengthOrThrow(files, catalogue) > 0;
}

}  // namespace oravin
