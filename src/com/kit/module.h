// What a COM server's DLL has beside what every module has (win/module.h): its name, and the type information of its
// own library. Nothing here needs a destructor, because it would run after the DLL's code may be used.
#pragma once

#include <string>

#include "com/kit/automation.h"
#include "com/kit/pointer.h"

namespace telvar::com::module {

// From DllMain, once. The name stands as source in error information; it must be a literal.
void attach(const wchar_t* name) noexcept;

[[nodiscard]] const wchar_t* name() noexcept;
// Full path of the DLL, without the prefix for long paths, which registrations and type libraries do not take.
[[nodiscard]] std::wstring path();

// From the type library inside this DLL; fails as the library does. Interfaces and classes alike.
[[nodiscard]] ComPointer<ITypeLib> typeLibrary();
// Remembered until the module is no longer used, so that equal questions answer the same object.
[[nodiscard]] ComPointer<ITypeInfo> typeInfo(REFGUID id);
void forgetTypeInfo() noexcept;

}  // namespace telvar::com::module
