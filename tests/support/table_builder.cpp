#include "support/table_builder.h"

#include "base/conversion.h"

namespace telvar::tests {

namespace {

[[nodiscard]] base::Value distinctValue(const model::ChannelKeyInfo& info, int channel) {
    const int seed = channel + static_cast<int>(info.key);
    switch (info.kind) {
    case model::KeyKind::Frequency:
        return 100'000'000 + seed * 12'500;
    case model::KeyKind::Step:
        return 5'000 + (seed % 4) * 1'250;
    case model::KeyKind::Tone:
        return 67.0F + static_cast<float>(seed % 180);
    case model::KeyKind::Boolean:
        return seed % 2 == 0;
    case model::KeyKind::Code:
        return base::textValue(base::scaledText(1000 + seed, 0));
    case model::KeyKind::Integer:
        break;
    }
    return seed % 83;
}

}  // namespace

void fill(model::DataStore& store, std::int16_t channel, KeyValues values) {
    const auto record = store.channel(channel);
    for (const auto& [key, value] : values) {
        record.put(key, value);
    }
}

void fillDistinct(model::DataStore& store, std::int16_t channel) {
    const auto record = store.channel(channel);
    for (const auto& info : model::channelKeys) {
        record.put(info.key, distinctValue(info, channel));
    }
}

std::shared_ptr<model::MemoryDataStore> fullStore() {
    auto store = std::make_shared<model::MemoryDataStore>();
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        fillDistinct(*store, channel);
    }
    return store;
}

RowTexts renderedRow(model::DataStore& store, std::int16_t channel, base::NumberFormat format) {
    RowTexts texts;
    editing::renderRow(
        {.store = store, .channel = channel, .format = format},
        [&](std::int16_t column, const std::string& text) { texts.at(static_cast<std::size_t>(column)) = text; });
    return texts;
}

std::string tableText(model::DataStore& store) {
    std::string text;
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        text += std::to_string(channel);
        for (const auto& info : model::channelKeys) {
            text.append(" ").append(info.name).append("=").append(base::toText(store.channel(channel).get(info.key)));
        }
        text += '\n';
    }
    return text;
}

}  // namespace telvar::tests
