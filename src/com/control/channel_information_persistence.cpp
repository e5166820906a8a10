// What hosts keep of the control, by stream, storage or property bag. What cannot be read changes nothing.
#include "com/control/channel_information_object.h"

namespace telvar::com {

namespace {

constexpr const wchar_t* contents = L"Contents";
constexpr DWORD exclusive = STGM_SHARE_EXCLUSIVE;

}  // namespace

void ChannelInformationObject::setState(const SavedState& state) noexcept {
    extent_ = state.extent;
    control_.bHidden = state.hidden;
    dirty_ = false;
}

HRESULT ChannelInformationObject::GetClassID(CLSID* classId) noexcept {
    return guarded([&] { deref(classId) = __uuidof(::ChannelInformation); });
}

HRESULT ChannelInformationObject::IsDirty() noexcept { return dirty_ ? S_OK : S_FALSE; }

HRESULT ChannelInformationObject::InitNew() noexcept { return S_OK; }

HRESULT ChannelInformationObject::Load(IStream* stream) noexcept {
    return call([&] { setState(readState(deref(stream))); });
}

HRESULT ChannelInformationObject::Save(IStream* stream, BOOL clearDirty) noexcept {
    return call([&] {
        writeState(deref(stream), state());
        dirty_ = dirty_ && clearDirty == FALSE;
    });
}

HRESULT ChannelInformationObject::GetSizeMax(ULARGE_INTEGER* size) noexcept {
    return guarded([&] { deref(size).QuadPart = savedSize(); });
}

HRESULT ChannelInformationObject::InitNew(IStorage* storage) noexcept {
    return guarded([&] { static_cast<void>(deref(storage)); });
}

HRESULT ChannelInformationObject::Load(IStorage* storage) noexcept {
    return call([&] {
        ComPointer<IStream> stream;
        check(deref(storage).OpenStream(contents, nullptr, STGM_READ | exclusive, 0, stream.put()));
        setState(readState(*stream));
    });
}

HRESULT ChannelInformationObject::Save(IStorage* storage, BOOL /*sameAsLoad*/) noexcept {
    return call([&] {
        ComPointer<IStream> stream;
        check(deref(storage).CreateStream(contents, STGM_CREATE | STGM_WRITE | exclusive, 0, 0, stream.put()));
        writeState(*stream, state());
        WriteClassStg(storage, __uuidof(::ChannelInformation));
        dirty_ = false;
    });
}

// No storage is kept between calls.
HRESULT ChannelInformationObject::SaveCompleted(IStorage* /*storage*/) noexcept { return S_OK; }

HRESULT ChannelInformationObject::HandsOffStorage() noexcept { return S_OK; }

HRESULT ChannelInformationObject::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
    return call([&] { setState(readState(deref(bag), log, state())); });
}

HRESULT ChannelInformationObject::Save(IPropertyBag* bag, BOOL clearDirty, BOOL /*saveAll*/) noexcept {
    return call([&] {
        writeState(deref(bag), state());
        dirty_ = dirty_ && clearDirty == FALSE;
    });
}

}  // namespace telvar::com
