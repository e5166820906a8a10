#include "support/windows/automation_calls.h"

#include "base/conversion.h"

namespace telvar::tests {

namespace {

[[nodiscard]] com::MemberId member(IDispatch& object, const std::string& name) {
    const auto found = com::memberOf(object, name);
    if (!found.known()) {
        throw com::ComFailure(DISP_E_UNKNOWNNAME);
    }
    return found;
}

}  // namespace

Variant get(IDispatch& object, const std::string& name, const Arguments& arguments) {
    return com::invoke(object, member(object, name), com::getOrCallFlags, arguments);
}

void put(IDispatch& object, const std::string& name, const Variant& value) {
    com::putProperty(object, member(object, name), value);
}

HRESULT putCode(IDispatch& object, const std::string& name, const Variant& value) {
    Variant result;
    return com::tryInvoke(object, member(object, name), DISPATCH_PROPERTYPUT, {&value, 1}, result);
}

HRESULT callCode(IDispatch& object, const std::string& name, const Arguments& arguments, Variant& result) {
    return com::tryInvoke(object, member(object, name), com::getOrCallFlags, arguments, result);
}

std::string errorDescription() {
    ComPointer<IErrorInfo> info;
    Bstr description;
    if (GetErrorInfo(0, info.put()) != S_OK || FAILED(info->GetDescription(description.put()))) {
        return "";
    }
    return description.text();
}

std::string textOf(const Variant& value) { return base::toText(com::valueOf(value)); }

}  // namespace telvar::tests
