// Calls to foreign objects by name. Dispatch numbers are remembered only for objects that show the same type
// information with an identity of its own; any other object is asked each time, by the extended dispatch interface
// where the plain one does not answer (objects written in a script).
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "com/kit/automation.h"
#include "com/kit/pointer.h"
#include "com/kit/variant.h"

namespace telvar::com {

// Where a member of one object is found.
struct MemberId {
    DISPID id = DISPID_UNKNOWN;
    bool extended = false;
    [[nodiscard]] bool known() const noexcept { return id != DISPID_UNKNOWN; }
};

// Asks the object itself; unknown where it has no such member.
[[nodiscard]] MemberId memberOf(IDispatch& object, const wchar_t* name);

// Calls a member, arguments in the order of their declaration. A failure is thrown with the callee's own description.
[[nodiscard]] Variant invoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments = {});
inline constexpr WORD getFlags = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

// Property put; objects are put by reference first and plainly where that is refused.
void putProperty(IDispatch& object, MemberId member, const Variant& value);

// The members that a caller knows by name, by position in `names`.
class KnownMembers {
public:
    // The names must outlive it.
    explicit KnownMembers(std::span<const std::wstring> names) noexcept : names_(names) {}

    [[nodiscard]] MemberId find(IDispatch& object, std::size_t name);
    // Throws where the object has no such member.
    [[nodiscard]] MemberId require(IDispatch& object, std::size_t name);
    void forget() noexcept { kinds_.clear(); }

private:
    // Holding the type information keeps its address from meaning another kind later.
    struct Kind {
        ComPointer<ITypeInfo> info;
        GUID id{};
        std::vector<std::optional<MemberId>> members;
    };

    [[nodiscard]] Kind* kindOf(IDispatch& object);

    std::span<const std::wstring> names_;
    std::vector<Kind> kinds_;
};

}  // namespace telvar::com
