// Calls to COM servers by name, as a script makes them, for tests.
#pragma once

#include <string>
#include <vector>

#include "base/failure.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "com/kit/late_bound.h"
#include "com/kit/pointer.h"
#include "com/kit/value.h"
#include "com/kit/variant.h"

namespace telvar::tests {

using com::Bstr;
using com::ComPointer;
using com::Variant;

class Apartment {
public:
    Apartment() { com::check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    Apartment(Apartment&&) = delete;
    Apartment& operator=(Apartment&&) = delete;
    ~Apartment() { CoUninitialize(); }
};

using Arguments = std::vector<Variant>;

// Late-bound, by name. The first form throws what the callee describes.
[[nodiscard]] Variant get(IDispatch& object, const std::string& name, const Arguments& arguments = {});
void put(IDispatch& object, const std::string& name, const Variant& value);
[[nodiscard]] HRESULT putCode(IDispatch& object, const std::string& name, const Variant& value);
[[nodiscard]] HRESULT callCode(IDispatch& object, const std::string& name, const Arguments& arguments, Variant& result);

// The description of the failure that a call throws.
template <class Call>
[[nodiscard]] std::string failureOf(Call call) {
    try {
        call();
    } catch (const base::Failure& failure) {
        return failure.description();
    }
    return "no failure";
}

// The thread's error information.
[[nodiscard]] std::string errorDescription();

[[nodiscard]] std::string textOf(const Variant& value);

template <class Interface>
[[nodiscard]] ComPointer<Interface> objectIn(const Variant& value) {
    return value.type() == VT_DISPATCH ? ComPointer<Interface>::from(V_DISPATCH(&value.get()))
                                       : ComPointer<Interface>();
}

}  // namespace telvar::tests
