#include "fake_control.h"

namespace telvar::tests {

namespace {

std::string size(const RECT& place) {
    return std::to_string(place.right - place.left) + "x" + std::to_string(place.bottom - place.top);
}

}  // namespace

STDMETHODIMP FakeControl::SetClientSite(IOleClientSite* given) noexcept {
    record(given == nullptr ? "SetClientSite(none)" : "SetClientSite");
    site = com::ComPointer<IOleClientSite>(given);
    return S_OK;
}

STDMETHODIMP FakeControl::GetClientSite(IOleClientSite** given) noexcept {
    *given = site.share();
    return S_OK;
}

STDMETHODIMP FakeControl::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept {
    record("SetHostNames");
    return S_OK;
}

STDMETHODIMP FakeControl::Close(DWORD option) noexcept {
    record(option == OLECLOSE_NOSAVE ? "Close(no save)" : "Close");
    return S_OK;
}

STDMETHODIMP FakeControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT place) noexcept {
    record("DoVerb(" + std::to_string(verb) + ", " + size(*place) + ")");
    if (FAILED(verbResult)) {
        return verbResult;
    }
    const auto inPlaceSite = com::ComPointer<IOleInPlaceSiteEx>::from(site);
    if (window == nullptr) {
        BOOL noRedraw = FALSE;
        inPlaceSite->OnInPlaceActivateEx(&noRedraw, 0);
        com::ComPointer<IOleInPlaceUIWindow> document;
        RECT position{};
        RECT clip{};
        OLEINPLACEFRAMEINFO information{};
        information.cb = sizeof information;
        inPlaceSite->GetWindowContext(frame.put(), document.put(), &position, &clip, &information);
        window = CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr, nullptr,
                                 nullptr);
    }
    if (verb == OLEIVERB_UIACTIVATE) {
        inPlaceSite->OnUIActivate();
        frame->SetActiveObject(this, nullptr);
        SetFocus(window);
    }
    return S_OK;
}

STDMETHODIMP FakeControl::SetExtent(DWORD, SIZEL* extent) noexcept {
    record("SetExtent(" + std::to_string(extent->cx) + "x" + std::to_string(extent->cy) + ")");
    return S_OK;
}

STDMETHODIMP FakeControl::Advise(IAdviseSink*, DWORD* connection) noexcept {
    record("Advise");
    *connection = 7;
    return S_OK;
}

STDMETHODIMP FakeControl::Unadvise(DWORD connection) noexcept {
    record("Unadvise(" + std::to_string(connection) + ")");
    return S_OK;
}

STDMETHODIMP FakeControl::GetWindow(HWND* given) noexcept {
    *given = window;
    return window == nullptr ? E_FAIL : S_OK;
}

STDMETHODIMP FakeControl::InPlaceDeactivate() noexcept {
    record("InPlaceDeactivate");
    DestroyWindow(window);
    window = nullptr;
    if (const auto inPlaceSite = com::ComPointer<IOleInPlaceSiteEx>::from(site)) {
        inPlaceSite->OnInPlaceDeactivateEx(TRUE);
    }
    frame.reset();
    return S_OK;
}

STDMETHODIMP FakeControl::UIDeactivate() noexcept {
    record("UIDeactivate");
    if (frame) {
        frame->SetActiveObject(nullptr, nullptr);
    }
    return S_OK;
}

STDMETHODIMP FakeControl::SetObjectRects(LPCRECT place, LPCRECT) noexcept {
    record("SetObjectRects(" + size(*place) + ")");
    return S_OK;
}

STDMETHODIMP FakeControl::TranslateAccelerator(LPMSG message) noexcept {
    record("TranslateAccelerator(" + std::to_string(message->wParam) + ")");
    return takesKeys ? S_OK : S_FALSE;
}

STDMETHODIMP FakeControl::OnFrameWindowActivate(BOOL activate) noexcept {
    record(activate ? "OnFrameWindowActivate(yes)" : "OnFrameWindowActivate(no)");
    return S_OK;
}

STDMETHODIMP FakeControl::EnableModeless(BOOL enable) noexcept {
    record(enable ? "EnableModeless(yes)" : "EnableModeless(no)");
    return S_OK;
}

STDMETHODIMP FakeControl::OnAmbientPropertyChange(DISPID property) noexcept {
    record("OnAmbientPropertyChange(" + std::to_string(property) + ")");
    return S_OK;
}

STDMETHODIMP FakeControl::InitNew() noexcept {
    record("InitNew");
    return S_OK;
}

}  // namespace telvar::tests
