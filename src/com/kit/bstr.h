// Owning automation text. This is the only place that allocates and frees one.
#pragma once

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "com/kit/automation.h"
#include "win/text.h"

namespace telvar::com {

// A null BSTR is the empty text.
[[nodiscard]] inline std::wstring_view viewOf(const OLECHAR* bstr) noexcept {
    return bstr == nullptr ? std::wstring_view() : std::wstring_view(bstr, SysStringLen(const_cast<BSTR>(bstr)));
}
[[nodiscard]] inline std::string textOf(const OLECHAR* bstr) { return win::narrow(viewOf(bstr)); }

class Bstr {
public:
    Bstr() noexcept = default;
    explicit Bstr(std::wstring_view text) : bstr_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (bstr_ == nullptr) {
            throw std::bad_alloc();
        }
    }
    explicit Bstr(std::string_view utf8) : Bstr(std::wstring_view(win::wide(utf8))) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : bstr_(std::exchange(other.bstr_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(bstr_, other.bstr_);
        return *this;
    }
    ~Bstr() { SysFreeString(bstr_); }

    [[nodiscard]] static Bstr adopt(BSTR owned) noexcept {
        Bstr result;
        result.bstr_ = owned;
        return result;
    }

    [[nodiscard]] BSTR get() const noexcept { return bstr_; }
    // As the target of an answer; what was held is freed.
    [[nodiscard]] BSTR* put() noexcept {
        SysFreeString(std::exchange(bstr_, nullptr));
        return &bstr_;
    }
    // For a callee that may exchange the text.
    [[nodiscard]] BSTR* address() noexcept { return &bstr_; }
    [[nodiscard]] BSTR detach() noexcept { return std::exchange(bstr_, nullptr); }

    [[nodiscard]] std::wstring_view view() const noexcept { return viewOf(bstr_); }
    [[nodiscard]] std::string text() const { return textOf(bstr_); }

private:
    BSTR bstr_ = nullptr;
};

// The caller's text is exchanged for another one.
inline void assign(BSTR& target, std::string_view utf8) {
    Bstr fresh(utf8);
    SysFreeString(std::exchange(target, fresh.detach()));
}

}  // namespace telvar::com
