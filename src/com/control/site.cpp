#include "com/control/site.h"

#include "base/conversion.h"
#include "com/kit/late_bound.h"
#include "com/kit/value.h"

namespace telvar::com {

namespace {

// Bits of IOleControlSite::TranslateAccelerator; they stand in no header.
constexpr DWORD shiftDown = 1;
constexpr DWORD controlDown = 2;
constexpr DWORD altDown = 4;

[[nodiscard]] bool isDown(int key) noexcept { return GetKeyState(key) < 0; }

[[nodiscard]] DWORD modifiers() noexcept {
    return (isDown(VK_SHIFT) ? shiftDown : 0) | (isDown(VK_CONTROL) ? controlDown : 0) |
           (isDown(VK_MENU) ? altDown : 0);
}

}  // namespace

HWND Site::ownerWindow() const noexcept {
    HWND window = nullptr;
    const auto place = ComPointer<IOleWindow>::from(ComPointer<IOleInPlaceSite>::from(client_));
    if (!place || FAILED(place->GetWindow(&window)) || window == nullptr) {
        return nullptr;
    }
    return GetAncestor(window, GA_ROOT);
}

bool Site::ambientTruth(DISPID property, bool otherwise) const noexcept {
    const auto ambient = ComPointer<IDispatch>::from(client_);
    if (!ambient) {
        return otherwise;
    }
    try {
        return base::isTrue(valueOf(invoke(*ambient, {.id = property}, DISPATCH_PROPERTYGET)));
    } catch (const base::Failure&) {
        return otherwise;
    }
}

void Site::focusChanged(bool focused) const noexcept {
    if (const auto control = ComPointer<IOleControlSite>::from(client_)) {
        control->OnFocus(focused ? TRUE : FALSE);
    }
}

bool Site::translate(MSG& message) const noexcept {
    const auto control = ComPointer<IOleControlSite>::from(client_);
    return control && control->TranslateAccelerator(&message, modifiers()) == S_OK;
}

}  // namespace telvar::com
