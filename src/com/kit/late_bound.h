// Calls to foreign objects by name. Objects with the extended dispatch interface, among them all that are written in a
// script, are called through that alone: they are asked for each name every time, in its exact spelling, and never for
// type information, which some engines do not survive. Of the others, dispatch numbers are remembered for those that
// show type information with an identity of its own; the rest is asked each time too.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
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

// Asks the object itself; unknown where it has no such member. An object that cannot be reached is a failure. A name is
// matched by its exact spelling where the object can tell (plain automation cannot).
[[nodiscard]] MemberId memberOf(IDispatch& object, std::string_view name);

// The member without a name that stands for the object where a value is wanted.
[[nodiscard]] MemberId defaultMemberOf(IDispatch& object);

// Calls a member, arguments in the order of their declaration. A failure is thrown with the callee's own description:
// that of the exception record, else the thread's error information where the object has such, else the code's words.
[[nodiscard]] Variant invoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments = {});
// The same for a caller who wants the bare result code: DISP_E_EXCEPTION where the callee described its failure.
[[nodiscard]] HRESULT tryInvoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments,
                                Variant& result);
// Reading a property. Callers that do not know whether they read a property or call a method say both, as scripts do in
// an expression; some engines then refuse a plain data property, so that a known property is only got.
inline constexpr WORD getFlags = DISPATCH_PROPERTYGET;
inline constexpr WORD getOrCallFlags = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

// Property put; objects are put by reference first and plainly where that is refused.
void putProperty(IDispatch& object, MemberId member, const Variant& value);

// The members of one object, or of objects that are known to be of one kind, by position in `names`. A dispatch number
// is remembered only where the type information says the same of the name: numbers that an object invents for itself (a
// page's) are nobody else's, and neither is the knowledge that a member is missing.
class MembersOfKind {
public:
    explicit MembersOfKind(std::vector<std::wstring> names)
        : names_(std::move(names)), ids_(names_.size(), DISPID_UNKNOWN) {}

    // Unknown where the object has no such member.
    [[nodiscard]] MemberId find(IDispatch& object, std::size_t name);
    // Throws where the object has no such member.
    [[nodiscard]] MemberId require(IDispatch& object, std::size_t name);

private:
    std::vector<std::wstring> names_;
    std::vector<DISPID> ids_;  // DISPID_UNKNOWN until asked
};

// The same of objects of any kind, each told by its type information. No object is held.
class KnownMembers {
public:
    explicit KnownMembers(std::vector<std::wstring> names);

    [[nodiscard]] MemberId require(IDispatch& object, std::size_t name);

private:
    // Holding the type information keeps its address from meaning another kind later.
    struct Kind {
        ComPointer<ITypeInfo> info;
        GUID id{};
        MembersOfKind members;
    };

    // Null for an object that is asked each time.
    [[nodiscard]] MembersOfKind* kindOf(IDispatch& object);

    std::vector<std::wstring> names_;
    std::vector<Kind> kinds_;  // never moves in memory: objects that are asked may call back into here
};

}  // namespace telvar::com
