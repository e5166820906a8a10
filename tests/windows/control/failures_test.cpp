// A store that fails in any of its calls, or answers what is no value: the routine says so in its own words, redrawing
// is on again, and the control goes on working.
#include "failing_store.h"

namespace telvar::tests {
namespace {

struct Failures : ControlWorld {
    void SetUp() override {
        fill(1, 145'000'000);
        fill(255, 446'006'250);
        proxy = com::make<FailingProxy>(store.get(), failure);
        setUp(proxy.get());
    }
    void TearDown() override {
        proxy.reset();
        ControlWorld::TearDown();
    }
    // The calls of one refresh, of which the given one fails.
    int refresh(int failing, HRESULT code = DISP_E_EXCEPTION) {
        failure = {.count = 0, .failing = failing, .code = code};
        boxes.forget();
        call(*control, "UpdateControlsFromMemory");
        return failure.count;
    }

    FailingCall failure;
    ComPointer<FailingProxy> proxy;
};

TEST_F(Failures, AnyCallOfAFullRefreshMayFail) {
    const int calls = refresh(0);
    ASSERT_GT(calls, 255);
    EXPECT_EQ(boxes.texts(), Texts{});
    // Every call of the first channels and of the last, and a sample of those between.
    std::vector<int> failing;
    for (int call = 1; call <= 60; ++call) {
        failing.push_back(call);
        failing.push_back(calls + 1 - call);
    }
    for (int call = 61; call < calls - 60; call += calls / 100) {
        failing.push_back(call);
    }
    for (const int call : failing) {
        refresh(call);
        ASSERT_LE(boxes.texts().size(), 1U) << "call " << call;
        for (const auto& text : boxes.texts()) {
            EXPECT_TRUE(text == "Error in UpdateControlsFromMemory()" || text == "Error in UpdateAccess()" ||
                        text == "Error in HighLightChannel()" || text == "Error in UpdateChannelSelection()")
                << "call " << call << ": " << text;
        }
        EXPECT_TRUE(redraws()) << "call " << call;
    }
    refresh(0);
    EXPECT_EQ(cell(255, 1), "446.006250") << "the control works on";
}

TEST_F(Failures, WithOrWithoutADescription) {
    for (const HRESULT code : {DISP_E_EXCEPTION, E_FAIL, DISP_E_MEMBERNOTFOUND, DISP_E_TYPEMISMATCH, RPC_E_DISCONNECTED,
                               DISP_E_BADINDEX, E_OUTOFMEMORY}) {
        refresh(1000, code);
        EXPECT_EQ(boxes.texts(), Texts{"Error in UpdateControlsFromMemory()"}) << std::hex << code;
        EXPECT_TRUE(redraws());
    }
}

TEST_F(Failures, OneRowSaysItsOwnName) {
    failure = {.count = 0, .failing = 1};
    boxes.forget();
    call(*control, "UpdateRowData", {Variant(std::int16_t{1})});
    EXPECT_EQ(boxes.texts(), Texts{"Error in UpdateRowData()"});
}

TEST_F(Failures, ChannelsOutsideTheTableAreRefusedByTheRoutine) {
    refresh(0);
    for (const std::int16_t channel : {std::int16_t{0}, std::int16_t{256}, std::int16_t{-1}, std::int16_t{-32768}}) {
        boxes.forget();
        call(*control, "UpdateRowData", {Variant(channel)});
        EXPECT_EQ(boxes.texts(), Texts{"Error in UpdateRowData()"}) << channel;
    }
    EXPECT_EQ(cell(1, 1), "145.000000");
}

TEST_F(Failures, ASecondSetUpChangesNothing) {
    refresh(0);
    const std::string before = cell(1, 1);
    boxes.forget();
    call(*control, "Prepare");
    EXPECT_EQ(boxes.texts(), Texts{});
    EXPECT_EQ(cell(1, 1), before);
}

}  // namespace
}  // namespace telvar::tests
