// base::Value to and from VARIANT, in every form that a foreign store may use.
#pragma once

#include "base/value.h"
#include "com/kit/automation.h"
#include "com/kit/variant.h"

namespace telvar::com {

// References are followed; integers of any width keep their value, dates and currency become doubles. An object answers
// with its default member when that is a plain value. Null, errors, other objects and arrays are base::Unusable.
[[nodiscard]] base::Value valueOf(const VARIANT& variant);
[[nodiscard]] inline base::Value valueOf(const Variant& variant) { return valueOf(variant.get()); }

// In the type of the alternative; a 64-bit integer becomes the narrowest number that scripts understand, Unusable is
// Null.
[[nodiscard]] Variant variantOf(const base::Value& value);
// The same into memory that is overwritten without being cleared, as answers are.
void putValue(const base::Value& value, VARIANT* target);

}  // namespace telvar::com
