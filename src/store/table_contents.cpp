#include "store/table_contents.h"

#include "base/conversion.h"

namespace telvar::store {

TableContents emptyTable() {
    model::MemoryDataStore store;
    return contentsOf(store);
}

TableContents contentsOf(model::MemoryDataStore& store) {
    TableContents contents;
    for (const auto& info : model::storeMembers) {
        if (info.describesRadio) {
            contents.radio[static_cast<std::size_t>(info.member)] = store.memberValue(info.member);
        }
    }
    contents.referenceDividerScaling = base::toInt32(store.referenceDividerScaling());
    contents.channels.resize(static_cast<std::size_t>(model::channelCount));
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        auto& channel = contents.channels[static_cast<std::size_t>(index)];
        for (const auto& info : model::channelKeys) {
            channel[static_cast<std::size_t>(info.key)] = store.channelValue(index, info.key);
        }
    }
    return contents;
}

void putInto(model::MemoryDataStore& store, const TableContents& contents) {
    for (const auto& info : model::storeMembers) {
        if (info.describesRadio) {
            store.put(info.member, contents.radio[static_cast<std::size_t>(info.member)]);
        }
    }
    store.setReferenceDividerScaling(contents.referenceDividerScaling);
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        const auto& channel = contents.channels[static_cast<std::size_t>(index)];
        for (const auto& info : model::channelKeys) {
            store.writeChannel(index, info.key, channel[static_cast<std::size_t>(info.key)]);
        }
    }
}

}  // namespace telvar::store
