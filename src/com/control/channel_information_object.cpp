#include "com/control/channel_information_object.h"

#include <array>

#include "com/control/undo_tables.h"
#include "com/kit/bstr.h"

namespace telvar::com {

namespace {

constexpr int himetricPerInch = 2540;
constexpr const char* defaultLog = "c:\\msglog.txt";

[[nodiscard]] constexpr LONG himetricOf(int twips) noexcept {
    return static_cast<LONG>(twips) * himetricPerInch / ui::twipsPerInch;
}

// Separators of several characters, or none of ASCII, cannot be typed into a cell; the point is read everywhere.
[[nodiscard]] base::NumberFormat usersNumberFormat() noexcept {
    std::array<wchar_t, 8> text{};
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text.data(), static_cast<int>(text.size()));
    constexpr int oneCharacterAndEnd = 2;
    constexpr wchar_t lastOfAscii = 0x7E;
    if (length != oneCharacterAndEnd || text[0] <= L' ' || text[0] > lastOfAscii) {
        return {};
    }
    return {.decimalSeparator = static_cast<char>(text[0])};
}

}  // namespace

ChannelInformationObject::ChannelInformationObject()
    : control_({.desktop = desktop_,
                .makeTable = makeUndoTable,
                .numberFormat = usersNumberFormat(),
                .logPath = defaultLog}),
      inPlace_(desktop_, control_.panel()),
      extent_{himetricOf(control::ChannelInformation::defaultWidth),
              himetricOf(control::ChannelInformation::defaultHeight)} {
    desktop_.setSite(desktopSite());
    inPlace_.listen({.focusEntered = [this] { focusEntered(); },
                     .focusLeft = [this] { site_.focusChanged(false); },
                     .holder = [this] { return hold(); }});
    wireEvents();
}

ChannelInformationObject::~ChannelInformationObject() {
    ending_ = true;
    // Nothing may hold on to an object that is ending.
    desktop_.setSite({});
    inPlace_.deactivate();
    control_.close();
    if (accelerators_ != nullptr) {
        DestroyAcceleratorTable(accelerators_);
    }
}

// The host has let go of everything while a call of its is still inside: the work under way ends.
void ChannelInformationObject::referenceLost(ULONG left) noexcept {
    if (!ending_ && left == held_) {
        control_.close();
    }
}

win32::WindowsDesktop::Site ChannelInformationObject::desktopSite() {
    return {.owner = [this] { return site_.ownerWindow(); },
            .enableModeless = [this](bool enable) { inPlace_.enableModeless(enable); },
            .holder = [this] { return hold(); },
            .hostKey = [this](MSG& key) { return site_.translate(key); }};
}

std::shared_ptr<void> ChannelInformationObject::hold() { return std::make_shared<Held>(*this); }

}  // namespace telvar::com
