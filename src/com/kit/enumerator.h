// An enumerator over a copy of a list, for whichever IEnumXxx interface.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "com/kit/object.h"

namespace telvar::com {

// `Held` owns one element; `Given` is what the caller gets, made by `static Given give(const Held&)` of Policy.
template <class Interface, class Held, class Given, class Policy>
class Enumerator final : public Object<Interface> {
public:
    explicit Enumerator(std::vector<Held> elements, std::size_t position = 0)
        : elements_(std::move(elements)), position_(position) {}

    STDMETHODIMP Next(ULONG count, Given* elements, ULONG* fetched) noexcept override {
        return guarded([&] {
            if (elements == nullptr || (fetched == nullptr && count != 1)) {
                return E_POINTER;
            }
            ULONG given = 0;
            while (given < count && position_ < elements_.size()) {
                elements[given] = Policy::give(elements_[position_]);
                ++position_;
                ++given;
            }
            if (fetched != nullptr) {
                *fetched = given;
            }
            return given == count ? S_OK : S_FALSE;
        });
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        const std::size_t left = elements_.size() - position_;
        position_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** copy) noexcept override {
        return guarded([&] { deref(copy) = make<Enumerator>(elements_, position_).detach(); });
    }

private:
    std::vector<Held> elements_;
    std::size_t position_;
};

}  // namespace telvar::com
