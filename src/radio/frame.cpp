#include "radio/frame.h"

#include <algorithm>
#include <utility>

#include "radio/crc32.h"

namespace telvar::radio {

namespace {

// The part in front of the first flag or escape.
[[nodiscard]] ByteView upToSpecial(ByteView bytes) {
    const auto end =
        std::ranges::find_if(bytes, [](std::uint8_t byte) { return byte == frameFlag || byte == frameEscape; });
    return bytes.first(static_cast<std::size_t>(end - bytes.begin()));
}

}  // namespace

Bytes encoded(const Frame& frame) {
    Bytes content;
    content.reserve(headerSize + frame.payload.size() + checksumSize);
    ByteWriter(content)
        .u8(static_cast<std::uint8_t>(frame.kind))
        .u16(frame.session)
        .u16(frame.sequence)
        .raw(frame.payload);
    ByteWriter(content).u32(crc32(content));

    Bytes line;
    line.reserve(content.size() + content.size() / 16 + 2);
    line.push_back(frameFlag);
    for (ByteView rest = content; !rest.empty();) {
        const ByteView plain = upToSpecial(rest);
        line.insert(line.end(), plain.begin(), plain.end());
        rest = rest.subspan(plain.size());
        if (!rest.empty()) {
            line.push_back(frameEscape);
            line.push_back(rest.front() ^ escapeMask);
            rest = rest.subspan(1);
        }
    }
    line.push_back(frameFlag);
    return line;
}

void FrameDecoder::push(ByteView bytes) {
    while (!bytes.empty()) {
        const ByteView plain = upToSpecial(bytes);
        take(plain);
        bytes = bytes.subspan(plain.size());
        if (bytes.empty()) {
            return;
        }
        if (bytes.front() == frameFlag) {
            end();
        } else if (escaped_) {
            take(bytes.first(1));
        } else {
            escaped_ = true;
        }
        bytes = bytes.subspan(1);
    }
}

void FrameDecoder::take(ByteView bytes) {
    if (content_.size() + bytes.size() > largestContent) {
        lost_ = true;
        return;
    }
    const auto before = content_.size();
    content_.insert(content_.end(), bytes.begin(), bytes.end());
    if (!bytes.empty() && std::exchange(escaped_, false)) {
        content_[before] ^= escapeMask;
    }
}

// Two flags in a row enclose nothing: one frame's end and the next one's beginning.
void FrameDecoder::end() {
    const Bytes content = std::exchange(content_, {});
    const bool broken = std::exchange(escaped_, false) || std::exchange(lost_, false);
    if (content.empty() && !broken) {
        return;
    }
    if (broken || content.size() < headerSize + checksumSize) {
        ++damaged_;
        return;
    }
    const ByteView checked = ByteView(content).first(content.size() - checksumSize);
    if (ByteReader(ByteView(content).last(checksumSize)).u32() != crc32(checked)) {
        ++damaged_;
        return;
    }
    ByteReader reader(checked);
    Frame frame;
    frame.kind = static_cast<Kind>(reader.u8());
    frame.session = reader.u16();
    frame.sequence = reader.u16();
    const auto payload = reader.raw(checked.size() - headerSize);
    frame.payload.assign(payload.begin(), payload.end());
    frames_.push_back(std::move(frame));
}

std::optional<Frame> FrameDecoder::next() {
    if (frames_.empty()) {
        return std::nullopt;
    }
    Frame frame = std::move(frames_.front());
    frames_.pop_front();
    return frame;
}

}  // namespace telvar::radio
