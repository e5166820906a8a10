// The servers of this build in the registry for as long as it lives, as an installation has them.
#pragma once

#include "support/windows/loaded_server.h"
#include "world.h"

namespace telvar::tests {

class RegisteredServers {
public:
    RegisteredServers() {
        com::check(LoadedServer("VexloDataStore.dll").registerMachine());
        com::check(LoadedServer("VexloRadioLink.dll").registerMachine());
        com::check(LoadedServer("TestHelper.dll").registerMachine());
        com::check(LoadedServer("Tesslin.ocx").registerMachine());
    }
    RegisteredServers(const RegisteredServers&) = delete;
    RegisteredServers& operator=(const RegisteredServers&) = delete;
    RegisteredServers(RegisteredServers&&) = delete;
    RegisteredServers& operator=(RegisteredServers&&) = delete;
    ~RegisteredServers() {
        for (const char* file : {"Tesslin.ocx", "TestHelper.dll", "VexloRadioLink.dll", "VexloDataStore.dll"}) {
            EXPECT_EQ(LoadedServer(file).unregisterMachine(), S_OK) << file;
        }
    }
};

// By ProgID, as hosts and scripts make it.
[[nodiscard]] inline ComPointer<IDispatch> createObject(const wchar_t* progId) {
    CLSID classId{};
    com::check(CLSIDFromProgID(progId, &classId));
    ComPointer<IDispatch> object;
    com::check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.putVoid()));
    return object;
}

}  // namespace telvar::tests
