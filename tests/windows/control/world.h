// What the control's tests share: an apartment, the servers loaded from this build, answered message boxes, and a
// control with a store as scripts would use them.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "Tesslin.h"
#include "VexloDataStore.h"
#include "com/kit/bstr.h"
#include "com/kit/late_bound.h"
#include "com/kit/object.h"
#include "com/kit/value.h"
#include "message_boxes.h"
#include "support/windows/loaded_server.h"

namespace telvar::tests {

using com::Bstr;
using com::ComPointer;
using com::Variant;
using Texts = std::vector<std::string>;

class Apartment {
public:
    Apartment() { com::check(OleInitialize(nullptr)); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    Apartment(Apartment&&) = delete;
    Apartment& operator=(Apartment&&) = delete;
    ~Apartment() { OleUninitialize(); }
};

// Late-bound, by name; failures are thrown.
[[nodiscard]] Variant get(IDispatch& object, const std::string& name);
void put(IDispatch& object, const std::string& name, const Variant& value);
Variant call(IDispatch& object, const std::string& name, const std::vector<Variant>& arguments = {});
// The same with the bare result code, and where the wrong argument stood.
struct Answer {
    HRESULT code = S_OK;
    UINT wrongArgument = 99;
};
[[nodiscard]] Answer tryCall(IDispatch& object, const std::string& name, std::vector<VARIANT> reversedArguments,
                             WORD flags = DISPATCH_METHOD);
[[nodiscard]] DISPID numberOf(IDispatch& object, const std::string& name);

// Runs what waits in the message queue.
void pump();

// Events as they came: the number, and the text argument where there is one.
class RecordingSink final : public com::Object<IDispatch> {
public:
    using Reaction = std::function<HRESULT(DISPID event, DISPPARAMS& arguments)>;

    explicit RecordingSink(Reaction reaction = {}) : reaction_(std::move(reaction)) {}

    [[nodiscard]] const Texts& events() const noexcept { return events_; }
    [[nodiscard]] int count(const std::string& event) const;
    void forget() noexcept { events_.clear(); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID event, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

private:
    Reaction reaction_;
    Texts events_;
};

[[nodiscard]] ComPointer<IConnectionPoint> eventsOf(IUnknown& source);
DWORD advise(IUnknown& source, IUnknown& sink);

class ControlWorld : public testing::Test {
protected:
    // Nobody may keep anything of the servers.
    void TearDown() override;

    // As a host starts the control up: both links, the distribution, the grid.
    void setUp(IDispatch* dataStore);
    void setUp() { setUp(store.get()); }
    // Channel 1 to 255.
    void fill(std::int16_t channel, std::int32_t hertz);
    [[nodiscard]] std::string cell(LONG row, LONG column) const;
    [[nodiscard]] LONG currentRow() const;
    [[nodiscard]] bool redraws() const;

    Apartment apartment;
    MessageBoxes boxes;
    LoadedServer server{"Tesslin.ocx"};
    LoadedServer storeServer{"VexloDataStore.dll"};
    ComPointer<_ChannelInformation> control = server.create<_ChannelInformation>(__uuidof(ChannelInformation));
    ComPointer<IChannelGrid> grid = ComPointer<IChannelGrid>::from(control);
    ComPointer<IDataStore> store = storeServer.create<IDataStore>(__uuidof(DataStore));
};

}  // namespace telvar::tests
