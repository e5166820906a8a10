// A radio link that only writes down what is called, beside the events of the control, so that a test sees both in one
// order.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "win/text.h"
#include "world.h"

namespace telvar::tests {

class RecordingLink final : public com::Object<IDispatch> {
public:
    explicit RecordingLink(Texts& journal) : journal_(journal) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) noexcept override {
        *info = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID /*iid*/, LPOLESTR* names, UINT /*count*/, LCID /*locale*/,
                               DISPID* ids) noexcept override {
        for (std::size_t at = 0; at < operations.size(); ++at) {
            if (operations[at].first == *names) {
                *ids = static_cast<DISPID>(at);
                return S_OK;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID operation, REFIID /*iid*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* arguments,
                        VARIANT* /*result*/, EXCEPINFO* /*exception*/, UINT* /*wrongArgument*/) noexcept override {
        const auto& [name, count] = operations[static_cast<std::size_t>(operation)];
        if (arguments->cArgs != count) {
            return DISP_E_BADPARAMCOUNT;
        }
        std::string text = win::narrow(name);
        // The last argument stands first.
        for (UINT at = arguments->cArgs; at > 0; --at) {
            text += " [" + valueOf(arguments->rgvarg[at - 1]) + "]";
        }
        journal_.push_back(text);
        return S_OK;
    }

private:
    [[nodiscard]] static std::string valueOf(const VARIANT& argument) {
        switch (V_VT(&argument)) {
        case VT_BYREF | VT_BSTR:
            return com::textOf(*V_BSTRREF(&argument));
        case VT_BYREF | VT_BOOL:
            return *V_BOOLREF(&argument) != VARIANT_FALSE ? "True" : "False";
        default:
            return "neither a text nor a truth by reference";
        }
    }

    static constexpr std::array<std::pair<std::wstring_view, UINT>, 3> operations{
        {{L"SendChannelTable", 0}, {L"LoadChannelTable", 2}, {L"AbortTransfer", 0}}};

    Texts& journal_;
};

}  // namespace telvar::tests
