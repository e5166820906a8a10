#include "radio/apply_image.h"

#include <ranges>
#include <string>
#include <vector>

#include "base/conversion.h"
#include "base/failure.h"

namespace telvar::radio {

namespace {

struct Change {
    std::int16_t index;
    model::ChannelKey key;
    base::Value former;
    base::Value loaded;
};

// 1 and True, 67.1 in single and in double precision: compared as a reader would see them.
[[nodiscard]] bool readsAlike(const base::Value& left, const base::Value& right) {
    try {
        return base::toText(left) == base::toText(right);
    } catch (const base::ConversionFailure&) {
        return false;
    }
}

[[nodiscard]] std::vector<Change> changesFor(model::DataStore& store, const TableImage& image) {
    std::vector<Change> changes;
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto& info : model::channelKeys) {
            Change change{.index = index,
                          .key = info.key,
                          .former = store.readChannel(index, info.key),
                          .loaded = valueIn(image[static_cast<std::size_t>(index)], info.key)};
            if (!readsAlike(change.former, change.loaded)) {
                changes.push_back(std::move(change));
            }
        }
    }
    return changes;
}

// Every value is tried, whatever happens to the others.
[[nodiscard]] bool putBack(model::DataStore& store, const std::vector<Change>& changes, std::size_t count) {
    bool complete = true;
    for (const Change& change : changes | std::views::take(count) | std::views::reverse) {
        try {
            store.writeChannel(change.index, change.key, change.former);
        } catch (const base::Failure&) {
            complete = false;
        }
    }
    return complete;
}

}  // namespace

void applyImage(model::DataStore& store, const TableImage& image) {
    std::size_t touched = 0;
    std::vector<Change> changes;
    try {
        changes = changesFor(store, image);
        for (const Change& change : changes) {
            // Counted before it is written: a store may fail after it took a value.
            ++touched;
            store.writeChannel(change.index, change.key, change.loaded);
        }
        if (!changes.empty()) {
            store.put(model::StoreMember::DataModified, true);
            store.put(model::StoreMember::ChannelDataModified, true);
        }
    } catch (const base::Failure& failure) {
        const bool unchanged = putBack(store, changes, touched);
        throw base::Failure(
            "The data store failed (" + failure.description() + "); " +
            (unchanged ? "the table here was not changed" : "the table here holds a part of what was loaded"));
    }
}

}  // namespace telvar::radio
