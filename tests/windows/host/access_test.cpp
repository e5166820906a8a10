// Levels and their passwords, and what the settings keep of them.
#include "host/shell/access.h"

#include <gtest/gtest.h>

#include "com/kit/failure.h"
#include "host/shell/password_hash.h"
#include "test_settings.h"

namespace telvar::tests {

using host::Access;
using host::AccessLevel;
using win::Settings;

// Of "p\u00e4ssword", by another implementation of PBKDF2-HMAC-SHA-256.
constexpr const wchar_t* known = L"pbkdf2-sha256:1000:000102030405060708090a0b0c0d0e0f:"
                                 L"4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c";

TEST(PasswordHash, IsTheStandardsForAKnownSalt) {
    EXPECT_TRUE(host::passwordMatches(L"p\u00e4ssword", known));
    EXPECT_FALSE(host::passwordMatches(L"password", known));
}

TEST(PasswordHash, IsAnotherOneEachTimeAndMatchesItsPasswordOnly) {
    const std::wstring one = host::passwordHash(L"Secret 1");
    const std::wstring other = host::passwordHash(L"Secret 1");
    EXPECT_NE(one, other);
    EXPECT_EQ(one.find(L"Secret"), std::wstring::npos);
    EXPECT_TRUE(host::passwordMatches(L"Secret 1", one));
    EXPECT_TRUE(host::passwordMatches(L"Secret 1", other));
    EXPECT_FALSE(host::passwordMatches(L"secret 1", one));
    EXPECT_FALSE(host::passwordMatches(L"Secret 1 ", one));
    EXPECT_FALSE(host::passwordMatches(L"", one));
}

TEST(PasswordHash, ADamagedOneMatchesNothing) {
    for (const wchar_t* damaged :
         {L"", L":::", L"Secret 1", L"pbkdf2-sha256:1000:000102030405060708090a0b0c0d0e0f",
          L"pbkdf2-sha256:0:000102030405060708090a0b0c0d0e0f:"
          L"4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c",
          L"pbkdf2-sha256:99999999999999999999999:000102030405060708090a0b0c0d0e0f:"
          L"4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c",
          L"pbkdf2-sha256:1e3:000102030405060708090a0b0c0d0e0f:"
          L"4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c",
          L"pbkdf2-sha256:1000::4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c",
          L"pbkdf2-sha256:1000:000102030405060708090a0b0c0d0e0f:"
          L"4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c00",
          L"pbkdf2-sha256:1000:000102030405060708090a0b0c0d0e0g:"
          L"4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c",
          L"pbkdf2-sha1:1000:000102030405060708090a0b0c0d0e0f:"
          L"4f4679c14a9afebafc9166fb29e2ec9d8ac43fa1a8f0db3eb20940bdde2c4a3c"}) {
        EXPECT_FALSE(host::passwordMatches(L"p\u00e4ssword", damaged)) << testing::PrintToString(damaged);
    }
}

struct Levels : testing::Test {
    TestSettings own;
    win::Settings settings{TestSettings::key};
};

TEST_F(Levels, WithoutPasswordsEverybodyMayDoEverything) {
    const Access access(settings);
    EXPECT_EQ(access.level(), AccessLevel::Everything);
    EXPECT_FALSE(access.needsPassword(AccessLevel::EditChannels));
    EXPECT_TRUE(access.admits(AccessLevel::Everything, L""));
}

TEST_F(Levels, TheProgramBeginsAtTheHighestLevelWithoutAPassword) {
    Access(settings).setPassword(AccessLevel::Everything, L"chief");
    EXPECT_EQ(Access(settings).level(), AccessLevel::EditChannels);
    Access(settings).setPassword(AccessLevel::EditChannels, L"operator");
    EXPECT_EQ(Access(settings).level(), AccessLevel::View);
}

TEST_F(Levels, EachHasItsOwnPassword) {
    Access access(settings);
    access.setPassword(AccessLevel::Everything, L"chief");
    access.setPassword(AccessLevel::EditChannels, L"operator");
    EXPECT_TRUE(access.admits(AccessLevel::EditChannels, L"operator"));
    EXPECT_FALSE(access.admits(AccessLevel::EditChannels, L"chief"));
    EXPECT_TRUE(access.admits(AccessLevel::Everything, L"chief"));
    EXPECT_FALSE(access.admits(AccessLevel::Everything, L""));
    EXPECT_TRUE(access.admits(AccessLevel::View, L"anything"));
}

TEST_F(Levels, AnEmptyPasswordTakesItAway) {
    Access access(settings);
    access.setPassword(AccessLevel::EditChannels, L"operator");
    access.setPassword(AccessLevel::EditChannels, L"");
    EXPECT_FALSE(access.needsPassword(AccessLevel::EditChannels));
    access.setPassword(AccessLevel::EditChannels, L"");
    EXPECT_TRUE(access.admits(AccessLevel::EditChannels, L""));
}

TEST_F(Levels, ADamagedSettingOpensNothing) {
    settings.setNumber(L"Password5", 7);
    const Access access(settings);
    EXPECT_TRUE(access.needsPassword(AccessLevel::Everything));
    EXPECT_FALSE(access.admits(AccessLevel::Everything, L""));
    EXPECT_EQ(access.level(), AccessLevel::EditChannels);
}

TEST_F(Levels, TheSettingsHoldNoPassword) {
    Access(settings).setPassword(AccessLevel::Everything, L"chief");
    const std::wstring kept = settings.text(L"Password5").value_or(L"");
    EXPECT_TRUE(kept.starts_with(L"pbkdf2-sha256:"));
    EXPECT_EQ(kept.find(L"chief"), std::wstring::npos);
}

TEST(ClosedSettings, APasswordThatCannotBeKeptIsAFailure) {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Telvar\\Gone");
    win::Settings gone(L"Software\\Telvar\\Gone");
    RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Telvar\\Gone");
    Access access(gone);
    EXPECT_THROW(access.setPassword(AccessLevel::Everything, L"chief"), com::ComFailure);
}

}  // namespace telvar::tests
