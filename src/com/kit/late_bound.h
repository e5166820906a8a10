// Calls to foreign objects by name. Dispatch numbers are remembered only for objects that show the same type
// information with an identity of its own; any other object is asked each time, by the extended dispatch interface
// where the plain one does not answer (objects written in a script).
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

// Asks the object itself; unknown where it has no such member. An object that cannot be reached is a failure.
[[nodiscard]] MemberId memberOf(IDispatch& object, std::string_view name);

// Calls a member, arguments in the order of their declaration. A failure is thrown with the callee's own description:
// that of the exception record, else the thread's error information where the object has such, else the code's words.
[[nodiscard]] Variant invoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments = {});
// The same for a caller who wants the bare result code: DISP_E_EXCEPTION where the callee described its failure.
[[nodiscard]] HRESULT tryInvoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments,
                                Variant& result);
inline constexpr WORD getFlags = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

// Property put; objects are put by reference first and plainly where that is refused.
void putProperty(IDispatch& object, MemberId member, const Variant& value);

// The members that a caller knows by name, by position in `names`. A dispatch number is remembered only where the type
// information says the same of the name: numbers that an object invents for itself (a script's, a page's) are nobody
// else's, and neither is the knowledge that a member is missing.
class KnownMembers {
public:
    explicit KnownMembers(std::vector<std::wstring> names);

    // Unknown where the object has no such member.
    [[nodiscard]] MemberId find(IDispatch& object, std::size_t name);
    // Throws where the object has no such member.
    [[nodiscard]] MemberId require(IDispatch& object, std::size_t name);

private:
    // Holding the type information keeps its address from meaning another kind later.
    struct Kind {
        ComPointer<ITypeInfo> info;
        GUID id{};
        std::vector<DISPID> members;  // DISPID_UNKNOWN until asked
    };

    [[nodiscard]] Kind* kindOf(IDispatch& object);
    [[nodiscard]] Kind* askKind(IDispatch& object);
    void remember(IDispatch& object, std::size_t name, DISPID id);

    std::vector<std::wstring> names_;
    std::vector<Kind> kinds_;  // never moves in memory: objects that are asked may call back into here

    // A row of a table is many reads of one object, so the last one that has a kind is recognised by its address. It is
    // held for that: an address alone could by now be another object's.
    ComPointer<IDispatch> last_;
    Kind* lastKind_ = nullptr;
};

}  // namespace telvar::com
