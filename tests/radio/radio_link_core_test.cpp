#include "radio/radio_link_core.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "base/conversion.h"
#include "base/failure.h"
#include "model/memory_data_store.h"
#include "queue_dispatcher.h"
#include "support/temporary_folder.h"
#include "tables.h"
#include "virtual_clock.h"

namespace telvar::tests {
namespace {

using End = std::tuple<std::int16_t, bool, std::string>;
using model::StoreMember;

struct RadioLinkCore : testing::Test {
    RadioLinkCore() {
        link = std::make_unique<radio::RadioLinkCore>(dispatcher, std::make_unique<VirtualClock>());
        link->setDataStore(store);
        settings.backupFolder = folder.name();
        link->setSettings(settings);
        link->ExchangeEnded.connect([this](std::int16_t task, bool succeeded, const std::string& message) {
            ends.emplace_back(task, succeeded, message);
        });
        link->StatusReported.connect(
            [this](bool answered, const std::string& message) { reports.emplace_back(answered, message); });
        link->Progress.connect([this](std::int16_t percent) { progress.push_back(percent); });
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
    [[nodiscard]] base::Value shared(StoreMember member) { return store->get(member); }

    TemporaryFolder folder;
    QueueDispatcher dispatcher;
    std::shared_ptr<model::MemoryDataStore> store = std::make_shared<model::MemoryDataStore>();
    radio::LinkSettings settings;
    std::unique_ptr<radio::RadioLinkCore> link;
    std::vector<End> ends;
    std::vector<std::pair<bool, std::string>> reports;
    std::vector<std::int16_t> progress;
};

TEST_F(RadioLinkCore, WhatWasSentComesBackFromTheRadio) {
    fill(*store, 1);
    const auto sent = radio::imageOf(*store);
    const auto [task, succeeded, message] = send();
    EXPECT_EQ(task, 30);
    EXPECT_TRUE(succeeded) << message;
    EXPECT_EQ(message, "The radio holds the table; its former one is kept in " + link->lastBackup() + ".");
    EXPECT_TRUE(link->connected());

    fill(*store, 2);
    EXPECT_EQ(load(), (End{std::int16_t{22}, true, "The table was loaded from the radio."}));
    EXPECT_EQ(radio::imageOf(*store), sent);
    EXPECT_EQ(shared(StoreMember::DataModified), base::Value{true});
    EXPECT_EQ(shared(StoreMember::ChannelDataModified), base::Value{true});
}

}  // namespace
}  // namespace telvar::tests
