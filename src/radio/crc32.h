// CRC-32 of IEEE 802.3 (also known as CRC-32/ISO-HDLC): polynomial 0x04C11DB7, reflected, initial value and final
// exclusive-or 0xFFFFFFFF. The digits "123456789" give 0xCBF43926.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace telvar::radio {

namespace detail {

[[nodiscard]] constexpr std::array<std::uint32_t, 256> crcTable() noexcept {
    constexpr std::uint32_t reflectedPolynomial = 0xEDB88320U;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t value = 0; value < table.size(); ++value) {
        std::uint32_t crc = value;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ reflectedPolynomial : crc >> 1U;
        }
        table[value] = crc;
    }
    return table;
}

inline constexpr auto crcEntries = crcTable();

}  // namespace detail

class Crc32 {
public:
    constexpr void add(std::span<const std::uint8_t> bytes) noexcept {
        std::uint32_t crc = crc_;
        for (const std::uint8_t byte : bytes) {
            crc = detail::crcEntries[(crc ^ byte) & 0xFFU] ^ (crc >> 8U);
        }
        crc_ = crc;
    }
    [[nodiscard]] constexpr std::uint32_t value() const noexcept { return ~crc_; }

private:
    std::uint32_t crc_ = 0xFFFFFFFFU;
};

[[nodiscard]] constexpr std::uint32_t crc32(std::span<const std::uint8_t> bytes) noexcept {
    Crc32 crc;
    crc.add(bytes);
    return crc.value();
}

namespace detail {
inline constexpr std::array<std::uint8_t, 9> crcCheck{'1', '2', '3', '4', '5', '6', '7', '8', '9'};
}
static_assert(crc32(detail::crcCheck) == 0xCBF43926U);

}  // namespace telvar::radio
