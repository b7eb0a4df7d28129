// The real registry, in a key that goes with the test.

#include "platform/registry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/own_machine.h"

namespace oravin::platform {
namespace {

struct Registry : testing::Test {
  static std::optional<std::string> Read(const std::string& key, const std::string& value) {
    return RegReadString(localMachine, key, value);
  }
  static bool Write(const std::string& key, const std::string& value, const std::string& text) {
    return RegWriteString(localMachine, key, value, text);
  }
  static void Set(const wchar_t* name, DWORD type, const void* bytes, DWORD size) {
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, L"Software\\Maker", name, type, bytes, size), ERROR_SUCCESS);
  }

  test::TemporaryFolder folder;
  test::OwnMachine own{folder};
};

TEST_F(Registry, WithoutAKeyThereIsNoValue) {
  EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt);
  EXPECT_TRUE(Write("Software\\Maker", "Other", "x"));
  EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt);
}

TEST_F(Registry, WhatWasWrittenIsRead) {
  EXPECT_TRUE(Write("Software\\Maker\\Product", "Path", "C:\\Games\\\"Star\"\\"));
  EXPECT_EQ(Read("Software\\Maker\\Product", "Path"), "C:\\Games\\\"Star\"\\");
  EXPECT_TRUE(Write("Software\\Maker\\Product", "Path", ""));
  EXPECT_EQ(Read("Software\\Maker\\Product", "Path"), "");
}

TEST_F(Registry, TheValueIsAPlainText) {
  EXPECT_TRUE(Write("Software\\Maker", "Path", "ab"));
  DWORD type = 0;
  DWORD size = 0;
  ASSERT_EQ(RegGetValueW(HKEY_LOCAL_MACHINE, L"Software\\Maker", L"Path", RRF_RT_ANY, &type, nullptr, &size),
            ERROR_SUCCESS);
  EXPECT_EQ(type, DWORD{REG_SZ});
  EXPECT_EQ(size, 6U);  // with the zero at its end
}

TEST_F(Registry, ABackslashAtTheKeysEndAndLetterCaseDoNotMatter) {
  EXPECT_TRUE(Write("Software\\Maker\\", "Path", "x"));
  EXPECT_EQ(Read("SOFTWARE\\maker", "PATH"), "x");
}

TEST_F(Registry, AnEmptyNameStandsForTheDefaultValue) {
  EXPECT_TRUE(Write("Software\\Maker", "", "default"));
  EXPECT_EQ(Read("Software\\Maker\\", ""), "default");
}

TEST_F(Registry, ATextWithoutAZeroAtItsEndIsReadToItsEnd) {
  EXPECT_TRUE(Write("Software\\Maker", "Other", "x"));
  Set(L"Path", REG_SZ, L"abc", 6);
  EXPECT_EQ(Read("Software\\Maker", "Path"), "abc");
}

TEST_F(Registry, AnotherKindOfValueIsNoText) {
  EXPECT_TRUE(Write("Software\\Maker", "Other", "x"));
  const DWORD number = 7;
  Set(L"Path", REG_DWORD, &number, sizeof number);
  EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt);
}

TEST_F(Registry, LettersAreKept) {
  EXPECT_TRUE(Write("Software\\Maker", "Path", "C:\\caf\xE9\\"));
  EXPECT_EQ(Read("Software\\Maker", "Path"), "C:\\caf\xE9\\");
}

TEST_F(Registry, AnotherRootHasNoValues) {
  EXPECT_TRUE(Write("Software\\Maker", "Path", "x"));
  EXPECT_EQ(RegReadString("HKEY_CURRENT_USER", "Software\\Maker", "Path"), std::nullopt);
  EXPECT_FALSE(RegWriteString("HKEY_CURRENT_USER", "Software\\Maker", "Path", "x"));
}

TEST_F(Registry, ARefusedKeyIsToldOf) {
  own.RefuseRegistry();
  EXPECT_FALSE(Write("Software\\Maker", "Path", "x"));
  EXPECT_EQ(Read("Software\\Maker", "Path"), std::nullopt);
}

}  // namespace
}  // namespace oravin::platform
