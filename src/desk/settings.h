// What the program remembers between runs: one row for each value, with its name, its type and what holds where nothing
// is remembered. Where the values are kept is the platform's (SettingsStore).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/pinned.h"

namespace telvar::desk {

// Values by name. Reading what is not there, or is of another kind, answers nothing.
class SettingsStore : private base::Pinned {
public:
    virtual ~SettingsStore() = default;

    // Whether there is a value of that name, of whatever kind.
    [[nodiscard]] virtual bool has(std::string_view name) const = 0;
    [[nodiscard]] virtual std::optional<std::int32_t> number(std::string_view name) const = 0;
    [[nodiscard]] virtual std::optional<std::string> text(std::string_view name) const = 0;
    [[nodiscard]] virtual std::vector<std::string> list(std::string_view name) const = 0;
    // Each answers whether the value is kept, or gone.
    virtual bool setNumber(std::string_view name, std::int32_t value) = 0;
    virtual bool setText(std::string_view name, const std::string& value) = 0;
    virtual bool setList(std::string_view name, const std::vector<std::string>& values) = 0;
    virtual bool remove(std::string_view name) = 0;
};

struct NumberSetting {
    std::string_view name;
    std::int32_t otherwise = 0;

    [[nodiscard]] std::int32_t in(const SettingsStore& store) const { return store.number(name).value_or(otherwise); }
};
struct FlagSetting {
    std::string_view name;
    bool otherwise = false;

    [[nodiscard]] bool in(const SettingsStore& store) const {
        return store.number(name).value_or(otherwise ? 1 : 0) != 0;
    }
    void put(SettingsStore& store, bool value) const { store.setNumber(name, value ? 1 : 0); }
};
// Nothing where it was never set; an empty text is a value.
struct TextSetting {
    std::string_view name;

    [[nodiscard]] std::optional<std::string> in(const SettingsStore& store) const { return store.text(name); }
};
struct ListSetting {
    std::string_view name;

    [[nodiscard]] std::vector<std::string> in(const SettingsStore& store) const { return store.list(name); }
};

namespace setting {

// ---- the main window, in pixels of the virtual screen, when it is not maximised. Without all four it opens in the
// middle of the main screen.
inline constexpr NumberSetting left{"Left"};
inline constexpr NumberSetting top{"Top"};
inline constexpr NumberSetting width{"Width"};
inline constexpr NumberSetting height{"Height"};
inline constexpr FlagSetting maximised{"Maximised"};
inline constexpr FlagSetting statusBar{"StatusBar", true};

// ---- files, newest first
inline constexpr ListSetting recentFiles{"RecentFiles"};

// ---- the radio
inline constexpr TextSetting radioConnection{"RadioConnection"};
// Where the simulated radio keeps its table; empty: nowhere. The menu does not offer it.
inline constexpr TextSetting simulatedRadioFile{"SimulatedRadioFile"};

// ---- salted hashes of the levels' passwords
inline constexpr TextSetting editPassword{"Password3"};
inline constexpr TextSetting everythingPassword{"Password5"};

// ---- printing; lengths in hundredths of a millimetre, the sheet by the system's number
inline constexpr NumberSetting printSheet{"PrintSheet"};
inline constexpr NumberSetting printSheetWidth{"PrintSheetWidth"};
inline constexpr NumberSetting printSheetHeight{"PrintSheetHeight"};
inline constexpr FlagSetting printLandscape{"PrintLandscape"};
inline constexpr FlagSetting printOnlyInUse{"PrintOnlyInUse"};
inline constexpr NumberSetting printMarginLeft{"PrintMarginLeft"};
inline constexpr NumberSetting printMarginTop{"PrintMarginTop"};
inline constexpr NumberSetting printMarginRight{"PrintMarginRight"};
inline constexpr NumberSetting printMarginBottom{"PrintMarginBottom"};

}  // namespace setting

}  // namespace telvar::desk
