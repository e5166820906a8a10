// The life of the open table: new, open, save, what is asked of unsaved changes, and what fails.
#include "desk_world.h"

namespace telvar::tests {

using namespace desk;

struct DocumentLife : DeskWorld {
    static constexpr char marine[] = "C:\\tables\\marine.telvar";
    static constexpr char air[] = "C:\\tables\\air.telvar";

    const Notes shown{"control refresh", "control access: Everything", "store count channels", "control show top"};

    void openMarine() {
        store.file = marine;
        forget();
    }
    // Unsaved, and asked about with this answer.
    void change(SaveAnswer answer) {
        store.dirty = true;
        ask.save = answer;
    }
    [[nodiscard]] Notes recent() const { return settings.list("RecentFiles"); }
    // Each of the ways to another table.
    struct Way {
        const char* what;
        std::function<void()> go;
        // That ask the user before anything of the present table is asked.
        bool opens = true;
    };
    [[nodiscard]] std::vector<Way> ways() {
        return {{"new", [this] { run(Command::New); }, false},
                {"open", [this] { run(Command::Open); }},
                {"recent", [this] { run(Command::RecentFirst); }},
                {"dropped", [this] { program->openDropped(air); }}};
    }
    void offerAir() {
        ask.openPath = air;
        settings.setList("RecentFiles", {air});
        system.files = {air};
    }
};

TEST_F(DocumentLife, ANewTableIsShownFromItsTopAndNamed) {
    openMarine();
    run(Command::New);
    Notes expected{"control leave edits", "store new"};
    expected.insert(expected.end(), shown.begin(), shown.end());
    EXPECT_EQ(notes(), expected);
    EXPECT_EQ(line.messages, Notes{"New channel table"});
    EXPECT_EQ(recent(), Notes());
    EXPECT_EQ(line.progressEnds, 1);
}

TEST_F(DocumentLife, AnOpenedTableIsNamedAndRemembered) {
    offerAir();
    settings.setList("RecentFiles", {marine});
    run(Command::Open);
    EXPECT_EQ(store.file, air);
    EXPECT_EQ(line.messages, Notes{air});
    EXPECT_EQ(recent(), (Notes{air, marine}));
}

TEST_F(DocumentLife, ThePathThatTheStoreTellsIsRemembered) {
    store.during("open", [this] { store.during("path", [this] { store.file = "C:\\whole\\path.telvar"; }); });
    ask.openPath = "path.telvar";
    run(Command::Open);
    EXPECT_EQ(recent(), Notes{"C:\\whole\\path.telvar"});
}

TEST_F(DocumentLife, OpeningBeginsBesidesThePresentFileAndMayBeCancelled) {
    openMarine();
    run(Command::Open);
    EXPECT_EQ(notes(), (Notes{"control leave edits", std::string("ask open path: ") + marine}));
    EXPECT_EQ(store.file, marine);
    EXPECT_EQ(line.messages, Notes());
}

TEST_F(DocumentLife, AnUnchangedTableGoesWithoutAQuestion) {
    offerAir();
    for (const Way& way : ways()) {
        openMarine();
        way.go();
        EXPECT_EQ(journal.count("ask save: marine.telvar"), 0) << way.what;
        EXPECT_EQ(store.file, way.opens ? air : "") << way.what;
    }
}

TEST_F(DocumentLife, CancellingTheQuestionKeepsTheTable) {
    offerAir();
    for (const Way& way : ways()) {
        openMarine();
        change(SaveAnswer::Cancel);
        way.go();
        EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: marine.telvar"})) << way.what;
        EXPECT_EQ(store.file, marine) << way.what;
        EXPECT_TRUE(store.dirty) << way.what;
    }
}

TEST_F(DocumentLife, NotSavingLetsTheTableGo) {
    offerAir();
    for (const Way& way : ways()) {
        openMarine();
        change(SaveAnswer::DontSave);
        way.go();
        EXPECT_EQ(journal.count("store save"), 0) << way.what;
        EXPECT_EQ(journal.count("ask save: marine.telvar"), 1) << way.what;
        EXPECT_EQ(store.file, way.opens ? air : "") << way.what;
    }
}

TEST_F(DocumentLife, SavingSavesFirst) {
    offerAir();
    for (const Way& way : ways()) {
        openMarine();
        change(SaveAnswer::Save);
        way.go();
        const Notes all = notes();
        ASSERT_GT(all.size(), 3U) << way.what;
        EXPECT_EQ(all[1], "ask save: marine.telvar") << way.what;
        EXPECT_EQ(all[2], "store save") << way.what;
        EXPECT_EQ(store.file, way.opens ? air : "") << way.what;
    }
}

TEST_F(DocumentLife, AFailureToSaveKeepsTheTable) {
    offerAir();
    store.fails("save", "The disk is full");
    for (const Way& way : ways()) {
        openMarine();
        change(SaveAnswer::Save);
        way.go();
        EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: marine.telvar", "store save",
                                  "ask tell: The disk is full."}))
            << way.what;
        EXPECT_EQ(store.file, marine) << way.what;
    }
}

TEST_F(DocumentLife, ATableWithoutANameAsksForOneBeforeItGoes) {
    change(SaveAnswer::Save);
    run(Command::New);
    EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: the new channel table", "ask save path"}));
    EXPECT_TRUE(store.dirty);
    ask.savePath = marine;
    run(Command::New);
    EXPECT_EQ(notesOf({"store save", "store new"}), (Notes{std::string("store save as: ") + marine, "store new"}));
    EXPECT_EQ(recent(), Notes{marine});
}

TEST_F(DocumentLife, EditsThatTheUserStaysWithKeepEverythingAsItWas) {
    offerAir();
    openMarine();
    change(SaveAnswer::Save);
    control.leaves = false;
    for (const Way& way : ways()) {
        way.go();
        EXPECT_EQ(notes(), Notes{"control leave edits"}) << way.what;
    }
    for (const Command command : {Command::Save, Command::SaveAs, Command::RadioLoad}) {
        run(command);
        EXPECT_EQ(notes(), Notes{"control leave edits"}) << menuText(*rowOf(command));
    }
    EXPECT_FALSE(program->mayClose());
    EXPECT_FALSE(program->mayEndSession());
    EXPECT_EQ(notes(), (Notes{"control leave edits", "control leave edits"}));
    EXPECT_TRUE(store.dirty);
}

TEST_F(DocumentLife, EditsAppliedOnTheWayAreChangesOfTheTable) {
    openMarine();
    control.during("leave edits", [this] { store.dirty = true; });
    run(Command::New);
    EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: marine.telvar"}));
    run(Command::Save);
    EXPECT_EQ(notes(), (Notes{"control leave edits", "store save"}));
    EXPECT_FALSE(store.dirty);
}

TEST_F(DocumentLife, NoCommandBeginsWhileTheControlLeavesItsEdits) {
    openMarine();
    control.during("leave edits", [this] { EXPECT_FALSE(program->allowed(Command::New)); });
    run(Command::New);
    EXPECT_TRUE(program->allowed(Command::New));
}

TEST_F(DocumentLife, SavingUnderAnotherNameSuggestsThePresentOneAndTellsTheNew) {
    openMarine();
    ask.savePath = air;
    run(Command::SaveAs);
    EXPECT_EQ(notes(), (Notes{"control leave edits", std::string("ask save path: ") + marine,
                              std::string("store save as: ") + air}));
    EXPECT_EQ(line.messages, Notes{air});
    EXPECT_EQ(recent(), Notes{air});
}

TEST_F(DocumentLife, SavingUnderAnotherNameMayBeCancelledAndMayFail) {
    openMarine();
    run(Command::SaveAs);
    ask.savePath = air;
    store.fails("save as", "The folder is gone");
    run(Command::SaveAs);
    EXPECT_EQ(notesOf({"ask tell"}), Notes{"ask tell: The folder is gone."});
    EXPECT_EQ(store.file, marine);
    EXPECT_EQ(line.messages, Notes());
    EXPECT_EQ(recent(), Notes());
}

TEST_F(DocumentLife, SavingATableWithoutANameAsksForOne) {
    ask.savePath = marine;
    run(Command::Save);
    EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save path", std::string("store save as: ") + marine}));
}

TEST_F(DocumentLife, AFailureToSaveIsToldAndTheNameStays) {
    openMarine();
    store.dirty = true;
    store.fails("save", "The disk is full");
    run(Command::Save);
    EXPECT_EQ(notesOf({"ask"}), Notes{"ask tell: The disk is full."});
    EXPECT_TRUE(store.dirty);
}

TEST_F(DocumentLife, AFailureOfANewTableLeavesThePresentOne) {
    openMarine();
    store.fails("new", "There is no memory");
    run(Command::New);
    EXPECT_EQ(notes(), (Notes{"control leave edits", "store new", "ask tell: There is no memory."}));
    EXPECT_EQ(store.file, marine);
    EXPECT_EQ(line.messages, Notes());
}

TEST_F(DocumentLife, WhatCannotBeOpenedIsToldAndLeavesTheTable) {
    offerAir();
    store.fails("open", "It is no channel table");
    for (const Way& way : ways()) {
        if (way.opens) {
            openMarine();
            way.go();
            EXPECT_EQ(notesOf({"ask tell", "control refresh"}), Notes{"ask tell: It is no channel table."}) << way.what;
            EXPECT_EQ(store.file, marine) << way.what;
            // It is there: perhaps it can be opened again.
            EXPECT_EQ(recent(), Notes{air}) << way.what;
        }
    }
}

TEST_F(DocumentLife, AFileThatIsGoneLeavesTheRecentOnes) {
    settings.setList("RecentFiles", {marine, air});
    store.fails("open", "It cannot be found");
    run(static_cast<Command>(301));
    EXPECT_EQ(notesOf({"ask tell"}), Notes{"ask tell: It cannot be found."});
    EXPECT_EQ(recent(), Notes{marine});
}

TEST_F(DocumentLife, AFileThatIsDroppedWhileSomethingIsUnderWayIsNotOpened) {
    whileModal([&] { program->openDropped(air); });
    program->commandsAllowed(false);
    program->openDropped(air);
    program->commandsAllowed(true);
    program->openDropped("");
    EXPECT_EQ(notes(), Notes());
    program->openDropped(air);
    EXPECT_EQ(store.file, air);
}

TEST_F(DocumentLife, AFailureOfTheStoreIsToldWhateverIsAsked) {
    struct Case {
        const char* call;
        Command command;
    };
    for (const Case& each : {Case{"modified", Command::New}, Case{"modified", Command::Open},
                             Case{"path", Command::Open}, Case{"path", Command::Save}, Case{"path", Command::SaveAs}}) {
        store.fails(each.call, "The store is gone");
        run(each.command);
        EXPECT_EQ(notesOf({"ask", "store"}), Notes{"ask tell: The store is gone."}) << each.call;
        store.works(each.call);
    }
    settings.setList("RecentFiles", {air});
    store.fails("modified", "The store is gone");
    run(Command::RecentFirst);
    EXPECT_EQ(notesOf({"ask", "store"}), Notes{"ask tell: The store is gone."});
    program->openDropped(air);
    EXPECT_EQ(notesOf({"ask", "store"}), Notes{"ask tell: The store is gone."});
}

TEST_F(DocumentLife, AControlThatFailsToShowTheTableIsToldAndTheTableIsNamed) {
    control.fails("refresh", "It does not paint");
    control.fails("show top", "It does not scroll");
    offerAir();
    run(Command::Open);
    EXPECT_EQ(notesOf({"ask tell"}), (Notes{"ask tell: It does not paint.", "ask tell: It does not scroll."}));
    EXPECT_EQ(line.messages, Notes{air});
    EXPECT_EQ(recent(), Notes{air});
}

// ---- the end

TEST_F(DocumentLife, ClosingAsksAboutUnsavedChanges) {
    openMarine();
    EXPECT_TRUE(program->mayClose());
    for (const auto& [answer, leaves] : std::map<SaveAnswer, bool>{
             {SaveAnswer::Cancel, false}, {SaveAnswer::DontSave, true}, {SaveAnswer::Save, true}}) {
        change(answer);
        forget();
        EXPECT_EQ(program->mayClose(), leaves);
        EXPECT_EQ(journal.count("ask save: marine.telvar"), 1);
        change(answer);
        EXPECT_EQ(program->mayEndSession(), leaves);
    }
}

TEST_F(DocumentLife, ATableThatCannotBeSavedKeepsTheWindowOpen) {
    openMarine();
    change(SaveAnswer::Save);
    store.fails("save", "The disk is full");
    EXPECT_FALSE(program->mayClose());
    EXPECT_FALSE(program->mayEndSession());
}

TEST_F(DocumentLife, AWindowBehindSomethingModalIsNotClosedAndNotAsked) {
    openMarine();
    change(SaveAnswer::DontSave);
    whileModal([&] { EXPECT_FALSE(program->mayClose()); });
    EXPECT_EQ(notes(), Notes{"window show modal"});
    ask.during("about", [this] { EXPECT_FALSE(program->mayClose()); });
    run(Command::About);
    EXPECT_EQ(notes(), (Notes{"ask about", "window show modal"}));
    control.during("edit channel", [this] { EXPECT_FALSE(program->mayClose()); });
    run(Command::EditChannel);
    EXPECT_EQ(notesOf({"window", "ask"}), Notes{"window show modal"});
    EXPECT_TRUE(program->mayClose());
}

// The session does not wait for a dialog.
TEST_F(DocumentLife, TheEndOfTheSessionAsksOverSomethingModal) {
    openMarine();
    change(SaveAnswer::Save);
    whileModal([&] { EXPECT_TRUE(program->mayEndSession()); });
    EXPECT_FALSE(store.dirty);
}

}  // namespace telvar::tests
