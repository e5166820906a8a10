// The DLL's entry points.
#include <array>

#include "VexloRadioLink.h"
#include "com/kit/server.h"
#include "com/radio/radio_link.h"

namespace {

namespace com = telvar::com;

constexpr std::array<com::ServerClass, 1> classes{{
    {.classId = __uuidof(RadioLink),
     .progId = L"VexloRadioLink.RadioLink",
     .version = 1,
     .description = L"Radio link",
     .create = &com::createObject<com::RadioLink>},
}};

constexpr com::Server server{
    .libraryId = {0x3C495DFF, 0xA5E1, 0x4102, {0xBF, 0x62, 0x59, 0x3E, 0x08, 0xFA, 0xD1, 0xBD}},
    .libraryMajor = 1,
    .libraryMinor = 0,
    .classes = classes,
};

}  // namespace

BOOL WINAPI DllMain(HINSTANCE handle, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(handle);
        com::module::attach(L"VexloRadioLink");
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
