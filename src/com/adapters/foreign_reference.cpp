#include "com/adapters/foreign_reference.h"

#include <vector>

#include "com/kit/failure.h"

namespace telvar::com {

namespace {

enum class Passing { Typed, ForScript, ByValue };

[[nodiscard]] Variant passed(ReferenceArgument& argument, Passing passing) {
    switch (passing) {
    case Passing::Typed:
        return argument.typed();
    case Passing::ForScript:
        return argument.forScript();
    case Passing::ByValue:
        break;
    }
    return argument.byValue();
}

}  // namespace

Variant ReferenceArgument::typed() noexcept {
    // Every kind of plain value begins at the same place.
    return Variant::reference(variable_.type(), &V_I8(&variable_.get()));
}

Variant invokeWithReferences(IDispatch& object, MemberId member, WORD flags, std::span<ReferenceArgument> references,
                             std::span<const Variant> values) {
    const auto call = [&](Passing passing) {
        std::vector<Variant> arguments;
        for (ReferenceArgument& reference : references) {
            arguments.push_back(passed(reference, passing));
        }
        arguments.insert(arguments.end(), values.begin(), values.end());
        return invoke(object, member, flags, arguments);
    };
    if (member.extended) {
        return call(Passing::ForScript);
    }
    try {
        return call(Passing::Typed);
    } catch (const ComFailure& failure) {
        // Refused at the door, before the callee did anything.
        if (failure.code() != DISP_E_TYPEMISMATCH && failure.code() != DISP_E_BADVARTYPE) {
            throw;
        }
    }
    return call(Passing::ByValue);
}

}  // namespace telvar::com
