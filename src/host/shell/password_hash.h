// Passwords as they are kept: never themselves, only what is derived from them with a salt of its own (PBKDF2 with
// HMAC-SHA-256, by the system's cryptography).
#pragma once

#include <string>

#include "desk/access.h"

namespace telvar::host {

// "pbkdf2-sha256:<rounds>:<salt in hex>:<key in hex>"; another one each time. Throws com::ComFailure where the system
// has no cryptography.
[[nodiscard]] std::wstring passwordHash(const std::wstring& password);

// False also for a hash that cannot be read: damaged settings open nothing. Throws com::ComFailure as above.
[[nodiscard]] bool passwordMatches(const std::wstring& password, const std::wstring& hash);

class SystemPasswordHasher final : public desk::PasswordHasher {
public:
    [[nodiscard]] std::string hash(const std::string& password) const override;
    [[nodiscard]] bool matches(const std::string& password, const std::string& hash) const override;
};

}  // namespace telvar::host
