// The window around the embedded control as OLE sees it: frame (status text, accelerators, modeless state, active
// object) and container (which objects lie in it). It grants no room for toolbars and takes no menus of the control.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/object.h"
#include "com/kit/pointer.h"
#include "host/embed/site_owner.h"

namespace telvar::host {

class ContainerFrame final : public com::Object<IOleInPlaceFrame, IOleContainer> {
public:
    // `owner` lives until detach().
    explicit ContainerFrame(SiteOwner& owner) noexcept : owner_(&owner) {}

    void detach() noexcept;
    // The one object inside; borrowed until it is set to null.
    void setContents(IUnknown* object) noexcept { contents_ = object; }
    [[nodiscard]] IOleInPlaceActiveObject* activeObject() const noexcept { return active_.get(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;

    // IOleWindow, IOleInPlaceUIWindow, IOleInPlaceFrame
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;
    STDMETHODIMP GetBorder(LPRECT border) noexcept override;
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) noexcept override;
    STDMETHODIMP InsertMenus(HMENU shared, LPOLEMENUGROUPWIDTHS widths) noexcept override;
    STDMETHODIMP SetMenu(HMENU shared, HOLEMENU menu, HWND object) noexcept override;
    STDMETHODIMP RemoveMenus(HMENU shared) noexcept override;
    STDMETHODIMP SetStatusText(LPCOLESTR text) noexcept override;
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD identifier) noexcept override;

    // IParseDisplayName, IOleContainer
    STDMETHODIMP ParseDisplayName(IBindCtx* context, LPOLESTR name, ULONG* eaten, IMoniker** moniker) noexcept override;
    STDMETHODIMP EnumObjects(DWORD flags, IEnumUnknown** enumerator) noexcept override;
    STDMETHODIMP LockContainer(BOOL lock) noexcept override;

private:
    ~ContainerFrame() override = default;

    SiteOwner* owner_;
    IUnknown* contents_ = nullptr;
    com::ComPointer<IOleInPlaceActiveObject> active_;
};

}  // namespace telvar::host
