#include "com/control/in_place.h"

#include <utility>

#include "com/kit/failure.h"

namespace telvar::com {

namespace {

[[nodiscard]] HRESULT announceActivation(IOleInPlaceSite& site) noexcept {
    if (const auto extended = ComPointer<IOleInPlaceSiteEx>::from(&site)) {
        BOOL noRedraw = FALSE;
        return extended->OnInPlaceActivateEx(&noRedraw, 0);
    }
    return site.OnInPlaceActivate();
}

}  // namespace

void InPlace::activate(IOleClientSite& client, const RECT* position) {
    if (active()) {
        return;
    }
    const auto site = ComPointer<IOleInPlaceSite>::from(&client);
    if (!site) {
        throw ComFailure(E_NOINTERFACE, "The host has no place for a window");
    }
    if (site->CanInPlaceActivate() != S_OK) {
        throw ComFailure(E_FAIL, "The host does not allow the control to be active");
    }
    check(announceActivation(*site));
    try {
        open(*site, position);
    } catch (...) {
        site->OnInPlaceDeactivate();
        throw;
    }
}

void InPlace::open(IOleInPlaceSite& site, const RECT* position) {
    HWND parent = nullptr;
    check(site.GetWindow(&parent));
    Context context = askContext(site);
    const bool given = position != nullptr && IsRectEmpty(position) == FALSE;
    const RECT at = given ? *position : context.position;
    auto window = std::make_unique<win32::PanelWindow>(desktop_, panel_, parent, at);
    window->setFocusCallbacks(listener_.focusEntered, listener_.focusLeft);
    window->setHolder(listener_.holder);
    if (IsRectEmpty(&context.clip) == FALSE) {
        window->move(at, &context.clip);
    }
    window_ = std::move(window);
    site_ = ComPointer<IOleInPlaceSite>(&site);
    enable(enabled_);
}

// A host that has no answer has no frame either; the rectangle of the verb must do then.
InPlace::Context InPlace::askContext(IOleInPlaceSite& site) {
    Context context;
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    ComPointer<IOleInPlaceFrame> frame;
    ComPointer<IOleInPlaceUIWindow> document;
    if (FAILED(site.GetWindowContext(frame.put(), document.put(), &context.position, &context.clip, &info))) {
        return {};
    }
    frame_ = std::move(frame);
    document_ = std::move(document);
    return context;
}

void InPlace::deactivate() noexcept {
    if (!active()) {
        return;
    }
    uiDeactivate();
    // Nothing of the control points to the window any more when it ends, and nothing to the host when it is told.
    const auto window = std::exchange(window_, nullptr);
    const auto site = std::exchange(site_, nullptr);
    const auto frame = std::exchange(frame_, nullptr);
    const auto document = std::exchange(document_, nullptr);
    if (site) {
        site->OnInPlaceDeactivate();
    }
}

void InPlace::uiActivate(IOleInPlaceActiveObject& object) noexcept {
    if (!active() || std::exchange(uiActive_, true)) {
        return;
    }
    if (const auto site = site_; FAILED(site->OnUIActivate())) {
        uiActive_ = false;
        return;
    }
    constexpr const wchar_t* name = L"Channel information";
    if (const auto frame = frame_; frame && uiActive_) {
        frame->SetActiveObject(&object, name);
        frame->SetBorderSpace(nullptr);
    }
    if (const auto document = document_; document && uiActive_) {
        document->SetActiveObject(&object, name);
        document->SetBorderSpace(nullptr);
    }
}

void InPlace::uiDeactivate() noexcept {
    if (!std::exchange(uiActive_, false)) {
        return;
    }
    const auto site = site_;
    const auto frame = frame_;
    const auto document = document_;
    if (document) {
        document->SetActiveObject(nullptr, nullptr);
    }
    if (frame) {
        frame->SetActiveObject(nullptr, nullptr);
    }
    if (site) {
        site->OnUIDeactivate(FALSE);
    }
}

void InPlace::move(const RECT& position, const RECT* clip) {
    if (window_) {
        window_->move(position, clip);
    }
}

void InPlace::show(bool visible) noexcept {
    if (window_) {
        window_->show(visible);
    }
}

void InPlace::enable(bool enabled) noexcept {
    enabled_ = enabled;
    if (const HWND handle = window()) {
        EnableWindow(handle, enabled ? TRUE : FALSE);
    }
}

void InPlace::enableModeless(bool enable) const noexcept {
    if (const auto frame = frame_) {
        frame->EnableModeless(enable ? TRUE : FALSE);
    }
}

}  // namespace telvar::com
