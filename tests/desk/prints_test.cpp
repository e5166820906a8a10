// Printing: what the user asks for comes back as the control's event, which opens its window later.
#include "desk_world.h"

#include "desk/html.h"

namespace telvar::tests {

using namespace desk;

struct Printing : DeskWorld {
    Printing() {
        // A table is open.
        control.during("print", [this] { program->printRequested(); });
        control.shown = {.columns = {{.header = "Channel"}},
                         .rows = {{.inUse = true, .cells = {"1"}},
                                  {.inUse = false, .cells = {"2"}},
                                  {.inUse = true, .cells = {"3"}}}};
    }
    [[nodiscard]] static Notes cellsOf(const PrintedTable& table) {
        Notes cells;
        for (const Row& row : table.rows) {
            cells.push_back(row.cells.front());
        }
        return cells;
    }
    void finish(Command command) {
        run(command);
        runLater();
    }
};

TEST_F(Printing, GoesThroughTheControlAndWaitsUntilItHasReturned) {
    for (const auto& [command, question] :
         std::map<Command, std::string>{{Command::PrintPreview, "ask preview"},
                                        {Command::Print, "ask print"},
                                        {Command::SaveHtml, "ask html path: Channel table.html"}}) {
        forget();
        run(command);
        EXPECT_EQ(notes(), Notes{"control print"}) << question;
        EXPECT_TRUE(window.wanted);
        runLater();
        EXPECT_EQ(notes(), Notes{question});
        program->goOn();
        EXPECT_EQ(notes(), Notes());
    }
}

TEST_F(Printing, AsksNothingWhereNoTableIsOpen) {
    control.works("print");
    finish(Command::Print);
    EXPECT_EQ(notes(), Notes{"control print"});
}

TEST_F(Printing, AScriptThatAsksGetsThePreview) {
    finish(Command::Print);
    forget();
    program->printRequested();
    runLater();
    EXPECT_EQ(notes(), Notes{"ask preview"});
}

TEST_F(Printing, AControlThatFailsIsToldAndTheNextScriptGetsThePreview) {
    control.fails("print", "It has no table");
    finish(Command::Print);
    EXPECT_EQ(notes(), (Notes{"control print", "ask tell: It has no table."}));
    program->printRequested();
    runLater();
    EXPECT_EQ(notes(), Notes{"ask preview"});
}

TEST_F(Printing, WaitsWhileSomethingElseIsUnderWay) {
    program->printRequested();
    whileModal([this] { program->goOn(); });
    control.during("edit channel", [this] { program->goOn(); });
    run(Command::EditChannel);
    program->commandsAllowed(false);
    program->goOn();
    program->commandsAllowed(true);
    EXPECT_EQ(notes(), Notes{"control edit channel"});
    program->goOn();
    EXPECT_EQ(notes(), Notes{"ask preview"});
}

TEST_F(Printing, HasTitleAndDate) {
    finish(Command::PrintPreview);
    ASSERT_TRUE(ask.pages);
    EXPECT_EQ(ask.pages->title, "Channel table");
    EXPECT_EQ(ask.pages->made, "21/11/2026 14:05");
    store.name = "Marine";
    finish(Command::Print);
    EXPECT_EQ(ask.pages->title, "Marine");
}

TEST_F(Printing, HasEveryChannelOrOnlyThoseInUse) {
    finish(Command::Print);
    EXPECT_EQ(cellsOf(*ask.pages), (Notes{"1", "2", "3"}));
    ask.setUp = [](PageSetup& setup) { setup.onlyInUse = true; };
    run(Command::PageSetup);
    ask.setUp = nullptr;
    finish(Command::Print);
    EXPECT_EQ(cellsOf(*ask.pages), (Notes{"1", "3"}));
}

// The user changes the set-up inside the preview, which reads the table again.
TEST_F(Printing, FollowsASetUpThatChangesInsideTheQuestion) {
    for (const Command command : {Command::PrintPreview, Command::Print}) {
        settings.values.clear();
        begin();
        ask.setUp = [](PageSetup& setup) { setup.onlyInUse = true; };
        finish(command);
        EXPECT_EQ(cellsOf(*ask.pages), (Notes{"1", "3"}));
        EXPECT_EQ(settings.number("PrintOnlyInUse"), 1);
    }
}

TEST_F(Printing, ASetUpIsRememberedOnlyWhereItChanged) {
    const int before = settings.writes;
    for (const Command command : {Command::PageSetup, Command::PrintPreview, Command::Print}) {
        finish(command);
        EXPECT_EQ(settings.writes, before) << menuText(*rowOf(command));
    }
    ask.setUp = [](PageSetup& setup) { setup.landscape = true; };
    run(Command::PageSetup);
    EXPECT_EQ(settings.number("PrintLandscape"), 1);
    const int once = settings.writes;
    run(Command::PageSetup);
    EXPECT_EQ(settings.writes, once);
    // Another run of the program begins with it.
    begin();
    ask.setUp = [](PageSetup& setup) { EXPECT_TRUE(setup.landscape); };
    run(Command::PageSetup);
}

TEST_F(Printing, ASetUpThatWasChangedBeforeAFailureIsRemembered) {
    ask.setUp = [](PageSetup& setup) { setup.landscape = true; };
    ask.fails("print", "The printer is on fire");
    finish(Command::Print);
    EXPECT_EQ(settings.number("PrintLandscape"), 1);
}

TEST_F(Printing, BeginsWithTheSheetOfTheUsersCountry) {
    system.sheet = 1;
    begin();
    ask.setUp = [](PageSetup& setup) { EXPECT_EQ(setup.sheetCode, 1); };
    run(Command::PageSetup);
    EXPECT_EQ(notes(), Notes{"ask page setup"});
}

TEST_F(Printing, IsToldWhenAllIsPrinted) {
    finish(Command::Print);
    EXPECT_EQ(line.messages, Notes{"The table was printed."});
    ask.printed = false;
    forget();
    finish(Command::Print);
    EXPECT_EQ(line.messages, Notes());
    ask.printed = true;
    ask.during("print", [this] { window.isOpen = false; });
    finish(Command::Print);
    EXPECT_EQ(line.messages, Notes());
}

TEST_F(Printing, AFailureIsTold) {
    struct Case {
        Command command;
        const char* call;
    };
    for (const Case& each : {Case{Command::Print, "print"}, Case{Command::PrintPreview, "preview"},
                             Case{Command::PageSetup, "page setup"}, Case{Command::SaveHtml, "html path"}}) {
        ask.fails(each.call, "The printer is on fire");
        forget();
        finish(each.command);
        EXPECT_EQ(notesOf({"ask tell"}), Notes{"ask tell: The printer is on fire."}) << each.call;
        EXPECT_EQ(line.messages, Notes()) << each.call;
    }
}

TEST_F(Printing, ATableThatCannotBeReadIsTold) {
    ask.htmlPath = "C:\\a.html";
    control.fails("shown table", "It does not tell");
    for (const Command command : {Command::Print, Command::PrintPreview, Command::SaveHtml}) {
        finish(command);
        EXPECT_EQ(notesOf({"ask tell"}), Notes{"ask tell: It does not tell."}) << menuText(*rowOf(command));
    }
    control.works("shown table");
    store.fails("title", "The store is gone");
    finish(Command::Print);
    EXPECT_EQ(notesOf({"ask tell"}), Notes{"ask tell: The store is gone."});
    EXPECT_TRUE(system.written.empty());
}

TEST_F(Printing, AnHtmlPageIsSuggestedBesideTheTable) {
    for (const auto& [path, suggested] :
         std::map<std::string, std::string>{{"", "Channel table.html"},
                                            {"C:\\tables\\marine.telvar", "C:\\tables\\marine.html"},
                                            {"C:\\tables\\marine", "C:\\tables\\marine.html"},
                                            {"C:\\v1.2\\marine", "C:\\v1.2\\marine.html"},
                                            {"C:\\v1.2/marine.old.telvar", "C:\\v1.2/marine.old.html"}}) {
        store.file = path;
        forget();
        finish(Command::SaveHtml);
        EXPECT_EQ(notesOf({"ask"}), Notes{"ask html path: " + suggested});
        EXPECT_TRUE(system.written.empty());
    }
}

TEST_F(Printing, AnHtmlPageIsWrittenAndTold) {
    ask.htmlPath = "C:\\out.html";
    ask.setUp = [](PageSetup& setup) { setup.onlyInUse = true; };
    run(Command::PageSetup);
    finish(Command::SaveHtml);
    EXPECT_EQ(line.messages, Notes{"The table was saved as C:\\out.html."});
    PrintedTable expected = control.shown;
    expected.title = "Channel table";
    expected.made = "21/11/2026 14:05";
    expected.rows.erase(expected.rows.begin() + 1);
    EXPECT_EQ(system.written, (std::map<std::string, std::string>{{"C:\\out.html", htmlOf(expected)}}));
}

TEST_F(Printing, AnHtmlPageThatCannotBeWrittenIsTold) {
    ask.htmlPath = "C:\\out.html";
    system.writeFailure = "The disk is full";
    finish(Command::SaveHtml);
    EXPECT_EQ(notesOf({"ask tell"}), Notes{"ask tell: The disk is full."});
    EXPECT_EQ(line.messages, Notes());
}

TEST_F(Printing, AWindowThatGoesInsideTheQuestionWritesNothing) {
    ask.htmlPath = "C:\\out.html";
    ask.during("html path", [this] { window.isOpen = false; });
    finish(Command::SaveHtml);
    EXPECT_TRUE(system.written.empty());
}

}  // namespace telvar::tests
