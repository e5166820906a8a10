// The arguments of one call, brought into the order and the types of the member's parameters and, for parameters by
// reference, back into the caller's variables.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "com/kit/automation.h"
#include "com/kit/variant.h"

namespace telvar::com {

// One parameter as automation describes it. Types other than plain numbers, truths and texts are passed on as they
// come.
struct Parameter {
    VARTYPE type = VT_VARIANT;
    bool plain = false;
    bool byReference = false;
    bool optional = false;
};

[[nodiscard]] std::vector<Parameter> parametersOf(const FUNCDESC& function);

// The caller's arguments must outlive it.
class ArgumentBridge {
public:
    // Fails with the result code that the caller is to get; `wrongArgument` then is the place in his array.
    ArgumentBridge(std::vector<Parameter> parameters, const DISPPARAMS& given, bool isPut, LCID locale,
                   UINT& wrongArgument);

    [[nodiscard]] DISPPARAMS& passed() noexcept { return passed_; }

    // After a call that succeeded: what the member changed goes back, converted to the type of the caller's variable.
    void writeBack() const;

private:
    // What stands for one parameter in the call.
    struct Place {
        const VARIANT* given = nullptr;  // null where it was left out
        UINT position = 0;               // in the caller's array
        Variant own;                     // the converted value, where a conversion was needed
        LONGLONG before = 0;             // its bits as they were passed
        std::wstring textBefore;
        bool converted = false;
    };

    void findPlaces(const DISPPARAMS& given, UINT& wrongArgument);
    void pass(const Parameter& parameter, Place& place, VARIANT& target) const;
    void convert(const Parameter& parameter, Place& place, VARIANT& target) const;
    [[nodiscard]] static bool changed(const Place& place);
    void writeBack(const Place& place) const;

    std::vector<Parameter> parameters_;
    LCID locale_;
    std::vector<Place> places_;
    std::vector<VARIANT> arguments_;  // borrows from the places and from the caller
    DISPID putName_ = DISPID_PROPERTYPUT;
    DISPPARAMS passed_{};
};

}  // namespace telvar::com
