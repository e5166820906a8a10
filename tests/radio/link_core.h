// The radio link with a data store in memory and a simulated radio, on a dispatcher that the test runs.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "model/memory_data_store.h"
#include "os/tcp.h"
#include "queue_dispatcher.h"
#include "radio/radio_link_core.h"
#include "support/temporary_folder.h"
#include "virtual_clock.h"

namespace telvar::tests {

using End = std::tuple<std::int16_t, bool, std::string>;

// Takes connections and says nothing.
class SilentRadio {
public:
    [[nodiscard]] radio::Address address() const {
        return {.way = radio::Address::Way::Tcp, .place = "127.0.0.1", .port = listener_.port()};
    }

private:
    os::TcpListener listener_ = *os::TcpListener::open(0);
};

struct LinkCore : testing::Test {
    LinkCore() {
        settings.backupFolder = folder.name();
        link = made(std::make_unique<VirtualClock>());
    }

    [[nodiscard]] std::unique_ptr<radio::RadioLinkCore> made(std::unique_ptr<radio::LinkClock> clock) {
        auto one = std::make_unique<radio::RadioLinkCore>(dispatcher, std::move(clock));
        one->setDataStore(store);
        one->setSettings(settings);
        one->ExchangeEnded.connect([this](std::int16_t task, bool succeeded, const std::string& message) {
            ends.emplace_back(task, succeeded, message);
        });
        one->StatusReported.connect(
            [this](bool answered, const std::string& message) { reports.emplace_back(answered, message); });
        one->Progress.connect([this](std::int16_t percent) { progress.push_back(percent); });
        return one;
    }
    // Time passes, so that an exchange with a silent radio is still waiting when the test goes on.
    [[nodiscard]] std::unique_ptr<radio::RadioLinkCore> onSystemTime(const radio::Address& address) {
        settings.address = address;
        return made(nullptr);
    }
    [[nodiscard]] static std::string failureOf(const std::function<void()>& operation) {
        try {
            operation();
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return "no failure";
    }

    void set(const std::string& faults) {
        settings.faults = *radio::parseFaults(faults);
        link->setSettings(settings);
    }
    [[nodiscard]] End ended() {
        EXPECT_TRUE(dispatcher.runUntil([this] { return !link->exchangeRunning(); }));
        EXPECT_FALSE(ends.empty());
        return ends.empty() ? End() : ends.back();
    }
    [[nodiscard]] End send() {
        link->SendChannelTable();
        return ended();
    }
    [[nodiscard]] End load() {
        std::string text;
        bool flag = true;
        link->LoadChannelTable(text, flag);
        EXPECT_EQ(text, "");
        EXPECT_TRUE(flag);
        return ended();
    }
    [[nodiscard]] End select(std::string channel) {
        link->SelectChannel(channel);
        return ended();
    }
    [[nodiscard]] base::Value shared(model::StoreMember member) { return store->get(member); }

    TemporaryFolder folder;
    QueueDispatcher dispatcher;
    std::shared_ptr<model::MemoryDataStore> store = std::make_shared<model::MemoryDataStore>();
    radio::LinkSettings settings;
    std::unique_ptr<radio::RadioLinkCore> link;
    std::vector<End> ends;
    std::vector<std::pair<bool, std::string>> reports;
    std::vector<std::int16_t> progress;
};

}  // namespace telvar::tests
