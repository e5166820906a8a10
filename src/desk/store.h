// The data store with the open channel table, as the desk uses it. Each call throws base::Failure with the store's own
// sentence where it fails; the open table then stays as it was.
#pragma once

#include <string>

#include "base/pinned.h"

namespace telvar::desk {

class Store : private base::Pinned {
public:
    virtual ~Store() = default;

    virtual void newTable() = 0;
    virtual void open(const std::string& path) = 0;
    virtual void save() = 0;
    virtual void saveAs(const std::string& path) = 0;

    // Full path, empty for a table that was never saved.
    [[nodiscard]] virtual std::string path() const = 0;
    [[nodiscard]] virtual std::string title() const = 0;
    // Another number after every change.
    [[nodiscard]] virtual long revision() const = 0;
    [[nodiscard]] virtual bool modified() const = 0;
    // Channels with a transmit or a receive frequency.
    [[nodiscard]] virtual int configuredChannels() const = 0;

    // Somebody uses the radio, or has said so; a store that does not answer counts as busy.
    [[nodiscard]] virtual bool commsBusy() const noexcept = 0;
    // Takes away a mark that somebody left behind.
    virtual void clearCommsBusy() = 0;
};

}  // namespace telvar::desk
