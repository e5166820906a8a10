#include "support/windows/loaded_server.h"

#include <bit>
#include <stdexcept>

#include "support/windows/command.h"

namespace telvar::tests {

LoadedServer::LoadedServer(const std::string& file) : module_(LoadLibraryW(builtFile(file).c_str())) {
    if (!module_) {
        throw std::runtime_error("cannot load " + file);
    }
}

template <class Function>
Function* LoadedServer::entry(const char* name) const {
    const auto address = GetProcAddress(module_.get(), name);
    if (address == nullptr) {
        throw std::runtime_error(std::string("the server has no ") + name);
    }
    return std::bit_cast<Function*>(address);
}

com::ComPointer<IClassFactory> LoadedServer::factory(REFCLSID classId) const {
    com::ComPointer<IClassFactory> factory;
    com::check(getClassObject(classId, __uuidof(IClassFactory), factory.putVoid()));
    return factory;
}

HRESULT LoadedServer::getClassObject(REFCLSID classId, REFIID iid, void** object) const {
    return entry<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, iid, object);
}

bool LoadedServer::canUnload() const { return entry<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow")() == S_OK; }

HRESULT LoadedServer::registerMachine() const { return entry<HRESULT STDAPICALLTYPE()>("DllRegisterServer")(); }

HRESULT LoadedServer::unregisterMachine() const { return entry<HRESULT STDAPICALLTYPE()>("DllUnregisterServer")(); }

HRESULT LoadedServer::install(bool install, const wchar_t* whom) const {
    return entry<HRESULT STDAPICALLTYPE(BOOL, const wchar_t*)>("DllInstall")(install ? TRUE : FALSE, whom);
}

}  // namespace telvar::tests
