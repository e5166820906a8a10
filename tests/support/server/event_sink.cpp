#include "event_sink.h"

#include <utility>
#include <vector>

#include "com/kit/guard.h"
#include "com/kit/variant.h"

#include <dispex.h>

namespace telvar::tests {

namespace {

// One event's arguments as a script takes them.
class ScriptArguments {
public:
    explicit ScriptArguments(const DISPPARAMS& parameters)
        : source_(parameters), values_(parameters.cArgs), passed_(parameters.cArgs) {
        for (UINT at = 0; at < parameters.cArgs; ++at) {
            VARIANT& argument = parameters.rgvarg[at];
            if (isBridged(argument)) {
                com::check(VariantCopyInd(values_[at].put(), &argument));
                passed_[at] = com::Variant::reference(VT_VARIANT, &values_[at].get()).detach();
            } else {
                passed_[at] = argument;
            }
        }
    }

    [[nodiscard]] DISPPARAMS parameters() noexcept { return {passed_.data(), nullptr, source_.cArgs, 0}; }

    // What the script changed. A value that does not convert leaves the source's own.
    void writeBack() noexcept {
        for (UINT at = 0; at < source_.cArgs; ++at) {
            if (isBridged(source_.rgvarg[at])) {
                writeBack(values_[at].get(), source_.rgvarg[at]);
            }
        }
    }

private:
    [[nodiscard]] static bool isBridged(const VARIANT& argument) noexcept {
        return (argument.vt & VT_BYREF) != 0 && argument.vt != (VT_BYREF | VT_VARIANT);
    }

    static void writeBack(VARIANT& value, const VARIANT& argument) noexcept {
        const auto type = static_cast<VARTYPE>(argument.vt & ~VT_BYREF);
        if (FAILED(VariantChangeTypeEx(&value, &value, LOCALE_INVARIANT, 0, type))) {
            return;
        }
        switch (type) {
        case VT_I2:
        case VT_BOOL:
            *argument.piVal = value.iVal;
            break;
        case VT_I4:
            *argument.plVal = value.lVal;
            break;
        case VT_BSTR:
            std::swap(*argument.pbstrVal, value.bstrVal);
            break;
        default:
            break;
        }
    }

    const DISPPARAMS& source_;
    std::vector<com::Variant> values_;
    std::vector<VARIANT> passed_;  // borrows
};

// A script class answers the extended interface only, other objects the plain one only.
[[nodiscard]] HRESULT callByName(IDispatch* handler, const std::wstring& name, DISPPARAMS& parameters, bool& found) {
    constexpr LCID locale = LOCALE_USER_DEFAULT;
    DISPID id = DISPID_UNKNOWN;
    if (const auto extended = com::ComPointer<IDispatchEx>::from(handler)) {
        const com::Bstr text(name);
        found = SUCCEEDED(extended->GetDispID(text.get(), fdexNameCaseSensitive, &id));
        return found ? extended->InvokeEx(id, locale, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr) : S_OK;
    }
    auto* text = const_cast<wchar_t*>(name.c_str());
    found = SUCCEEDED(handler->GetIDsOfNames(IID_NULL, &text, 1, locale, &id));
    return found ? handler->Invoke(id, IID_NULL, locale, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr)
                 : S_OK;
}

}  // namespace

EventSink::EventSink(REFIID events, std::map<DISPID, std::wstring> names, IDispatch* handler,
                     std::shared_ptr<EventCounts> counts)
    : events_(events), names_(std::move(names)), handler_(handler), counts_(std::move(counts)) {}

STDMETHODIMP EventSink::QueryInterface(REFIID iid, void** object) noexcept {
    return Object::QueryInterface(IsEqualIID(iid, events_) ? __uuidof(IDispatch) : iid, object);
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSink::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP EventSink::GetIDsOfNames(REFIID /*iid*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                                      DISPID* /*ids*/) noexcept {
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP EventSink::Invoke(DISPID event, REFIID /*iid*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* parameters,
                               VARIANT* /*result*/, EXCEPINFO* /*exception*/, UINT* /*argument*/) noexcept {
    return com::guarded([&] { return handOn(event, *parameters); });
}

HRESULT EventSink::handOn(DISPID event, const DISPPARAMS& parameters) {
    const auto found = names_.find(event);
    if (found == names_.end()) {
        return S_OK;
    }
    // The handler may end the connection, and with it this sink.
    const com::ComPointer<EventSink> alive(this);
    ScriptArguments arguments(parameters);
    auto passed = arguments.parameters();
    bool called = false;
    const HRESULT outcome = callByName(handler_.get(), found->second, passed, called);
    arguments.writeBack();
    counts_->events += called ? 1 : 0;
    counts_->failures += FAILED(outcome) ? 1 : 0;
    return outcome;
}

}  // namespace telvar::tests
