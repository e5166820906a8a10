// A COM server's DLL in one table: which classes it makes and how they are registered. The four entry points of a
// server and DllInstall are one line each over these functions.
#pragma once

#include <span>

#include "com/kit/automation.h"
#include "com/kit/object.h"

namespace telvar::com {

// What the registry says of a class beyond its name.
struct ControlTraits {
    bool isControl = false;
    DWORD miscStatus = 0;         // OLEMISC_...
    bool safeForScripts = false;  // scripting and initialising, for any caller
};

struct ServerClass {
    CLSID classId{};
    const wchar_t* progId = nullptr;       // without a version number
    int version = 0;                       // of the ProgID that has one
    const wchar_t* description = nullptr;  // one phrase
    ControlTraits traits;
    // A new object, as the interface that it was asked for.
    HRESULT (*create)(REFIID iid, void** object) noexcept = nullptr;
};

struct Server {
    GUID libraryId;
    WORD libraryMajor;
    WORD libraryMinor;
    std::span<const ServerClass> classes;
};

template <class T>
[[nodiscard]] HRESULT createObject(REFIID iid, void** object) noexcept {
    return guarded([&] {
        deref(object) = nullptr;
        return make<T>()->QueryInterface(iid, object);
    });
}

// DllGetClassObject and DllCanUnloadNow.
[[nodiscard]] HRESULT getClassObject(const Server& server, REFCLSID classId, REFIID iid, void** object) noexcept;
[[nodiscard]] HRESULT canUnloadNow() noexcept;

enum class RegisterFor { Machine, User };

// DllRegisterServer and DllUnregisterServer, for the machine or for the present user alone. Registering again repairs;
// unregistering takes back exactly what registering writes and is content with what is missing.
[[nodiscard]] HRESULT registerServer(const Server& server, RegisterFor whom) noexcept;
[[nodiscard]] HRESULT unregisterServer(const Server& server, RegisterFor whom) noexcept;
// DllInstall: the command line "user" means the present user, anything else the machine.
[[nodiscard]] HRESULT install(const Server& server, bool install, const wchar_t* commandLine) noexcept;

}  // namespace telvar::com
