// What one late-bound call to the data store costs, beside a bare floor: an object of this program that only answers a
// number. Prints the median of several rounds in nanoseconds.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "VexloDataStore.h"
#include "com/kit/late_bound.h"
#include "com/kit/object.h"
#include "support/windows/loaded_server.h"

namespace {

using telvar::com::check;
using telvar::com::ComPointer;
using telvar::com::Variant;

// Answers 1 to every question, as cheaply as an Invoke can.
class Floor final : public telvar::com::Object<IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID /*iid*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                               DISPID* ids) noexcept override {
        ids[0] = 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID /*member*/, REFIID /*iid*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* /*arguments*/,
                        VARIANT* result, EXCEPINFO* /*exception*/, UINT* /*wrong*/) noexcept override {
        V_VT(result) = VT_I4;
        V_I4(result) = 1;
        return S_OK;
    }
};

[[nodiscard]] double nanosecondsPerCall(int calls, const std::function<void(int)>& run) {
    constexpr int rounds = 15;
    std::vector<double> each;
    run(calls);
    for (int round = 0; round < rounds; ++round) {
        const auto begin = std::chrono::steady_clock::now();
        run(calls);
        const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - begin;
        each.push_back(spent.count() / calls);
    }
    std::ranges::nth_element(each, each.begin() + rounds / 2);
    return each[rounds / 2];
}

constexpr int many = 200'000;
constexpr int some = 5'000;
constexpr int few = 50;

void report(const char* what, int calls, const std::function<void(int)>& run) {
    std::printf("%-58s %12.1f ns\n", what, nanosecondsPerCall(calls, run));
}

constexpr WORD getFlags = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

// A read of a plain value, which needs no clearing.
[[nodiscard]] auto reading(IDispatch& object, DISPID member) {
    return [&object, member](int calls) {
        DISPPARAMS none{};
        for (int call = 0; call < calls; ++call) {
            VARIANT value;
            VariantInit(&value);
            check(object.Invoke(member, IID_NULL, 0, getFlags, &none, &value, nullptr, nullptr));
        }
    };
}

[[nodiscard]] auto readingWithClear(IDispatch& object, DISPID member, WORD flags) {
    return [&object, member, flags](int calls) {
        DISPPARAMS none{};
        for (int call = 0; call < calls; ++call) {
            Variant value;
            check(object.Invoke(member, IID_NULL, 0, flags, &none, value.put(), nullptr, nullptr));
        }
    };
}

[[nodiscard]] auto naming(IDispatch& object, std::wstring& name) {
    return [&object, &name](int calls) {
        for (int call = 0; call < calls; ++call) {
            wchar_t* text = name.data();
            DISPID id = 0;
            check(object.GetIDsOfNames(IID_NULL, &text, 1, 0, &id));
        }
    };
}

void measureRecord(IDispatch& record) {
    const auto early = ComPointer<IChannelRecord>::from(&record);
    report("record: get through the vtable", many, [&](int calls) {
        for (int call = 0; call < calls; ++call) {
            VARIANT value;
            check(early->get_TxFreq(&value));
        }
    });
    report("record: get by Invoke", many, reading(record, 1));
    report("record: get of a text by Invoke", some, readingWithClear(record, 34, getFlags));
    report("record: put by Invoke", many, [&](int calls) {
        Variant value(std::int32_t{145'000'000});
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS arguments{&value.get(), &named, 1, 1};
        for (int call = 0; call < calls; ++call) {
            check(record.Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr, nullptr));
        }
    });
    ComPointer<ITypeInfo> info;
    check(record.GetTypeInfo(0, 0, info.put()));
    report("record: get through the type library", some, [&](int calls) {
        DISPPARAMS none{};
        for (int call = 0; call < calls; ++call) {
            Variant value;
            check(info->Invoke(early.get(), 1, DISPATCH_PROPERTYGET, &none, value.put(), nullptr, nullptr));
        }
    });
    std::wstring name = L"P25RxNetworkAccessCode";
    report("record: GetIDsOfNames, longest name", many, naming(record, name));
    report("record: the same through the type library", some, [&](int calls) {
        for (int call = 0; call < calls; ++call) {
            wchar_t* text = name.data();
            DISPID id = 0;
            check(info->GetIDsOfNames(&text, 1, &id));
        }
    });
}

void measureTable(IDispatch& store) {
    report("store: get of a member by Invoke", many, reading(store, 18));
    const auto records = ComPointer<IChannelRecords>::from(&store);
    report("store: one record through the vtable", many, [&](int calls) {
        for (int call = 0; call < calls; ++call) {
            ComPointer<IChannelRecord> record;
            check(records->Record(7, record.put()));
        }
    });
    report("store: ChannelTable with an index", many, [&](int calls) {
        Variant index(std::int16_t{7});
        DISPPARAMS arguments{&index.get(), nullptr, 1, 0};
        for (int call = 0; call < calls; ++call) {
            Variant value;
            check(store.Invoke(1, IID_NULL, 0, getFlags, &arguments, value.put(), nullptr, nullptr));
        }
    });
    report("store: ChannelTable as an array", some, readingWithClear(store, 1, DISPATCH_PROPERTYGET));
    std::wstring name = L"ChannelTable";
    report("store: GetIDsOfNames", many, naming(store, name));
}

void measureAll() {
    const telvar::tests::LoadedServer server("VexloDataStore.dll");
    const auto floor = telvar::com::make<Floor>();
    std::wstring name = L"TxFreq";
    report("floor: get by Invoke", many, reading(*floor, 1));
    report("floor: GetIDsOfNames", many, naming(*floor, name));

    const auto store = server.create<IDataStore>(__uuidof(DataStore));
    const std::array<Variant, 1> index{Variant(std::int16_t{0})};
    const auto record = telvar::com::invoke(*store, telvar::com::memberOf(*store, "ChannelTable"), getFlags, index);
    measureRecord(*V_DISPATCH(&record.get()));
    measureTable(*store);
    report("store: made and let go", few, [&](int calls) {
        for (int call = 0; call < calls; ++call) {
            (void)server.create<IDataStore>(__uuidof(DataStore));
        }
    });
}

}  // namespace

int main() {
    check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    measureAll();
    CoUninitialize();
    return 0;
}
