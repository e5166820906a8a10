#include "script_engine.h"

#include "com/kit/failure.h"
#include "com/kit/late_bound.h"
#include "com/kit/object.h"
#include "com/kit/variant.h"

namespace telvar::com::test {

namespace {

using Parser = IActiveScriptParse;

constexpr CLSID visualBasicScript{0xB54F3741, 0x5B07, 0x11CF, {0xA4, 0xB0, 0x00, 0xAA, 0x00, 0x4A, 0x55, 0xE8}};
constexpr CLSID javaScript{0xF414C260, 0x6AC0, 0x11CF, {0xB6, 0xD1, 0x00, 0xAA, 0x00, 0xBB, 0xBB, 0x58}};

// A host that gives the script nothing and leaves its errors to whoever called it.
class Site final : public Object<IActiveScriptSite> {
public:
    STDMETHODIMP GetLCID(LCID* locale) noexcept override {
        *locale = LOCALE_USER_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP GetItemInfo(LPCOLESTR /*name*/, DWORD /*mask*/, IUnknown** /*item*/,
                             ITypeInfo** /*info*/) noexcept override {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    STDMETHODIMP GetDocVersionString(BSTR* /*version*/) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT* /*result*/, const EXCEPINFO* /*exception*/) noexcept override {
        return S_OK;
    }
    STDMETHODIMP OnStateChange(SCRIPTSTATE /*state*/) noexcept override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* /*error*/) noexcept override { return S_FALSE; }
    STDMETHODIMP OnEnterScript() noexcept override { return S_OK; }
    STDMETHODIMP OnLeaveScript() noexcept override { return S_OK; }
};

}  // namespace

ScriptEngine::ScriptEngine(Language language) : site_(make<Site>().get()) {
    check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    check(CoCreateInstance(language == Language::Java ? javaScript : visualBasicScript, nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(IActiveScript), engine_.putVoid()));
    check(engine_->SetScriptSite(site_.get()));
    check(ComPointer<Parser>::from(engine_)->InitNew());
    check(engine_->SetScriptState(SCRIPTSTATE_CONNECTED));
}

ScriptEngine::~ScriptEngine() {
    engine_->Close();
    engine_.reset();
    site_.reset();
    CoUninitialize();
}

bool ScriptEngine::run(std::wstring_view code) {
    const std::wstring text(code);
    return SUCCEEDED(ComPointer<Parser>::from(engine_)->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                                                        SCRIPTTEXT_ISVISIBLE, nullptr, nullptr));
}

ComPointer<IDispatch> ScriptEngine::global() const {
    ComPointer<IDispatch> global;
    check(engine_->GetScriptDispatch(nullptr, global.put()));
    return global;
}

ComPointer<IDispatch> ScriptEngine::object(std::string_view function) {
    const auto script = global();
    const Variant answer = invoke(*script, memberOf(*script, function), getOrCallFlags);
    const VARIANT& own = dereferenced(answer.get());
    return V_VT(&own) == VT_DISPATCH ? ComPointer<IDispatch>(V_DISPATCH(&own)) : nullptr;
}

}  // namespace telvar::com::test
