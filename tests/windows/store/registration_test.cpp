// What registering writes and unregistering takes back, for the machine and for one user. The registry's roots are
// exchanged for an empty key meanwhile, so that nothing else that runs is disturbed.
#include <map>
#include <string>

#include "VexloRadioLink.h"
#include "support/windows/command.h"
#include "win/registry.h"
#include "world.h"

namespace telvar::tests {
namespace {

using win::RegistryKey;

// Stands in for one of the roots as long as it lives.
class StandInRoot {
public:
    explicit StandInRoot(HKEY root) : root_(root) {
        RegDeleteTreeW(HKEY_CURRENT_USER, name);
        com::check(HRESULT_FROM_WIN32(static_cast<DWORD>(
            RegCreateKeyExW(HKEY_CURRENT_USER, name, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr))));
        com::check(HRESULT_FROM_WIN32(static_cast<DWORD>(RegOverridePredefKey(root_, key_))));
    }
    StandInRoot(const StandInRoot&) = delete;
    StandInRoot& operator=(const StandInRoot&) = delete;
    StandInRoot(StandInRoot&&) = delete;
    StandInRoot& operator=(StandInRoot&&) = delete;
    ~StandInRoot() {
        RegOverridePredefKey(root_, nullptr);
        RegCloseKey(key_);
        RegDeleteTreeW(HKEY_CURRENT_USER, name);
    }

    [[nodiscard]] std::wstring text(const std::wstring& path, const std::wstring& value = L"") const {
        const auto key = RegistryKey::root(key_).open(LR"(Software\Classes\)" + path);
        return key ? key->text(value).value_or(L"no value") : L"no key";
    }
    // Keys below Software\Classes, in all depths.
    [[nodiscard]] std::size_t keys() const { return keysBelow(key_, LR"(Software\Classes)"); }

private:
    static constexpr const wchar_t* name = LR"(Software\TelvarTest)";

    [[nodiscard]] static std::size_t keysBelow(HKEY parent, const wchar_t* path) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(parent, path, 0, KEY_READ, &key) != ERROR_SUCCESS) {
            return 0;
        }
        std::size_t count = 0;
        wchar_t below[256];
        for (DWORD at = 0;; ++at) {
            DWORD length = 256;
            if (RegEnumKeyExW(key, at, below, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
                break;
            }
            count += 1 + keysBelow(key, below);
        }
        RegCloseKey(key);
        return count;
    }

    HKEY root_;
    HKEY key_ = nullptr;
};

[[nodiscard]] std::wstring guidText(REFGUID id) {
    wchar_t text[40];
    StringFromGUID2(id, text, 40);
    return text;
}

struct Product {
    const char* file;
    const wchar_t* progId;
    GUID classId;
    GUID libraryId;
    GUID interfaceId;
};

// Shown in a test's name.
void PrintTo(const Product& product, std::ostream* out) { *out << product.file; }

class Registration : public testing::TestWithParam<Product> {
protected:
    static void expectRegistered(const StandInRoot& root) {
        const Product& product = GetParam();
        const std::wstring classKey = LR"(CLSID\)" + guidText(product.classId);
        const std::wstring progId = product.progId;
        EXPECT_EQ(root.text(classKey + LR"(\InprocServer32)"), builtFile(product.file));
        EXPECT_EQ(root.text(classKey + LR"(\InprocServer32)", L"ThreadingModel"), L"Apartment");
        EXPECT_EQ(root.text(classKey + LR"(\ProgID)"), progId + L".1");
        EXPECT_EQ(root.text(classKey + LR"(\VersionIndependentProgID)"), progId);
        EXPECT_EQ(root.text(classKey + LR"(\TypeLib)"), guidText(product.libraryId));
        EXPECT_EQ(root.text(progId + LR"(\CLSID)"), guidText(product.classId));
        EXPECT_EQ(root.text(progId + LR"(.1\CLSID)"), guidText(product.classId));
        const std::wstring libraryKey =
            LR"(TypeLib\)" + guidText(product.libraryId) + LR"(\1.0\0\win)" + std::to_wstring(sizeof(void*) * 8);
        EXPECT_EQ(root.text(libraryKey), builtFile(product.file));
        EXPECT_EQ(root.text(LR"(Interface\)" + guidText(product.interfaceId) + LR"(\TypeLib)"),
                  guidText(product.libraryId));
    }

    Apartment apartment;
    LoadedServer server{GetParam().file};
};

TEST_P(Registration, ForTheMachine) {
    const StandInRoot machine(HKEY_LOCAL_MACHINE);
    ASSERT_EQ(server.registerMachine(), S_OK);
    expectRegistered(machine);
    const auto keys = machine.keys();
    ASSERT_EQ(server.registerMachine(), S_OK);
    EXPECT_EQ(machine.keys(), keys);
    ASSERT_EQ(server.unregisterMachine(), S_OK);
    EXPECT_EQ(machine.keys(), 0U);
    EXPECT_EQ(server.unregisterMachine(), S_OK);
}

TEST_P(Registration, ForOneUser) {
    const StandInRoot user(HKEY_CURRENT_USER);
    ASSERT_EQ(server.install(true, L"user"), S_OK);
    expectRegistered(user);
    ASSERT_EQ(server.install(false, L"user"), S_OK);
    EXPECT_EQ(user.keys(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Servers, Registration,
    testing::Values(Product{"VexloDataStore.dll",
                            L"VexloDataStore.DataStore",
                            __uuidof(DataStore),
                            {0xF3E0D9AE, 0x42AA, 0x4538, {0xAC, 0x3F, 0x07, 0x7A, 0xFC, 0xC7, 0xED, 0x93}},
                            __uuidof(IDataStore)},
                    Product{"VexloRadioLink.dll",
                            L"VexloRadioLink.RadioLink",
                            __uuidof(RadioLink),
                            {0x3C495DFF, 0xA5E1, 0x4102, {0xBF, 0x62, 0x59, 0x3E, 0x08, 0xFA, 0xD1, 0xBD}},
                            __uuidof(IRadioLink)}),
    [](const auto& product) { return std::string(product.param.file).substr(0, 14); });

}  // namespace
}  // namespace telvar::tests
