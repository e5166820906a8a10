// The peer of a text box: the system's edit control.
#include "ui/text_box.h"

#include "win32/control_peer.h"
#include "win32/convert.h"
#include "win32/peers.h"
#include "win32/text_keys.h"

namespace telvar::win32 {

namespace {

class TextBoxPeer final : public ControlPeer {
public:
    TextBoxPeer(ui::TextBox& box, PeerHost& host) noexcept : ControlPeer(box, host) {}

    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override {
        const bool enter = event.code == ui::key::enter && event.shift == ui::shift::none;
        return enter ? takesEnter() : isTextKey(event);
    }
    [[nodiscard]] bool takesCharacters() const noexcept override { return true; }

    void accessKey() override {
        ControlPeer::accessKey();
        SendMessageW(window(), EM_SETSEL, 0, -1);
        readSelection();
    }

protected:
    [[nodiscard]] Control control() const noexcept override {
        return {.className = L"EDIT", .style = WS_TABSTOP | ES_AUTOHSCROLL, .extendedStyle = WS_EX_CLIENTEDGE};
    }
    [[nodiscard]] bool showsCaption() const noexcept override { return false; }
    [[nodiscard]] Ground ground() const noexcept override {
        return box() != nullptr && box()->isUsable() && !box()->readOnly() ? fieldGround : faceGround;
    }

    void showAspect(ui::Aspect changed) override {
        using ui::Aspect;
        const bool everything = changed == Aspect::Everything;
        if (everything || changed == Aspect::Enabled) {
            SendMessageW(window(), EM_SETREADONLY, box()->readOnly() ? TRUE : FALSE, 0);
        }
        // The caption is not shown, so only a new text is worth the flicker.
        if ((everything || changed == Aspect::Text) && windowText(window()) != box()->text()) {
            setWindowText(box()->text());
        }
        if (everything || changed == Aspect::TextSelection) {
            const int start = box()->selStart();
            SendMessageW(window(), EM_SETSEL, static_cast<WPARAM>(start), start + box()->selLength());
        }
    }

    void userDid(unsigned code) override {
        if (code == EN_CHANGE) {
            readSelection();
            box()->userTyped(windowText(window()));
        }
    }

    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = ControlPeer::message(message, wParam, lParam);
        // Else a dialog's loop presses the host's button.
        if (message == WM_GETDLGCODE && wParam == VK_RETURN && takesEnter()) {
            return result | DLGC_WANTMESSAGE;
        }
        // The control does not tell when the user moves the selection.
        if (message == WM_KEYDOWN || message == WM_LBUTTONUP) {
            readSelection();
        }
        return result;
    }

private:
    [[nodiscard]] ui::TextBox* box() const noexcept { return static_cast<ui::TextBox*>(widget()); }
    [[nodiscard]] bool takesEnter() const noexcept { return box() != nullptr && box()->takesEnter(); }

    void readSelection() const noexcept {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        if (box() != nullptr) {
            box()->userSelected(static_cast<int>(start), static_cast<int>(end - start));
        }
    }
};

}  // namespace

std::shared_ptr<ControlPeer> makeTextBoxPeer(ui::TextBox& box, PeerHost& host) {
    return std::make_shared<TextBoxPeer>(box, host);
}

}  // namespace telvar::win32
