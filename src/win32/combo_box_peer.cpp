// The peer of a drop-down list, with or without a text that can be typed.
#include "ui/combo_box.h"

#include <algorithm>

#include "win/text.h"
#include "win32/control_peer.h"
#include "win32/convert.h"
#include "win32/peers.h"
#include "win32/text_keys.h"

namespace telvar::win32 {

namespace {

constexpr int droppedItems = 12;

class ComboBoxPeer final : public ControlPeer {
public:
    ComboBoxPeer(ui::ComboBox& box, PeerHost& host) noexcept : ControlPeer(box, host) {}
    ~ComboBoxPeer() override {
        if (window() != nullptr && fieldOriginal_ != nullptr) {
            SetWindowLongPtrW(field_, GWLP_USERDATA, 0);
            SetWindowLongPtrW(field_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(fieldOriginal_));
        }
    }

    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override {
        if (isTyped() && isTextKey(event)) {
            return true;
        }
        if (event.code == VK_F4 && (event.shift & ui::shift::alt) == 0) {
            return true;  // drops the list down
        }
        const bool moves = event.code >= ui::key::pageUp && event.code <= ui::key::down;
        const bool types = event.code >= '0' && event.code <= 'Z' && (event.shift & ui::shift::control) == 0;
        const bool closes = (event.code == ui::key::enter || event.code == ui::key::escape) &&
                            SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
        return moves || closes || event.code == VK_F4 ||
               ((event.shift & ui::shift::alt) == 0 && (types || event.code == ui::key::space));
    }
    [[nodiscard]] bool takesCharacters() const noexcept override { return true; }

protected:
    [[nodiscard]] Control control() const noexcept override {
        return {.className = L"COMBOBOX",
                .style = WS_TABSTOP | WS_VSCROLL | CBS_AUTOHSCROLL |
                         static_cast<DWORD>(isTyped() ? CBS_DROPDOWN : CBS_DROPDOWNLIST)};
    }
    [[nodiscard]] bool showsCaption() const noexcept override { return false; }
    [[nodiscard]] Ground ground() const noexcept override {
        return box() != nullptr && box()->isUsable() ? fieldGround : faceGround;
    }

    // The window of a combo box includes its list.
    [[nodiscard]] RECT windowBounds() const noexcept override {
        RECT at = rectOf(box()->bounds());
        const auto item = static_cast<int>(SendMessageW(window(), CB_GETITEMHEIGHT, 0, 0));
        at.bottom += droppedItems * std::max(item, 1) + 2;
        return at;
    }

    // An open list is scrolled by the wheel wherever the pointer is.
    [[nodiscard]] bool takesWheel(POINT at) const noexcept override {
        return ControlPeer::takesWheel(at) || SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
    }

    void showAspect(ui::Aspect changed) override {
        using ui::Aspect;
        const bool everything = changed == Aspect::Everything;
        if (everything) {
            listenToField();
        }
        if (everything || changed == Aspect::Items) {
            fill();
        }
        if (everything || changed == Aspect::Items || changed == Aspect::Value) {
            SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(box()->listIndex()), 0);
            if (box()->listIndex() < 0 && isTyped()) {
                setWindowText(box()->text());
            }
        }
        if (everything || changed == Aspect::Bounds) {
            fitField();
        }
    }

    void userDid(unsigned code) override {
        switch (code) {
        case CBN_SELCHANGE:
            if (settled()) {
                box()->userSelected(static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0)));
            }
            break;
        case CBN_EDITCHANGE:
            box()->userTyped(windowText(window()));
            break;
        // The focus is in the field inside the combo box, which does not tell its own messages.
        case CBN_SETFOCUS:
            host().focusGained(*this);
            break;
        case CBN_KILLFOCUS:
            host().focusLost(*this, GetFocus());
            break;
        default:
            break;
        }
    }

    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override {
        // The field tells its keys itself, and hands some of them on to the box.
        if (message == WM_SETFOCUS || message == WM_KILLFOCUS || fieldOriginal_ != nullptr) {
            return original(message, wParam, lParam);
        }
        return ControlPeer::message(message, wParam, lParam);
    }

private:
    [[nodiscard]] ui::ComboBox* box() const noexcept { return static_cast<ui::ComboBox*>(widget()); }
    [[nodiscard]] bool isTyped() const noexcept {
        return box() != nullptr && box()->style() == ui::ComboBox::Style::DropDown;
    }

    // What is typed goes to the field inside, a window of its own.
    void listenToField() {
        const HWND field = isTyped() ? GetWindow(window(), GW_CHILD) : nullptr;
        if (field != nullptr && fieldOriginal_ == nullptr) {
            field_ = field;
            SetWindowLongPtrW(field, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(static_cast<ControlPeer*>(this)));
            fieldOriginal_ = reinterpret_cast<WNDPROC>(
                SetWindowLongPtrW(field, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&fieldProcedure)));
        }
    }

    static LRESULT CALLBACK fieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
        return onPeer(field, message, wParam, lParam, [&](ControlPeer& peer) -> LRESULT {
            auto& combo = static_cast<ComboBoxPeer&>(peer);
            const WNDPROC fieldOriginal = combo.fieldOriginal_;
            const auto going = combo.raiseKey(message, wParam);
            return going ? CallWindowProcW(fieldOriginal, field, message, *going, lParam) : 0;
        });
    }

    // Adds what is missing; a list that was cleared or changed is filled anew.
    void fill() {
        const auto& items = box()->items();
        auto shown = static_cast<std::size_t>(std::max<LRESULT>(SendMessageW(window(), CB_GETCOUNT, 0, 0), 0));
        if (shown >= items.size()) {
            SendMessageW(window(), CB_RESETCONTENT, 0, 0);
            shown = 0;
        }
        for (; shown < items.size(); ++shown) {
            SendMessageW(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win::wide(items[shown]).c_str()));
        }
    }

    // The field takes its height from its item, not from the window.
    void fitField() const {
        constexpr int frame = 6;
        const int height = box()->bounds().height() - frame;
        if (height > 0) {
            SendMessageW(window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
        }
    }

    HWND field_ = nullptr;
    WNDPROC fieldOriginal_ = nullptr;
};

}  // namespace

std::shared_ptr<ControlPeer> makeComboBoxPeer(ui::ComboBox& box, PeerHost& host) {
    return std::make_shared<ComboBoxPeer>(box, host);
}

}  // namespace telvar::win32
