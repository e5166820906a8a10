#include "model/memory_data_store.h"

#include <cmath>
#include <string>

#include "base/failure.h"
#include "model/subtones.h"

namespace telvar::model {

namespace {

constexpr std::int32_t defaultReferenceFrequency = 12'800'000;  // Hz
constexpr std::int32_t defaultLocalOscOffset = 21'400'000;      // Hz
constexpr std::int32_t defaultChannelSpacing = 25'000;          // Hz
constexpr float defaultHardwareRevision = 3.0F;

// Position of `index` in a table of `count` entries.
[[nodiscard]] std::size_t position(std::int16_t index, std::size_t count) {
    if (index < 0 || static_cast<std::size_t>(index) >= count) {
        throw base::SubscriptFailure();
    }
    return static_cast<std::size_t>(index);
}

[[nodiscard]] base::Value zeroOf(MemberKind kind) {
    switch (kind) {
    case MemberKind::Boolean:
        return false;
    case MemberKind::Integer16:
        return std::int16_t{0};
    case MemberKind::Integer32:
        return std::int32_t{0};
    case MemberKind::Single:
        return 0.0F;
    case MemberKind::Text:
        break;
    }
    return std::string();
}

[[nodiscard]] base::Value convertedFor(MemberKind kind, const base::Value& value) {
    switch (kind) {
    case MemberKind::Boolean:
        return base::isTrue(value);
    case MemberKind::Integer16:
        return base::toInt16(value);
    case MemberKind::Integer32:
        return base::toInt32(value);
    case MemberKind::Single:
        return base::toSingle(value);
    case MemberKind::Text:
        break;
    }
    return base::toText(value);
}

[[nodiscard]] base::Value convertedFor(KeyKind kind, const base::Value& value) {
    if (kind == KeyKind::Boolean) {
        return base::isTrue(value);
    }
    if (kind == KeyKind::Code) {
        return base::toText(value);
    }
    if (!std::isfinite(base::toDouble(value))) {
        throw base::ConversionFailure::overflow();
    }
    return value;
}

}  // namespace

base::Value emptyChannelValue(ChannelKey key) {
    const auto& info = infoOf(key);
    if (info.kind == KeyKind::Boolean) {
        return info.emptyValue != 0;
    }
    if (info.kind == KeyKind::Code) {
        return base::textValue(emptyCode);
    }
    return info.emptyValue;
}

base::Value defaultValue(StoreMember member) {
    switch (member) {
    case StoreMember::BandwidthSwitchable:
    case StoreMember::DCSOptionFitted:
    case StoreMember::ShowSendWarning:
    case StoreMember::ChannelChangeAllowed:
        return true;
    case StoreMember::HardwareRevision:
        return defaultHardwareRevision;
    case StoreMember::TxReferenceFrequency:
    case StoreMember::RxReferenceFrequency:
        return defaultReferenceFrequency;
    case StoreMember::LocalOscOffset:
        return defaultLocalOscOffset;
    case StoreMember::ChannelSpacing:
        return defaultChannelSpacing;
    case StoreMember::TxSynthChipInfo:
    case StoreMember::RxSynthChipInfo:
        return base::textValue("Fitted");
    case StoreMember::MessageTitle:
        return base::textValue("Telvar");
    case StoreMember::SelectedChannel:
        return std::int16_t{1};
    default:
        return zeroOf(infoOf(member).kind);
    }
}

MemoryDataStore::MemoryDataStore() { setDefaults(); }

const base::Value& MemoryDataStore::channelValue(std::int16_t index, ChannelKey key) const {
    return channels_[position(index, channels_.size())][static_cast<std::size_t>(key)];
}

const base::Value& MemoryDataStore::memberValue(StoreMember member) const noexcept {
    return members_[static_cast<std::size_t>(member)];
}

base::Value MemoryDataStore::readChannel(std::int16_t index, ChannelKey key) { return channelValue(index, key); }

void MemoryDataStore::writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) {
    auto& kept = channels_[position(index, channels_.size())][static_cast<std::size_t>(key)];
    kept = convertedFor(infoOf(key).kind, value);
    noteTableChange();
}

base::Value MemoryDataStore::get(StoreMember member) { return memberValue(member); }

void MemoryDataStore::put(StoreMember member, const base::Value& value) {
    const auto& info = infoOf(member);
    members_[static_cast<std::size_t>(member)] = convertedFor(info.kind, value);
    if (info.describesRadio) {
        noteTableChange();
    } else {
        ++revision_;
    }
}

base::Value MemoryDataStore::referenceDividerScaling() { return referenceDividerScaling_; }

void MemoryDataStore::setReferenceDividerScaling(const base::Value& value) {
    referenceDividerScaling_ = base::toInt32(value);
    noteTableChange();
}

void MemoryDataStore::SetPotValue(std::int16_t index, std::uint8_t level) {
    potValues_[position(index, potCount)] = level;
}

std::uint8_t MemoryDataStore::potValue(std::int16_t index) const { return potValues_[position(index, potCount)]; }

void MemoryDataStore::EnterChannelSelect() {}

bool MemoryDataStore::AutomaticSelect(std::int16_t /*query*/) { return automaticSelect_; }

// The sign as well: a step may be negative.
bool MemoryDataStore::CheckKey(std::int16_t code) { return (code >= '0' && code <= '9') || code == '-'; }

float MemoryDataStore::CtcssTone(std::int16_t index) { return ctcssTones[position(index, ctcssToneCount)]; }

bool MemoryDataStore::SendPermitted() { return sendPermitted_; }

void MemoryDataStore::clear() {
    setDefaults();
    noteTableChange();
}

void MemoryDataStore::setDefaults() {
    ChannelValues empty;
    for (const auto& info : channelKeys) {
        empty[static_cast<std::size_t>(info.key)] = emptyChannelValue(info.key);
    }
    channels_.assign(static_cast<std::size_t>(channelCount), empty);
    for (const auto& info : storeMembers) {
        members_[static_cast<std::size_t>(info.member)] = defaultValue(info.member);
    }
    referenceDividerScaling_ = 0;
    potValues_.fill(0);
    automaticSelect_ = false;
    sendPermitted_ = true;
}

void MemoryDataStore::noteTableChange() noexcept {
    ++revision_;
    ++tableRevision_;
}

}  // namespace telvar::model
