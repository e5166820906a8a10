// An argument by reference of a late-bound call: a variable of one's own that the callee may change. Objects written in
// a script take references to variants, all others references to the type itself.
#pragma once

#include <span>

#include "base/value.h"
#include "com/kit/automation.h"
#include "com/kit/late_bound.h"
#include "com/kit/value.h"
#include "com/kit/variant.h"

namespace telvar::com {

class ReferenceArgument {
public:
    // An Integer of 16 bits, a truth or a text.
    explicit ReferenceArgument(const base::Value& value) : variable_(variantOf(value)) {}

    // Refer to this object, which must stay where it is until the call has ended.
    [[nodiscard]] Variant typed() noexcept;
    [[nodiscard]] Variant forScript() noexcept { return Variant::reference(VT_VARIANT, &variable_.get()); }
    [[nodiscard]] const Variant& byValue() const noexcept { return variable_; }

    // What the callee left.
    [[nodiscard]] base::Value value() const { return valueOf(variable_); }

private:
    Variant variable_;
};

// Calls a method whose first arguments are `references`, followed by `values`. A callee that refuses references is
// given the values of the variables.
Variant invokeWithReferences(IDispatch& object, MemberId member, WORD flags, std::span<ReferenceArgument> references,
                             std::span<const Variant> values = {});

}  // namespace telvar::com
