// Numbers and texts as bytes on the line: big-endian, texts with their length in front. The reader never reads beyond
// its end; it remembers that it was asked to and answers zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace telvar::radio {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

class ByteWriter {
public:
    explicit ByteWriter(Bytes& bytes) noexcept : bytes_(bytes) {}

    ByteWriter& u8(std::uint8_t value) {
        bytes_.push_back(value);
        return *this;
    }
    ByteWriter& u16(std::uint16_t value) {
        return u8(static_cast<std::uint8_t>(value >> 8U)).u8(static_cast<std::uint8_t>(value));
    }
    ByteWriter& u32(std::uint32_t value) {
        return u16(static_cast<std::uint16_t>(value >> 16U)).u16(static_cast<std::uint16_t>(value));
    }
    ByteWriter& raw(ByteView bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    // At most 255 bytes; the rest is cut off.
    ByteWriter& text(std::string_view text) {
        const auto shown = text.substr(0, 255);
        u8(static_cast<std::uint8_t>(shown.size()));
        bytes_.insert(bytes_.end(), shown.begin(), shown.end());
        return *this;
    }

private:
    Bytes& bytes_;
};

class ByteReader {
public:
    explicit ByteReader(ByteView bytes) noexcept : rest_(bytes) {}

    std::uint8_t u8() noexcept {
        const auto got = raw(1);
        return got.empty() ? std::uint8_t{0} : got.front();
    }
    std::uint16_t u16() noexcept {
        const unsigned high = u8();
        return static_cast<std::uint16_t>(high << 8U | u8());
    }
    std::uint32_t u32() noexcept {
        const std::uint32_t high = u16();
        return high << 16U | u16();
    }
    ByteView raw(std::size_t count) noexcept {
        if (count > rest_.size()) {
            short_ = true;
            rest_ = {};
            return {};
        }
        const auto got = rest_.first(count);
        rest_ = rest_.subspan(count);
        return got;
    }
    std::string text() {
        const auto bytes = raw(u8());
        return {bytes.begin(), bytes.end()};
    }

    // Everything was there and nothing is left.
    [[nodiscard]] bool exact() const noexcept { return !short_ && rest_.empty(); }

private:
    ByteView rest_;
    bool short_ = false;
};

}  // namespace telvar::radio
