// The world of the grid's editing commands: a grid, a desktop, a central table, the two private tables and the menu
// items, without a control around them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/failure.h"
#include "editing/clipboard_editing.h"
#include "editing/undo.h"
#include "support/table_builder.h"
#include "support/test_desktop.h"
#include "ui/trapped.h"

namespace telvar::tests {

using model::ChannelKey;
using model::StoreMember;

class EditingWorld : public testing::Test {
protected:
    // What stayOpen throws; like the control's own, no std::exception.
    struct Closed {};

    EditingWorld() { history.setTables(backup, redone); }

    virtual void render(std::int16_t row) {
        rendered.push_back(row);
        grid.setRow(row);
        editing::renderRow({.store = *present(), .channel = row, .format = {}},
                           [&](std::int16_t column, const std::string& text) { grid.setText(row, column, text); });
    }
    void renderAll() {
        for (std::int16_t row = 1; row <= model::channelCount; ++row) {
            render(row);
        }
        rendered.clear();
    }

    [[nodiscard]] model::DataStorePointer present() const {
        if (!store) {
            throw base::Failure("There is no data store");
        }
        return store;
    }
    [[nodiscard]] editing::GridSurroundings makeSurroundings() {
        return {.grid = grid,
                .desktop = desktop,
                .format = {},
                .store = [this] { return present(); },
                .updateRow = [this](std::int16_t row) { ui::trapped(desktop, "UpdateRowData", [&] { render(row); }); },
                .renderRow = [this](std::int16_t row) { render(row); },
                .stayOpen =
                    [this] {
                        if (closed) {
                            throw Closed{};
                        }
                    }};
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
    model::DataStorePointer store = table;  // what the commands see; null where there is none
    std::shared_ptr<model::MemoryDataStore> backup = std::make_shared<model::MemoryDataStore>();
    std::shared_ptr<model::MemoryDataStore> redone = std::make_shared<model::MemoryDataStore>();
    ui::Grid grid{"fgdDatabase", model::channelCount + 1, static_cast<int>(editing::columnCount)};
    ui::MenuItem undo{"mnuPopUpMenuUndo", "Undo"};
    ui::MenuItem redo{"mnuPopUpMenuRedo", "Redo"};
    bool closed = false;
    std::vector<std::int16_t> rendered;
    editing::GridSurroundings surroundings = makeSurroundings();
    editing::UndoHistory history{surroundings, undo, redo};
    editing::ClipboardEditing commands{surroundings, history};
};

}  // namespace telvar::tests
