#include "host/embed/event_sink.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "Tesslin.h"
#include "com/kit/connection_point.h"
#include "com/kit/variant.h"
#include "host/embed/control_events.h"

namespace telvar::tests {

using host::EventConnection;

namespace {

const GUID& someEvents = __uuidof(__ChannelInformation);

// Any source of the control's events.
class Source final : public com::Object<com::SourceOf<__ChannelInformation>> {
public:
    void fire(DISPID event, std::span<const com::Variant> arguments = {}) { point().fire(event, arguments); }
    [[nodiscard]] IUnknown* object() { return static_cast<IConnectionPointContainer*>(this); }
};

class Listener final : public host::ControlListener {
public:
    void RestoreButtons() override { heard.emplace_back(L"RestoreButtons"); }
    void DisableCommands() override { heard.emplace_back(L"DisableCommands"); }
    void EnableCommands(const std::wstring& commands) override { heard.push_back(L"EnableCommands " + commands); }
    void PauseDiagnostics() override { heard.emplace_back(L"PauseDiagnostics"); }
    void OpenLoginWithChannelFill() override { heard.emplace_back(L"OpenLoginWithChannelFill"); }
    void OpenLoginWithChannelEdit() override { heard.emplace_back(L"OpenLoginWithChannelEdit"); }
    void DefaultOverWindow() override { heard.emplace_back(L"DefaultOverWindow"); }
    void HourglassOverWindow() override { heard.emplace_back(L"HourglassOverWindow"); }
    void NewWindowCaption(const std::wstring& caption) override { heard.push_back(L"NewWindowCaption " + caption); }
    void PrintChannelData() override { heard.emplace_back(L"PrintChannelData"); }
    void EditWindowClosed() override { heard.emplace_back(L"EditWindowClosed"); }
    void IncrementProgressBar() override { heard.emplace_back(L"IncrementProgressBar"); }

    std::vector<std::wstring> heard;
};

}  // namespace

TEST(EventSink, ArgumentsArriveByValueAndByReference) {
    short number = 7;
    std::array<VARIANT, 2> arguments{};
    // The last argument lies first.
    V_VT(&arguments[0]) = VT_BYREF | VT_I2;
    V_I2REF(&arguments[0]) = &number;
    const com::Variant text(L"caption");
    arguments[1] = text.get();
    const DISPPARAMS parameters{arguments.data(), nullptr, 2, 0};
    EXPECT_EQ(host::textArgument(parameters, 0), L"caption");
    EXPECT_EQ(host::longArgument(parameters, 1), 7);
    EXPECT_THROW((void)host::longArgument(parameters, 2), com::ComFailure);
    EXPECT_THROW((void)host::longArgument(parameters, 0), com::ComFailure);
}

TEST(EventSink, AnUnknownEventIsNoMemberAndAFailingHandlerIsAFailedCall) {
    const auto sink = com::make<host::EventSink>(someEvents, [](DISPID event, const DISPPARAMS&) {
        if (event == 2) {
            throw com::ComFailure(E_FAIL, "no");
        }
        return event == 1;
    });
    DISPPARAMS none{};
    const auto invoke = [&](DISPID event) {
        return sink->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(1), S_OK);
    EXPECT_EQ(invoke(2), E_FAIL);
    EXPECT_EQ(invoke(3), DISP_E_MEMBERNOTFOUND);
}

TEST(ControlEvents, TwelveNumbersReachTwelveCalls) {
    const auto source = com::make<Source>();
    Listener listener;
    const EventConnection connection = host::connectControl(source->object(), listener);
    for (DISPID event = 1; event <= 13; ++event) {
        com::Bstr text(L"text");
        const com::Variant argument = com::Variant::reference(VT_BSTR, text.address());
        source->fire(event, event == 3 || event == 9 ? std::span(&argument, 1) : std::span<const com::Variant>());
    }
    EXPECT_EQ(listener.heard,
              (std::vector<std::wstring>{L"RestoreButtons", L"DisableCommands", L"EnableCommands text",
                                         L"PauseDiagnostics", L"OpenLoginWithChannelFill", L"OpenLoginWithChannelEdit",
                                         L"DefaultOverWindow", L"HourglassOverWindow", L"NewWindowCaption text",
                                         L"PrintChannelData", L"EditWindowClosed", L"IncrementProgressBar"}));
}

TEST(EventConnection, EndsWithItsHolder) {
    const auto source = com::make<Source>();
    int events = 0;
    const auto count = [&](DISPID, const DISPPARAMS&) { return ++events > 0; };
    {
        const EventConnection connection(source->object(), someEvents, count);
        source->fire(1);
        EXPECT_EQ(events, 1);
    }
    source->fire(1);
    EXPECT_EQ(events, 1);
}

TEST(EventConnection, CanEndInTheMiddleOfAnEvent) {
    const auto source = com::make<Source>();
    int events = 0;
    std::optional<EventConnection> connection;
    connection.emplace(source->object(), someEvents, [&](DISPID, const DISPPARAMS&) {
        ++events;
        connection.reset();
        return true;
    });
    source->fire(1);
    source->fire(1);
    EXPECT_EQ(events, 1);
}

TEST(EventConnection, ASourceWithoutTheseEventsIsRefused) {
    const auto source = com::make<Source>();
    EXPECT_THROW(EventConnection(source->object(), IID_IStream, nullptr), com::ComFailure);
    com::ComPointer<IStream> stream;
    com::check(CreateStreamOnHGlobal(nullptr, TRUE, stream.put()));
    EXPECT_THROW(EventConnection(stream.get(), someEvents, nullptr), com::ComFailure);
}

}  // namespace telvar::tests
