// Failures that cross the edge of COM: a result code with the description that travels beside it.
#pragma once

#include <string>

#include "base/failure.h"
#include "com/kit/automation.h"

namespace telvar::com {

// A failed call, seen from the caller, or one that is to fail with exactly this code, seen from the callee.
class ComFailure : public base::Failure {
public:
    ComFailure(HRESULT code, const std::string& description) : base::Failure(description), code_(code) {}
    // Described by the system's or automation's words for the code.
    explicit ComFailure(HRESULT code);
    [[nodiscard]] HRESULT code() const noexcept { return code_; }

private:
    HRESULT code_;
};

// A phrase without a final full stop, e.g. "Type mismatch"; at least the number.
[[nodiscard]] std::string describe(HRESULT code);

// Throws a ComFailure for a failed code. For calls to the system, whose error information is of no use.
inline void check(HRESULT code) {
    if (FAILED(code)) {
        throw ComFailure(code);
    }
}

// Throws what the callee left as error information, else the code's own description.
[[noreturn]] void throwErrorInfo(HRESULT code);
inline void checkCall(HRESULT code) {
    if (FAILED(code)) {
        throwErrorInfo(code);
    }
}

// Fills `info` in, completes it and throws it; for answers of IDispatch::Invoke, which own their texts. Where it holds
// no description, the thread's error information serves if the object is known to set one.
[[noreturn]] void throwException(HRESULT code, EXCEPINFO& info, bool hasErrorInfo = false);

// The code by which the outside learns of the exception that is being handled, with its description as error
// information of this thread. Only inside a catch block.
[[nodiscard]] HRESULT answerForException() noexcept;

// Sets this thread's error information; the source is the module's name.
void setErrorInfo(const std::string& description) noexcept;

}  // namespace telvar::com
