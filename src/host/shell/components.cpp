#include "host/shell/components.h"

#include "com/kit/failure.h"

namespace telvar::host {

namespace {

// The class may be missing altogether, or be one of another bitness.
template <class Interface>
com::ComPointer<Interface> create(REFCLSID identifier, const std::string& what) {
    com::ComPointer<Interface> object;
    const HRESULT result =
        CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.putVoid());
    if (FAILED(result)) {
        throw com::ComFailure(result, "The " + what + " is not installed on this computer");
    }
    return object;
}

}  // namespace

Components installedComponents() {
    Components components;
    components.store = create<IDataStore>(__uuidof(::DataStore), "channel data store VexloDataStore.DataStore");
    components.control =
        create<IUnknown>(__uuidof(::ChannelInformation), "channel table control Tesslin.ChannelInformation");
    try {
        components.link = create<IRadioLink>(__uuidof(::RadioLink), "radio link VexloRadioLink.RadioLink");
    } catch (const com::ComFailure& failure) {
        components.linkFailure = failure.description();
    }
    return components;
}

}  // namespace telvar::host
