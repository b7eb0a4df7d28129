#include "models/texture_names.h"

#include <gtest/gtest.h>

#include <random>

#include "support/fault.h"
#include "support/folder_image.h"
#include "support/model_file.h"
#include "support/temporary_folder.h"
#include "support/thrown.h"

namespace oravin {
namespace {

using test::AddChunkHeader;
using test::AddOther;
using test::AddTextures;
using test::ModelHead;

using Names = std::vector<std::string>;

struct TextureNames : testing::Test {
  test::TemporaryFolder folder;
  Files files;
  std::string path = folder.Windows("model.shp");

  Names Read(const Bytes& model) {
    test::WriteFileAt(folder.Native("model.shp"), model);
    Names names = ReadShpTextureNames(files, path);
    EXPECT_TRUE(test::SameBytes(model, test::ReadFileAt(folder.Native("model.shp"))));
    return names;
  }
  /// The model must be refused for this reason.
  void ExpectRefused(const Bytes& model, const std::string& why, ErrorKind kind = ErrorKind::failed) {
    const auto error = test::Thrown([&] { Read(model); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->what(), "could not read " + path + ": " + why);
    EXPECT_EQ(error->kind, kind);
    EXPECT_TRUE(test::SameBytes(model, test::ReadFileAt(folder.Native("model.shp"))));
  }
};

Names Numbered(int count) {
  Names names;
  for (int i = 0; i < count; ++i) names.push_back("texture" + std::to_string(i));
  return names;
}

TEST_F(TextureNames, AreListedInTheOrderOfTheirFirstAppearance) {
  Bytes model = ModelHead();
  AddTextures(model, {"wing", "hull", "glass"});
  AddOther(model, 9, 108);
  EXPECT_EQ(Read(model), (Names{"wing", "hull", "glass"}));
}

TEST_F(TextureNames, OneThatTwoTablesNameIsListedOnceAtItsFirstPlace) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull", "wing"});
  AddOther(model, 3, 160);
  AddTextures(model, {"glass", "hull"});
  EXPECT_EQ(Read(model), (Names{"hull", "wing", "glass"}));
}

TEST_F(TextureNames, AModelWithoutATableYieldsNone) {
  Bytes model = ModelHead();
  AddOther(model, 9, 108);
  EXPECT_EQ(Read(model), Names());
}

TEST_F(TextureNames, AnEmptyModelYieldsNone) { EXPECT_EQ(Read({}), Names()); }

TEST_F(TextureNames, AnEmptyNameIsSkipped) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull", "", "wing", ""});
  EXPECT_EQ(Read(model), (Names{"hull", "wing"}));
}

TEST_F(TextureNames, ATableOfEmptyNamesAloneYieldsNone) {
  Bytes model = ModelHead();
  AddTextures(model, {"", ""});
  EXPECT_EQ(Read(model), Names());
}

TEST_F(TextureNames, ThatDifferInLetterCaseAreTwo) {
  Bytes model = ModelHead();
  AddTextures(model, {"Hull", "hull", "HULL", "Hull"});
  EXPECT_EQ(Read(model), (Names{"Hull", "hull", "HULL"}));
}

TEST_F(TextureNames, ThatDifferInSpacesAreDifferent) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull", " hull", "hull "});
  EXPECT_EQ(Read(model), (Names{"hull", " hull", "hull "}));
}

TEST_F(TextureNames, FiftyAreListed) {
  Bytes model = ModelHead();
  AddTextures(model, Numbered(50));
  AddTextures(model, {"texture49", "", "texture0"});
  EXPECT_EQ(Read(model), Numbered(50));
}

TEST_F(TextureNames, FiftyOneAreAnError) {
  Bytes model = ModelHead();
  AddTextures(model, Numbered(51));
  ExpectRefused(model, "it names more than 50 textures", ErrorKind::tooMany);
}

TEST_F(TextureNames, AMissingModelIsAnError) {
  EXPECT_EQ(test::KindThrown([&] { ReadShpTextureNames(files, path); }), ErrorKind::missing);
}

TEST_F(TextureNames, SpacesAroundThePathDoNotMatter) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull"});
  path = "  " + path + " ";
  EXPECT_EQ(Read(model), Names{"hull"});
}

TEST_F(TextureNames, ANameWithoutAnEndIsAnError) {
  Bytes model = ModelHead();
  AddChunkHeader(model, 6, 36, 1);
  const Bytes name = BytesOf("endless");
  model.insert(model.end(), name.begin(), name.end());
  ExpectRefused(model, "a texture's name in it has no end");
}

TEST_F(TextureNames, AVeryLongNameIsAnError) {
  Bytes model = ModelHead();
  AddChunkHeader(model, 6, 36, 1);
  model.insert(model.end(), 65535, 'a');
  model.push_back(0);
  EXPECT_EQ(Read(model), Names{std::string(65535, 'a')});
  model.insert(model.end() - 1, 'a');
  ExpectRefused(model, "a texture's name in it has no end");
}

TEST_F(TextureNames, ANameMayRunOnPastItsElement) {
  Bytes model = ModelHead();
  AddChunkHeader(model, 6, 4, 2);
  const Bytes all = BytesOf("longname");
  model.insert(model.end(), all.begin(), all.end());
  AddOther(model, 256, 0);  // its first byte is the zero that ends the names
  EXPECT_EQ(Read(model), (Names{"longname", "name"}));
}

TEST_F(TextureNames, ATableThatReachesPastTheEndIsAnError) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull"});
  model[model.size() - 36 - 2] = 2;  // one more than there are
  ExpectRefused(model, "a texture's name in it has no end");
}

TEST_F(TextureNames, AnotherChunkThatReachesPastTheEndEndsTheWalk) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull"});
  AddChunkHeader(model, 2, 65535, 65535);
  EXPECT_EQ(Read(model), Names{"hull"});
}

TEST_F(TextureNames, ElementsOfNoSizeHaveOneName) {
  Bytes model = ModelHead();
  AddChunkHeader(model, 6, 0, 65535);
  AddOther(model, 0x6161, 3, 0);  // "aa" and the element size's low byte
  EXPECT_EQ(Read(model), Names{"aa\x03"});
}

TEST_F(TextureNames, WalksThatHardlyAdvanceEnd) {
  Bytes model;
  while (model.size() < 400000) AddChunkHeader(model, 6, 0, 65535);
  model.push_back(0);
  // every name is the 6 that begins the next chunk's header
  EXPECT_EQ(Read(model), Names{"\x06"});
}

TEST_F(TextureNames, AFailingDiskIsAnError) {
  Bytes model = ModelHead();
  AddTextures(model, {"hull"});
  test::WriteFileAt(folder.Native("model.shp"), model);
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Files failing;
    test::Watch(failing, fault);
    Names read;
    const auto error = test::Thrown([&] { read = ReadShpTextureNames(failing, path); });
    EXPECT_EQ(error.has_value(), fault.happened);
    EXPECT_EQ(read, fault.happened ? Names() : Names{"hull"});
  });
}

/// The rule, walked in the plainest way; nothing for a model that is refused.
std::optional<Names> PlainNames(const Bytes& model) {
  Names names;
  std::uint64_t at = 0;
  const auto word = [&](std::uint64_t place) {
    return model[static_cast<std::size_t>(place)] + std::uint64_t{model[static_cast<std::size_t>(place) + 1]} * 256;
  };
  while (at + 6 <= model.size()) {
    const std::uint64_t type = word(at);
    const std::uint64_t size = word(at + 2);
    const std::uint64_t count = word(at + 4);
    at += 6;
    for (std::uint64_t k = 0; type == 6 && k < count; ++k) {
      std::string name;
      for (std::uint64_t i = at + k * size;; ++i) {
        if (i >= model.size()) return std::nullopt;
        if (model[static_cast<std::size_t>(i)] == 0) break;
        name += static_cast<char>(model[static_cast<std::size_t>(i)]);
      }
      if (name.empty() || std::find(names.begin(), names.end(), name) != names.end()) continue;
      if (names.size() == 50) return std::nullopt;
      names.push_back(name);
    }
    at += size * count;
  }
  return names;
}

TEST_F(TextureNames, OfHostileModelsAreThoseOfThePlainestReader) {
  std::mt19937 generator(64);
  const auto random = [&] { return static_cast<std::uint32_t>(generator()); };
  int refused = 0;
  int listed = 0;
  for (int run = 0; run < 4000; ++run) {
    SCOPED_TRACE(run);
    Bytes model;
    for (std::uint32_t chunks = random() % 8; chunks > 0; --chunks) {
      const std::uint32_t size = random() % 10 == 0 ? random() % 3000 : random() % 20;
      const std::uint32_t count = random() % 10 == 0 ? random() % 3000 : random() % 12;
      AddChunkHeader(model, random() % 3 == 0 ? 9 : 6, size, count);
      const std::uint32_t bytes = random() % 8 == 0 ? random() % 100 : std::min<std::uint32_t>(size * count, 3000);
      for (std::uint32_t i = 0; i < bytes; ++i) {
        model.push_back(random() % 3 == 0 ? std::uint8_t{0} : static_cast<std::uint8_t>('a' + random() % 3));
      }
    }
    const auto expected = PlainNames(model);
    test::WriteFileAt(folder.Native("model.shp"), model);
    Names read;
    const auto error = test::Thrown([&] { read = ReadShpTextureNames(files, path); });
    ASSERT_EQ(error.has_value(), !expected);
    ASSERT_EQ(read, expected.value_or(Names()));
    (expected ? listed : refused) += 1;
  }
  EXPECT_GT(refused, 300);
  EXPECT_GT(listed, 300);
}

}  // namespace
}  // namespace oravin
