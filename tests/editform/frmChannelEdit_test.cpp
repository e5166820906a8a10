#include "editform/frmChannelEdit.h"

#include <gtest/gtest.h>

#include <vector>

#include "model/memory_data_store.h"
#include "support/test_desktop.h"

namespace telvar::tests {
namespace {

using editform::frmChannelEdit;

struct EditForm : testing::Test {
    EditForm() {
        form.PopUpMenuClick.connect([this](std::int16_t& code) {
            codes.push_back(code);
            code = 99;
        });
    }
    TestDesktop desktop;
    frmChannelEdit form{desktop, {}};
    std::vector<std::int16_t> codes;
};

TEST_F(EditForm, ItsMenuListsTheGridsCommandsInTheOrderOfTheirCodes) {
    std::vector<std::string> captions;
    for (const auto* item : form.mnuPopUpMenu.items()) {
        captions.push_back(item->caption());
    }
    EXPECT_EQ(captions, (std::vector<std::string>{"Copy", "Paste", "Delete", "Undo", "Redo"}));
    EXPECT_EQ(form.caption(), "Channel Edit");
}

TEST_F(EditForm, ItsItemsRaiseTheirCodes) {
    form.mnuPopUpMenuUndo.setEnabled(true);
    form.mnuPopUpMenuRedo.setEnabled(true);
    for (int round = 0; round < 2; ++round) {
        for (auto* item : form.mnuPopUpMenu.items()) {
            item->userChoose();
        }
    }
    EXPECT_EQ(codes, (std::vector<std::int16_t>{0, 1, 2, 3, 4, 0, 1, 2, 3, 4}));
}

TEST_F(EditForm, UndoAndRedoStartDisabled) {
    for (auto* item : form.mnuPopUpMenu.items()) {
        item->userChoose();
    }
    EXPECT_EQ(codes, (std::vector<std::int16_t>{0, 1, 2}));
}

TEST_F(EditForm, ItKeepsItsLinksLevelAndLockMode) {
    const auto store = std::make_shared<model::MemoryDataStore>();
    ui::Grid grid("grid", 3, 3);
    form.setCentralDataStore(store);
    form.setGrid(&grid);
    form.setChannel(17);
    form.UpdateAccess(4);
    form.setLockDataMode(2);
    EXPECT_EQ(form.centralDataStore(), store);
    EXPECT_EQ(form.radioComms(), nullptr);
    EXPECT_EQ(form.grid(), &grid);
    EXPECT_EQ(form.channel(), 17);
    EXPECT_EQ(form.accessLevel(), 4);
    EXPECT_EQ(form.LockDataMode(), 2);
}

TEST_F(EditForm, NothingIsLinkedAtFirst) {
    EXPECT_EQ(form.centralDataStore(), nullptr);
    EXPECT_EQ(form.grid(), nullptr);
    EXPECT_EQ(form.accessLevel(), 0);
    EXPECT_EQ(form.LockDataMode(), 0);
}

}  // namespace
}  // namespace telvar::tests
