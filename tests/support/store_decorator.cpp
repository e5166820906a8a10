#include "support/store_decorator.h"

namespace telvar::tests {

using Kind = StoreCall::Kind;

std::string describe(const StoreCall& call) {
    const auto index = "(" + std::to_string(call.index) + ")";
    auto record = "ChannelTable" + index + "." + std::string(model::infoOf(call.key).name);
    auto member = std::string(model::infoOf(call.member).name);
    switch (call.kind) {
    case Kind::ReadChannel:
        return record;
    case Kind::WriteChannel:
        return record + "=";
    case Kind::Get:
        return member;
    case Kind::Put:
        return member + "=";
    case Kind::ReferenceDividerScaling:
        return "ConfigRecords(0).sm";
    case Kind::SetPotValue:
        return "SetPotValue" + index;
    case Kind::PotValue:
        return "PotValue" + index;
    case Kind::EnterChannelSelect:
        return "EnterChannelSelect";
    case Kind::AutomaticSelect:
        return "AutomaticSelect" + index;
    case Kind::CheckKey:
        return "CheckKey" + index;
    case Kind::CtcssTone:
        return "CtcssTone" + index;
    case Kind::SendPermitted:
        break;
    }
    return "SendPermitted";
}

base::Value StoreDecorator::readChannel(std::int16_t index, model::ChannelKey key) {
    onCall({.kind = Kind::ReadChannel, .index = index, .key = key});
    return inner_.readChannel(index, key);
}

void StoreDecorator::writeChannel(std::int16_t index, model::ChannelKey key, const base::Value& value) {
    onCall({.kind = Kind::WriteChannel, .index = index, .key = key});
    inner_.writeChannel(index, key, value);
}

base::Value StoreDecorator::get(model::StoreMember member) {
    onCall({.kind = Kind::Get, .member = member});
    return inner_.get(member);
}

void StoreDecorator::put(model::StoreMember member, const base::Value& value) {
    onCall({.kind = Kind::Put, .member = member});
    inner_.put(member, value);
}

base::Value StoreDecorator::referenceDividerScaling() {
    onCall({.kind = Kind::ReferenceDividerScaling});
    return inner_.referenceDividerScaling();
}

void StoreDecorator::SetPotValue(std::int16_t index, std::uint8_t level) {
    onCall({.kind = Kind::SetPotValue, .index = index});
    inner_.SetPotValue(index, level);
}

std::uint8_t StoreDecorator::PotValue(std::int16_t index) {
    onCall({.kind = Kind::PotValue, .index = index});
    return inner_.PotValue(index);
}

void StoreDecorator::EnterChannelSelect() {
    onCall({.kind = Kind::EnterChannelSelect});
    inner_.EnterChannelSelect();
}

bool StoreDecorator::AutomaticSelect(std::int16_t query) {
    onCall({.kind = Kind::AutomaticSelect, .index = query});
    return inner_.AutomaticSelect(query);
}

bool StoreDecorator::CheckKey(std::int16_t code) {
    onCall({.kind = Kind::CheckKey, .index = code});
    return inner_.CheckKey(code);
}

float StoreDecorator::CtcssTone(std::int16_t index) {
    onCall({.kind = Kind::CtcssTone, .index = index});
    return inner_.CtcssTone(index);
}

bool StoreDecorator::SendPermitted() {
    onCall({.kind = Kind::SendPermitted});
    return inner_.SendPermitted();
}

}  // namespace telvar::tests
