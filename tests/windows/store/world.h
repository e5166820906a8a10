// What the tests of the store's and the link's servers share: an apartment, the servers by their files, and calls by
// name as a script makes them. Every test ends with the servers free to be unloaded, so that it also finds leaks.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "VexloDataStore.h"
#include "VexloRadioLink.h"
#include "com/kit/late_bound.h"
#include "com/kit/value.h"
#include "support/windows/loaded_server.h"

namespace telvar::tests {

using com::Bstr;
using com::ComPointer;
using com::Variant;

class Apartment {
public:
    Apartment() { com::check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    Apartment(Apartment&&) = delete;
    Apartment& operator=(Apartment&&) = delete;
    ~Apartment() { CoUninitialize(); }
};

using Arguments = std::vector<Variant>;

// Late-bound, by name. The first form throws what the callee describes.
[[nodiscard]] Variant get(IDispatch& object, const std::string& name, const Arguments& arguments = {});
void put(IDispatch& object, const std::string& name, const Variant& value);
[[nodiscard]] HRESULT putCode(IDispatch& object, const std::string& name, const Variant& value);
[[nodiscard]] HRESULT callCode(IDispatch& object, const std::string& name, const Arguments& arguments, Variant& result);

// The description of the failure that a call throws.
template <class Call>
[[nodiscard]] std::string failureOf(Call call) {
    try {
        call();
    } catch (const base::Failure& failure) {
        return failure.description();
    }
    return "no failure";
}

// The thread's error information.
[[nodiscard]] std::string errorDescription();

[[nodiscard]] std::string textOf(const Variant& value);

template <class Interface>
[[nodiscard]] ComPointer<Interface> objectIn(const Variant& value) {
    return value.type() == VT_DISPATCH ? ComPointer<Interface>::from(V_DISPATCH(&value.get()))
                                       : ComPointer<Interface>();
}

class StoreWorld : public testing::Test {
protected:
    void TearDown() override {
        store.reset();
        EXPECT_TRUE(server.canUnload());
    }

    // Element of the channel table, 0 to 254.
    [[nodiscard]] ComPointer<IChannelRecord> record(std::int16_t index) const {
        return objectIn<IChannelRecord>(get(*store, "ChannelTable", {Variant(index)}));
    }

    Apartment apartment;
    LoadedServer server{"VexloDataStore.dll"};
    ComPointer<IDataStore> store = server.create<IDataStore>(__uuidof(DataStore));
};

}  // namespace telvar::tests
