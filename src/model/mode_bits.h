// The bits of a channel's ModeBits field. Duplex is neither simplex nor repeater; 0x08 is not used and kept as found.
#pragma once

#include <cstdint>

namespace telvar::model::mode {

inline constexpr std::int64_t simplex = 0x01;
inline constexpr std::int64_t repeater = 0x02;
inline constexpr std::int64_t multipleReceiveSubtones = 0x04;
inline constexpr std::int64_t transmitDcs = 0x10;  // mirrors TxCTCSSDCS
inline constexpr std::int64_t receiveDcs = 0x20;   // mirrors RxCTCSSDCS
inline constexpr std::int64_t dataMode = 0x40;
inline constexpr std::int64_t narrowBand = 0x80;

}  // namespace telvar::model::mode
