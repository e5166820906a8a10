// Owning pointer to a COM object. Raw interface pointers are borrowed, never stored; this is the only place that calls
// AddRef and Release for somebody else's object.
#pragma once

#include <cstddef>
#include <utility>

#include "com/kit/automation.h"

namespace telvar::com {

template <class Interface>
class ComPointer {
public:
    ComPointer() noexcept = default;
    ComPointer(std::nullptr_t) noexcept {}  // NOLINT: null is a pointer
    // Shares a borrowed object.
    explicit ComPointer(Interface* borrowed) noexcept : pointer_(borrowed) {
        if (pointer_ != nullptr) {
            pointer_->AddRef();
        }
    }
    ComPointer(const ComPointer& other) noexcept : ComPointer(other.pointer_) {}
    ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPointer& operator=(const ComPointer& other) noexcept {
        ComPointer(other).swap(*this);
        return *this;
    }
    ComPointer& operator=(ComPointer&& other) noexcept {
        ComPointer(std::move(other)).swap(*this);
        return *this;
    }
    ~ComPointer() { reset(); }

    // Takes over a reference that somebody else counted.
    [[nodiscard]] static ComPointer adopt(Interface* counted) noexcept {
        ComPointer result;
        result.pointer_ = counted;
        return result;
    }

    // Asks any object for this interface; null where it has none.
    template <class Other>
    [[nodiscard]] static ComPointer from(Other* other) noexcept {
        ComPointer result;
        if (other != nullptr) {
            other->QueryInterface(__uuidof(Interface), result.putVoid());
        }
        return result;
    }
    template <class Other>
    [[nodiscard]] static ComPointer from(const ComPointer<Other>& other) noexcept {
        return from(other.get());
    }

    [[nodiscard]] Interface* get() const noexcept { return pointer_; }
    [[nodiscard]] Interface* operator->() const noexcept { return pointer_; }
    [[nodiscard]] Interface& operator*() const noexcept { return *pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    // As the target of an answer; what was held is released.
    [[nodiscard]] Interface** put() noexcept {
        reset();
        return &pointer_;
    }
    [[nodiscard]] void** putVoid() noexcept {
        reset();
        void* address = &pointer_;
        return static_cast<void**>(address);
    }

    // Hands the reference to the caller.
    [[nodiscard]] Interface* detach() noexcept { return std::exchange(pointer_, nullptr); }
    // Hands a new reference to the caller.
    [[nodiscard]] Interface* share() const noexcept { return ComPointer(*this).detach(); }

    // The object is let go after the pointer is null, because letting go may call back.
    void reset() noexcept {
        if (Interface* const last = std::exchange(pointer_, nullptr)) {
            last->Release();
        }
    }
    void swap(ComPointer& other) noexcept { std::swap(pointer_, other.pointer_); }

    [[nodiscard]] bool operator==(const ComPointer& other) const noexcept { return pointer_ == other.pointer_; }

private:
    Interface* pointer_ = nullptr;
};

// One object, whatever interfaces the two pointers name.
[[nodiscard]] inline bool sameObject(IUnknown* left, IUnknown* right) noexcept {
    return ComPointer<IUnknown>::from(left) == ComPointer<IUnknown>::from(right);
}

}  // namespace telvar::com
