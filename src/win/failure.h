// What the system refused, in its own words.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/failure.h"

namespace telvar::win {

// Of an error code or a failed HRESULT: the system's text without the line end and full stop that it adds. Where it has
// none, the number: "Error 12345", for an HRESULT "Error 0x8004ABCD".
[[nodiscard]] std::string errorText(DWORD code);

// Also for texts that others wrote as the system writes them.
[[nodiscard]] std::string_view withoutFinalStop(std::string_view text) noexcept;

// A call to the system that failed.
class SystemFailure : public base::Failure {
public:
    explicit SystemFailure(DWORD code = GetLastError()) : base::Failure(errorText(code)), code_(code) {}

    [[nodiscard]] DWORD code() const noexcept { return code_; }

private:
    DWORD code_;
};

}  // namespace telvar::win
