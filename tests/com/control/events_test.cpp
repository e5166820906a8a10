// All twelve events of the portable control reach a sink with their published numbers and arguments, those included
// that no published member raises by itself.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "com/control/channel_information_object.h"

namespace telvar::com {
namespace {

class Sink final : public Object<IDispatch> {
public:
    std::vector<std::string> events;
    bool releaseEverything = false;
    ComPointer<ChannelInformationObject> last;

    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        const auto alive = keepAlive(this);
        std::string text = std::to_string(event);
        if (arguments->cArgs == 1 && V_VT(&arguments->rgvarg[0]) == (VT_BYREF | VT_BSTR)) {
            text += " " + textOf(*V_BSTRREF(&arguments->rgvarg[0]));
            assign(*V_BSTRREF(&arguments->rgvarg[0]), "by the host");
        }
        events.push_back(text);
        if (releaseEverything) {
            last.reset();
        }
        return S_OK;
    }
};

struct PortableEvents : testing::Test {
    void SetUp() override {
        check(OleInitialize(nullptr));
        object = make<ChannelInformationObject>();
        sink = make<Sink>();
        ComPointer<IConnectionPoint> point;
        check(object->FindConnectionPoint(__uuidof(__ChannelInformation), point.put()));
        DWORD cookie = 0;
        check(point->Advise(sink.get(), &cookie));
    }
    void TearDown() override {
        object.reset();
        sink.reset();
        pump();
        EXPECT_EQ(win::uses(), 0);
        OleUninitialize();
    }
    static void pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            DispatchMessageW(&message);
        }
    }

    ComPointer<ChannelInformationObject> object;
    ComPointer<Sink> sink;
};

TEST_F(PortableEvents, HaveTheirNumbersAndArguments) {
    auto& control = object->portable();
    std::string commands = "All";
    std::string caption = "Channel Information - table";
    control.RestoreButtons();
    control.DisableCommands();
    control.EnableCommands(commands);
    control.PauseDiagnostics();
    control.OpenLoginWithChannelFill();
    control.OpenLoginWithChannelEdit();
    control.DefaultOverWindow();
    control.HourglassOverWindow();
    control.NewWindowCaption(caption);
    control.PrintChannelData();
    control.EditWindowClosed();
    control.IncrementProgressBar();
    EXPECT_EQ(sink->events, (std::vector<std::string>{"1", "2", "3 All", "4", "5", "6", "7", "8",
                                                      "9 Channel Information - table", "10", "11", "12"}));
    EXPECT_EQ(commands, "by the host");
    EXPECT_EQ(caption, "by the host");
}

TEST_F(PortableEvents, OfTheEditFormAreHandedOn) {
    auto& form = object->portable().frmCE;
    form.OpenLoginWithChannelEdit();
    form.PauseDiagnosticsIfRunning();
    form.EditClosed();
    EXPECT_EQ(sink->events, (std::vector<std::string>{"6", "4", "11"}));
}

TEST_F(PortableEvents, TheHostMayLetGoInAnEventThatNoCallSurrounds) {
    auto& form = object->portable().frmCE;
    sink->releaseEverything = true;
    sink->last = std::move(object);
    // Raised from inside the form, as by a click in it: control and form must outlive their own code on the stack.
    form.EditClosed();
    EXPECT_EQ(sink->events, std::vector<std::string>{"11"});
    EXPECT_GT(win::uses(), 1) << "ends from the message loop";
}

}  // namespace
}  // namespace telvar::com
