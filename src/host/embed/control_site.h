// The container's side of one embedded control: client site, in-place site, control site, ambient properties and the
// two notification sinks. One object, cut into files by family of interfaces. It may outlive the window it serves:
// after detach() it answers failures.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/object.h"
#include "com/kit/pointer.h"
#include "host/embed/container_frame.h"
#include "host/embed/site_owner.h"

namespace telvar::host {

class ControlSite final : public com::Object<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, IDispatch, IAdviseSink,
                                             IPropertyNotifySink> {
public:
    // `owner` lives until detach().
    ControlSite(SiteOwner& owner, ContainerFrame& frame) noexcept;

    // The control that this site serves; borrowed until detach().
    void attach(IOleObject* control);
    void detach() noexcept;

    [[nodiscard]] bool isActive() const noexcept { return inPlace_.get() != nullptr; }
    [[nodiscard]] bool isUserInterfaceActive() const noexcept { return userInterfaceActive_; }
    [[nodiscard]] IOleInPlaceObject* inPlaceObject() const noexcept { return inPlace_.get(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override;
    STDMETHODIMP OnShowWindow(BOOL show) noexcept override;
    STDMETHODIMP RequestNewObjectLayout() noexcept override;

    // IOleWindow, IOleInPlaceSite, IOleInPlaceSiteEx
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;
    STDMETHODIMP CanInPlaceActivate() noexcept override;
    STDMETHODIMP OnInPlaceActivate() noexcept override;
    STDMETHODIMP OnUIActivate() noexcept override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO information) noexcept override;
    STDMETHODIMP Scroll(SIZE extent) noexcept override;
    STDMETHODIMP OnUIDeactivate(BOOL undoable) noexcept override;
    STDMETHODIMP OnInPlaceDeactivate() noexcept override;
    STDMETHODIMP DiscardUndoState() noexcept override;
    STDMETHODIMP DeactivateAndUndo() noexcept override;
    STDMETHODIMP OnPosRectChange(LPCRECT place) noexcept override;
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) noexcept override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL noRedraw) noexcept override;
    STDMETHODIMP RequestUIActivate() noexcept override;

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override;
    STDMETHODIMP LockInPlaceActive(BOOL lock) noexcept override;
    STDMETHODIMP GetExtendedControl(IDispatch** extended) noexcept override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    STDMETHODIMP OnFocus(BOOL gotFocus) noexcept override;
    STDMETHODIMP ShowPropertyFrame() noexcept override;

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) noexcept override;

    // IAdviseSink
    STDMETHODIMP_(void) OnDataChange(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    STDMETHODIMP_(void) OnViewChange(DWORD aspect, LONG index) noexcept override;
    STDMETHODIMP_(void) OnRename(IMoniker* moniker) noexcept override;
    STDMETHODIMP_(void) OnSave() noexcept override;
    STDMETHODIMP_(void) OnClose() noexcept override;

    // IPropertyNotifySink
    STDMETHODIMP OnChanged(DISPID member) noexcept override;
    STDMETHODIMP OnRequestEdit(DISPID member) noexcept override;

private:
    ~ControlSite() override = default;

    SiteOwner* owner_;
    com::ComPointer<ContainerFrame> frame_;
    IOleObject* control_ = nullptr;
    com::ComPointer<IOleInPlaceObject> inPlace_;
    bool userInterfaceActive_ = false;
    int activeLocks_ = 0;
};

}  // namespace telvar::host
