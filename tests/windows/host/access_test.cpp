// Levels and their passwords, and what the settings keep of them.
#include "desk/access.h"

#include <gtest/gtest.h>

#include "com/kit/failure.h"
#include "host/shell/password_hash.h"
#include "host/shell/registry_settings.h"
#include "test_settings.h"

namespace telvar::tests {

using desk::Access;
using desk::AccessLevel;

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
    host::RegistrySettings settings{TestSettings::key};
    const host::SystemPasswordHasher hasher;
};

TEST_F(Levels, WithoutPasswordsEverybodyMayDoEverything) {
    const Access access(settings, hasher);
    EXPECT_EQ(access.level(), AccessLevel::Everything);
    EXPECT_FALSE(access.needsPassword(AccessLevel::EditChannels));
    EXPECT_TRUE(access.admits(AccessLevel::Everything, ""));
}

TEST_F(Levels, TheProgramBeginsAtTheHighestLevelWithoutAPassword) {
    Access(settings, hasher).setPassword(AccessLevel::Everything, "chief");
    EXPECT_EQ(Access(settings, hasher).level(), AccessLevel::EditChannels);
    Access(settings, hasher).setPassword(AccessLevel::EditChannels, "operator");
    EXPECT_EQ(Access(settings, hasher).level(), AccessLevel::View);
}

TEST_F(Levels, EachHasItsOwnPassword) {
    Access access(settings, hasher);
    access.setPassword(AccessLevel::Everything, "chief");
    access.setPassword(AccessLevel::EditChannels, "operator");
    EXPECT_TRUE(access.admits(AccessLevel::EditChannels, "operator"));
    EXPECT_FALSE(access.admits(AccessLevel::EditChannels, "chief"));
    EXPECT_TRUE(access.admits(AccessLevel::Everything, "chief"));
    EXPECT_FALSE(access.admits(AccessLevel::Everything, ""));
    EXPECT_TRUE(access.admits(AccessLevel::View, "anything"));
}

TEST_F(Levels, AnEmptyPasswordTakesItAway) {
    Access access(settings, hasher);
    access.setPassword(AccessLevel::EditChannels, "operator");
    access.setPassword(AccessLevel::EditChannels, "");
    EXPECT_FALSE(access.needsPassword(AccessLevel::EditChannels));
    access.setPassword(AccessLevel::EditChannels, "");
    EXPECT_TRUE(access.admits(AccessLevel::EditChannels, ""));
}

TEST_F(Levels, ADamagedSettingOpensNothing) {
    settings.setNumber("Password5", 7);
    const Access access(settings, hasher);
    EXPECT_TRUE(access.needsPassword(AccessLevel::Everything));
    EXPECT_FALSE(access.admits(AccessLevel::Everything, ""));
    EXPECT_EQ(access.level(), AccessLevel::EditChannels);
}

TEST_F(Levels, TheSettingsHoldNoPassword) {
    Access(settings, hasher).setPassword(AccessLevel::Everything, "chief");
    const std::string kept = settings.text("Password5").value_or("");
    EXPECT_TRUE(kept.starts_with("pbkdf2-sha256:"));
    EXPECT_EQ(kept.find("chief"), std::string::npos);
}

TEST(ClosedSettings, APasswordThatCannotBeKeptIsAFailure) {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Telvar\\Gone");
    const host::SystemPasswordHasher hasher;
    host::RegistrySettings gone(L"Software\\Telvar\\Gone");
    RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Telvar\\Gone");
    Access access(gone, hasher);
    EXPECT_THROW(access.setPassword(AccessLevel::Everything, "chief"), base::Failure);
}

}  // namespace telvar::tests
