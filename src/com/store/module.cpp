// The DLL's entry points.
#include <array>

#include "VexloDataStore.h"
#include "com/kit/server.h"
#include "com/store/data_store.h"

namespace {

namespace com = telvar::com;

constexpr std::array<com::ServerClass, 1> classes{{
    {.classId = __uuidof(DataStore),
     .progId = L"VexloDataStore.DataStore",
     .version = 1,
     .description = L"Channel data store",
     .create = &com::createObject<com::DataStore>},
}};

constexpr com::Server server{
    .libraryId = {0xF3E0D9AE, 0x42AA, 0x4538, {0xAC, 0x3F, 0x07, 0x7A, 0xFC, 0xC7, 0xED, 0x93}},
    .libraryMajor = 1,
    .libraryMinor = 0,
    .classes = classes,
};

}  // namespace

BOOL WINAPI DllMain(HINSTANCE handle, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(handle);
        com::module::attach(L"VexloDataStore");
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
