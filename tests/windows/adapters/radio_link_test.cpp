// Foreign radio links: arguments by reference, and what comes back in them.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "com/adapters/foreign_radio_link.h"
#include "fake_object.h"

namespace telvar::com::test {
namespace {

class RadioLinks : public testing::Test {
protected:
    ComPointer<FakeObject> object = makeObject();
    model::RadioLinkPointer link = adaptRadioLink(object.get());
    std::vector<std::string> log;

    [[nodiscard]] Member noting(const char* text) {
        return [this, text](const Call& call) {
            EXPECT_EQ(call.flags, DISPATCH_METHOD);
            EXPECT_EQ(call.count(), 0U);
            log.emplace_back(text);
            return S_OK;
        };
    }
};

TEST_F(RadioLinks, PlainOperationsTakeNothing) {
    object->with(L"SendChannelTable", noting("send")).with(L"AbortTransfer", noting("abort"));
    link->SendChannelTable();
    link->AbortTransfer();
    EXPECT_EQ(log, (std::vector<std::string>{"send", "abort"}));
}

TEST_F(RadioLinks, TextAndFlagAreReferencesAndComeBack) {
    object->with(L"LoadChannelTable", [this](const Call& call) {
        if (call.count() != 2 || V_VT(&call.argument(0)) != (VT_BYREF | VT_BSTR) ||
            V_VT(&call.argument(1)) != (VT_BYREF | VT_BOOL)) {
            return DISP_E_BADPARAMCOUNT;
        }
        log.push_back(textOf(*V_BSTRREF(&call.argument(0))));
        log.emplace_back(*V_BOOLREF(&call.argument(1)) == VARIANT_TRUE ? "True" : "other");
        assign(*V_BSTRREF(&call.argument(0)), "loading \xC3\xA9");
        *V_BOOLREF(&call.argument(1)) = VARIANT_FALSE;
        return S_OK;
    });
    std::string text;
    bool flag = true;
    link->LoadChannelTable(text, flag);
    EXPECT_EQ(log, (std::vector<std::string>{"", "True"}));
    EXPECT_EQ(text, "loading \xC3\xA9");
    EXPECT_FALSE(flag);
}

TEST_F(RadioLinks, AChannelGoesAsTextByReference) {
    object->with(L"SelectChannel", [this](const Call& call) {
        log.push_back(textOf(*V_BSTRREF(&call.argument(0))));
        assign(*V_BSTRREF(&call.argument(0)), "done");
        return S_OK;
    });
    std::string channel = "17";
    link->SelectChannel(channel);
    EXPECT_EQ(log, std::vector<std::string>{"17"});
    EXPECT_EQ(channel, "done");
}

TEST_F(RadioLinks, TheOutcomeOfTheLastExchangeIsAskedOfLinksThatHaveIt) {
    EXPECT_EQ(link->lastExchangeSucceeded(), std::nullopt);
    Variant busy(true);
    Variant succeeded(false);
    object->with(L"Busy", property(busy));
    EXPECT_EQ(link->lastExchangeSucceeded(), std::nullopt);
    object->with(L"Succeeded", property(succeeded));
    EXPECT_EQ(link->lastExchangeSucceeded(), std::nullopt);
    busy = Variant(false);
    EXPECT_EQ(link->lastExchangeSucceeded(), false);
    succeeded = Variant(true);
    EXPECT_EQ(link->lastExchangeSucceeded(), true);
}

TEST_F(RadioLinks, OutcomesAreAskedByNumberOfLinksThatCountTheirExchanges) {
    using model::ExchangeOutcome;
    EXPECT_EQ(link->exchangeNumber(), std::nullopt);
    EXPECT_EQ(link->exchangeOutcome(7), ExchangeOutcome::Unknown);
    Variant number(std::int32_t{70'000});
    Variant outcome(std::int16_t{0});
    std::int32_t asked = 0;
    object->with(L"ExchangeNumber", property(number)).with(L"OutcomeOf", [&](const Call& call) {
        if (call.count() != 1 || V_VT(&call.argument(0)) != VT_I4) {
            return DISP_E_TYPEMISMATCH;
        }
        asked = V_I4(&call.argument(0));
        return call.answer(outcome);
    });
    EXPECT_EQ(link->exchangeNumber(), 70'000);
    for (const auto expected : {ExchangeOutcome::Unknown, ExchangeOutcome::Running, ExchangeOutcome::Succeeded,
                                ExchangeOutcome::Failed, ExchangeOutcome::Aborted}) {
        EXPECT_EQ(link->exchangeOutcome(69'999), expected);
        EXPECT_EQ(asked, 69'999);
        outcome = Variant(static_cast<std::int16_t>(static_cast<std::int16_t>(expected) + 1));
    }
    // Beyond what is agreed.
    EXPECT_EQ(link->exchangeOutcome(1), ExchangeOutcome::Unknown);
    outcome = Variant(std::int16_t{-1});
    EXPECT_EQ(link->exchangeOutcome(1), ExchangeOutcome::Unknown);
    // A script counts in whatever type it likes.
    number = Variant(12.0);
    EXPECT_EQ(link->exchangeNumber(), 12);
}

TEST_F(RadioLinks, ScriptsAreGivenVariantsAndMayChangeTheirType) {
    object->isScript = true;
    object->with(L"LoadChannelTable", [](const Call& call) {
        if (V_VT(&call.argument(0)) != (VT_BYREF | VT_VARIANT) || V_VT(&call.argument(1)) != (VT_BYREF | VT_VARIANT)) {
            return E_NOTIMPL;
        }
        VARIANT& text = *V_VARIANTREF(&call.argument(0));
        VARIANT& flag = *V_VARIANTREF(&call.argument(1));
        if (V_VT(&text) != VT_BSTR || V_VT(&flag) != VT_BOOL) {
            return DISP_E_TYPEMISMATCH;
        }
        VariantClear(&text);
        text = Variant(std::int16_t{12}).detach();
        flag = Variant(std::int16_t{0}).detach();
        return S_OK;
    });
    std::string text;
    bool flag = true;
    link->LoadChannelTable(text, flag);
    EXPECT_EQ(text, "12");
    EXPECT_FALSE(flag);
}

TEST_F(RadioLinks, MethodsThatTakeValuesWork) {
    object->with(L"SendPotValues", [this](const Call& call) {
        if (V_VT(&call.argument(0)) != VT_BSTR) {
            return DISP_E_TYPEMISMATCH;
        }
        log.push_back("pots" + textOf(V_BSTR(&call.argument(0))));
        return S_OK;
    });
    std::string text;
    link->SendPotValues(text);
    EXPECT_EQ(log, std::vector<std::string>{"pots"});
    EXPECT_EQ(text, "");
}

TEST_F(RadioLinks, AFailureIsToldAndChangesNothing) {
    int asked = 0;
    object->with(L"SelectChannel", [&asked](const Call& call) {
        ++asked;
        call.exception->bstrDescription = Bstr(L"The radio does not answer").detach();
        call.exception->scode = static_cast<SCODE>(0x80040300);
        return DISP_E_EXCEPTION;
    });
    std::string channel = "3";
    try {
        link->SelectChannel(channel);
        FAIL() << "no failure";
    } catch (const base::Failure& failure) {
        EXPECT_EQ(failure.description(), "The radio does not answer");
    }
    EXPECT_EQ(channel, "3");
    EXPECT_EQ(asked, 1);
}

TEST_F(RadioLinks, OfAForeignClassFailOnEveryOperation) {
    std::string text;
    bool flag = true;
    EXPECT_THROW(link->SendChannelTable(), base::Failure);
    EXPECT_THROW(link->LoadChannelTable(text, flag), base::Failure);
    EXPECT_THROW(link->AbortTransfer(), base::Failure);
    EXPECT_THROW(link->SendPotValues(text), base::Failure);
    EXPECT_THROW(link->SelectChannel(text), base::Failure);
    EXPECT_EQ(object->references(), 2U);
}

TEST_F(RadioLinks, MayBeDroppedInsideTheirOwnCall) {
    object->with(L"SelectChannel", [this](const Call& call) {
        link.reset();
        assign(*V_BSTRREF(&call.argument(0)), "after");
        return S_OK;
    });
    std::string channel = "3";
    auto* const raw = link.get();
    raw->SelectChannel(channel);
    EXPECT_EQ(channel, "after");
    EXPECT_EQ(object->references(), 1U);
}

TEST(RadioLinkAdapters, OfNothingAreNothing) { EXPECT_EQ(adaptRadioLink(nullptr), nullptr); }

}  // namespace
}  // namespace telvar::com::test
