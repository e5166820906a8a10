// A control in a container whose edit form is opened, driven and read as a user and a screen would: by the mouse and
// key messages of a host that knows nothing of the form.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/conversion.h"
#include "com/kit/text.h"
#include "container.h"
#include "world.h"

namespace telvar::tests {

// Passes everything on to a store; `beforePut` is called with the number of each member that is put.
class HookedStore final : public com::Object<IDispatch> {
public:
    explicit HookedStore(IDispatch* behind) : behind_(behind) {}

    std::function<void(DISPID)> beforePut;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override { return behind_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override {
        return behind_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept override {
        return behind_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override {
        const auto alive = com::keepAlive(this);
        const auto behind = behind_;
        if (beforePut && (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
            beforePut(member);
        }
        return behind->Invoke(member, iid, locale, flags, arguments, result, exception, wrongArgument);
    }

private:
    ComPointer<IDispatch> behind_;
};

class EditFormWorld : public ControlWorld {
protected:
    static constexpr std::int32_t firstHertz = 150'000'000;
    static constexpr std::int32_t stepHertz = 25'000;

    // Channels 1 to 12 in service, everything shown, the control in its site.
    void show(IDispatch* dataStore) {
        for (std::int16_t channel = 1; channel <= 12; ++channel) {
            fill(channel, firstHertz + channel * stepHertz);
        }
        setUp(dataStore);
        call(*control, "UpdateControlsFromMemory");
        com::check(control->UpdateAccess(&level));
        advise(*control, *sink);
        site = com::make<Container>(*control);
        ASSERT_EQ(site->activate(), S_OK);
        UpdateWindow(gridWindow());
        pump();
        sink->forget();
    }
    void show() { show(store.get()); }

    void TearDown() override {
        if (site) {
            site->close();
            site.reset();
        }
        sink.reset();
        ControlWorld::TearDown();
    }

    // ---- windows of this thread
    [[nodiscard]] static HWND topLevel(std::wstring_view prefix) {
        return search(prefix,
                      [](WNDENUMPROC found, LPARAM wanted) { EnumThreadWindows(GetCurrentThreadId(), found, wanted); });
    }
    [[nodiscard]] static HWND form() { return topLevel(L"Telvar.Form."); }
    [[nodiscard]] HWND gridWindow() const {
        return search(L"Telvar.Grid.",
                      [this](WNDENUMPROC found, LPARAM wanted) { EnumChildWindows(site->window(), found, wanted); });
    }
    [[nodiscard]] HWND host() const { return GetAncestor(site->window(), GA_ROOT); }
    // The children of the form of one window class, in reading order.
    [[nodiscard]] static std::vector<HWND> children(const wchar_t* className) {
        struct Search {
            std::wstring_view name;
            std::vector<HWND> found;
        } search{className, {}};
        EnumChildWindows(
            form(),
            [](HWND window, LPARAM wanted) -> BOOL {
                auto& it = *reinterpret_cast<Search*>(wanted);
                if (nameOf(window) == it.name) {
                    it.found.push_back(window);
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    [[nodiscard]] static HWND field(std::size_t number) {
        const auto all = children(L"Edit");
        return number < all.size() ? all[number] : nullptr;
    }
    [[nodiscard]] static HWND channelField() { return field(0); }
    [[nodiscard]] static HWND frequencyField() { return field(1); }
    // By its caption without the access key's mark.
    [[nodiscard]] static HWND button(const std::string& caption) {
        for (const HWND window : children(L"Button")) {
            std::string text = textOf(window);
            std::erase(text, '&');
            if (text == caption) {
                return window;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static std::string textOf(HWND window) {
        std::array<wchar_t, 256> text{};
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
        return com::narrow(text.data());
    }

    // ---- the user
    // In the middle of the grid's visible rows.
    void doubleClick() const {
        const LPARAM at = MAKELPARAM(120, 110);
        PostMessageW(gridWindow(), WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(gridWindow(), WM_LBUTTONUP, 0, at);
        PostMessageW(gridWindow(), WM_LBUTTONDBLCLK, MK_LBUTTON, at);
        PostMessageW(gridWindow(), WM_LBUTTONUP, 0, at);
        pump();
    }
    static void key(HWND window, WPARAM code) {
        PostMessageW(window, WM_KEYDOWN, code, 0);
        PostMessageW(window, WM_KEYUP, code, 0);
        pump();
    }
    static void press(const std::string& caption) {
        const HWND pressed = button(caption);
        ASSERT_NE(pressed, nullptr) << caption;
        const LPARAM at = MAKELPARAM(4, 4);
        PostMessageW(pressed, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(pressed, WM_LBUTTONUP, 0, at);
        pump();
    }
    static void type(HWND window, const std::string& text) {
        SetFocus(window);
        pump();
        SetWindowTextW(window, com::wide(text).c_str());
        pump();
    }

    [[nodiscard]] std::string frequencyShownFor(LONG channel) const { return cell(channel, 1); }
    [[nodiscard]] std::int32_t storedHertz(std::int16_t channel) {
        const Variant record = call(*store, "ChannelTable", {Variant(static_cast<std::int16_t>(channel - 1))});
        return base::toInt32(com::valueOf(get(*V_DISPATCH(&record.get()), "TxFreq")));
    }

    // The host lets go of everything.
    void letGo() {
        grid.reset();
        if (const auto left = std::exchange(site, {})) {
            left->close();
        }
        control.reset();
    }

    short level = 5;
    ComPointer<Container> site;
    std::function<void(DISPID)> duringEvent;
    ComPointer<RecordingSink> sink = com::make<RecordingSink>([this](DISPID event, DISPPARAMS&) {
        if (duringEvent) {
            duringEvent(event);
        }
        return S_OK;
    });

private:
    [[nodiscard]] static std::wstring nameOf(HWND window) {
        std::array<wchar_t, 64> name{};
        GetClassNameW(window, name.data(), static_cast<int>(name.size()));
        return name.data();
    }
    template <class Enumerate>
    [[nodiscard]] static HWND search(std::wstring_view prefix, Enumerate enumerate) {
        struct Search {
            std::wstring_view prefix;
            HWND found;
        } search{prefix, nullptr};
        enumerate(
            [](HWND window, LPARAM wanted) -> BOOL {
                auto& it = *reinterpret_cast<Search*>(wanted);
                if (nameOf(window).starts_with(it.prefix) && IsWindowVisible(window) != FALSE) {
                    it.found = window;
                    return FALSE;
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
};

}  // namespace telvar::tests
