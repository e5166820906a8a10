// The one line at every edge of COM: runs a body, lets no exception out.
#pragma once

#include <concepts>
#include <type_traits>

#include "com/kit/failure.h"

namespace telvar::com {

// S_OK or what the body returns; a thrown failure becomes a result code with error information.
template <class Body>
[[nodiscard]] HRESULT guarded(Body&& body) noexcept {
    try {
        if constexpr (std::same_as<std::invoke_result_t<Body>, HRESULT>) {
            return body();
        } else {
            body();
            return S_OK;
        }
    } catch (...) {
        return answerForException();
    }
}

// A caller's reference, which may not be null.
template <class T>
[[nodiscard]] T& deref(T* pointer) {
    if (pointer == nullptr) {
        throw ComFailure(E_POINTER);
    }
    return *pointer;
}

}  // namespace telvar::com
