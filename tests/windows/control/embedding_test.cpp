// The control in a container: activation, size, focus, keys, ambient properties, and a host that destroys or releases
// things in the middle.
#include "container.h"

#include <algorithm>
#include <vector>

namespace telvar::tests {
namespace {

struct Embedding : ControlWorld {
    void SetUp() override {
        setUp();
        site = com::make<Container>(*control);
    }
    void TearDown() override {
        if (site) {
            site->close();
        }
        site.reset();
        ControlWorld::TearDown();
    }
    [[nodiscard]] ComPointer<IOleObject> object() const { return ComPointer<IOleObject>::from(control); }

    // A key as the host's loop meets it, for the window with the focus.
    [[nodiscard]] HRESULT translate(WPARAM key) const {
        MSG message{.hwnd = GetFocus(), .message = WM_KEYDOWN, .wParam = key};
        return ComPointer<IOleInPlaceActiveObject>::from(control)->TranslateAccelerator(&message);
    }

    ComPointer<Container> site;
};

[[nodiscard]] SIZE sizeOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

[[nodiscard]] SIZE clientOf(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return {rect.right, rect.bottom};
}

TEST_F(Embedding, SaysWhatKindOfObjectItIs) {
    DWORD status = 0;
    EXPECT_EQ(object()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, static_cast<DWORD>(OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_INSIDEOUT | OLEMISC_RECOMPOSEONRESIZE |
                                         OLEMISC_CANTLINKINSIDE | OLEMISC_SETCLIENTSITEFIRST));
    EXPECT_EQ(object()->GetMiscStatus(DVASPECT_ICON, &status), DV_E_DVASPECT);
    CLSID classId{};
    EXPECT_EQ(object()->GetUserClassID(&classId), S_OK);
    EXPECT_TRUE(IsEqualCLSID(classId, __uuidof(ChannelInformation)));
    LPOLESTR type = nullptr;
    ASSERT_EQ(object()->GetUserType(USERCLASSTYPE_FULL, &type), S_OK);
    EXPECT_EQ(std::wstring(type), L"Channel information");
    CoTaskMemFree(type);
}

TEST_F(Embedding, IsShownWhereTheHostSays) {
    ASSERT_EQ(site->activate(), S_OK);
    EXPECT_EQ(site->told(), (Texts{"OnInPlaceActivate", "ShowObject"}));
    ASSERT_NE(site->controlWindow(), nullptr);
    EXPECT_EQ(GetParent(site->controlWindow()), site->window());
    const SIZE shown = sizeOf(site->controlWindow());
    const SIZE given = clientOf(site->window());
    EXPECT_EQ(shown.cx, given.cx);
    EXPECT_EQ(shown.cy, given.cy);
}

TEST_F(Embedding, TakesItsSizeFromRectanglesOnly) {
    ASSERT_EQ(site->activate(), S_OK);
    const SIZE before = sizeOf(site->controlWindow());
    SIZEL extent{491, 273};
    EXPECT_EQ(object()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(sizeOf(site->controlWindow()).cx, before.cx);
    site->resize(500, 400);
    EXPECT_EQ(sizeOf(site->controlWindow()).cx, clientOf(site->window()).cx);
    SIZEL kept{};
    EXPECT_EQ(object()->GetExtent(DVASPECT_CONTENT, &kept), S_OK);
    EXPECT_EQ(kept.cx, 491);
    EXPECT_EQ(object()->GetExtent(DVASPECT_ICON, &kept), DV_E_DVASPECT);
}

TEST_F(Embedding, WithoutASiteItCannotBeShown) {
    const RECT at{0, 0, 100, 100};
    EXPECT_EQ(object()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, site->window(), &at), E_UNEXPECTED);
    HWND window = site->window();
    EXPECT_EQ(ComPointer<IOleWindow>::from(ComPointer<IOleInPlaceObject>::from(control))->GetWindow(&window), E_FAIL);
    EXPECT_EQ(window, nullptr);
}

TEST_F(Embedding, BecomesTheActiveObjectWhenTheFocusComes) {
    ASSERT_EQ(site->activate(), S_OK);
    EXPECT_EQ(site->count("OnUIActivate"), 0) << "being shown does not take the focus";
    site->forget();
    SetFocus(site->controlWindow());
    pump();
    EXPECT_EQ(site->count("OnUIActivate"), 1);
    EXPECT_EQ(site->count("SetActiveObject"), 1);
    EXPECT_EQ(site->count("OnFocus"), 1);
    EXPECT_TRUE(IsChild(site->controlWindow(), GetFocus()));
    site->forget();
    EXPECT_EQ(ComPointer<IOleInPlaceObject>::from(control)->UIDeactivate(), S_OK);
    EXPECT_EQ(site->told(), (Texts{"ClearActiveObject", "OnUIDeactivate"}));
}

TEST_F(Embedding, TheVerbForInputTakesTheFocus) {
    ASSERT_EQ(site->activate(OLEIVERB_UIACTIVATE), S_OK);
    pump();
    EXPECT_EQ(site->count("OnUIActivate"), 1);
    EXPECT_TRUE(IsChild(site->controlWindow(), GetFocus()));
}

TEST_F(Embedding, OtherVerbs) {
    ASSERT_EQ(site->activate(), S_OK);
    EXPECT_EQ(object()->DoVerb(OLEIVERB_HIDE, nullptr, site.get(), 0, site->window(), nullptr), S_OK);
    EXPECT_FALSE(IsWindowVisible(site->controlWindow()));
    EXPECT_EQ(object()->DoVerb(OLEIVERB_SHOW, nullptr, site.get(), 0, site->window(), nullptr), S_OK);
    EXPECT_TRUE(IsWindowVisible(site->controlWindow()));
    EXPECT_EQ(object()->DoVerb(17, nullptr, site.get(), 0, site->window(), nullptr), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(object()->DoVerb(-17, nullptr, site.get(), 0, site->window(), nullptr), E_NOTIMPL);
    EXPECT_EQ(object()->DoVerb(OLEIVERB_DISCARDUNDOSTATE, nullptr, site.get(), 0, site->window(), nullptr), S_OK);
}

TEST_F(Embedding, GivesBackTheKeysThatAreTheHosts) {
    ASSERT_EQ(site->activate(OLEIVERB_UIACTIVATE), S_OK);
    pump();
    com::check(grid->Select(4, 1, 4, 1));
    EXPECT_EQ(translate(VK_DOWN), S_OK);
    EXPECT_EQ(currentRow(), 5);
    site->forget();
    for (const int key : {VK_ESCAPE, VK_RETURN, VK_F5}) {
        EXPECT_EQ(translate(static_cast<WPARAM>(key)), S_FALSE) << key;
    }
    EXPECT_EQ(site->count("TranslateAccelerator"), 3) << "the site is asked before the loop gets it back";
}

TEST_F(Embedding, IsDeadWhileTheHostSaysSo) {
    ASSERT_EQ(site->activate(), S_OK);
    const auto ambient = ComPointer<IOleControl>::from(control);
    EXPECT_TRUE(IsWindowEnabled(site->controlWindow()));
    site->uiDead = true;
    EXPECT_EQ(ambient->OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD), S_OK);
    EXPECT_FALSE(IsWindowEnabled(site->controlWindow()));
    site->uiDead = false;
    EXPECT_EQ(ambient->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    EXPECT_TRUE(IsWindowEnabled(site->controlWindow()));
    site->userMode = false;
    EXPECT_EQ(ambient->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
    EXPECT_FALSE(IsWindowEnabled(site->controlWindow()));
}

TEST_F(Embedding, TellsItsAccessKeys) {
    CONTROLINFO info{};
    const auto ambient = ComPointer<IOleControl>::from(control);
    EXPECT_EQ(ambient->GetControlInfo(&info), E_INVALIDARG);
    info.cb = sizeof info;
    EXPECT_EQ(ambient->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.cAccel == 0, info.hAccel == nullptr);
}

TEST_F(Embedding, MessageBoxesBelongToTheHostsWindow) {
    ASSERT_EQ(site->activate(), S_OK);
    put(*control, "pCentralDataStore", Variant());
    boxes.forget();
    site->forget();
    call(*control, "UpdateControlsFromMemory");
    ASSERT_EQ(boxes.shown().size(), 1U);
    EXPECT_EQ(boxes.shown().front().owner, site->window());
    EXPECT_EQ(site->told(), (Texts{"DisableModeless", "EnableModeless"}));
}

TEST_F(Embedding, MayBeShownAgainAfterItWasClosed) {
    ASSERT_EQ(site->activate(), S_OK);
    EXPECT_EQ(object()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(site->controlWindow(), nullptr);
    EXPECT_EQ(site->count("OnInPlaceDeactivate"), 1);
    fill(1, 145'000'000);
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(cell(1, 1), "145.000000");
    EXPECT_EQ(site->activate(), S_OK);
    EXPECT_NE(site->controlWindow(), nullptr);
}

TEST_F(Embedding, ClosingSavesWhatChanged) {
    ASSERT_EQ(site->activate(), S_OK);
    put(*control, "bHidden", Variant(true));
    site->forget();
    EXPECT_EQ(object()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(site->count("SaveObject"), 1);
}

TEST_F(Embedding, LosingItsSiteTakesItOffTheScreen) {
    ASSERT_EQ(site->activate(), S_OK);
    EXPECT_EQ(object()->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(site->controlWindow(), nullptr);
    EXPECT_EQ(site->count("OnInPlaceDeactivate"), 1);
}

TEST_F(Embedding, TheHostMayDestroyItsWindowFirst) {
    ASSERT_EQ(site->activate(), S_OK);
    DestroyWindow(site->window());
    pump();
    EXPECT_EQ(site->controlWindow(), nullptr);
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(Embedding, TheHostMayCloseTheControlInAnEvent) {
    ASSERT_EQ(site->activate(), S_OK);
    const auto closing = com::make<RecordingSink>([&](DISPID event, DISPPARAMS&) {
        if (event == 12) {
            object()->Close(OLECLOSE_NOSAVE);
            object()->SetClientSite(nullptr);
        }
        return S_OK;
    });
    advise(*control, *closing);
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(closing->count("12"), 255) << "a closed control is still a control";
    EXPECT_EQ(site->controlWindow(), nullptr);
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(Embedding, TheHostMayLetEverythingGoInAnEventOfAClick) {
    ASSERT_EQ(site->activate(), S_OK);
    fill(1, 145'000'000);
    bool raised = false;
    const auto releasing = com::make<RecordingSink>([&](DISPID, DISPPARAMS&) {
        raised = true;
        site->close();
        grid.reset();
        control.reset();
        return S_OK;
    });
    advise(*control, *releasing);
    // The channel-select button pauses the host's diagnostics before it does anything else.
    HWND edit = FindWindowExW(site->controlWindow(), nullptr, L"Edit", nullptr);
    HWND button = FindWindowExW(site->controlWindow(), nullptr, L"Button", L"Select");
    ASSERT_NE(edit, nullptr);
    ASSERT_NE(button, nullptr);
    SetWindowTextW(edit, L"7");
    SendMessageW(button, BM_CLICK, 0, 0);
    pump();
    EXPECT_TRUE(raised);
    site.reset();
}

// ---- pictures without a window

[[nodiscard]] int coloursIn(HDC context, int width, int height) {
    std::vector<COLORREF> seen;
    for (int y = 0; y < height; y += 3) {
        for (int x = 0; x < width; x += 3) {
            const COLORREF colour = GetPixel(context, x, y);
            if (std::find(seen.begin(), seen.end(), colour) == seen.end()) {
                seen.push_back(colour);
            }
        }
    }
    return static_cast<int>(seen.size());
}

TEST_F(Embedding, DrawsItselfBeforeItHasASiteOrAWindow) {
    fill(1, 145'000'000);
    call(*control, "UpdateControlsFromMemory");
    constexpr int width = 700;
    constexpr int height = 400;
    HDC screen = GetDC(nullptr);
    HDC context = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ former = SelectObject(context, bitmap);
    PatBlt(context, 0, 0, width, height, BLACKNESS);
    const RECTL bounds{0, 0, width, height};
    const auto view = ComPointer<IViewObject2>::from(control);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr, nullptr, 0), S_OK);
    EXPECT_GE(coloursIn(context, width, height), 3) << "cells, lines and texts";
    EXPECT_NE(GetPixel(context, 0, 0), RGB(0, 0, 0));
    EXPECT_NE(GetPixel(context, width - 1, height - 1), RGB(0, 0, 0)) << "the whole rectangle is covered";
    EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, nullptr, nullptr, nullptr, 0),
              E_POINTER);
    SelectObject(context, former);
    DeleteObject(bitmap);
    DeleteDC(context);
    ReleaseDC(nullptr, screen);
}

class ViewSink final : public com::Object<IAdviseSink> {
public:
    int changes = 0;
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) noexcept override { ++changes; }
    STDMETHODIMP_(void) OnRename(IMoniker*) noexcept override {}
    STDMETHODIMP_(void) OnSave() noexcept override {}
    STDMETHODIMP_(void) OnClose() noexcept override { ++closes; }
    int closes = 0;
};

TEST_F(Embedding, TellsWhenAPictureOfItIsOutOfDate) {
    const auto sink = com::make<ViewSink>();
    const auto view = ComPointer<IViewObject2>::from(control);
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, sink.get()), S_OK);
    EXPECT_EQ(sink->changes, 1);
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(sink->changes, 2);
    ComPointer<IAdviseSink> known;
    EXPECT_EQ(view->GetAdvise(nullptr, nullptr, known.put()), S_OK);
    EXPECT_EQ(known.get(), sink.get());
    EXPECT_EQ(view->SetAdvise(0, 0, nullptr), S_OK);
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(sink->changes, 2);
}

TEST_F(Embedding, TellsTheHostsSinkOfItsEnd) {
    const auto sink = com::make<ViewSink>();
    DWORD cookie = 0;
    EXPECT_EQ(object()->Unadvise(1), OLE_E_NOCONNECTION);
    EXPECT_EQ(object()->Advise(sink.get(), &cookie), S_OK);
    EXPECT_EQ(object()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(sink->closes, 1);
    EXPECT_EQ(object()->Unadvise(cookie), S_OK);
}

}  // namespace
}  // namespace telvar::tests
