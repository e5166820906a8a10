// What a host keeps of the control: the size and the hidden flag, by stream, storage and property bag; and what happens
// to a state that cannot be read.
#include "world.h"

#include <cstring>
#include <map>

namespace telvar::tests {
namespace {

struct Persistence : ControlWorld {
    template <class Interface>
    [[nodiscard]] ComPointer<Interface> as() const {
        return ComPointer<Interface>::from(control);
    }
    void setState(LONG width, LONG height, bool hidden) {
        SIZEL extent{width, height};
        com::check(as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent));
        put(*control, "bHidden", Variant(hidden));
    }
    [[nodiscard]] std::string state() {
        SIZEL extent{};
        com::check(as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
        const bool hidden = V_BOOL(&get(*control, "bHidden").get()) != VARIANT_FALSE;
        return std::to_string(extent.cx) + "x" + std::to_string(extent.cy) + (hidden ? " hidden" : "");
    }
};

// A stream over these bytes, at its beginning.
[[nodiscard]] ComPointer<IStream> streamOf(const std::vector<std::uint8_t>& bytes) {
    ComPointer<IStream> stream;
    com::check(CreateStreamOnHGlobal(nullptr, TRUE, stream.put()));
    com::check(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr));
    com::check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    return stream;
}

[[nodiscard]] std::vector<std::uint8_t> saved(IPersistStreamInit& from) {
    const auto stream = streamOf({});
    com::check(from.Save(stream.get(), TRUE));
    com::check(stream->Seek({}, STREAM_SEEK_SET, nullptr));
    std::vector<std::uint8_t> bytes(100);
    ULONG count = 0;
    com::check(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &count));
    bytes.resize(count);
    return bytes;
}

class Bag final : public com::Object<IPropertyBag> {
public:
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        const auto found = values.find(name);
        if (found == values.end()) {
            return E_INVALIDARG;
        }
        *value = Variant(found->second).detach();
        return S_OK;
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override {
        values[name] = Variant::copyOf(*value);
        return S_OK;
    }
    std::map<std::wstring, Variant> values;
};

class Log final : public com::Object<IErrorLog> {
public:
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* error) noexcept override {
        entries.push_back(win::narrow(name) + ": " + com::textOf(error->bstrDescription));
        return S_OK;
    }
    Texts entries;
};

TEST_F(Persistence, AStreamBringsBackWhatWasSaved) {
    setState(12345, 6789, true);
    EXPECT_EQ(as<IPersistStreamInit>()->IsDirty(), S_OK);
    const auto bytes = saved(*as<IPersistStreamInit>());
    EXPECT_EQ(as<IPersistStreamInit>()->IsDirty(), S_FALSE);
    ULARGE_INTEGER most{};
    EXPECT_EQ(as<IPersistStreamInit>()->GetSizeMax(&most), S_OK);
    EXPECT_EQ(most.QuadPart, bytes.size());

    setState(1, 2, false);
    EXPECT_EQ(as<IPersistStreamInit>()->Load(streamOf(bytes).get()), S_OK);
    EXPECT_EQ(state(), "12345x6789 hidden");
    EXPECT_EQ(as<IPersistStreamInit>()->IsDirty(), S_FALSE);
}

TEST_F(Persistence, EveryShortenedStreamIsRefusedAndChangesNothing) {
    setState(100, 200, true);
    auto bytes = saved(*as<IPersistStreamInit>());
    setState(7, 8, false);
    while (!bytes.empty()) {
        bytes.pop_back();
        EXPECT_EQ(as<IPersistStreamInit>()->Load(streamOf(bytes).get()), STG_E_READFAULT) << bytes.size();
        EXPECT_EQ(state(), "7x8");
    }
}

TEST_F(Persistence, DamagedStreamsAreRefusedOrMeanAnAllowedState) {
    setState(100, 200, true);
    const auto good = saved(*as<IPersistStreamInit>());
    setState(7, 8, false);
    for (std::size_t at = 0; at < good.size(); ++at) {
        auto damaged = good;
        damaged[at] ^= 0xFFU;
        const HRESULT answer = as<IPersistStreamInit>()->Load(streamOf(damaged).get());
        SIZEL extent{};
        com::check(as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
        if (FAILED(answer)) {
            EXPECT_EQ(state(), "7x8") << at;
        } else {
            EXPECT_LE(extent.cx, 1'000'000) << at;
            EXPECT_GE(extent.cx, 0) << at;
        }
        setState(7, 8, false);
    }
    auto newer = good;
    newer[4] = 2;
    EXPECT_EQ(as<IPersistStreamInit>()->Load(streamOf(newer).get()), STG_E_OLDDLL);
    EXPECT_EQ(as<IPersistStreamInit>()->Load(nullptr), E_POINTER);
}

TEST_F(Persistence, AStorageBringsBackWhatWasSaved) {
    ComPointer<ILockBytes> bytes;
    ComPointer<IStorage> storage;
    com::check(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.put()));
    com::check(StgCreateDocfileOnILockBytes(bytes.get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                            storage.put()));
    setState(555, 444, true);
    EXPECT_EQ(as<IPersistStorage>()->InitNew(storage.get()), S_OK);
    EXPECT_EQ(as<IPersistStorage>()->Save(storage.get(), TRUE), S_OK);
    EXPECT_EQ(as<IPersistStorage>()->SaveCompleted(nullptr), S_OK);
    setState(1, 2, false);
    EXPECT_EQ(as<IPersistStorage>()->Load(storage.get()), S_OK);
    EXPECT_EQ(state(), "555x444 hidden");
    com::check(storage->DestroyElement(L"Contents"));
    setState(1, 2, false);
    EXPECT_EQ(as<IPersistStorage>()->Load(storage.get()), STG_E_FILENOTFOUND);
    EXPECT_EQ(state(), "1x2");
    EXPECT_EQ(as<IPersistStorage>()->HandsOffStorage(), S_OK);
}

TEST_F(Persistence, ABagBringsBackWhatWasSavedAndMayLackValues) {
    const auto bag = com::make<Bag>();
    setState(321, 123, true);
    EXPECT_EQ(as<IPersistPropertyBag>()->Save(bag.get(), TRUE, TRUE), S_OK);
    setState(1, 2, false);
    EXPECT_EQ(as<IPersistPropertyBag>()->Load(bag.get(), nullptr), S_OK);
    EXPECT_EQ(state(), "321x123 hidden");

    setState(1, 2, false);
    EXPECT_EQ(as<IPersistPropertyBag>()->Load(com::make<Bag>().get(), nullptr), S_OK);
    EXPECT_EQ(state(), "1x2");
    bag->values = {{L"_ExtentX", Variant("77")}};
    EXPECT_EQ(as<IPersistPropertyBag>()->Load(bag.get(), nullptr), S_OK);
    EXPECT_EQ(state(), "77x2") << "bags often keep texts";
}

TEST_F(Persistence, AWrongValueInABagIsLoggedAndChangesNothing) {
    setState(1, 2, false);
    const std::vector<std::pair<std::wstring, Variant>> wrong{
        {L"_ExtentX", Variant("wide")},
        {L"_ExtentY", Variant(std::int32_t{-5})},
        {L"bHidden", Variant("perhaps")},
        {L"_Version", Variant(std::int32_t{2})},
    };
    for (const auto& [name, value] : wrong) {
        const auto bag = com::make<Bag>();
        const auto log = com::make<Log>();
        bag->values = {{L"_ExtentX", Variant(std::int32_t{50})}, {L"bHidden", Variant(true)}};
        bag->values[name] = value;
        EXPECT_EQ(as<IPersistPropertyBag>()->Load(bag.get(), log.get()), E_INVALIDARG) << win::narrow(name);
        EXPECT_EQ(log->entries.size(), 1U) << win::narrow(name);
        EXPECT_EQ(state(), "1x2") << win::narrow(name);
    }
}

TEST_F(Persistence, EveryFamilyNamesTheClass) {
    CLSID classId{};
    EXPECT_EQ(as<IPersist>()->GetClassID(&classId), S_OK);
    EXPECT_TRUE(IsEqualCLSID(classId, __uuidof(ChannelInformation)));
    EXPECT_EQ(as<IPersistStreamInit>()->InitNew(), S_OK);
    EXPECT_EQ(as<IPersistPropertyBag>()->GetClassID(nullptr), E_POINTER);
}

}  // namespace
}  // namespace telvar::tests
