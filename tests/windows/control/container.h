// A small, well-behaved container: site, frame, ambient properties and notifications in one object, over a top-level
// window. It writes down what the control tells it.
#pragma once

#include <functional>

#include <windows.h>

#include "world.h"

namespace telvar::tests {

class Container final
    : public com::Object<IOleClientSite, IOleInPlaceSiteEx, IOleInPlaceFrame, IOleControlSite, IDispatch> {
public:
    explicit Container(IUnknown& control);

    // Puts the control into its site and shows it, the whole client area; and takes it out again.
    HRESULT activate(LONG verb = OLEIVERB_INPLACEACTIVATE);
    void close();
    void resize(int width, int height);

    [[nodiscard]] HWND window() const noexcept { return window_; }
    [[nodiscard]] HWND controlWindow() const;
    [[nodiscard]] const Texts& told() const noexcept { return told_; }
    [[nodiscard]] int count(const std::string& what) const;
    void forget() noexcept { told_.clear(); }

    // Ambient properties; the others are unknown.
    bool userMode = true;
    bool uiDead = false;
    // Called for everything that the control tells.
    std::function<void(const std::string&)> reaction;

    // ---- IOleClientSite
    STDMETHODIMP SaveObject() noexcept override { return tell("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override {
        *moniker = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override {
        *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() noexcept override { return tell("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // ---- IOleInPlaceSiteEx
    STDMETHODIMP GetWindow(HWND* window) noexcept override {
        *window = window_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() noexcept override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() noexcept override { return tell("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() noexcept override { return tell("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) noexcept override;
    STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return tell("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() noexcept override { return tell("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD) noexcept override {
        *noRedraw = FALSE;
        return tell("OnInPlaceActivate");
    }
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL) noexcept override { return tell("OnInPlaceDeactivate"); }
    STDMETHODIMP RequestUIActivate() noexcept override { return S_OK; }

    // ---- IOleInPlaceFrame
    STDMETHODIMP GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) noexcept override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) noexcept override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override {
        return tell(enable != FALSE ? "EnableModeless" : "DisableModeless");
    }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) noexcept override { return S_FALSE; }

    // ---- IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetExtendedControl(IDispatch** object) noexcept override {
        *object = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) noexcept override {
        told_.emplace_back("TranslateAccelerator");
        return S_FALSE;
    }
    STDMETHODIMP OnFocus(BOOL focused) noexcept override { return tell(focused != FALSE ? "OnFocus" : "OnFocusLost"); }
    STDMETHODIMP ShowPropertyFrame() noexcept override { return E_NOTIMPL; }

    // ---- ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        *info = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override;

protected:
    ~Container() override;

private:
    HRESULT tell(const std::string& what) noexcept;
    [[nodiscard]] RECT area() const;

    ComPointer<IOleObject> object_;
    ComPointer<IOleInPlaceObject> inPlace_;
    ComPointer<IOleInPlaceActiveObject> activeObject_;
    HWND window_ = nullptr;
    Texts told_;
};

}  // namespace telvar::tests
