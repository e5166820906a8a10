// Reference counting and QueryInterface for a class that implements several interfaces. Objects are made with
// make<T>(), begin with one reference, count as a use of the module and cannot be aggregated.
#pragma once

#include <atomic>
#include <concepts>
#include <utility>

#include "com/kit/guard.h"
#include "com/kit/pointer.h"
#include "win/module.h"

namespace telvar::com {

// A helper class that implements an interface names it as `ComInterface`; an interface is its own.
template <class T>
struct InterfaceOf {
    using type = T;
};
template <class T>
    requires requires { typename T::ComInterface; }
struct InterfaceOf<T> {
    using type = typename T::ComInterface;
};

namespace detail {

// The interfaces that others are made from; whoever implements the heir answers for them too.
template <class Interface, class... Parents>
[[nodiscard]] bool answersAsParent(REFIID iid) noexcept {
    return ((std::derived_from<Interface, Parents> && IsEqualIID(iid, __uuidof(Parents))) || ...);
}

template <class Interface>
[[nodiscard]] bool answersTo(REFIID iid) noexcept {
    return IsEqualIID(iid, __uuidof(Interface)) ||
           answersAsParent<Interface, IUnknown, IDispatch, IPersist, IOleWindow, IViewObject, IProvideClassInfo,
                           IParseDisplayName, IAdviseSink, IOleInPlaceSite, IOleInPlaceUIWindow>(iid);
}

}  // namespace detail

// The first interface is the identity and the one that answers for parents that several share.
template <class... Interfaces>
class Object : public Interfaces... {
public:
    Object() noexcept = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    Object(Object&&) = delete;
    Object& operator=(Object&&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        (void)((detail::answersTo<typename InterfaceOf<Interfaces>::type>(iid) &&
                (*object = static_cast<typename InterfaceOf<Interfaces>::type*>(static_cast<Interfaces*>(this))) !=
                    nullptr) ||
               ...);
        if (*object == nullptr) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }

    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) {
            // The destructor may hand the object out once more and have it released again.
            references_ = 1;
            delete this;
        } else {
            referenceLost(left);
        }
        return left;
    }

protected:
    virtual ~Object() = default;

    // After each release that was not the last one; for objects that end their work when only they hold themselves.
    virtual void referenceLost(ULONG /*left*/) noexcept {}

private:
    std::atomic<ULONG> references_ = 1;
    win::Use use_;
};

template <class T, class... Arguments>
[[nodiscard]] ComPointer<T> make(Arguments&&... arguments) {
    return ComPointer<T>::adopt(new T(std::forward<Arguments>(arguments)...));
}

// For the length of a call or an event: the object survives whoever releases it inside.
template <class T>
[[nodiscard]] ComPointer<T> keepAlive(T* object) noexcept {
    return ComPointer<T>(object);
}

}  // namespace telvar::com
