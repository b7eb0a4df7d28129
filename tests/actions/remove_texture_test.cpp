#include "actions/remove_texture.h"

#include "support/cache_stage.h"
#include "textures/texture_cache.h"

namespace oravin {
namespace {

using test::Cache;
using test::CacheWith;
using test::LongAt;
using test::SetLong;

/// A ship that names some textures.
ShipRecord Ship(const std::vector<std::string>& textures) {
  ShipRecord ship;
  ship.ShipFile.Set("ship.shp");
  for (std::size_t i = 0; i < textures.size(); ++i) ship.Textures.at(i).Set(textures[i]);
  return ship;
}

struct TheRemoval : test::CacheStage {
  bool Remove(const Ships& removed, const Ships& remaining = {}) {
    return RemoveTexture(at.host, Path(), removed, remaining);
  }
  /// The names from slot 426 on.
  std::vector<std::string> UserNames() {
    const TcacheTable table = GetTcacheTable(at.host.files, Path());
    std::vector<std::string> names;
    for (std::size_t i = 426; i < table.size(); ++i) names.push_back(table[i].name);
    return names;
  }
  void ExpectRefused(const Bytes& cache) {
    Make(cache);
    at.desk.ExpectBox("Error - not a valid tcache file", "RemoveTexture()");
    EXPECT_FALSE(Remove({Ship({"one"})}));
    EXPECT_TRUE(at.desk.Done());
    EXPECT_TRUE(test::SameImage({{"tcachehw.dat", cache}}, test::ImageOf(folder.native)));
  }
};

/// The cache without one user slot, put together anew: entries and data of the later ones moved down.
Bytes Without(const Bytes& cache, int removed, std::uint32_t removedSize) {
  Bytes expected(cache.begin(), cache.begin() + 102252);
  const auto count = static_cast<int>(LongAt(cache, 4));
  for (int slot = 426; slot < count; ++slot) {
    if (slot == removed) continue;
    Bytes entry(cache.begin() + 12 + 240 * slot, cache.begin() + 12 + 240 * (slot + 1));
    if (slot > removed) SetLong(entry, 224, LongAt(entry, 224) - removedSize);
    expected.insert(expected.end(), entry.begin(), entry.end());
  }
  expected.resize(240012);
  const std::uint32_t gap = LongAt(cache, 12 + 240 * static_cast<std::size_t>(removed) + 224);
  expected.insert(expected.end(), cache.begin() + 240012, cache.begin() + gap);
  expected.insert(expected.end(), cache.begin() + gap + removedSize, cache.end());
  SetLong(expected, 0, 102);
  SetLong(expected, 4, static_cast<std::uint32_t>(count - 1));
  SetLong(expected, 8, static_cast<std::uint32_t>(expected.size()));
  return expected;
}

const std::vector<demo::CacheTexture> threeUsers = {{"one", 1, 8, 8, 1}, {"two", 2, 16, 8, 2}, {"three", 1, 4, 4, 2}};
constexpr std::uint32_t sizeOfTwo = (128 + 32) * 2;

TEST_F(TheRemoval, OfTheSecondOfThreeMovesTheThirdDownSlotAndData) {
  const Bytes before = CacheWith(threeUsers);
  Make(before);
  EXPECT_TRUE(Remove({Ship({"Two "})}));
  EXPECT_EQ(UserNames(), (std::vector<std::string>{"one", "three"}));
  const Bytes after = Now();
  EXPECT_EQ(LongAt(after, 102252 + 240 + 224), LongAt(after, 102252 + 224) + 64);
  EXPECT_TRUE(test::SameBytes(Without(before, 427, sizeOfTwo), after));
}

TEST_F(TheRemoval, LeavesTheFactoryTexturesByteForByte) {
  const Bytes before = CacheWith(threeUsers);
  Make(before);
  EXPECT_TRUE(Remove({Ship({"one", "two", "three", "t5", "t425"})}));
  const Bytes after = Now();
  const std::size_t end = 240012 + 426 * 20;
  ASSERT_EQ(after.size(), end);
  EXPECT_EQ(LongAt(after, 4), 426U);
  EXPECT_EQ(LongAt(after, 8), end);
  EXPECT_TRUE(std::equal(after.begin() + 12, after.begin() + 102252, before.begin() + 12));
  EXPECT_EQ(Bytes(after.begin() + 102252, after.begin() + 240012), Bytes(240012 - 102252));
  EXPECT_TRUE(std::equal(after.begin() + 240012, after.end(), before.begin() + 240012));
}

TEST_F(TheRemoval, TakesTheCompanionsToo) {
  Make(CacheWith({{"one", 1, 4, 4, 1}, {"gone", 1, 4, 4, 1}, {"Gun", 1, 4, 4, 1}, {"un", 1, 4, 4, 1}}));
  EXPECT_TRUE(Remove({Ship({"ONE"})}));
  EXPECT_EQ(UserNames(), (std::vector<std::string>{"Gun", "un"}));
}

TEST_F(TheRemoval, LooksAtAll21NamesOfAShip) {
  Make(CacheWith(threeUsers));
  ShipRecord ship;
  ship.Textures.at(20).Set("three");
  EXPECT_TRUE(Remove({ship}));
  EXPECT_EQ(UserNames(), (std::vector<std::string>{"one", "two"}));
}

TEST_F(TheRemoval, OfShipsWithoutTexturesKeepsAll) {
  const Bytes before = CacheWith({{"one", 1, 8, 8, 1}, {"g", 1, 8, 8, 1}});
  Make(before);
  EXPECT_TRUE(Remove({Ship({})}));
  EXPECT_TRUE(test::SameBytes(before, Now()));
  EXPECT_TRUE(Remove({}));
  EXPECT_TRUE(test::SameBytes(before, Now()));
}

TEST_F(TheRemoval, KeepsWhatARemainingShipNamesInEitherForm) {
  const std::vector<demo::CacheTexture> textures = {{"hull", 1, 4, 4, 1}, {"ghull", 1, 4, 4, 1}, {"own", 1, 4, 4, 1}};
  for (const char* name : {"HULL", "gHull"}) {
    Make(CacheWith(textures));
    EXPECT_TRUE(Remove({Ship({"hull", "own"})}, {Ship({name})}));
    EXPECT_EQ(UserNames(), (std::vector<std::string>{"hull", "ghull"})) << name;
  }
  Make(CacheWith(textures));
  EXPECT_TRUE(Remove({Ship({"ghull", "own"})}, {Ship({"hull"})}));
  EXPECT_EQ(UserNames(), (std::vector<std::string>{"hull", "ghull"}));
}

TEST_F(TheRemoval, OfAMissingCacheIsReported) {
  at.desk.ExpectBox("TCACHE not found!", "RemoveTexture()");
  EXPECT_FALSE(Remove({Ship({"one"})}));
}

TEST_F(TheRemoval, OfACacheWithABogusCountIsTheTablesBox) {
  for (const std::uint32_t count : {0U, 0xFFFFFFFFU, 1001U}) {
    Bytes cache = CacheWith(threeUsers);
    SetLong(cache, 4, count);
    Make(cache);
    at.desk.ExpectBox("Error - not a valid tcache file", "GetTcacheTable");
    EXPECT_FALSE(Remove({Ship({"one"})}));
    EXPECT_TRUE(at.desk.Done());
    EXPECT_TRUE(test::SameImage({{"tcachehw.dat", cache}}, test::ImageOf(folder.native)));
  }
}

TEST_F(TheRemoval, OfACacheThatIsNotWholeIsRefused) {
  for (const std::uint32_t count : {1U, 425U}) {
    Bytes cache = CacheWith(threeUsers);
    SetLong(cache, 4, count);
    ExpectRefused(cache);
  }
  for (const std::uint32_t end : {0U, 240011U, 0xFFFFFFFFU}) {
    Bytes cache = CacheWith(threeUsers);
    SetLong(cache, 8, end);
    ExpectRefused(cache);
  }
  for (const std::uint32_t offset : {0U, 240011U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    Bytes cache = CacheWith(threeUsers);
    SetLong(cache, 12 + 240 * 99 + 224, offset);
    ExpectRefused(cache);
  }
  Bytes truncated = Cache(426);
  truncated.pop_back();
  ExpectRefused(truncated);
}

TEST_F(TheRemoval, KeepsAUserTextureWhoseDataLieNowhereAsItIs) {
  Bytes cache = CacheWith(threeUsers);
  SetLong(cache, 12 + 240 * 427 + 224, 0x7FFFFFFF);
  Make(cache);
  EXPECT_TRUE(Remove({Ship({"one"})}));
  EXPECT_EQ(UserNames(), (std::vector<std::string>{"two", "three"}));
  const Bytes after = Now();
  EXPECT_EQ(LongAt(after, 102252 + 224), 0x7FFFFFFFU);
  EXPECT_EQ(LongAt(after, 102252 + 240 + 224), 240012U + 426 * 20);
  EXPECT_EQ(after.size(), 240012U + 426 * 20 + 20);
  EXPECT_EQ(Bytes(after.end() - 20, after.end()), test::Pattern(20, 428));
}

TEST_F(TheRemoval, OfACacheWhoseTexturesShareMoreDataThanItHasIsRefused) {
  Bytes cache = CacheWith(threeUsers);
  for (const std::size_t slot : {426U, 427U, 428U}) {
    SetLong(cache, 12 + 240 * slot, 1);
    SetLong(cache, 12 + 240 * slot + 64, 16);
    SetLong(cache, 12 + 240 * slot + 68, 16);
    SetLong(cache, 12 + 240 * slot + 116, 1);
    SetLong(cache, 12 + 240 * slot + 224, 240012 + 426 * 20);
  }
  Make(cache);
  ExpectRefused(cache);
}

TEST_F(TheRemoval, OfAFullCacheKeepsTheOthers) {
  const Bytes before = Cache(1000);
  Make(before);
  EXPECT_TRUE(Remove({Ship({"t700"})}));
  EXPECT_TRUE(test::SameBytes(Without(before, 700, 20), Now()));
}

TEST_F(TheRemoval, WritesATemporaryFileAndReplacesAnOldOne) {
  Make(CacheWith(threeUsers));
  Write("temp", test::Pattern(500000));
  EXPECT_TRUE(Remove({Ship({"two"})}));
  EXPECT_EQ(test::ImageOf(folder.native).size(), 1U);
  EXPECT_TRUE(test::SameBytes(Without(CacheWith(threeUsers), 427, sizeOfTwo), Now()));
}

TEST_F(TheRemoval, ThatFailsAnywhereLeavesTheOldCacheAndNothingElse) {
  const Bytes before = CacheWith(threeUsers);
  const Bytes after = Without(before, 427, sizeOfTwo);
  test::AtEachOperation(test::FaultKind::failure, [&](test::Fault& fault) {
    Make(before);
    test::ScriptedHost failing;
    failing.desk.AllowOthers([](const Message&) { return Answer::ok; });
    test::Watch(failing.host.files, fault);
    const bool removed = RemoveTexture(failing.host, Path(), {Ship({"two"})}, {});
    EXPECT_NE(removed, fault.happened);
    EXPECT_EQ(failing.desk.shown.size(), fault.happened ? 1U : 0U);
    EXPECT_TRUE(test::SameImage({{"tcachehw.dat", fault.happened ? before : after}}, test::ImageOf(folder.native)));
    EXPECT_EQ(failing.host.files.open, 0);
  });
}

TEST_F(TheRemoval, ThatIsStoppedAnywhereLeavesTheOldOrTheNewCache) {
  const Bytes before = CacheWith(threeUsers);
  const Bytes after = Without(before, 427, sizeOfTwo);
  test::AtEachOperation(test::FaultKind::stop, [&](test::Fault& fault) {
    Make(before);
    test::ScriptedHost stopping;
    test::Watch(stopping.host.files, fault);
    const bool stopped = test::Stopped([&] { RemoveTexture(stopping.host, Path(), {Ship({"two"})}, {}); });
    EXPECT_TRUE(test::SameBytes(stopped ? before : after, Now()));
    // The next one comes to its end whatever the stopped one left.
    test::ScriptedHost next;
    EXPECT_TRUE(RemoveTexture(next.host, Path(), {Ship({"two"})}, {}));
    EXPECT_TRUE(test::SameImage({{"tcachehw.dat", after}}, test::ImageOf(folder.native)));
  });
}

TEST_F(TheRemoval, CutShortIsErasedAndAnotherFileOfThatNameStays) {
  Make(Cache(426));
  const Bytes begun = Cache(426);
  for (const Bytes& unfinished : {Bytes(), Bytes(begun.begin(), begun.begin() + 300)}) {
    Write("temp", unfinished);
    EraseUnfinishedRebuild(at.host.files, Path());
    EXPECT_FALSE(exists(folder.Native("temp")));
  }
  for (const Bytes& other : {Bytes{102, 0, 0}, BytesOf("a note of the player's own")}) {
    Write("temp", other);
    EraseUnfinishedRebuild(at.host.files, Path());
    EXPECT_TRUE(test::SameBytes(other, test::ReadFileAt(folder.Native("temp"))));
  }
  std::filesystem::remove(folder.Native("temp"));
  EraseUnfinishedRebuild(at.host.files, Path());
}

}  // namespace
}  // namespace oravin
