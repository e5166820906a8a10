// The container's part towards a control, as a recording of what the control is called with, and the answers that its
// site and frame give.
#include <gtest/gtest.h>

#include <memory>

#include "com/kit/variant.h"
#include "fake_control.h"
#include "host/embed/embedded_control.h"

namespace telvar::tests {

using com::ComPointer;
using host::EmbeddedControl;

// A window of 472 by 263 pixels with the site in all of it.
class Owner final : public host::SiteOwner {
public:
    Owner()
        : window_(CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP | WS_VISIBLE, 10, 10, 472, 263, nullptr, nullptr,
                                  nullptr, nullptr)) {}
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    Owner(Owner&&) = delete;
    Owner& operator=(Owner&&) = delete;
    ~Owner() { DestroyWindow(window_); }

    HWND siteWindow() const override { return window_; }
    RECT sitePlace() const override { return place; }
    HACCEL accelerators() const override { return nullptr; }
    void showStatus(const std::wstring& text) override { status = text; }
    void enableWindow(bool value) override { enabled = value; }

    RECT place{0, 0, 472, 263};
    std::wstring status;
    bool enabled = true;

private:
    HWND window_;
};

class Container : public testing::Test {
protected:
    Container() { com::check(OleInitialize(nullptr)); }
    ~Container() override {
        control.reset();
        fake.reset();
        OleUninitialize();
    }

    void embed() {
        fake = com::make<FakeControl>(calls);
        control = std::make_unique<EmbeddedControl>(ComPointer<IUnknown>::from(fake), owner);
    }
    void embedOnly() {
        embed();
        calls.clear();
    }

    template <class Interface>
    [[nodiscard]] ComPointer<Interface> site() const {
        return ComPointer<Interface>::from(fake->site);
    }
    [[nodiscard]] com::Variant ambient(DISPID property) const {
        DISPPARAMS none{};
        com::Variant value;
        com::check(site<IDispatch>()->Invoke(property, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYGET, &none,
                                             value.put(), nullptr, nullptr));
        return value;
    }
    [[nodiscard]] MSG key(WPARAM code) const { return {fake->window, WM_KEYDOWN, code, 0, 0, {}}; }

    Owner owner;
    Calls calls;
    ComPointer<FakeControl> fake;
    std::unique_ptr<EmbeddedControl> control;
};

TEST_F(Container, EmbedsInTheOrderOfOle) {
    embed();
    EXPECT_EQ(calls, (Calls{"SetClientSite", "InitNew", "Advise", "SetExtent(12488x6959)", "SetHostNames",
                            "DoVerb(-5, 472x263)"}));
}

TEST_F(Container, TakesLeaveInTheOrderOfOleAndLetsTheControlGo) {
    embedOnly();
    ComPointer<FakeControl> last = std::move(fake);
    control->close();
    EXPECT_EQ(calls,
              (Calls{"UIDeactivate", "InPlaceDeactivate", "Unadvise(7)", "Close(no save)", "SetClientSite(none)"}));
    calls.clear();
    last.reset();
    EXPECT_EQ(calls, Calls{"destroyed"});
}

TEST_F(Container, ClosingTwiceClosesOnce) {
    embedOnly();
    control->close();
    calls.clear();
    control->close();
    control->move();
    control->takeFocus();
    control->enableModeless(false);
    control->windowActivated(true);
    EXPECT_EQ(control->window(), nullptr);
    EXPECT_EQ(calls, Calls{});
}

TEST_F(Container, AControlThatRefusesToActivateIsClosedAgain) {
    fake = com::make<FakeControl>(calls);
    fake->verbResult = OLE_E_NOT_INPLACEACTIVE;
    EXPECT_THROW(EmbeddedControl(ComPointer<IUnknown>::from(fake), owner), com::ComFailure);
    EXPECT_EQ(calls.back(), "SetClientSite(none)");
}

TEST_F(Container, AnObjectThatIsNoControlIsRefused) {
    ComPointer<IStream> stream;
    com::check(CreateStreamOnHGlobal(nullptr, TRUE, stream.put()));
    EXPECT_THROW(EmbeddedControl(ComPointer<IUnknown>::from(stream), owner), com::ComFailure);
}

TEST_F(Container, ANewSizeIsGivenInBothUnits) {
    embedOnly();
    owner.place = {0, 0, 944, 526};
    control->move();
    EXPECT_EQ(calls, (Calls{"SetExtent(24977x13917)", "SetObjectRects(944x526)"}));
}

TEST_F(Container, FocusActivatesTheControlForTheUserOnce) {
    embedOnly();
    control->takeFocus();
    control->takeFocus();
    EXPECT_EQ(calls, Calls{"DoVerb(-4, 472x263)"});
    EXPECT_EQ(GetFocus(), fake->window);
}

TEST_F(Container, TheControlSeesItsKeysFirst) {
    embed();
    control->takeFocus();
    calls.clear();
    MSG message = key(VK_DOWN);
    EXPECT_TRUE(control->translate(message));
    EXPECT_EQ(calls, Calls{"TranslateAccelerator(40)"});
    fake->takesKeys = false;
    EXPECT_FALSE(control->translate(message));
}

TEST_F(Container, KeysOfOtherWindowsAndOtherMessagesAreNotTheControls) {
    embed();
    control->takeFocus();
    calls.clear();
    MSG elsewhere{owner.siteWindow(), WM_KEYDOWN, VK_DOWN, 0, 0, {}};
    EXPECT_FALSE(control->translate(elsewhere));
    MSG paint{fake->window, WM_PAINT, 0, 0, 0, {}};
    EXPECT_FALSE(control->translate(paint));
    EXPECT_EQ(calls, Calls{});
}

TEST_F(Container, ModalAndActivationAreToldToTheControl) {
    embed();
    control->takeFocus();
    calls.clear();
    control->enableModeless(false);
    control->enableModeless(true);
    control->windowActivated(false);
    control->windowActivated(true);
    control->ambientsChanged();
    EXPECT_EQ(calls, (Calls{"EnableModeless(no)", "EnableModeless(yes)", "OnFrameWindowActivate(no)",
                            "OnFrameWindowActivate(yes)", "OnAmbientPropertyChange(-1)"}));
}

TEST_F(Container, OffersTheAmbientProperties) {
    embed();
    EXPECT_EQ(V_BOOL(&ambient(DISPID_AMBIENT_USERMODE).get()), VARIANT_TRUE);
    EXPECT_EQ(V_BOOL(&ambient(DISPID_AMBIENT_UIDEAD).get()), VARIANT_FALSE);
    EXPECT_EQ(static_cast<unsigned long>(V_I4(&ambient(DISPID_AMBIENT_BACKCOLOR).get())), 0x8000000FUL);
    EXPECT_EQ(static_cast<unsigned long>(V_I4(&ambient(DISPID_AMBIENT_FORECOLOR).get())), 0x80000008UL);
    EXPECT_EQ(static_cast<LCID>(V_I4(&ambient(DISPID_AMBIENT_LOCALEID).get())), GetUserDefaultLCID());
    const com::Variant fontObject = ambient(DISPID_AMBIENT_FONT);
    const auto font = ComPointer<IFont>::from(V_DISPATCH(&fontObject.get()));
    ASSERT_TRUE(font);
    CY size{};
    com::check(font->get_Size(&size));
    EXPECT_GE(size.int64, 60'000);
    EXPECT_LE(size.int64, 200'000);
}

TEST_F(Container, AnUnknownAmbientPropertyIsNoMember) {
    embed();
    DISPPARAMS none{};
    com::Variant value;
    const HRESULT result = site<IDispatch>()->Invoke(DISPID_AMBIENT_PALETTE, IID_NULL, LOCALE_INVARIANT,
                                                     DISPATCH_PROPERTYGET, &none, value.put(), nullptr, nullptr);
    EXPECT_EQ(result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(Container, TheSiteNamesItsWindowAndPlace) {
    embed();
    ComPointer<IOleInPlaceFrame> frame;
    ComPointer<IOleInPlaceUIWindow> document;
    RECT place{};
    RECT clip{};
    OLEINPLACEFRAMEINFO information{};
    information.cb = sizeof information;
    ASSERT_EQ(site<IOleInPlaceSite>()->GetWindowContext(frame.put(), document.put(), &place, &clip, &information),
              S_OK);
    HWND window = nullptr;
    EXPECT_EQ(frame->GetWindow(&window), S_OK);
    EXPECT_EQ(window, owner.siteWindow());
    EXPECT_EQ(information.hwndFrame, owner.siteWindow());
    EXPECT_FALSE(document);
    EXPECT_EQ(place.right, 472);
    EXPECT_EQ(clip.bottom, 263);
}

TEST_F(Container, AWishForAnotherPlaceIsAnsweredWithTheOnlyOne) {
    embedOnly();
    const RECT wish{5, 5, 20, 20};
    EXPECT_EQ(site<IOleInPlaceSite>()->OnPosRectChange(&wish), S_OK);
    EXPECT_EQ(calls, Calls{"SetObjectRects(472x263)"});
}

TEST_F(Container, TheFrameShowsStatusGrantsNoToolSpaceAndKnowsWhenItIsDisabled) {
    embed();
    EXPECT_EQ(fake->frame->SetStatusText(L"hello"), S_OK);
    EXPECT_EQ(owner.status, L"hello");
    const BORDERWIDTHS room{0, 20, 0, 0};
    EXPECT_EQ(fake->frame->RequestBorderSpace(&room), INPLACE_E_NOTOOLSPACE);
    EXPECT_EQ(fake->frame->SetBorderSpace(&room), INPLACE_E_NOTOOLSPACE);
    EXPECT_EQ(fake->frame->SetBorderSpace(nullptr), S_OK);
    EXPECT_EQ(fake->frame->EnableModeless(FALSE), S_OK);
    EXPECT_FALSE(owner.enabled);
    EXPECT_EQ(fake->frame->EnableModeless(TRUE), S_OK);
    EXPECT_TRUE(owner.enabled);
}

TEST_F(Container, ListsTheControlAsItsOneObject) {
    embed();
    ComPointer<IOleContainer> container;
    ASSERT_EQ(fake->site->GetContainer(container.put()), S_OK);
    ComPointer<IEnumUnknown> objects;
    ASSERT_EQ(container->EnumObjects(OLECONTF_EMBEDDINGS, objects.put()), S_OK);
    ComPointer<IUnknown> object;
    EXPECT_EQ(objects->Next(1, object.put(), nullptr), S_OK);
    EXPECT_TRUE(com::sameObject(object.get(), static_cast<IOleObject*>(fake.get())));
    EXPECT_EQ(objects->Next(1, object.put(), nullptr), S_FALSE);
    ASSERT_EQ(container->EnumObjects(OLECONTF_OTHERS, objects.put()), S_OK);
    EXPECT_EQ(objects->Next(1, object.put(), nullptr), S_FALSE);
}

TEST_F(Container, CoordinatesAreTransformedBothWays) {
    embed();
    POINTL himetric{2540, 5080};
    POINTF pixels{};
    ASSERT_EQ(site<IOleControlSite>()->TransformCoords(&himetric, &pixels,
                                                       XFORMCOORDS_POSITION | XFORMCOORDS_HIMETRICTOCONTAINER),
              S_OK);
    EXPECT_FLOAT_EQ(pixels.x, 96.0F);
    EXPECT_FLOAT_EQ(pixels.y, 192.0F);
    pixels = {48.0F, 24.0F};
    ASSERT_EQ(site<IOleControlSite>()->TransformCoords(&himetric, &pixels,
                                                       XFORMCOORDS_SIZE | XFORMCOORDS_CONTAINERTOHIMETRIC),
              S_OK);
    EXPECT_EQ(himetric.x, 1270);
    EXPECT_EQ(himetric.y, 635);
}

TEST_F(Container, ASiteThatOutlivesItsWindowAnswersFailures) {
    embed();
    const auto client = fake->site;
    const auto inPlace = site<IOleInPlaceSite>();
    control.reset();
    HWND window = owner.siteWindow();
    EXPECT_TRUE(FAILED(inPlace->GetWindow(&window)));
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(inPlace->CanInPlaceActivate(), S_FALSE);
    EXPECT_TRUE(FAILED(inPlace->OnInPlaceActivate()));
    const RECT wish{};
    EXPECT_TRUE(FAILED(inPlace->OnPosRectChange(&wish)));
    ComPointer<IOleContainer> container;
    EXPECT_EQ(client->GetContainer(container.put()), S_OK);
}

TEST_F(Container, EveryFamilyOfTheSiteIsOneObject) {
    embed();
    EXPECT_TRUE(site<IOleInPlaceSite>());
    EXPECT_TRUE(site<IOleInPlaceSiteEx>());
    EXPECT_TRUE(site<IOleControlSite>());
    EXPECT_TRUE(site<IDispatch>());
    EXPECT_TRUE(site<IAdviseSink>());
    EXPECT_TRUE(site<IPropertyNotifySink>());
    EXPECT_TRUE(com::sameObject(site<IOleInPlaceSite>().get(), site<IDispatch>().get()));
    EXPECT_FALSE(site<IStream>());
}

}  // namespace telvar::tests
