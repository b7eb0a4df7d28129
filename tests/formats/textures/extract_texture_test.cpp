#include "textures/extract_texture.h"

#include <gtest/gtest.h>

namespace oravin {
namespace {

TEST(ATemplate, IsTheCompanionsOnlyWhereItsTextureIsThere) {
  const TcacheTable table = {{"Reaper"}, {"greaper"}, {"gun"}, {"rock"}, {"rsquad"}, {" squad "}, {"g"}};
  EXPECT_EQ(TemplateFor(table, "greaper"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor(table, " GREAPER"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor(table, "rsquad"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor(table, "Reaper"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor(table, "gun"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor(table, "rock"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor({{"rock"}, {"OCK"}}, "rock"), "3D\\gcube.bmp");
  EXPECT_EQ(TemplateFor({{"greaper"}}, "greaper"), "3D\\cube.bmp");
  EXPECT_EQ(TemplateFor(table, ""), "3D\\cube.bmp");
}

TEST(ASafeFileName, IsTheNameWhereThatIsNoTrouble) {
  for (const char* name : {"reaper", "a b", "a.b", "it's", "x(1)"}) EXPECT_EQ(SafeFileName(name), name);
  EXPECT_EQ(SafeFileName(""), "_");
  EXPECT_EQ(SafeFileName("..."), "___");
  EXPECT_EQ(SafeFileName("a?<>|\"/\\:*"), "a_________");
  EXPECT_EQ(SafeFileName("LPT1"), "_LPT1");
  EXPECT_EQ(SafeFileName("nul.x"), "_nul.x");
  EXPECT_EQ(SafeFileName("end. ."), "end___");
  EXPECT_EQ(SafeFileName("\x01\x7F"), "__");
}

TEST(ASafeFileName, IsNeverThatOfADevice) {
  EXPECT_EQ(SafeFileName("nul .x"), "_nul .x");
  EXPECT_EQ(SafeFileName("conin$"), "_conin$");
  EXPECT_EQ(SafeFileName("CONOUT$.a"), "_CONOUT$.a");
  EXPECT_EQ(SafeFileName("aux .a.b"), "_aux .a.b");
  // A superscript digit is no plain character, so it is replaced.
  EXPECT_EQ(SafeFileName("com\xB9"), "com_");
}

}  // namespace
}  // namespace oravin
