// A closed list of listeners. Firing works on a copy of the list: a handler may connect (the new one is called from the
// next round on), disconnect (also others, which are then no longer called), or destroy the event's owner, which ends
// the round.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/pinned.h"

namespace telvar::base {

// Ends a connection when it is destroyed; an empty one ends nothing.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
    Connection(Connection&& other) noexcept : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            end();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { end(); }

    void end() noexcept {
        if (const auto disconnect = std::exchange(disconnect_, nullptr)) {
            disconnect();
        }
    }

private:
    std::function<void()> disconnect_;
};

template <class... Arguments>
class Event : Pinned {
public:
    using Handler = std::function<void(Arguments...)>;

    // For as long as the event lives.
    void connect(Handler handler) { slots_->push_back(std::make_shared<Handler>(std::move(handler))); }

    // For as long as the connection lives, which may outlive the event.
    [[nodiscard]] Connection connectScoped(Handler handler) {
        auto slot = std::make_shared<Handler>(std::move(handler));
        slots_->push_back(slot);
        return Connection([slots = std::weak_ptr(slots_), slot] {
            *slot = nullptr;
            if (const auto alive = slots.lock()) {
                std::erase(*alive, slot);
            }
        });
    }

    // In order of connection. A handler's exception ends the round and reaches the caller.
    void operator()(Arguments... arguments) const {
        const std::vector<std::shared_ptr<Handler>> round = *slots_;
        const std::weak_ptr alive(slots_);
        for (const auto& slot : round) {
            if (alive.expired()) {
                return;
            }
            if (const Handler handler = *slot) {
                handler(arguments...);
            }
        }
    }

    [[nodiscard]] bool connected() const noexcept { return !slots_->empty(); }

private:
    std::shared_ptr<std::vector<std::shared_ptr<Handler>>> slots_ =
        std::make_shared<std::vector<std::shared_ptr<Handler>>>();
};

}  // namespace telvar::base
