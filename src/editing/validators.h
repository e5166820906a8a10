// Whether a cell's text may be stored, column by column. A validator answers an error text, empty when the text is
// acceptable; it changes nothing and shows nothing. Some trap every failure and answer it as a text; of the others (RF
// mode, scan, external PTT mode, modulo, P25 repeater) the store's failures reach the caller.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "editing/columns.h"

namespace telvar::editing {

// MHz: "X", 0, or 10 to 1000.
[[nodiscard]] std::string validateFrequency(const CellContext& context, std::string_view text);
// "Disabled", a tone of 0 or 65 to 257 followed by "Hz", or a DCS code; the receive side also takes "Multiple".
[[nodiscard]] std::string validateTransmitSubtone(const CellContext& context, std::string_view text);
[[nodiscard]] std::string validateReceiveSubtone(const CellContext& context, std::string_view text);
// "Duplex", "Simplex", "Repeater"; "P25 Repeater" and "Mixed Mode" where the radio can do P25.
[[nodiscard]] std::string validateRfMode(const CellContext& context, std::string_view text);
[[nodiscard]] std::string validateScan(const CellContext& context, std::string_view text);
// "Wide", "Narrow" or "N/A", as the radio's bandwidth allows.
[[nodiscard]] std::string validateBandwidth(const CellContext& context, std::string_view text);
[[nodiscard]] std::string validateExternalPttMode(const CellContext& context, std::string_view text);
// 0 to 255; the binary accelerators are held to the same.
[[nodiscard]] std::string validatePotLevel(const CellContext& context, std::string_view text);
// 0 to 6.
[[nodiscard]] std::string validateSubtoneLevel(const CellContext& context, std::string_view text);
// kHz, above 0 and up to 25.5, in single precision.
[[nodiscard]] std::string validateSynthesizerStep(const CellContext& context, std::string_view text);
// Exactly "5" or "8", untrimmed.
[[nodiscard]] std::string validateModulo(const CellContext& context, std::string_view text);
[[nodiscard]] std::string validateP25Repeater(const CellContext& context, std::string_view text);
// Four hexadecimal digits; a shorter text is padded with zeros on the left.
[[nodiscard]] std::string validateTalkgroup(const CellContext& context, std::string_view text);
[[nodiscard]] std::string validateNetworkAccessCode(const CellContext& context, std::string_view text);

// True when every character is a hexadecimal digit, and so for an empty text.
[[nodiscard]] bool isHexadecimal(std::string_view text) noexcept;

// A code as it is stored: trimmed, and padded with "0" on the left to four characters.
[[nodiscard]] std::string paddedCode(std::string_view text);

// The verdict on a cell of the grid: the column's error followed by a blank and the column's name, or "Unknown Column
// type" for a column outside 1 to 26.
[[nodiscard]] std::string validateCell(const CellContext& context, std::int16_t column, std::string_view text);

}  // namespace telvar::editing
