// A settings key of the test's own, removed at its end.
#pragma once

#include <windows.h>

namespace telvar::tests {

class TestSettings {
public:
    static constexpr wchar_t key[] = L"Software\\Telvar\\HostTest";

    TestSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, key); }
    TestSettings(const TestSettings&) = delete;
    TestSettings& operator=(const TestSettings&) = delete;
    TestSettings(TestSettings&&) = delete;
    TestSettings& operator=(TestSettings&&) = delete;
    ~TestSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, key); }
};

}  // namespace telvar::tests
