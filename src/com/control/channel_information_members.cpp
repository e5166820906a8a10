// _ChannelInformation: the published members. The type information calls the methods, all but the two object
// properties.
#include "com/control/channel_information_object.h"

#include <utility>

#include "com/adapters/foreign_data_store.h"
#include "com/adapters/foreign_radio_link.h"
#include "com/kit/bstr.h"

namespace telvar::com {

namespace {

[[nodiscard]] VARIANT_BOOL truth(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// Null for Nothing, Empty and Null, which unset the property.
[[nodiscard]] ComPointer<IDispatch> objectOf(const VARIANT& argument) {
    const VARIANT& own = dereferenced(argument);
    switch (V_VT(&own)) {
    case VT_EMPTY:
    case VT_NULL:
        return {};
    case VT_DISPATCH:
        return ComPointer<IDispatch>(V_DISPATCH(&own));
    case VT_BYREF | VT_DISPATCH:
        return ComPointer<IDispatch>(*V_DISPATCHREF(&own));
    case VT_UNKNOWN:
    case VT_BYREF | VT_UNKNOWN: {
        IUnknown* const object = V_VT(&own) == VT_UNKNOWN ? V_UNKNOWN(&own) : *V_UNKNOWNREF(&own);
        auto dispatch = ComPointer<IDispatch>::from(object);
        if (object != nullptr && !dispatch) {
            throw ComFailure(DISP_E_TYPEMISMATCH);
        }
        return dispatch;
    }
    default:
        throw ComFailure(DISP_E_TYPEMISMATCH);
    }
}

}  // namespace

HRESULT DefaultDispatch::Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                                VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    const bool isLink = member == storeMember || member == linkMember;
    if (!isLink || arguments == nullptr || !IsEqualIID(reserved, IID_NULL)) {
        return invokeMember(member, reserved, locale, flags, arguments, result, exception, wrongArgument);
    }
    const HRESULT answer = invokeLink(member, flags, *arguments, result);
    if (answer == DISP_E_TYPEMISMATCH && wrongArgument != nullptr) {
        *wrongArgument = 0;
    }
    return answer;
}

HRESULT ChannelInformationObject::invokeLink(DISPID member, WORD flags, const DISPPARAMS& arguments,
                                             VARIANT* result) noexcept {
    return call([&] {
        const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        if (!isPut && (flags & DISPATCH_PROPERTYGET) == 0) {
            return DISP_E_MEMBERNOTFOUND;
        }
        if (arguments.cArgs != (isPut ? 1U : 0U)) {
            return DISP_E_BADPARAMCOUNT;
        }
        if (isPut) {
            setLink(member, objectOf(arguments.rgvarg[0]).get());
        } else if (result != nullptr) {
            *result = Variant(link(member).get()).detach();
        }
        return S_OK;
    });
}

ComPointer<IDispatch>& ChannelInformationObject::link(DISPID member) noexcept {
    return member == storeMember ? storeObject_ : linkObject_;
}

// One and the same object is no new one, by whichever of its interfaces it comes: what was changed in its table can
// still be taken back, and edits that were not applied stay. What was set before may call back in its end, so it ends
// last.
void ChannelInformationObject::setLink(DISPID member, IDispatch* object) {
    if (object != nullptr && sameObject(link(member).get(), object)) {
        return;
    }
    const ComPointer<IDispatch> former = std::exchange(link(member), ComPointer<IDispatch>(object));
    if (member == storeMember) {
        control_.setCentralDataStore(adaptDataStore(object));
    } else {
        control_.setRadioComms(adaptRadioLink(object));
    }
}

HRESULT ChannelInformationObject::get_pCentralDataStore(IDataStore** store) noexcept {
    return call([&] {
        deref(store) = ComPointer<IDataStore>::from(storeObject_).detach();
        return *store == nullptr && storeObject_ ? E_NOINTERFACE : S_OK;
    });
}

HRESULT ChannelInformationObject::put_pCentralDataStore(IDataStore* store) noexcept {
    return call([&] { setLink(storeMember, store); });
}

HRESULT ChannelInformationObject::putref_pCentralDataStore(IDataStore* store) noexcept {
    return put_pCentralDataStore(store);
}

HRESULT ChannelInformationObject::get_plibRadioComms(IRadioLink** link) noexcept {
    return call([&] {
        deref(link) = ComPointer<IRadioLink>::from(linkObject_).detach();
        return *link == nullptr && linkObject_ ? E_NOINTERFACE : S_OK;
    });
}

HRESULT ChannelInformationObject::put_plibRadioComms(IRadioLink* link) noexcept {
    return call([&] { setLink(linkMember, link); });
}

HRESULT ChannelInformationObject::putref_plibRadioComms(IRadioLink* link) noexcept { return put_plibRadioComms(link); }

HRESULT ChannelInformationObject::get_bHidden(VARIANT_BOOL* hidden) noexcept {
    return call([&] { deref(hidden) = truth(control_.bHidden); });
}

HRESULT ChannelInformationObject::put_bHidden(VARIANT_BOOL hidden) noexcept {
    return call([&] {
        const bool value = hidden != VARIANT_FALSE;
        dirty_ = dirty_ || value != control_.bHidden;
        control_.bHidden = value;
    });
}

HRESULT ChannelInformationObject::get_intPrevChannel(short* channel) noexcept {
    return call([&] { deref(channel) = control_.intPrevChannel; });
}

HRESULT ChannelInformationObject::put_intPrevChannel(short channel) noexcept {
    return call([&] { control_.intPrevChannel = channel; });
}

HRESULT ChannelInformationObject::Prepare() noexcept {
    return method([&] { control_.Prepare(); });
}

HRESULT ChannelInformationObject::DistributeDataStoreLink() noexcept {
    return method([&] { control_.DistributeDataStoreLink(); });
}

HRESULT ChannelInformationObject::DistributeRadioCommsLink() noexcept {
    return method([&] { control_.DistributeRadioCommsLink(); });
}

HRESULT ChannelInformationObject::HideAdvancedButton() noexcept {
    return method([&] { control_.HideAdvancedButton(); });
}

HRESULT ChannelInformationObject::DisplayFill() noexcept {
    return method([&] { control_.DisplayFill(); });
}

HRESULT ChannelInformationObject::ChannelFillDown() noexcept {
    return method([&] { control_.ChannelFillDown(); });
}

HRESULT ChannelInformationObject::ChannelFillSeries() noexcept {
    return method([&] { control_.ChannelFillSeries(); });
}

HRESULT ChannelInformationObject::check_Frequencies(VARIANT_BOOL* result) noexcept {
    return method([&] {
        deref(result) = VARIANT_FALSE;
        *result = truth(control_.check_Frequencies());
    });
}

HRESULT ChannelInformationObject::LoadFromTelvar() noexcept {
    return method([&] { control_.LoadFromTelvar(); });
}

HRESULT ChannelInformationObject::SendToTelvar() noexcept {
    return method([&] { control_.SendToTelvar(); });
}

HRESULT ChannelInformationObject::LoadChannelInfoFromTelvar() noexcept {
    return method([&] { control_.LoadChannelInfoFromTelvar(); });
}

HRESULT ChannelInformationObject::SendChannelInfoToTelvar() noexcept {
    return method([&] { control_.SendChannelInfoToTelvar(); });
}

HRESULT ChannelInformationObject::CheckTotalNoOfChannelScan(BSTR* result) noexcept {
    return method([&] {
        deref(result) = nullptr;
        *result = Bstr(control_.CheckTotalNoOfChannelScan()).detach();
    });
}

HRESULT ChannelInformationObject::SetRowBackColour(short* index, LONG* rgbBackColour) noexcept {
    return method([&] { control_.SetRowBackColour(deref(index), deref(rgbBackColour)); });
}

HRESULT ChannelInformationObject::HighLightChannel(short* nChannelNum) noexcept {
    return method([&] { control_.HighLightChannel(deref(nChannelNum)); });
}

HRESULT ChannelInformationObject::UpdateChannelSelection() noexcept {
    return method([&] { control_.UpdateChannelSelection(); });
}

HRESULT ChannelInformationObject::UpdateControlsFromMemory() noexcept {
    return method([&] { control_.UpdateControlsFromMemory(); });
}

HRESULT ChannelInformationObject::UpdateRowData(short* i) noexcept {
    return method([&] { control_.UpdateRowData(deref(i)); });
}

HRESULT ChannelInformationObject::UpdateAccess(short* intAccessLvl) noexcept {
    return method([&] { control_.UpdateAccess(deref(intAccessLvl)); });
}

HRESULT ChannelInformationObject::DisableMyCommands(BSTR* sCommands) noexcept {
    return method([&] { control_.DisableMyCommands(textOf(deref(sCommands))); });
}

HRESULT ChannelInformationObject::EnableMyCommands(BSTR* sCommands) noexcept {
    return method([&] { control_.EnableMyCommands(textOf(deref(sCommands))); });
}

HRESULT ChannelInformationObject::PrintInfo() noexcept {
    return method([&] { control_.PrintInfo(); });
}

HRESULT ChannelInformationObject::RefreshEditForm() noexcept {
    return method([&] { control_.RefreshEditForm(); });
}

HRESULT ChannelInformationObject::ChannelKeyUp() noexcept {
    return method([&] { control_.ChannelKeyUp(); });
}

HRESULT ChannelInformationObject::ChannelKeyDown() noexcept {
    return method([&] { control_.ChannelKeyDown(); });
}

HRESULT ChannelInformationObject::logMessage(BSTR* txtMessage) noexcept {
    return call([&] { control_.logMessage(textOf(deref(txtMessage))); });
}

}  // namespace telvar::com
