// One of this build's COM servers, loaded by its path and asked for objects without the registry.
#pragma once

#include <string>

#include "com/kit/automation.h"
#include "com/kit/failure.h"
#include "com/kit/pointer.h"
#include "win/handle.h"

namespace telvar::tests {

class LoadedServer {
public:
    explicit LoadedServer(const std::string& file);

    template <class Interface>
    [[nodiscard]] com::ComPointer<Interface> create(REFCLSID classId) const {
        com::ComPointer<Interface> object;
        com::check(factory(classId)->CreateInstance(nullptr, __uuidof(Interface), object.putVoid()));
        return object;
    }
    [[nodiscard]] com::ComPointer<IClassFactory> factory(REFCLSID classId) const;

    // The server's entry points.
    [[nodiscard]] HRESULT getClassObject(REFCLSID classId, REFIID iid, void** object) const;
    [[nodiscard]] bool canUnload() const;
    [[nodiscard]] HRESULT registerMachine() const;
    [[nodiscard]] HRESULT unregisterMachine() const;
    [[nodiscard]] HRESULT install(bool install, const wchar_t* whom) const;

private:
    template <class Function>
    [[nodiscard]] Function* entry(const char* name) const;

    win::Library module_;
};

}  // namespace telvar::tests
