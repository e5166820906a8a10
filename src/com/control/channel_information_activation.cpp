// In-place activation, focus, keys and ambient properties.
#include "com/control/channel_information_object.h"

#include <algorithm>
#include <cwctype>
#include <string>
#include <vector>

namespace telvar::com {

namespace {

// The access keys of what the panel shows, in upper case.
[[nodiscard]] std::vector<wchar_t> accessKeysOf(const ui::Panel& panel) {
    std::vector<wchar_t> keys;
    for (const ui::Widget* widget : panel.children()) {
        const std::string& caption = widget->caption();
        for (std::size_t at = caption.find('&'); at != std::string::npos && at + 1 < caption.size();
             at = caption.find('&', at + 2)) {
            if (caption[at + 1] != '&') {
                keys.push_back(static_cast<wchar_t>(
                    std::towupper(static_cast<wint_t>(static_cast<unsigned char>(caption[at + 1])))));
            }
        }
    }
    return keys;
}

[[nodiscard]] HACCEL acceleratorsFor(const std::vector<wchar_t>& keys) {
    std::vector<ACCEL> table;
    for (const wchar_t key : keys) {
        table.push_back({.fVirt = FVIRTKEY | FALT, .key = static_cast<WORD>(key), .cmd = 0});
    }
    return table.empty() ? nullptr : CreateAcceleratorTableW(table.data(), static_cast<int>(table.size()));
}

[[nodiscard]] bool isTab(const MSG* message) noexcept {
    return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_TAB;
}

}  // namespace

void ChannelInformationObject::perform(LONG verb, const MSG* message, const RECT* position) {
    switch (verb) {
    case OLEIVERB_HIDE:
        inPlace_.uiDeactivate();
        inPlace_.show(false);
        break;
    case OLEIVERB_PRIMARY:
    case OLEIVERB_UIACTIVATE:
        activateForInput(message, position);
        break;
    default:
        activate(position);
        break;
    }
}

void ChannelInformationObject::activate(const RECT* position) {
    const auto client = site_.client();
    if (!client) {
        throw ComFailure(E_UNEXPECTED, "The control has no site to be shown at");
    }
    if (inPlace_.active()) {
        if (position != nullptr && IsRectEmpty(position) == FALSE) {
            inPlace_.move(*position, nullptr);
        }
        inPlace_.show(true);
    } else {
        inPlace_.activate(*client, position);
    }
    client->ShowObject();
}

void ChannelInformationObject::activateForInput(const MSG* message, const RECT* position) {
    activate(position);
    inPlace_.uiActivate(*this);
    win32::PanelWindow* const panel = inPlace_.panelWindow();
    if (panel == nullptr || panel->hasFocus()) {
        return;
    }
    if (!isTab(message)) {
        panel->focus();
    } else if (GetKeyState(VK_SHIFT) < 0) {
        panel->focusLast();
    } else {
        panel->focusFirst();
    }
}

void ChannelInformationObject::focusEntered() noexcept {
    const Held held(*this);
    inPlace_.uiActivate(*this);
    site_.focusChanged(true);
}

void ChannelInformationObject::readAmbients() noexcept {
    const bool dead = site_.ambientTruth(DISPID_AMBIENT_UIDEAD, false);
    const bool inUse = site_.ambientTruth(DISPID_AMBIENT_USERMODE, true);
    inPlace_.enable(inUse && !dead);
}

HRESULT ChannelInformationObject::GetWindow(HWND* window) noexcept {
    return call([&] {
        deref(window) = inPlace_.window();
        return *window == nullptr ? E_FAIL : S_OK;
    });
}

HRESULT ChannelInformationObject::ContextSensitiveHelp(BOOL /*enter*/) noexcept { return E_NOTIMPL; }

HRESULT ChannelInformationObject::InPlaceDeactivate() noexcept {
    return call([&] { inPlace_.deactivate(); });
}

HRESULT ChannelInformationObject::UIDeactivate() noexcept {
    return call([&] { inPlace_.uiDeactivate(); });
}

HRESULT ChannelInformationObject::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
    return call([&] { inPlace_.move(deref(position), clip); });
}

HRESULT ChannelInformationObject::ReactivateAndUndo() noexcept { return INPLACE_E_NOTUNDOABLE; }

HRESULT ChannelInformationObject::TranslateAccelerator(LPMSG message) noexcept {
    return call([&] {
        MSG& key = deref(message);
        win32::PanelWindow* const panel = inPlace_.panelWindow();
        if (panel != nullptr && panel->translateAccelerator(key)) {
            return S_OK;
        }
        return site_.translate(key) ? S_OK : S_FALSE;
    });
}

HRESULT ChannelInformationObject::OnFrameWindowActivate(BOOL /*active*/) noexcept { return S_OK; }

HRESULT ChannelInformationObject::OnDocWindowActivate(BOOL /*active*/) noexcept { return S_OK; }

HRESULT ChannelInformationObject::ResizeBorder(LPCRECT /*border*/, IOleInPlaceUIWindow* /*window*/,
                                               BOOL /*frame*/) noexcept {
    return S_OK;
}

// The host's own modal work disables its window, and the control's with it.
HRESULT ChannelInformationObject::EnableModeless(BOOL /*enable*/) noexcept { return S_OK; }

HRESULT ChannelInformationObject::GetControlInfo(CONTROLINFO* info) noexcept {
    return call([&] {
        if (deref(info).cb != sizeof(CONTROLINFO)) {
            return E_INVALIDARG;
        }
        const auto keys = accessKeysOf(control_.panel());
        if (accelerators_ == nullptr) {
            accelerators_ = acceleratorsFor(keys);
        }
        info->hAccel = accelerators_;
        info->cAccel = accelerators_ == nullptr ? 0 : static_cast<USHORT>(keys.size());
        info->dwFlags = 0;
        return S_OK;
    });
}

HRESULT ChannelInformationObject::OnMnemonic(LPMSG message) noexcept {
    return call([&] {
        win32::PanelWindow* const panel = inPlace_.panelWindow();
        if (panel != nullptr) {
            panel->pressAccessKey(static_cast<wchar_t>(deref(message).wParam));
        }
    });
}

HRESULT ChannelInformationObject::OnAmbientPropertyChange(DISPID property) noexcept {
    return call([&] {
        if (property == DISPID_UNKNOWN || property == DISPID_AMBIENT_UIDEAD || property == DISPID_AMBIENT_USERMODE) {
            readAmbients();
        }
    });
}

HRESULT ChannelInformationObject::FreezeEvents(BOOL freeze) noexcept {
    frozen_ += freeze != FALSE ? 1 : -1;
    frozen_ = std::max(frozen_, 0);
    return S_OK;
}

}  // namespace telvar::com
