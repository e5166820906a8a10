// Keys and values of the registry, and the settings over them.
#include "win/registry.h"

#include <gtest/gtest.h>

#include "win/failure.h"
#include "win/settings.h"

namespace telvar::win {
namespace {

constexpr wchar_t path[] = LR"(Software\Telvar\RegistryTest)";

class Registry : public testing::Test {
protected:
    Registry() { user.removeTree(path); }
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;
    Registry(Registry&&) = delete;
    Registry& operator=(Registry&&) = delete;
    ~Registry() override { user.removeTree(path); }

    const RegistryKey user = RegistryKey::root(HKEY_CURRENT_USER);
};

TEST_F(Registry, AnswersWhatWasWritten) {
    const RegistryKey key = user.create(path);
    key.set(L"", L"the default");
    key.set(L"Text", L"K\u00FCste");
    key.set(L"Empty", L"");
    key.set(L"Number", -7);
    key.set(L"List", std::vector<std::wstring>{L"one", L"two"});
    EXPECT_EQ(key.text(L""), L"the default");
    EXPECT_EQ(key.text(L"Text"), L"K\u00FCste");
    EXPECT_EQ(key.text(L"Empty"), L"");
    EXPECT_EQ(key.number(L"Number"), -7);
    EXPECT_EQ(key.list(L"List"), (std::vector<std::wstring>{L"one", L"two"}));
}

TEST_F(Registry, AMissingValueAndOneOfAnotherKindAreNothing) {
    const RegistryKey key = user.create(path);
    key.set(L"Number", 7);
    key.set(L"Text", L"seven");
    EXPECT_FALSE(key.text(L"Number"));
    EXPECT_FALSE(key.list(L"Text"));
    EXPECT_FALSE(key.number(L"Text"));
    EXPECT_FALSE(key.text(L"Missing"));
    EXPECT_TRUE(key.has(L"Number"));
    EXPECT_FALSE(key.has(L"Missing"));
}

TEST_F(Registry, ATextThatSomebodyWroteWithoutItsZeroIsReadWhole) {
    const RegistryKey key = user.create(path);
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path, L"Bare", REG_SZ, L"abc", 3 * sizeof(wchar_t)), ERROR_SUCCESS);
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path, L"List", REG_MULTI_SZ, L"abc\0de", 6 * sizeof(wchar_t)),
              ERROR_SUCCESS);
    EXPECT_EQ(key.text(L"Bare"), L"abc");
    EXPECT_EQ(key.list(L"List"), (std::vector<std::wstring>{L"abc", L"de"}));
}

TEST_F(Registry, WhatIsMissingIsRemovedAlready) {
    const RegistryKey key = user.create(path);
    EXPECT_NO_THROW(key.remove(L"Missing"));
    EXPECT_NO_THROW(key.removeTree(L"Missing"));
    EXPECT_NO_THROW(key.removeIfEmpty(L"Missing"));
    EXPECT_FALSE(key.open(L"Missing"));
}

TEST_F(Registry, OnlyAnEmptyKeyGoesByItself) {
    const RegistryKey key = user.create(path);
    (void)key.create(LR"(Below\Deeper)");
    key.removeIfEmpty(L"Below");
    EXPECT_TRUE(key.open(L"Below"));
    key.removeIfEmpty(LR"(Below\Deeper)");
    key.removeIfEmpty(L"Below");
    EXPECT_FALSE(key.open(L"Below"));
    (void)key.create(LR"(Below\Deeper)");
    key.removeTree(L"Below");
    EXPECT_FALSE(key.open(L"Below"));
}

TEST_F(Registry, ARefusalIsTheSystems) {
    (void)user.create(path);
    const auto reading = user.open(path, KEY_READ);
    ASSERT_TRUE(reading);
    try {
        reading->set(L"Text", L"x");
        FAIL() << "written";
    } catch (const SystemFailure& failure) {
        EXPECT_EQ(failure.code(), DWORD{ERROR_ACCESS_DENIED});
    }
}

TEST_F(Registry, SettingsAreRememberedAndForgotten) {
    Settings settings(path);
    settings.setNumber(L"Number", 5);
    settings.setList(L"List", {L"a", L"b"});
    EXPECT_TRUE(settings.setText(L"Text", L"t"));
    const Settings again(path);
    EXPECT_EQ(again.number(L"Number"), 5);
    EXPECT_EQ(again.list(L"List"), (std::vector<std::wstring>{L"a", L"b"}));
    EXPECT_EQ(again.text(L"Text"), L"t");
    EXPECT_TRUE(settings.remove(L"Text"));
    EXPECT_TRUE(settings.remove(L"Text")) << "gone already";
    EXPECT_FALSE(again.has(L"Text"));
    EXPECT_EQ(again.list(L"Missing"), std::vector<std::wstring>());
}

TEST_F(Registry, SettingsThatCannotBeOpenedAreEmptyAndTakeNothing) {
    Settings settings(std::wstring(300, L'x'));
    settings.setNumber(L"Number", 5);
    EXPECT_FALSE(settings.setText(L"Text", L"t"));
    EXPECT_FALSE(settings.remove(L"Text"));
    EXPECT_FALSE(settings.has(L"Number"));
    EXPECT_FALSE(settings.number(L"Number"));
    EXPECT_EQ(settings.list(L"List"), std::vector<std::wstring>());
}

}  // namespace
}  // namespace telvar::win
