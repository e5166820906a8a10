// Automation names to dispatch numbers without the type library, which compares them one after the other. Names are
// ASCII and match in any letter case, as GetIDsOfNames requires. The hash is made free of collisions at compile time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace telvar::com {

struct NamedMember {
    std::string_view name;
    std::int32_t id = 0;
};

template <std::size_t Count>
class NameTable {
public:
    static constexpr std::int32_t unknown = -1;  // DISPID_UNKNOWN

    consteval explicit NameTable(const std::array<NamedMember, Count>& members) : members_(members) {
        while (!fill()) {
            ++seed_;
        }
    }

    [[nodiscard]] constexpr std::int32_t find(const wchar_t* name) const noexcept {
        std::uint32_t hash = seed_;
        for (const wchar_t* at = name; *at != 0; ++at) {
            hash = mixed(hash, static_cast<std::uint32_t>(*at));
        }
        const std::uint8_t position = slots_[slot(hash)];
        return position != empty && matches(members_[position].name, name) ? members_[position].id : unknown;
    }

    [[nodiscard]] constexpr const std::array<NamedMember, Count>& members() const noexcept { return members_; }

private:
    static constexpr std::size_t slotCount = 512;
    static constexpr std::uint8_t empty = 255;
    static_assert(Count < empty);

    [[nodiscard]] static constexpr std::uint32_t mixed(std::uint32_t hash, std::uint32_t character) noexcept {
        constexpr std::uint32_t caseBit = 0x20;  // merges a few other characters too, which the comparison tells apart
        constexpr std::uint32_t prime = 16'777'619;
        return (hash ^ (character | caseBit)) * prime;
    }

    [[nodiscard]] static constexpr std::size_t slot(std::uint32_t hash) noexcept {
        return (hash ^ (hash >> 16U)) % slotCount;
    }

    [[nodiscard]] static constexpr wchar_t folded(wchar_t character) noexcept {
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + (L'a' - L'A')) : character;
    }

    [[nodiscard]] static constexpr bool matches(std::string_view member, const wchar_t* name) noexcept {
        for (const char character : member) {
            if (folded(static_cast<wchar_t>(character)) != folded(*name)) {
                return false;
            }
            ++name;
        }
        return *name == 0;
    }

    // False when two members meet in one slot.
    [[nodiscard]] constexpr bool fill() {
        slots_.fill(empty);
        for (std::size_t position = 0; position < Count; ++position) {
            std::uint32_t hash = seed_;
            for (const char character : members_[position].name) {
                hash = mixed(hash, static_cast<std::uint32_t>(character));
            }
            auto& found = slots_[slot(hash)];
            if (found != empty) {
                return false;
            }
            found = static_cast<std::uint8_t>(position);
        }
        return true;
    }

    std::array<NamedMember, Count> members_;
    std::array<std::uint8_t, slotCount> slots_{};
    std::uint32_t seed_ = 1;
};

}  // namespace telvar::com
