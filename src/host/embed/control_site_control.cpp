// What controls ask of their site beyond activation: coordinates, keys that they hand back, focus.
#include <cmath>

#include "host/embed/control_site.h"
#include "win/scaling.h"

namespace telvar::host {

STDMETHODIMP ControlSite::OnControlInfoChanged() noexcept { return S_OK; }

STDMETHODIMP ControlSite::LockInPlaceActive(BOOL lock) noexcept {
    activeLocks_ += lock != FALSE ? 1 : -1;
    return S_OK;
}

STDMETHODIMP ControlSite::GetExtendedControl(IDispatch** extended) noexcept {
    if (extended != nullptr) {
        *extended = nullptr;
    }
    return E_NOTIMPL;
}

// The container's coordinates are pixels of its window.
STDMETHODIMP ControlSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept {
    if (himetric == nullptr || container == nullptr) {
        return E_POINTER;
    }
    if (owner_ == nullptr) {
        return E_FAIL;
    }
    const int dpi = win::dpiOf(owner_->siteWindow());
    if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
        const SIZE pixels = win::toPixels({himetric->x, himetric->y}, dpi);
        container->x = static_cast<float>(pixels.cx);
        container->y = static_cast<float>(pixels.cy);
        return S_OK;
    }
    if ((flags & XFORMCOORDS_CONTAINERTOHIMETRIC) != 0) {
        const SIZEL size = win::toHimetric({std::lround(container->x), std::lround(container->y)}, dpi);
        himetric->x = size.cx;
        himetric->y = size.cy;
        return S_OK;
    }
    return E_INVALIDARG;
}

STDMETHODIMP ControlSite::TranslateAccelerator(MSG* message, DWORD) noexcept {
    return frame_->TranslateAccelerator(message, 0);
}

STDMETHODIMP ControlSite::OnFocus(BOOL) noexcept { return S_OK; }

STDMETHODIMP ControlSite::ShowPropertyFrame() noexcept { return E_NOTIMPL; }

}  // namespace telvar::host
