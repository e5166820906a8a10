#include "editing/backup_table.h"

#include <cmath>
#include <type_traits>
#include <variant>

namespace telvar::editing {

namespace {

using model::ChannelKey;

// A table takes truths under its Boolean keys and finite numbers under the others, and answers them unchanged.
[[nodiscard]] bool tableKeeps(ChannelKey key, const base::Value& value) {
    const bool isBoolean = model::infoOf(key).kind == model::KeyKind::Boolean;
    return std::visit(
        [isBoolean]<class T>(const T& held) {
            if constexpr (std::is_same_v<T, bool>) {
                return isBoolean;
            } else if constexpr (std::is_floating_point_v<T>) {
                return !isBoolean && std::isfinite(held);
            } else {
                return !isBoolean && std::is_integral_v<T>;
            }
        },
        value);
}

}  // namespace

void BackupTable::takeFrom(model::DataStore& live) {
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto key : copiedKeys) {
            keep(index, key, live.ChannelTable()[index].get(key));
        }
    }
}

void BackupTable::giveTo(model::DataStore& live) const {
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto key : copiedKeys) {
            live.ChannelTable()[index].put(key, kept(index, key));
        }
    }
}

void BackupTable::keep(std::int16_t index, ChannelKey key, const base::Value& value) {
    if (!tableKeeps(key, value)) {
        beside_.insert_or_assign({index, key}, value);
        return;
    }
    table_->ChannelTable()[index].put(key, value);
    beside_.erase({index, key});
}

base::Value BackupTable::kept(std::int16_t index, ChannelKey key) const {
    const auto found = beside_.find({index, key});
    return found != beside_.end() ? found->second : table_->ChannelTable()[index].get(key);
}

}  // namespace telvar::editing
