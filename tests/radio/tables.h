// Tables that differ from each other in every channel and every key.
#pragma once

#include "model/memory_data_store.h"
#include "radio/table_image.h"

namespace telvar::tests {

// A value of the kind that the key takes, different for every channel and variant.
[[nodiscard]] inline base::Value sampleValue(const model::ChannelKeyInfo& info, int index, int variant) {
    const int number = index * 7 + static_cast<int>(info.key) + 31 * variant;
    switch (info.kind) {
    case model::KeyKind::Frequency:
        return std::int32_t{145'000'000 + 12'500 * number};
    case model::KeyKind::Step:
        return std::int32_t{2'500 + 100 * (number % 200)};
    case model::KeyKind::Tone:
        return 67.0 + 0.1 * (number % 1000);
    case model::KeyKind::Integer:
        return static_cast<std::int16_t>(number % 256);
    case model::KeyKind::Boolean:
        return number % 2 == 0;
    case model::KeyKind::Code:
        break;
    }
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string code;
    for (int digit = 0; digit < 4; ++digit) {
        code += digits[static_cast<std::size_t>(number + 5 * digit) % digits.size()];
    }
    return code;
}

inline void fill(model::DataStore& store, int variant) {
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto& info : model::channelKeys) {
            store.writeChannel(index, info.key, sampleValue(info, index, variant));
        }
    }
}

// Built once, since walks need it by the thousand.
[[nodiscard]] inline const radio::TableImage& sampleImage(int variant) {
    static const auto make = [](int which) {
        model::MemoryDataStore store;
        fill(store, which);
        return radio::imageOf(store);
    };
    static const radio::TableImage first = make(1);
    static const radio::TableImage second = make(2);
    return variant == 1 ? first : second;
}

}  // namespace telvar::tests
