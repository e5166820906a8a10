// One element of what a foreign object answered as a table: an array, whatever its form, is indexed where it lies and
// never copied; an object is indexed by its default member, a script's own array by the names of its elements.
#pragma once

#include <cstdint>

#include "com/kit/automation.h"
#include "com/kit/pointer.h"

namespace telvar::com {

// Index 0 is the first element, whatever the array's lower bound. Fails as base::SubscriptFailure outside the array and
// for an array of several dimensions; an element that is nothing or no object fails in the words that scripts know.
[[nodiscard]] ComPointer<IDispatch> elementOf(const VARIANT& table, std::int16_t index);

// The object that a variant holds or refers to; never null.
[[nodiscard]] ComPointer<IDispatch> objectIn(const VARIANT& variant);

}  // namespace telvar::com
