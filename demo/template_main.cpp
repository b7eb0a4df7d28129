// oravin-templates FOLDER: writes cube.bmp and gcube.bmp, for data/3D.

#include <cstdio>
#include <exception>
#include <filesystem>

#include "demo/template_writer.h"

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
    return 2;
  }
  try {
    const std::filesystem::path folder = arguments[1];
    for (const char* name : {"cube.bmp", "gcube.bmp"}) {
      oravin::demo::WriteWholeFile(folder / name, oravin::demo::BuildTemplate());
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "oravin-templates: %s\n", error.what());
    return 1;
  }
}
