// What the servers write into the registry, for the machine and for one user, and that nothing of it stays.
#include "world.h"

#include <map>

#include "support/windows/command.h"
#include "win/registry.h"

namespace telvar::tests {
namespace {

using Keys = std::map<std::wstring, std::wstring>;  // key -> default value; "key@name" -> named value

void collect(const win::RegistryKey& key, const std::wstring& path, Keys& keys) {
    keys[path] = key.text(L"").value_or(L"");
    for (const wchar_t* name : {L"ThreadingModel", L"Version"}) {
        if (const auto text = key.text(name)) {
            keys[path + L"@" + name] = *text;
        }
    }
}

[[nodiscard]] Keys keysBelow(const win::RegistryKey& classes, const std::vector<std::wstring>& paths) {
    Keys keys;
    for (const auto& path : paths) {
        if (const auto key = classes.open(path, KEY_READ)) {
            collect(*key, path, keys);
        }
    }
    return keys;
}

[[nodiscard]] std::string text(const Keys& keys, const std::wstring& path) {
    const auto found = keys.find(path);
    return found == keys.end() ? "(none)" : win::narrow(found->second);
}

const std::wstring controlKey = L"CLSID\\{F906E526-0480-499C-B260-84D2478157DA}";
const std::wstring libraryKey = L"TypeLib\\{A12BBC0E-0CD7-495F-ABB7-1148CA4AA138}\\1.0";
const std::wstring interfaceKey = L"Interface\\{FE1048A3-2A34-4A5B-9090-B27F136FAF99}";
const std::wstring eventsKey = L"Interface\\{C1CF5FF8-ECBE-4E80-85E4-933455BC96EB}";
const std::wstring gridKey = L"Interface\\{15BDC875-1A19-4917-8A57-CF962EDD2648}";

const std::vector<std::wstring> everyKey{
    L"Tesslin.ChannelInformation",
    L"Tesslin.ChannelInformation\\CLSID",
    L"Tesslin.ChannelInformation\\CurVer",
    L"Tesslin.ChannelInformation.1",
    L"Tesslin.ChannelInformation.1\\CLSID",
    L"Tesslin.clsPLLSetting",
    L"Tesslin.clsPLLSetting.1",
    controlKey,
    controlKey + L"\\InprocServer32",
    controlKey + L"\\ProgID",
    controlKey + L"\\VersionIndependentProgID",
    controlKey + L"\\TypeLib",
    controlKey + L"\\Version",
    controlKey + L"\\Control",
    controlKey + L"\\Programmable",
    controlKey + L"\\MiscStatus",
    controlKey + L"\\MiscStatus\\1",
    controlKey + L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}",
    controlKey + L"\\Implemented Categories\\{40FC6ED5-2438-11CF-A3DB-080036F12502}",
    controlKey + L"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
    controlKey + L"\\Implemented Categories\\{7DD95802-9882-11CF-9FA9-00AA006C42C4}",
    L"CLSID\\{56CB81DB-3DA6-4C3E-BB92-A8A6A2EFA1AC}",
    L"CLSID\\{56CB81DB-3DA6-4C3E-BB92-A8A6A2EFA1AC}\\InprocServer32",
    libraryKey,
    libraryKey + L"\\0\\win64",
    libraryKey + L"\\FLAGS",
    libraryKey + L"\\HELPDIR",
    interfaceKey,
    interfaceKey + L"\\ProxyStubClsid32",
    interfaceKey + L"\\TypeLib",
    eventsKey,
    eventsKey + L"\\ProxyStubClsid32",
    gridKey,
};

struct Registration : testing::Test {
    [[nodiscard]] static win::RegistryKey classes(HKEY root) {
        return win::RegistryKey::root(root).create(L"Software\\Classes");
    }
    [[nodiscard]] Keys found(HKEY root) const { return keysBelow(classes(root), everyKey); }

    Apartment apartment;
    LoadedServer server{"Tesslin.ocx"};
};

void expectEverything(const Keys& keys) {
    for (const auto& key : everyKey) {
        EXPECT_TRUE(keys.contains(key)) << win::narrow(key);
    }
    const std::string file = win::narrow(builtFile("Tesslin.ocx"));
    EXPECT_EQ(text(keys, L"Tesslin.ChannelInformation\\CLSID"), "{F906E526-0480-499C-B260-84D2478157DA}");
    EXPECT_EQ(text(keys, L"Tesslin.ChannelInformation\\CurVer"), "Tesslin.ChannelInformation.1");
    EXPECT_EQ(text(keys, controlKey + L"\\InprocServer32"), file);
    EXPECT_EQ(text(keys, controlKey + L"\\InprocServer32@ThreadingModel"), "Apartment");
    EXPECT_EQ(text(keys, controlKey + L"\\ProgID"), "Tesslin.ChannelInformation.1");
    EXPECT_EQ(text(keys, controlKey + L"\\VersionIndependentProgID"), "Tesslin.ChannelInformation");
    EXPECT_EQ(text(keys, controlKey + L"\\TypeLib"), "{A12BBC0E-0CD7-495F-ABB7-1148CA4AA138}");
    EXPECT_EQ(text(keys, controlKey + L"\\Version"), "1.0");
    EXPECT_EQ(text(keys, controlKey + L"\\MiscStatus\\1"), "131473");
    EXPECT_EQ(text(keys, libraryKey + L"\\0\\win64"), file);
    EXPECT_EQ(text(keys, interfaceKey), "_ChannelInformation");
    EXPECT_EQ(text(keys, interfaceKey + L"\\ProxyStubClsid32"), "{00020424-0000-0000-C000-000000000046}");
    EXPECT_EQ(text(keys, interfaceKey + L"\\TypeLib"), "{A12BBC0E-0CD7-495F-ABB7-1148CA4AA138}");
    EXPECT_EQ(text(keys, interfaceKey + L"\\TypeLib@Version"), "1.0");
    EXPECT_EQ(text(keys, eventsKey + L"\\ProxyStubClsid32"), "{00020420-0000-0000-C000-000000000046}");
}

TEST_F(Registration, ForTheMachineIsCompleteAndLeavesNothing) {
    ASSERT_EQ(server.registerMachine(), S_OK);
    expectEverything(found(HKEY_LOCAL_MACHINE));
    EXPECT_TRUE(found(HKEY_CURRENT_USER).empty());
    ASSERT_EQ(server.registerMachine(), S_OK) << "registering again repairs";
    EXPECT_EQ(server.unregisterMachine(), S_OK);
    EXPECT_TRUE(found(HKEY_LOCAL_MACHINE).empty());
    EXPECT_EQ(server.unregisterMachine(), S_OK) << "nothing is left to remove";
}

TEST_F(Registration, ForOneUserIsCompleteAndLeavesNothing) {
    ASSERT_EQ(server.install(true, L"user"), S_OK);
    expectEverything(found(HKEY_CURRENT_USER));
    EXPECT_TRUE(found(HKEY_LOCAL_MACHINE).empty());
    EXPECT_EQ(server.install(false, L"user"), S_OK);
    EXPECT_TRUE(found(HKEY_CURRENT_USER).empty());
    for (const wchar_t* folder : {L"CLSID", L"TypeLib", L"Interface"}) {
        EXPECT_FALSE(classes(HKEY_CURRENT_USER).open(folder, KEY_READ)) << win::narrow(folder);
    }
}

TEST_F(Registration, WithoutACommandLineInstallsForTheMachine) {
    ASSERT_EQ(server.install(true, nullptr), S_OK);
    EXPECT_FALSE(found(HKEY_LOCAL_MACHINE).empty());
    EXPECT_EQ(server.install(false, L""), S_OK);
    EXPECT_TRUE(found(HKEY_LOCAL_MACHINE).empty());
}

TEST_F(Registration, LeavesTheOtherWordSizeOfTheLibraryAlone) {
    ASSERT_EQ(server.registerMachine(), S_OK);
    const auto root = classes(HKEY_LOCAL_MACHINE);
    root.create(libraryKey + L"\\0\\win32").set(L"", L"C:\\other\\Tesslin.ocx");
    EXPECT_EQ(server.unregisterMachine(), S_OK);
    const auto other = root.open(libraryKey + L"\\0\\win32", KEY_READ);
    ASSERT_TRUE(other);
    EXPECT_EQ(other->text(L""), L"C:\\other\\Tesslin.ocx");
    EXPECT_FALSE(root.open(libraryKey + L"\\0\\win64", KEY_READ));
    root.removeTree(L"TypeLib\\{A12BBC0E-0CD7-495F-ABB7-1148CA4AA138}");
}

TEST_F(Registration, TheSystemsToolDoesIt) {
    EXPECT_EQ(registerServer("Tesslin.ocx").exitCode, 0U);
    const Keys keys = found(HKEY_LOCAL_MACHINE);
    expectEverything(keys);
    EXPECT_EQ(unregisterServer("Tesslin.ocx").exitCode, 0U);
    EXPECT_TRUE(found(HKEY_LOCAL_MACHINE).empty());
}

}  // namespace
}  // namespace telvar::tests
