// A settings key of the test's own, removed at its end. The simulated radio forgets its table with the program.
#pragma once

#include <windows.h>

#include <string>

namespace telvar::tests {

class TestSettings {
public:
    static constexpr wchar_t key[] = L"Software\\Telvar\\HostTest";

    TestSettings() {
        RegDeleteTreeW(HKEY_CURRENT_USER, key);
        keepRadioIn(L"");
    }
    TestSettings(const TestSettings&) = delete;
    TestSettings& operator=(const TestSettings&) = delete;
    TestSettings(TestSettings&&) = delete;
    TestSettings& operator=(TestSettings&&) = delete;
    ~TestSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, key); }

    static void keepRadioIn(const std::wstring& file) {
        RegSetKeyValueW(HKEY_CURRENT_USER, key, L"SimulatedRadioFile", REG_SZ, file.c_str(),
                        static_cast<DWORD>((file.size() + 1) * sizeof(wchar_t)));
    }
};

}  // namespace telvar::tests
