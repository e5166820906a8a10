#include "com/kit/argument_bridge.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace telvar::com {

namespace {

// Size of a plain value; 0 for whatever is not plain.
[[nodiscard]] std::size_t sizeOf(VARTYPE type) noexcept {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY:
        return 8;
    case VT_BSTR:
        return sizeof(BSTR);
    default:
        return 0;
    }
}

[[nodiscard]] bool isLeftOut(const VARIANT& argument) noexcept {
    const VARIANT& own = dereferenced(argument);
    return V_VT(&own) == VT_ERROR && V_ERROR(&own) == DISP_E_PARAMNOTFOUND;
}

// Into the caller's own plain variable, whose type stands in the reference.
void writeThrough(const VARIANT& reference, const Variant& value, LCID locale) {
    const auto type = static_cast<VARTYPE>(V_VT(&reference) & ~VT_BYREF);
    const std::size_t size = sizeOf(type);
    if (size == 0 || V_BYREF(&reference) == nullptr) {
        return;
    }
    Variant converted = value;
    converted.convertTo(type, locale);
    if (type == VT_BSTR) {
        const VARIANT taken = converted.detach();
        const Bstr last = Bstr::adopt(std::exchange(*V_BSTRREF(&reference), V_BSTR(&taken)));
    } else {
        std::memcpy(V_BYREF(&reference), &V_I8(&converted.get()), size);
    }
}

}  // namespace

std::vector<Parameter> parametersOf(const FUNCDESC& function) {
    std::vector<Parameter> parameters;
    for (SHORT at = 0; at < function.cParams; ++at) {
        const ELEMDESC& element = function.lprgelemdescParam[at];
        const USHORT flags = element.paramdesc.wParamFlags;
        if ((flags & (PARAMFLAG_FRETVAL | PARAMFLAG_FLCID)) != 0) {
            continue;
        }
        Parameter parameter{.optional = (flags & (PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT)) != 0};
        parameter.byReference = element.tdesc.vt == VT_PTR;
        parameter.type = parameter.byReference ? element.tdesc.lptdesc->vt : element.tdesc.vt;
        parameter.plain = sizeOf(parameter.type) != 0;
        parameters.push_back(parameter);
    }
    return parameters;
}

ArgumentBridge::ArgumentBridge(std::vector<Parameter> parameters, const DISPPARAMS& given, bool isPut, LCID locale,
                               UINT& wrongArgument)
    : parameters_(std::move(parameters)), locale_(locale), places_(parameters_.size()) {
    findPlaces(given, wrongArgument);
    // Optional ones at the end may stay away.
    std::size_t count = places_.size();
    while (count > 0 && places_[count - 1].given == nullptr) {
        --count;
    }
    arguments_.resize(count);
    for (std::size_t at = 0; at < count; ++at) {
        wrongArgument = places_[at].position;
        pass(parameters_[at], places_[at], arguments_[count - 1 - at]);
    }
    passed_ = {arguments_.data(), isPut ? &putName_ : nullptr, static_cast<UINT>(count), isPut ? 1U : 0U};
}

// Arguments stand in reverse order, the named ones before all others.
void ArgumentBridge::findPlaces(const DISPPARAMS& given, UINT& wrongArgument) {
    const UINT unnamed = given.cArgs - std::min(given.cNamedArgs, given.cArgs);
    if (given.cArgs > places_.size()) {
        throw ComFailure(DISP_E_BADPARAMCOUNT);
    }
    const auto set = [&](std::size_t parameter, UINT position) {
        wrongArgument = position;
        if (parameter >= places_.size() || places_[parameter].given != nullptr) {
            throw ComFailure(DISP_E_PARAMNOTFOUND);
        }
        places_[parameter].given = &given.rgvarg[position];
        places_[parameter].position = position;
    };
    for (UINT at = 0; at < unnamed; ++at) {
        set(at, given.cArgs - 1 - at);
    }
    for (UINT at = 0; at < given.cArgs - unnamed; ++at) {
        const DISPID name = given.rgdispidNamedArgs[at];
        set(name == DISPID_PROPERTYPUT ? places_.size() - 1 : static_cast<std::size_t>(name), at);
    }
    for (std::size_t at = 0; at < places_.size(); ++at) {
        if (places_[at].given == nullptr && !parameters_[at].optional) {
            throw ComFailure(given.cNamedArgs > 0 ? DISP_E_PARAMNOTOPTIONAL : DISP_E_BADPARAMCOUNT);
        }
    }
}

void ArgumentBridge::pass(const Parameter& parameter, Place& place, VARIANT& target) const {
    if (place.given == nullptr) {
        target = Variant::missing().get();
        return;
    }
    if (!parameter.plain || (parameter.optional && isLeftOut(*place.given))) {
        target = *place.given;
        return;
    }
    const VARIANT& source = dereferenced(*place.given);
    if (parameter.byReference && V_VT(&source) == (VT_BYREF | parameter.type) && V_BYREF(&source) != nullptr) {
        target = source;
        return;
    }
    convert(parameter, place, target);
}

void ArgumentBridge::convert(const Parameter& parameter, Place& place, VARIANT& target) const {
    if (isLeftOut(*place.given)) {
        throw ComFailure(DISP_E_PARAMNOTOPTIONAL);
    }
    if ((V_VT(&dereferenced(*place.given)) & VT_ARRAY) != 0) {
        throw ComFailure(DISP_E_TYPEMISMATCH);
    }
    place.own = Variant::copyBehind(*place.given);
    try {
        place.own.convertTo(parameter.type, locale_);
    } catch (const ComFailure& failure) {
        // The system has several codes for what a caller knows by one.
        throw ComFailure(failure.code() == DISP_E_OVERFLOW ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH);
    }
    VARIANT& own = place.own.get();
    if (!parameter.byReference) {
        target = own;
        return;
    }
    place.converted = true;
    place.before = V_I8(&own);
    if (parameter.type == VT_BSTR) {
        place.textBefore = viewOf(V_BSTR(&own));
    }
    V_VT(&target) = static_cast<VARTYPE>(parameter.type | VT_BYREF);
    V_BYREF(&target) = &V_I8(&own);
}

bool ArgumentBridge::changed(const Place& place) {
    const VARIANT& own = place.own.get();
    return place.own.type() == VT_BSTR ? viewOf(V_BSTR(&own)) != place.textBefore : V_I8(&own) != place.before;
}

void ArgumentBridge::writeBack() const {
    for (const auto& place : places_) {
        if (place.converted && (V_VT(place.given) & VT_BYREF) != 0 && changed(place)) {
            writeBack(place);
        }
    }
}

void ArgumentBridge::writeBack(const Place& place) const {
    const VARIANT& target = dereferenced(*place.given);
    if ((V_VT(&target) & VT_BYREF) != 0) {
        writeThrough(target, place.own, locale_);
    } else {
        check(VariantCopy(const_cast<VARIANT*>(&target), const_cast<VARIANT*>(&place.own.get())));
    }
}

}  // namespace telvar::com
