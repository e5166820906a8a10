// A control that only records what its container calls, in order, and plays a real one's part towards its site.
#pragma once

#include <string>
#include <vector>

#include "com/kit/object.h"
#include "com/kit/pointer.h"

namespace telvar::tests {

using Calls = std::vector<std::string>;

class FakeControl final
    : public com::Object<IOleObject, IOleInPlaceObject, IOleInPlaceActiveObject, IOleControl, IPersistStreamInit> {
public:
    explicit FakeControl(Calls& calls) : calls_(calls) {}

    // What the container gave and what the next call is to do.
    com::ComPointer<IOleClientSite> site;
    com::ComPointer<IOleInPlaceFrame> frame;
    HWND window = nullptr;
    HRESULT verbResult = S_OK;
    bool takesKeys = true;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* given) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** given) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR object) noexcept override;
    STDMETHODIMP Close(DWORD option) noexcept override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* active, LONG index, HWND parent,
                        LPCRECT place) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Update() noexcept override { return S_OK; }
    STDMETHODIMP IsUpToDate() noexcept override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP GetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
    STDMETHODIMP Unadvise(DWORD connection) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD, DWORD*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

    // IOleWindow, IOleInPlaceObject, IOleInPlaceActiveObject
    STDMETHODIMP GetWindow(HWND* given) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) noexcept override;
    STDMETHODIMP OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnMnemonic(MSG*) noexcept override { return S_OK; }
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL) noexcept override { return S_OK; }

    // IPersist, IPersistStreamInit
    STDMETHODIMP GetClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP IsDirty() noexcept override { return S_FALSE; }
    STDMETHODIMP Load(IStream*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Save(IStream*, BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() noexcept override;

private:
    ~FakeControl() override { calls_.emplace_back("destroyed"); }

    void record(const std::string& call) { calls_.push_back(call); }

    Calls& calls_;
};

}  // namespace telvar::tests
