// What a foreign store's failures become, and that every one of its calls may fail.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "com/kit/failure.h"
#include "fake_store.h"

namespace telvar::com::test {
namespace {

class StoreFailures : public testing::Test {
protected:
    // What is told when `MessageTitle` answers so.
    [[nodiscard]] std::string told(Member member) {
        store.object->with(L"MessageTitle", std::move(member));
        try {
            (void)store.adapter->get(model::StoreMember::MessageTitle);
        } catch (const ComFailure& failure) {
            code = failure.code();
            return failure.description();
        }
        return "no failure";
    }
    static HRESULT leaveErrorInfo(const char* text, HRESULT answer) {
        setErrorInfo(text);
        return answer;
    }

    HRESULT code = S_OK;
    FakeStore store;
};

TEST_F(StoreFailures, AreToldInTheStoresOwnWords) {
    EXPECT_EQ(told([](const Call& call) {
                  call.exception->scode = static_cast<SCODE>(0x80040201);
                  call.exception->bstrSource = Bstr(L"A store").detach();
                  call.exception->bstrDescription = Bstr(L"The table is gone.").detach();
                  return DISP_E_EXCEPTION;
              }),
              "The table is gone");
    EXPECT_EQ(code, static_cast<HRESULT>(0x80040201));
}

TEST_F(StoreFailures, AreFilledInWhenTheStorePutThatOff) {
    EXPECT_EQ(told([](const Call& call) {
                  call.exception->pfnDeferredFillIn = [](EXCEPINFO* info) -> HRESULT {
                      info->bstrDescription = Bstr(L"Said late").detach();
                      info->scode = static_cast<SCODE>(0x80040202);
                      return S_OK;
                  };
                  return DISP_E_EXCEPTION;
              }),
              "Said late");
    EXPECT_EQ(code, static_cast<HRESULT>(0x80040202));
}

TEST_F(StoreFailures, AreToldFromTheErrorInformationWhereTheExceptionSaysNothing) {
    EXPECT_EQ(told([](const Call& call) {
                  call.exception->scode = E_ACCESSDENIED;
                  return leaveErrorInfo("Locked by its owner", DISP_E_EXCEPTION);
              }),
              "Locked by its owner");
    EXPECT_EQ(code, E_ACCESSDENIED);
}

TEST_F(StoreFailures, AreToldFromTheErrorInformationOfAnObjectThatSetsIt) {
    store.object->supportsErrorInfo = true;
    EXPECT_EQ(told([](const Call& /*call*/) { return leaveErrorInfo("Not connected", E_FAIL); }), "Not connected");
    EXPECT_EQ(code, E_FAIL);
}

TEST_F(StoreFailures, AreNotToldFromWhatAnotherFailureLeft) {
    store.object->supportsErrorInfo = true;
    setErrorInfo("Somebody else's");
    EXPECT_EQ(told([](const Call& /*call*/) { return E_FAIL; }), "Unspecified failure");
}

TEST_F(StoreFailures, AreNotToldFromWhatAnObjectWithoutErrorInformationLetLie) {
    EXPECT_EQ(told([](const Call& /*call*/) { return leaveErrorInfo("Of a call deeper down", E_FAIL); }),
              "Unspecified failure");
}

TEST_F(StoreFailures, WithoutWordsAreToldByTheirCode) {
    EXPECT_EQ(told([](const Call& /*call*/) { return DISP_E_OVERFLOW; }), "Overflow");
    EXPECT_FALSE(told([](const Call& /*call*/) { return static_cast<HRESULT>(0x8004FFEE); }).empty());
}

TEST_F(StoreFailures, OfALostConnectionAreFailuresUntilItIsBack) {
    bool lost = true;
    Variant title("Telvar");
    const auto member = [&](const Call& call) {
        return lost ? HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) : call.answer(title);
    };
    EXPECT_NE(told(member), "no failure");
    EXPECT_EQ(code, HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    lost = false;
    EXPECT_EQ(store.adapter->get(model::StoreMember::MessageTitle), base::textValue("Telvar"));
}

// ---- every n-th call

// The calls of one object and all its records, counted together; the n-th one fails.
class NthCall : public testing::TestWithParam<HRESULT> {
protected:
    [[nodiscard]] Member failing(Member member) {
        return [this, member = std::move(member)](const Call& call) {
            ++made;
            if (made == failAt) {
                return GetParam();
            }
            return member(call);
        };
    }

    NthCall() {
        for (std::size_t at = 0; at < values.size(); ++at) {
            values[at] = Variant(static_cast<std::int16_t>(at));
        }
        record->with(L"TxFreq", failing(property(values[0])))
            .with(L"scan", failing(property(values[1])))
            .with(L"sm", failing(property(values[2])));
        collection->withDefault([this, element = failing([this](const Call& call) {
                                           return call.answer(objectVariant(record));
                                       })](const Call& call) {
            return call.flags == DISPATCH_PROPERTYGET ? element(call) : DISP_E_MEMBERNOTFOUND;
        });
        object->with(L"ChannelTable", failing(constant(objectVariant(collection))))
            .with(L"ConfigRecords", failing(constant(objectVariant(collection))))
            .with(L"TableOpen", failing(property(values[3])))
            .with(L"SetPotValue", failing([](const Call& /*call*/) { return S_OK; }))
            .with(L"EnterChannelSelect", failing([](const Call& /*call*/) { return S_OK; }))
            .with(L"AutomaticSelect", failing([](const Call& call) { return call.answer(Variant(true)); }))
            .with(L"CheckKey", failing([](const Call& call) { return call.answer(Variant(true)); }))
            .with(L"CtcssTone", failing([](const Call& call) { return call.answer(Variant(67.0F)); }))
            .with(L"SendPermitted", failing(constant(Variant(true))));
        store = adaptDataStore(object.get());
    }

    // How many of the operations failed.
    [[nodiscard]] int perform() {
        using model::ChannelKey;
        using model::StoreMember;
        const std::vector<std::function<void()>> operations{
            [&] { (void)store->readChannel(17, ChannelKey::TxFreq); },
            [&] { store->writeChannel(254, ChannelKey::scan, true); },
            [&] { (void)store->referenceDividerScaling(); },
            [&] { (void)store->get(StoreMember::TableOpen); },
            [&] { store->put(StoreMember::TableOpen, true); },
            [&] { store->SetPotValue(3, 1); },
            [&] { store->EnterChannelSelect(); },
            [&] { (void)store->AutomaticSelect(2); },
            [&] { (void)store->CheckKey(48); },
            [&] { (void)store->CtcssTone(0); },
            [&] { (void)store->SendPermitted(); },
        };
        int failed = 0;
        made = 0;
        for (const auto& operation : operations) {
            try {
                operation();
            } catch (const base::Failure& failure) {
                EXPECT_FALSE(failure.description().empty());
                ++failed;
            }
        }
        return failed;
    }

    int made = 0;
    int failAt = 0;
    std::array<Variant, 4> values;
    ComPointer<FakeObject> record = makeObject();
    ComPointer<FakeObject> collection = makeObject();
    ComPointer<FakeObject> object = makeObject();
    model::DataStorePointer store;
};

INSTANTIATE_TEST_SUITE_P(Codes, NthCall,
                         testing::Values(E_FAIL, DISP_E_EXCEPTION, HRESULT_FROM_WIN32(RPC_S_CALL_FAILED), E_OUTOFMEMORY,
                                         DISP_E_MEMBERNOTFOUND));

TEST_P(NthCall, FailsItsOwnOperationAndNoOther) {
    ASSERT_EQ(perform(), 0);
    const int calls = made;
    ASSERT_EQ(calls, 17);
    for (failAt = 1; failAt <= calls; ++failAt) {
        EXPECT_EQ(perform(), 1) << "call " << failAt;
        EXPECT_EQ(record->references(), 1U);
        EXPECT_EQ(collection->references(), 3U);  // two answers hold it
    }
    failAt = 0;
    EXPECT_EQ(perform(), 0);
}

}  // namespace
}  // namespace telvar::com::test
