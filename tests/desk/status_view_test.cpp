// Title, channels, unsaved changes and refused pastes, as the window shows them.
#include "desk_world.h"

namespace telvar::tests {

using namespace desk;

struct StateShown : DeskWorld {
    void refuse(long pastes, long row, const std::string& column) {
        control.refusal = {.pastes = pastes, .row = row, .column = column};
        program->refreshState();
    }
};

TEST_F(StateShown, TheTitleHasAStarWhileSomethingIsUnsaved) {
    EXPECT_EQ(window.title, "Telvar");
    store.dirty = true;
    program->refreshState();
    EXPECT_EQ(window.title, "*Telvar");
    EXPECT_TRUE(line.modified);
    store.dirty = false;
    program->goOn();
    EXPECT_EQ(window.title, "Telvar");
    EXPECT_FALSE(line.modified);
}

TEST_F(StateShown, TheTitleIsTheControlsCaption) {
    program->captionChanged("Telvar - marine");
    EXPECT_EQ(window.title, "Telvar - marine");
    store.dirty = true;
    program->captionChanged("Telvar - air");
    EXPECT_EQ(window.title, "*Telvar - air");
}

TEST_F(StateShown, ChannelsInUseAreCountedAfterEachChangeOnly) {
    for (const auto& [channels, text] :
         std::map<int, std::string>{{0, "0 channels"}, {1, "1 channel"}, {2, "2 channels"}, {255, "255 channels"}}) {
        store.channels = channels;
        ++store.changes;
        program->refreshState();
        program->refreshState();
        EXPECT_EQ(line.channels, text);
        EXPECT_EQ(notes(), Notes{"store count channels"});
    }
}

TEST_F(StateShown, AStoreThatDoesNotAnswerLeavesWhatWasShown) {
    store.dirty = true;
    program->refreshState();
    ++store.changes;
    store.dirty = false;
    for (const char* call : {"revision", "count channels", "modified"}) {
        store.fails(call, "The store is gone");
        program->refreshState();
        EXPECT_EQ(window.title, "*Telvar") << call;
        EXPECT_EQ(notesOf({"ask"}), Notes()) << call;
        store.works(call);
    }
    program->refreshState();
    EXPECT_EQ(window.title, "Telvar");
}

TEST_F(StateShown, ACountThatFailedIsMadeAgain) {
    ++store.changes;
    store.channels = 9;
    store.fails("count channels", "The store is gone");
    program->refreshState();
    store.works("count channels");
    program->refreshState();
    EXPECT_EQ(line.channels, "9 channels");
}

TEST_F(StateShown, AClosedWindowShowsNothing) {
    window.isOpen = false;
    store.dirty = true;
    program->captionChanged("Other");
    EXPECT_EQ(window.title, "Telvar");
    EXPECT_EQ(notes(), Notes());
}

TEST_F(StateShown, ARefusedPasteNamesChannelAndColumn) {
    refuse(1, 12, "Tx Subtone");
    EXPECT_EQ(line.messages, Notes{"Paste refused at channel 12, Tx Subtone"});
    program->refreshState();
    EXPECT_EQ(line.messages.size(), 1U);
}

TEST_F(StateShown, ARefusedPasteIsSaidAgainAtTheSameCell) {
    refuse(1, 3, "Scan");
    line.setMessage("Something else");
    program->refreshState();
    EXPECT_EQ(line.message(), "Something else");
    refuse(2, 3, "Scan");
    EXPECT_EQ(line.message(), "Paste refused at channel 3, Scan");
}

TEST_F(StateShown, ARefusedPasteGoesWithTheNextThatGoesThrough) {
    store.file = "C:\\a.telvar";
    refuse(1, 3, "Scan");
    refuse(1, 0, "");
    EXPECT_EQ(line.message(), "C:\\a.telvar");
    const std::size_t shown = line.messages.size();
    program->refreshState();
    EXPECT_EQ(line.messages.size(), shown);
}

TEST_F(StateShown, WhatWasSaidSinceARefusedPasteStays) {
    refuse(1, 3, "Scan");
    line.setMessage("Something else");
    refuse(1, 0, "");
    EXPECT_EQ(line.message(), "Something else");
}

TEST_F(StateShown, APasteThatGoesThroughSaysNothing) {
    refuse(0, 0, "");
    EXPECT_EQ(line.messages, Notes());
}

}  // namespace telvar::tests
