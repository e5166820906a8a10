// The real control in the container, left in awkward moments.
#include <gtest/gtest.h>

#include <memory>

#include "Tesslin.h"
#include "VexloDataStore.h"
#include "com/kit/failure.h"
#include "dialog_answers.h"
#include "host/embed/control_events.h"
#include "host/embed/embedded_control.h"
#include "host/embed/event_sink.h"
#include "support/windows/loaded_server.h"

namespace telvar::tests {

using com::ComPointer;

class Window final : public host::SiteOwner {
public:
    Window()
        : window_(CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 10, 10, 640, 480,
                                  nullptr, nullptr, nullptr, nullptr)) {}
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    Window(Window&&) = delete;
    Window& operator=(Window&&) = delete;
    ~Window() { DestroyWindow(window_); }

    HWND siteWindow() const override { return window_; }
    RECT sitePlace() const override { return {0, 0, 640, 480}; }
    HACCEL accelerators() const override { return nullptr; }
    void showStatus(const std::wstring&) override {}
    void enableWindow(bool) override {}

private:
    HWND window_;
};

class Ole {
public:
    Ole() { com::check(OleInitialize(nullptr)); }
    Ole(const Ole&) = delete;
    Ole& operator=(const Ole&) = delete;
    Ole(Ole&&) = delete;
    Ole& operator=(Ole&&) = delete;
    ~Ole() { OleUninitialize(); }
};

class Closing : public testing::Test {
protected:
    void TearDown() override {
        events.end();
        control.reset();
        channels.reset();
        store.reset();
        EXPECT_TRUE(storeServer.canUnload());
        EXPECT_TRUE(server.canUnload());
    }

    void embed() {
        const auto object = server.create<IUnknown>(__uuidof(ChannelInformation));
        channels = ComPointer<_ChannelInformation>::from(object);
        control = std::make_unique<host::EmbeddedControl>(object, window);
        com::check(channels->putref_pCentralDataStore(store.get()));
        com::check(channels->DistributeDataStoreLink());
        com::check(channels->Prepare());
    }
    void listen(host::EventHandler handler) {
        events = host::EventConnection(channels.get(), __uuidof(__ChannelInformation), std::move(handler));
    }

    Ole ole;
    LoadedServer server{"Tesslin.ocx"};
    LoadedServer storeServer{"VexloDataStore.dll"};
    Window window;
    ComPointer<IDataStore> store = storeServer.create<IDataStore>(__uuidof(DataStore));
    ComPointer<_ChannelInformation> channels;
    std::unique_ptr<host::EmbeddedControl> control;
    host::EventConnection events;
};

constexpr DISPID newWindowCaption = 9;
constexpr DISPID incrementProgressBar = 12;

TEST_F(Closing, ARefreshIsHeardInTheContainer) {
    embed();
    int captions = 0;
    int steps = 0;
    listen([&](DISPID event, const DISPPARAMS&) {
        captions += event == newWindowCaption ? 1 : 0;
        steps += event == incrementProgressBar ? 1 : 0;
        return true;
    });
    EXPECT_EQ(channels->UpdateControlsFromMemory(), S_OK);
    EXPECT_EQ(captions, 1);
    EXPECT_EQ(steps, 255);
}

TEST_F(Closing, TheControlIsClosedInsideAnEvent) {
    embed();
    int steps = 0;
    listen([&](DISPID event, const DISPPARAMS&) {
        steps += event == incrementProgressBar ? 1 : 0;
        if (steps == 100) {
            control->close();
        }
        return true;
    });
    (void)channels->UpdateControlsFromMemory();
    EXPECT_GE(steps, 100);
    EXPECT_EQ(control->window(), nullptr);
}

TEST_F(Closing, TheControlIsClosedAndLetGoInsideAnEvent) {
    embed();
    listen([&](DISPID, const DISPPARAMS&) {
        control.reset();
        events.end();
        channels.reset();
        return true;
    });
    _ChannelInformation* const last = channels.get();
    (void)last->UpdateControlsFromMemory();
    EXPECT_FALSE(channels);
}

TEST_F(Closing, TheControlIsClosedWhileItsFillDialogIsOpen) {
    embed();
    short level = 5;
    com::check(channels->UpdateAccess(&level));
    DialogAnswers dialogs;
    dialogs.expect([this](HWND) { control->close(); });
    (void)channels->ChannelFillSeries();
    EXPECT_EQ(dialogs.shown().size(), 1U);
    EXPECT_EQ(control->window(), nullptr);
}

TEST_F(Closing, TheControlIsClosedAndLetGoWhileItsFillDialogIsOpen) {
    embed();
    short level = 5;
    com::check(channels->UpdateAccess(&level));
    DialogAnswers dialogs;
    dialogs.expect([this](HWND) {
        control.reset();
        channels.reset();
    });
    _ChannelInformation* const last = channels.get();
    (void)last->ChannelFillSeries();
    EXPECT_FALSE(channels);
}

TEST_F(Closing, TheWindowGoesWhileTheFillDialogIsOpen) {
    embed();
    short level = 5;
    com::check(channels->UpdateAccess(&level));
    DialogAnswers dialogs;
    dialogs.expect([this](HWND) { DestroyWindow(window.siteWindow()); });
    (void)channels->ChannelFillSeries();
    control->close();
    EXPECT_EQ(control->window(), nullptr);
}

TEST_F(Closing, AForeignCloseIsFollowedByOurs) {
    embed();
    const auto object = ComPointer<IOleObject>::from(channels);
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(control->window(), nullptr);
    control->move();
    control->close();
    EXPECT_EQ(control->window(), nullptr);
}

TEST_F(Closing, TheWindowGoesBeforeTheControlIsClosed) {
    embed();
    DestroyWindow(window.siteWindow());
    control->close();
    EXPECT_EQ(control->window(), nullptr);
}

}  // namespace telvar::tests
