#include "model/data_store.h"

#include "base/checked.h"

namespace telvar::model {

base::Value ChannelRecord::get(ChannelKey key) const { return store_.readChannel(index_, key); }

void ChannelRecord::put(ChannelKey key, const base::Value& value) const { store_.writeChannel(index_, key, value); }

ChannelRecord DataStore::channel(std::int16_t number) {
    return ChannelTable()[base::checkedSubtract<std::int16_t>(number, 1)];
}

}  // namespace telvar::model
