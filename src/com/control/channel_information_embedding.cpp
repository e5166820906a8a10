// IOleObject: site, verbs, extent and what hosts are told of the object.
#include "com/control/channel_information_object.h"

#include <algorithm>
#include <string_view>

namespace telvar::com {

namespace {

constexpr std::wstring_view userType = L"Channel information";

[[nodiscard]] bool isContent(DWORD aspect) noexcept { return aspect == DVASPECT_CONTENT; }

// For callers who free it with the task allocator.
[[nodiscard]] LPOLESTR taskText(std::wstring_view text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    auto* const copy = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (copy == nullptr) {
        throw ComFailure(E_OUTOFMEMORY);
    }
    *std::copy(text.begin(), text.end(), copy) = L'\0';
    return copy;
}

}  // namespace

HRESULT ChannelInformationObject::SetClientSite(IOleClientSite* site) noexcept {
    return call([&] {
        if (site == nullptr) {
            inPlace_.deactivate();
        }
        site_.set(site);
        readAmbients();
    });
}

HRESULT ChannelInformationObject::GetClientSite(IOleClientSite** site) noexcept {
    return call([&] { deref(site) = site_.client().share(); });
}

HRESULT ChannelInformationObject::SetHostNames(LPCOLESTR /*application*/, LPCOLESTR /*document*/) noexcept {
    return S_OK;
}

// Back to the loaded state; the host may activate the control again.
HRESULT ChannelInformationObject::Close(DWORD save) noexcept {
    return call([&] {
        const auto client = site_.client();
        if (save != OLECLOSE_NOSAVE && dirty_ && client) {
            client->SaveObject();
        }
        inPlace_.deactivate();
        // Whoever waits for a modal form goes on.
        control_.closeForms();
        if (const auto advises = advises_) {
            advises->SendOnClose();
        }
    });
}

HRESULT ChannelInformationObject::SetMoniker(DWORD /*which*/, IMoniker* /*moniker*/) noexcept { return E_NOTIMPL; }

HRESULT ChannelInformationObject::GetMoniker(DWORD /*assign*/, DWORD /*which*/, IMoniker** moniker) noexcept {
    if (moniker != nullptr) {
        *moniker = nullptr;
    }
    return E_NOTIMPL;
}

HRESULT ChannelInformationObject::InitFromData(IDataObject* /*data*/, BOOL /*creation*/, DWORD /*reserved*/) noexcept {
    return E_NOTIMPL;
}

HRESULT ChannelInformationObject::GetClipboardData(DWORD /*reserved*/, IDataObject** data) noexcept {
    if (data != nullptr) {
        *data = nullptr;
    }
    return E_NOTIMPL;
}

HRESULT ChannelInformationObject::DoVerb(LONG verb, LPMSG message, IOleClientSite* /*site*/, LONG /*index*/,
                                         HWND /*parent*/, LPCRECT position) noexcept {
    return call([&] {
        switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_HIDE:
        case OLEIVERB_UIACTIVATE:
        case OLEIVERB_INPLACEACTIVATE:
            perform(verb, message, position);
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        default:
            if (verb < 0) {
                return E_NOTIMPL;
            }
            perform(OLEIVERB_PRIMARY, message, position);
            return OLEOBJ_S_INVALIDVERB;
        }
    });
}

HRESULT ChannelInformationObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    if (verbs != nullptr) {
        *verbs = nullptr;
    }
    return OLEOBJ_E_NOVERBS;
}

HRESULT ChannelInformationObject::Update() noexcept { return S_OK; }

HRESULT ChannelInformationObject::IsUpToDate() noexcept { return S_OK; }

HRESULT ChannelInformationObject::GetUserClassID(CLSID* classId) noexcept { return GetClassID(classId); }

HRESULT ChannelInformationObject::GetUserType(DWORD /*form*/, LPOLESTR* type) noexcept {
    return call([&] { deref(type) = taskText(userType); });
}

// Some hosts count in units of their own here, so the size on the screen comes from rectangles alone.
HRESULT ChannelInformationObject::SetExtent(DWORD aspect, SIZEL* extent) noexcept {
    return call([&] {
        const SIZEL given = deref(extent);
        if (!isContent(aspect)) {
            return DV_E_DVASPECT;
        }
        if (given.cx < 0 || given.cy < 0) {
            return E_INVALIDARG;
        }
        if (given.cx != extent_.cx || given.cy != extent_.cy) {
            extent_ = given;
            dirty_ = true;
            pictureChanged();
        }
        return S_OK;
    });
}

HRESULT ChannelInformationObject::GetExtent(DWORD aspect, SIZEL* extent) noexcept {
    return call([&] {
        deref(extent) = extent_;
        return isContent(aspect) ? S_OK : DV_E_DVASPECT;
    });
}

HRESULT ChannelInformationObject::Advise(IAdviseSink* sink, DWORD* cookie) noexcept {
    return call([&] {
        if (!advises_) {
            check(CreateOleAdviseHolder(advises_.put()));
        }
        return advises_->Advise(sink, cookie);
    });
}

HRESULT ChannelInformationObject::Unadvise(DWORD cookie) noexcept {
    return call([&] { return advises_ ? advises_->Unadvise(cookie) : OLE_E_NOCONNECTION; });
}

HRESULT ChannelInformationObject::EnumAdvise(IEnumSTATDATA** advises) noexcept {
    return call([&] {
        deref(advises) = nullptr;
        return advises_ ? advises_->EnumAdvise(advises) : S_OK;
    });
}

HRESULT ChannelInformationObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    return call([&] {
        deref(status) = isContent(aspect) ? miscStatus : 0;
        return isContent(aspect) ? S_OK : DV_E_DVASPECT;
    });
}

HRESULT ChannelInformationObject::SetColorScheme(LOGPALETTE* /*palette*/) noexcept { return E_NOTIMPL; }

}  // namespace telvar::com
