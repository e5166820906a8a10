// The world of the channel edit form: a desktop, a table, a grid, a link and a control that listens, without a control.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/conversion.h"
#include "base/failure.h"
#include "editform/frmChannelEdit.h"
#include "editing/columns.h"
#include "model/memory_data_store.h"
#include "support/table_builder.h"
#include "support/test_desktop.h"

namespace telvar::tests {

using editform::frmChannelEdit;
using model::ChannelKey;
using model::StoreMember;
using Texts = std::vector<std::string>;

class RecordingLink : public model::RadioLink {
public:
    void SendChannelTable() override {}
    void LoadChannelTable(std::string& /*text*/, bool& /*flag*/) override {}
    void AbortTransfer() override {}
    void SendPotValues(std::string& text) override {
        if (gone) {
            throw base::Failure("no radio");
        }
        sent.push_back("'" + text + "'");
    }
    void SelectChannel(std::string& /*channel*/) override {}
    [[nodiscard]] std::optional<std::int32_t> exchangeNumber() override {
        return static_cast<std::int32_t>(sent.size());
    }
    [[nodiscard]] model::ExchangeOutcome exchangeOutcome(std::int32_t number) override {
        return number == exchangeNumber() && !gone ? outcome : model::ExchangeOutcome::Unknown;
    }

    Texts sent;
    bool gone = false;
    model::ExchangeOutcome outcome = model::ExchangeOutcome::Running;  // of the levels sent last
};

class EditFormWorld : public testing::Test {
protected:
    static constexpr std::int16_t number = 7;

    EditFormWorld() {
        table->put(StoreMember::MessageTitle, base::textValue("Bench 3"));
        form.setCentralDataStore(table);
        form.setRadioComms(link);
        form.setGrid(&grid);
        form.setChannel(number);
        form.noteTableReadAnew();
        form.DataChanged.connect([this] { events.emplace_back("DataChanged"); });
        form.EditClosed.connect([this] { events.emplace_back("EditClosed"); });
        form.OpenLoginWithChannelEdit.connect([this] { events.emplace_back("OpenLoginWithChannelEdit"); });
        form.PauseDiagnosticsIfRunning.connect([this] { events.emplace_back("PauseDiagnosticsIfRunning"); });
        form.PopUpMenuClick.connect(
            [this](std::int16_t& code) { events.push_back("PopUpMenuClick " + std::to_string(code)); });
        form.NeedToUpdateFlexGrid.connect([this](std::int16_t& row) {
            events.push_back("NeedToUpdateFlexGrid " + std::to_string(row));
            row = 99;
        });
        form.UpdateAccess(5);
    }

    // The channel with these values over those of an empty one in service, shown by the form.
    void load(KeyValues values = {}) {
        fill(*table, number, {{ChannelKey::TxFreq, 145'000'000}, {ChannelKey::RxFreq, 145'600'000}});
        fill(*table, number, values);
        form.refresh();
        events.clear();
    }
    void open(KeyValues values = {}) {
        load(values);
        desktop.showModeless(form);
    }
    bool apply() {
        form.cmdApply.userPress();
        return form.closing();
    }
    [[nodiscard]] base::Value at(ChannelKey key, std::int16_t channel = number) const {
        return table->channelValue(static_cast<std::int16_t>(channel - 1), key);
    }
    [[nodiscard]] double numberAt(ChannelKey key) const { return base::toDouble(at(key)); }
    [[nodiscard]] std::int64_t modeBits() const { return base::toBits(at(ChannelKey::ModeBits)); }
    [[nodiscard]] std::string cell(int column, int row = number) const { return grid.text(row, column); }
    [[nodiscard]] Boxes boxes() { return desktop.takeBoxes(); }
    [[nodiscard]] static ui::MessageBox refusal(const std::string& text) {
        return {.text = text, .title = "Bench 3", .icon = ui::Icon::Exclamation};
    }
    static void type(ui::TextBox& box, const std::string& text) {
        box.GotFocus();
        box.userTyped(text);
    }
    static void enter(ui::TextBox& box, const std::string& text) {
        type(box, text);
        box.LostFocus();
    }

    TestDesktop desktop;
    std::shared_ptr<model::MemoryDataStore> table = std::make_shared<model::MemoryDataStore>();
    std::shared_ptr<RecordingLink> link = std::make_shared<RecordingLink>();
    ui::Grid grid{"fgdDatabase", model::channelCount + 1, static_cast<int>(editing::columnCount)};
    Texts events;
    frmChannelEdit form{desktop, {}};
};

}  // namespace telvar::tests
