// Identity and life of the site, and the families that only take notice: client site, advise sink, property sink.
#include "host/embed/control_site.h"

namespace telvar::host {

ControlSite::ControlSite(SiteOwner& owner, ContainerFrame& frame) noexcept : owner_(&owner), frame_(&frame) {}

void ControlSite::attach(IOleObject* control) { control_ = control; }

void ControlSite::detach() noexcept {
    owner_ = nullptr;
    control_ = nullptr;
    inPlace_.reset();
}

STDMETHODIMP ControlSite::QueryInterface(REFIID iid, void** object) noexcept {
    const bool parent = IsEqualIID(iid, __uuidof(IOleInPlaceSite));
    return Object::QueryInterface(parent ? __uuidof(IOleInPlaceSiteEx) : iid, object);
}

// The control keeps no data, so there is nothing to save with the container.
STDMETHODIMP ControlSite::SaveObject() noexcept { return S_OK; }

STDMETHODIMP ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker != nullptr) {
        *moniker = nullptr;
    }
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) noexcept {
    return frame_->QueryInterface(IID_IOleContainer, reinterpret_cast<void**>(container));
}

STDMETHODIMP ControlSite::ShowObject() noexcept { return S_OK; }

STDMETHODIMP ControlSite::OnShowWindow(BOOL) noexcept { return S_OK; }

STDMETHODIMP ControlSite::RequestNewObjectLayout() noexcept { return E_NOTIMPL; }

STDMETHODIMP_(void) ControlSite::OnDataChange(FORMATETC*, STGMEDIUM*) noexcept {}

// An active control paints itself.
STDMETHODIMP_(void) ControlSite::OnViewChange(DWORD, LONG) noexcept {}

STDMETHODIMP_(void) ControlSite::OnRename(IMoniker*) noexcept {}

STDMETHODIMP_(void) ControlSite::OnSave() noexcept {}

STDMETHODIMP_(void) ControlSite::OnClose() noexcept {}

STDMETHODIMP ControlSite::OnChanged(DISPID) noexcept { return S_OK; }

STDMETHODIMP ControlSite::OnRequestEdit(DISPID) noexcept { return S_OK; }

}  // namespace telvar::host
