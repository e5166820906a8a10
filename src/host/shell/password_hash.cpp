#include "host/shell/password_hash.h"

#include <windows.h>

#include <bcrypt.h>

#include <array>
#include <cstdint>
#include <cwchar>
#include <optional>
#include <string_view>
#include <vector>

#include "base/pinned.h"
#include "com/kit/failure.h"
#include "win/text.h"

namespace telvar::host {

namespace {

constexpr std::wstring_view method = L"pbkdf2-sha256";
// About a quarter of a second on a desktop computer: hardly felt once, long for somebody who tries many.
constexpr ULONGLONG rounds = 200'000;
// More than anybody would ever configure; a damaged number must not hang the program.
constexpr ULONGLONG mostRounds = 10'000'000;
constexpr std::size_t saltSize = 16;  // bytes
constexpr std::size_t keySize = 32;   // bytes

using Bytes = std::vector<std::uint8_t>;

void checkStatus(NTSTATUS status) {
    if (status < 0) {
        throw com::ComFailure(HRESULT_FROM_NT(status), "The system cannot protect passwords");
    }
}

class Algorithm : private base::Pinned {
public:
    Algorithm() {
        checkStatus(
            BCryptOpenAlgorithmProvider(&handle_, BCRYPT_SHA256_ALGORITHM, nullptr, BCRYPT_ALG_HANDLE_HMAC_FLAG));
    }
    ~Algorithm() { BCryptCloseAlgorithmProvider(handle_, 0); }

    [[nodiscard]] BCRYPT_ALG_HANDLE get() const noexcept { return handle_; }

private:
    BCRYPT_ALG_HANDLE handle_ = nullptr;
};

Bytes derive(const std::wstring& password, Bytes salt, ULONGLONG count) {
    const Algorithm algorithm;
    std::string bytes = win::narrow(password);
    Bytes key(keySize);
    const NTSTATUS status = BCryptDeriveKeyPBKDF2(
        algorithm.get(), reinterpret_cast<PUCHAR>(bytes.data()), static_cast<ULONG>(bytes.size()), salt.data(),
        static_cast<ULONG>(salt.size()), count, key.data(), static_cast<ULONG>(key.size()), 0);
    SecureZeroMemory(bytes.data(), bytes.size());
    checkStatus(status);
    return key;
}

std::wstring hex(const Bytes& bytes) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    std::wstring text;
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

std::optional<unsigned> digitValue(wchar_t digit) noexcept {
    if (digit >= L'0' && digit <= L'9') {
        return static_cast<unsigned>(digit - L'0');
    }
    if (digit >= L'a' && digit <= L'f') {
        return static_cast<unsigned>(digit - L'a') + 10U;
    }
    return std::nullopt;
}

std::optional<Bytes> bytesOf(std::wstring_view text, std::size_t size) {
    if (text.size() != size * 2) {
        return std::nullopt;
    }
    Bytes bytes;
    for (std::size_t at = 0; at < text.size(); at += 2) {
        const auto high = digitValue(text[at]);
        const auto low = digitValue(text[at + 1]);
        if (!high || !low) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(*high << 4U | *low));
    }
    return bytes;
}

std::optional<ULONGLONG> countOf(std::wstring_view text) {
    ULONGLONG count = 0;
    for (const wchar_t digit : text) {
        if (digit < L'0' || digit > L'9' || count > mostRounds) {
            return std::nullopt;
        }
        count = count * 10 + static_cast<ULONGLONG>(digit - L'0');
    }
    return count > 0 && count <= mostRounds ? std::optional(count) : std::nullopt;
}

// The four parts between colons; the last takes what is left.
std::array<std::wstring_view, 4> partsOf(std::wstring_view hash) {
    std::array<std::wstring_view, 4> parts;
    for (std::size_t part = 0; part + 1 < parts.size(); ++part) {
        const std::size_t end = hash.find(L':');
        parts[part] = hash.substr(0, end);
        hash.remove_prefix(end == std::wstring_view::npos ? hash.size() : end + 1);
    }
    parts.back() = hash;
    return parts;
}

// Looks at every byte, so that its time tells nothing.
bool equal(const Bytes& one, const Bytes& other) noexcept {
    unsigned different = one.size() == other.size() ? 0U : 1U;
    for (std::size_t at = 0; at < one.size() && at < other.size(); ++at) {
        different |= static_cast<unsigned>(one[at] ^ other[at]);
    }
    return different == 0;
}

}  // namespace

std::wstring passwordHash(const std::wstring& password) {
    Bytes salt(saltSize);
    checkStatus(
        BCryptGenRandom(nullptr, salt.data(), static_cast<ULONG>(salt.size()), BCRYPT_USE_SYSTEM_PREFERRED_RNG));
    return std::wstring(method) + L':' + std::to_wstring(rounds) + L':' + hex(salt) + L':' +
           hex(derive(password, salt, rounds));
}

bool passwordMatches(const std::wstring& password, const std::wstring& hash) {
    const auto [name, count, salt, key] = partsOf(hash);
    const auto readCount = countOf(count);
    const auto readSalt = bytesOf(salt, saltSize);
    const auto readKey = bytesOf(key, keySize);
    return name == method && readCount && readSalt && readKey &&
           equal(derive(password, *readSalt, *readCount), *readKey);
}

std::string SystemPasswordHasher::hash(const std::string& password) const {
    return win::narrow(passwordHash(win::wide(password)));
}

bool SystemPasswordHasher::matches(const std::string& password, const std::string& hash) const {
    return passwordMatches(win::wide(password), win::wide(hash));
}

}  // namespace telvar::host
