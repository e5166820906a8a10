// In-place activation: where the control's window goes and when it becomes active.
#include "host/embed/control_site.h"

namespace telvar::host {

STDMETHODIMP ControlSite::GetWindow(HWND* window) noexcept {
    if (window == nullptr) {
        return E_POINTER;
    }
    *window = owner_ == nullptr ? nullptr : owner_->siteWindow();
    return *window == nullptr ? E_FAIL : S_OK;
}

STDMETHODIMP ControlSite::ContextSensitiveHelp(BOOL) noexcept { return E_NOTIMPL; }

STDMETHODIMP ControlSite::CanInPlaceActivate() noexcept { return owner_ == nullptr ? S_FALSE : S_OK; }

STDMETHODIMP ControlSite::OnInPlaceActivate() noexcept { return OnInPlaceActivateEx(nullptr, 0); }

STDMETHODIMP ControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) noexcept {
    if (noRedraw != nullptr) {
        *noRedraw = FALSE;
    }
    if (control_ == nullptr) {
        return E_FAIL;
    }
    inPlace_.reset();
    return control_->QueryInterface(IID_IOleInPlaceObject, inPlace_.putVoid());
}

STDMETHODIMP ControlSite::OnUIActivate() noexcept {
    userInterfaceActive_ = true;
    return S_OK;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                           LPRECT clip, LPOLEINPLACEFRAMEINFO information) noexcept {
    if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr || information == nullptr) {
        return E_POINTER;
    }
    *frame = nullptr;
    // The frame is the document's window as well.
    *document = nullptr;
    if (owner_ == nullptr) {
        return E_FAIL;
    }
    *frame = frame_.share();
    *place = owner_->sitePlace();
    *clip = *place;
    information->fMDIApp = FALSE;
    information->hwndFrame = owner_->siteWindow();
    information->haccel = owner_->accelerators();
    information->cAccelEntries =
        static_cast<UINT>(information->haccel == nullptr ? 0 : CopyAcceleratorTableW(information->haccel, nullptr, 0));
    return S_OK;
}

STDMETHODIMP ControlSite::Scroll(SIZE) noexcept { return S_FALSE; }

STDMETHODIMP ControlSite::OnUIDeactivate(BOOL) noexcept {
    userInterfaceActive_ = false;
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceDeactivate() noexcept { return OnInPlaceDeactivateEx(TRUE); }

STDMETHODIMP ControlSite::OnInPlaceDeactivateEx(BOOL) noexcept {
    userInterfaceActive_ = false;
    inPlace_.reset();
    return S_OK;
}

STDMETHODIMP ControlSite::DiscardUndoState() noexcept { return E_NOTIMPL; }

STDMETHODIMP ControlSite::DeactivateAndUndo() noexcept { return E_NOTIMPL; }

// The control fills the window whatever size it asks for.
STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT) noexcept {
    if (owner_ == nullptr || !isActive()) {
        return E_FAIL;
    }
    const com::ComPointer<IOleInPlaceObject> object = inPlace_;
    const RECT place = owner_->sitePlace();
    return object->SetObjectRects(&place, &place);
}

STDMETHODIMP ControlSite::RequestUIActivate() noexcept { return owner_ == nullptr ? S_FALSE : S_OK; }

}  // namespace telvar::host
