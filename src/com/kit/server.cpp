#include "com/kit/server.h"

#include <string_view>

#include "com/kit/module.h"
#include "win/module.h"

namespace telvar::com {

namespace {

class ClassFactory final : public Object<IClassFactory> {
public:
    explicit ClassFactory(const ServerClass& made) noexcept : made_(made) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        return outer != nullptr ? CLASS_E_NOAGGREGATION : made_.create(iid, object);
    }

    STDMETHODIMP LockServer(BOOL lock) noexcept override {
        win::countUse(lock != FALSE ? 1 : -1);
        return S_OK;
    }

private:
    const ServerClass& made_;
};

}  // namespace

HRESULT getClassObject(const Server& server, REFCLSID classId, REFIID iid, void** object) noexcept {
    return guarded([&] {
        deref(object) = nullptr;
        for (const auto& made : server.classes) {
            if (IsEqualCLSID(made.classId, classId)) {
                return make<ClassFactory>(made)->QueryInterface(iid, object);
            }
        }
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

HRESULT canUnloadNow() noexcept {
    if (win::uses() > 0) {
        return S_FALSE;
    }
    module::forgetTypeInfo();
    return S_OK;
}

HRESULT install(const Server& server, bool install, const wchar_t* commandLine) noexcept {
    const bool user = commandLine != nullptr && std::wstring_view(commandLine) == L"user";
    const RegisterFor whom = user ? RegisterFor::User : RegisterFor::Machine;
    return install ? registerServer(server, whom) : unregisterServer(server, whom);
}

}  // namespace telvar::com
