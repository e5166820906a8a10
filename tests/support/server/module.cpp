// The DLL's entry points.
#include <array>

#include "TestHelper.h"
#include "com/kit/server.h"
#include "helper.h"

namespace {

namespace com = telvar::com;

constexpr std::array<com::ServerClass, 1> classes{{
    {.classId = __uuidof(Helper),
     .progId = L"TelvarTest.Helper",
     .version = 1,
     .description = L"Helper for tests",
     .create = &com::createObject<telvar::tests::Helper>},
}};

constexpr com::Server server{
    .libraryId = {0x426B8902, 0x3C0B, 0x4EAD, {0xA6, 0x8F, 0x40, 0x32, 0x93, 0x14, 0x66, 0x9E}},
    .libraryMajor = 1,
    .libraryMinor = 0,
    .classes = classes,
};

}  // namespace

BOOL WINAPI DllMain(HINSTANCE handle, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(handle);
        com::module::attach(L"TestHelper");
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return com::getClassObject(server, classId, iid, object);
}

STDAPI DllCanUnloadNow() { return com::canUnloadNow(); }

STDAPI DllRegisterServer() { return com::registerServer(server, com::RegisterFor::Machine); }

STDAPI DllUnregisterServer() { return com::unregisterServer(server, com::RegisterFor::Machine); }

STDAPI DllInstall(BOOL install, const wchar_t* commandLine) {
    return com::install(server, install != FALSE, commandLine);
}
