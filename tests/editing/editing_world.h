// The world of the grid's editing commands: a grid, a desktop, a central table, the two private tables and the menu
// items, without a control around them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editing/clipboard_editing.h"
#include "editing/undo.h"
#include "support/table_builder.h"
#include "support/test_desktop.h"

namespace telvar::tests {

using model::ChannelKey;
using model::StoreMember;

class EditingWorld : public testing::Test {
protected:
    // Lets the world render, which records it.
    class Rows : public editing::GridRows {
    public:
        explicit Rows(EditingWorld& world) : GridRows(world.session, world.grid), world_(world) {}
        void render(std::int16_t channel) override { world_.render(channel); }
        void renderAsUsual(std::int16_t channel) { GridRows::render(channel); }

    private:
        EditingWorld& world_;
    };

    using Closed = session::Closed;

    EditingWorld() {
        session.setStore(table);
        history.setTables(backup, redone);
    }

    virtual void render(std::int16_t row) {
        rendered.push_back(row);
        rows.renderAsUsual(row);
    }
    void renderAll() {
        for (std::int16_t row = 1; row <= model::channelCount; ++row) {
            render(row);
        }
        rendered.clear();
    }

    void select(ui::Cell current, ui::Cell end) { grid.select(current, end); }
    bool pasteAt(ui::Cell cell, const std::string& text) {
        grid.setCurrent(cell);
        return pasteHere(text);
    }
    bool pasteHere(const std::string& text) {
        desktop.clipboard = text;
        return commands.PasteToCells();
    }
    [[nodiscard]] Boxes boxes() { return desktop.takeBoxes(); }
    [[nodiscard]] base::Value at(std::int16_t channel, ChannelKey key) { return table->channel(channel).get(key); }
    [[nodiscard]] double transmits(std::int16_t channel) { return base::toDouble(at(channel, ChannelKey::TxFreq)); }

    TestDesktop desktop;
    std::shared_ptr<model::MemoryDataStore> table = std::make_shared<model::MemoryDataStore>();
    std::shared_ptr<model::MemoryDataStore> backup = std::make_shared<model::MemoryDataStore>();
    std::shared_ptr<model::MemoryDataStore> redone = std::make_shared<model::MemoryDataStore>();
    ui::Grid grid{"fgdDatabase", model::channelCount + 1, static_cast<int>(editing::columnCount)};
    ui::MenuItem undo{"mnuPopUpMenuUndo", "Undo"};
    ui::MenuItem redo{"mnuPopUpMenuRedo", "Redo"};
    std::vector<std::int16_t> rendered;
    session::Session session{desktop, {}};
    Rows rows{*this};
    editing::UndoHistory history{rows, undo, redo};
    editing::ClipboardEditing commands{rows, history};
};

}  // namespace telvar::tests
