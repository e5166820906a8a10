#include "radio/frame.h"

#include <utility>

#include "radio/crc32.h"

namespace telvar::radio {

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
    for (const std::uint8_t byte : content) {
        if (byte == frameFlag || byte == frameEscape) {
            line.push_back(frameEscape);
            line.push_back(byte ^ escapeMask);
        } else {
            line.push_back(byte);
        }
    }
    line.push_back(frameFlag);
    return line;
}

void FrameDecoder::push(ByteView bytes) {
    for (const std::uint8_t byte : bytes) {
        if (byte == frameFlag) {
            end();
        } else if (content_.size() == largestContent) {
            lost_ = true;
        } else if (byte == frameEscape && !escaped_) {
            escaped_ = true;
        } else {
            content_.push_back(escaped_ ? byte ^ escapeMask : byte);
            escaped_ = false;
        }
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
