// The template bitmaps that the program ships.

#include <set>

#include "demo/template_writer.h"
#include "support/cache_stage.h"
#include "support/image_program.h"
#include "textures/bitmap.h"

namespace oravin {
namespace {

const std::filesystem::path shipped = std::filesystem::path(ORAVIN_DATA) / "3D";

TEST(TheShippedTemplates, AreWhatTheirToolMakes) {
  for (const char* name : {"cube.bmp", "gcube.bmp"}) {
    EXPECT_TRUE(test::SameBytes(demo::BuildTemplate(), test::ReadFileAt(shipped / name)));
    EXPECT_EQ(test::Identified(shipped / name), "BMP3 16 16");
  }
}

TEST(TheShippedTemplates, HoldAColourCubeAndARampOfGreys) {
  const Bytes file = test::ReadFileAt(shipped / "cube.bmp");
  ASSERT_GE(file.size(), paletteHeaderSize);
  int colours = 0;
  const Palette palette = PaletteIn(std::span(file).first(paletteHeaderSize), colours);
  EXPECT_EQ(colours, 256);
  EXPECT_EQ(palette[0], (Rgb{0, 0, 0}));
  EXPECT_EQ(palette[215], (Rgb{255, 255, 255}));
  EXPECT_EQ(palette[180], (Rgb{255, 0, 0}));
  EXPECT_EQ(palette[30], (Rgb{0, 255, 0}));
  EXPECT_EQ(palette[5], (Rgb{0, 0, 255}));
  std::set<int> different;
  for (const Rgb& colour : palette) different.insert(colour.red << 16 | colour.green << 8 | colour.blue);
  EXPECT_GT(different.size(), 250U);
  for (std::size_t i = 217; i < 256; ++i) {
    EXPECT_GT(palette.at(i).red, palette.at(i - 1).red);
    EXPECT_EQ(palette.at(i).red, palette.at(i).blue);
  }
}

}  // namespace
}  // namespace oravin
