#include "host/embed/container_frame.h"

#include <utility>
#include <vector>

#include "com/kit/enumerator.h"

namespace telvar::host {

namespace {

struct GiveObject {
    static IUnknown* give(const com::ComPointer<IUnknown>& object) noexcept { return object.share(); }
};

using ObjectEnumerator = com::Enumerator<IEnumUnknown, com::ComPointer<IUnknown>, IUnknown*, GiveObject>;

}  // namespace

void ContainerFrame::detach() noexcept {
    owner_ = nullptr;
    contents_ = nullptr;
    active_.reset();
}

STDMETHODIMP ContainerFrame::QueryInterface(REFIID iid, void** object) noexcept {
    const bool parent = IsEqualIID(iid, __uuidof(IOleInPlaceUIWindow));
    return Object::QueryInterface(parent ? __uuidof(IOleInPlaceFrame) : iid, object);
}

STDMETHODIMP ContainerFrame::GetWindow(HWND* window) noexcept {
    if (window == nullptr) {
        return E_POINTER;
    }
    *window = owner_ == nullptr ? nullptr : owner_->siteWindow();
    return *window == nullptr ? E_FAIL : S_OK;
}

STDMETHODIMP ContainerFrame::ContextSensitiveHelp(BOOL) noexcept { return E_NOTIMPL; }

STDMETHODIMP ContainerFrame::GetBorder(LPRECT border) noexcept {
    if (border == nullptr) {
        return E_POINTER;
    }
    SetRectEmpty(border);
    return INPLACE_E_NOTOOLSPACE;
}

STDMETHODIMP ContainerFrame::RequestBorderSpace(LPCBORDERWIDTHS) noexcept { return INPLACE_E_NOTOOLSPACE; }

STDMETHODIMP ContainerFrame::SetBorderSpace(LPCBORDERWIDTHS widths) noexcept {
    const bool none =
        widths == nullptr || (widths->left == 0 && widths->top == 0 && widths->right == 0 && widths->bottom == 0);
    return none ? S_OK : INPLACE_E_NOTOOLSPACE;
}

STDMETHODIMP ContainerFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept {
    active_ = com::ComPointer<IOleInPlaceActiveObject>(object);
    return S_OK;
}

STDMETHODIMP ContainerFrame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept { return E_NOTIMPL; }

STDMETHODIMP ContainerFrame::SetMenu(HMENU, HOLEMENU, HWND) noexcept { return S_OK; }

STDMETHODIMP ContainerFrame::RemoveMenus(HMENU) noexcept { return E_NOTIMPL; }

STDMETHODIMP ContainerFrame::SetStatusText(LPCOLESTR text) noexcept {
    if (owner_ == nullptr) {
        return E_FAIL;
    }
    return com::guarded([&] { owner_->showStatus(text == nullptr ? L"" : text); });
}

STDMETHODIMP ContainerFrame::EnableModeless(BOOL enable) noexcept {
    if (owner_ != nullptr) {
        owner_->enableWindow(enable != FALSE);
    }
    return S_OK;
}

STDMETHODIMP ContainerFrame::TranslateAccelerator(LPMSG message, WORD) noexcept {
    if (owner_ == nullptr || message == nullptr) {
        return S_FALSE;
    }
    // The control also hands on what its modeless forms, windows of their own, have no use for.
    const HWND window = owner_->siteWindow();
    const bool own = message->hwnd == window || IsChild(window, message->hwnd) != FALSE;
    const HACCEL table = own ? owner_->accelerators() : owner_->formAccelerators();
    return ::TranslateAcceleratorW(window, table, message) != 0 ? S_OK : S_FALSE;
}

STDMETHODIMP ContainerFrame::ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker** moniker) noexcept {
    if (moniker != nullptr) {
        *moniker = nullptr;
    }
    return E_NOTIMPL;
}

STDMETHODIMP ContainerFrame::EnumObjects(DWORD flags, IEnumUnknown** enumerator) noexcept {
    if (enumerator == nullptr) {
        return E_POINTER;
    }
    return com::guarded([&] {
        std::vector<com::ComPointer<IUnknown>> objects;
        if (contents_ != nullptr && (flags & OLECONTF_EMBEDDINGS) != 0) {
            objects.emplace_back(contents_);
        }
        *enumerator = com::make<ObjectEnumerator>(std::move(objects)).detach();
    });
}

STDMETHODIMP ContainerFrame::LockContainer(BOOL) noexcept { return S_OK; }

}  // namespace telvar::host
