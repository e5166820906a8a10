#include "editing/table_copy.h"

namespace telvar::editing {

void copyTable(model::DataStore& from, model::DataStore& to) {
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto key : copiedKeys) {
            to.ChannelTable()[index].put(key, from.ChannelTable()[index].get(key));
        }
    }
}

}  // namespace telvar::editing
