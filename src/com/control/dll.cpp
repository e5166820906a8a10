// The DLL's entry points.
#include <array>

#include "Tesslin.h"
#include "com/control/channel_information_object.h"
#include "com/control/pll_setting_object.h"
#include "com/kit/server.h"
#include "win32/window_kinds.h"

namespace {

namespace com = telvar::com;

constexpr std::array<com::ServerClass, 2> classes{{
    {.classId = __uuidof(ChannelInformation),
     .progId = L"Tesslin.ChannelInformation",
     .version = 1,
     .description = L"Channel information",
     .traits = {.isControl = true, .miscStatus = com::miscStatus, .safeForScripts = true},
     .create = &com::createObject<com::ChannelInformationObject>},
    {.classId = __uuidof(clsPLLSetting),
     .progId = L"Tesslin.clsPLLSetting",
     .version = 1,
     .description = L"Synthesizer setting calculator",
     .traits = {.safeForScripts = true},
     .create = &com::createObject<com::PllSettingObject>},
}};

constexpr com::Server server{
    .libraryId = {0xA12BBC0E, 0x0CD7, 0x495F, {0xAB, 0xB7, 0x11, 0x48, 0xCA, 0x4A, 0xA1, 0x38}},
    .libraryMajor = 1,
    .libraryMinor = 0,
    .classes = classes,
};

}  // namespace

BOOL WINAPI DllMain(HINSTANCE handle, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(handle);
        com::module::attach(L"Tesslin");
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return com::getClassObject(server, classId, iid, object);
}

// The classes of windows point into this DLL; the next window registers them anew.
STDAPI DllCanUnloadNow() {
    const HRESULT answer = com::canUnloadNow();
    if (answer == S_OK) {
        telvar::win32::unregisterWindowClasses();
    }
    return answer;
}

STDAPI DllRegisterServer() { return com::registerServer(server, com::RegisterFor::Machine); }

STDAPI DllUnregisterServer() { return com::unregisterServer(server, com::RegisterFor::Machine); }

STDAPI DllInstall(BOOL install, const wchar_t* commandLine) {
    return com::install(server, install != FALSE, commandLine);
}
