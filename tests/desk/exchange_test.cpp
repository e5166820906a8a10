// Sending, loading and cancelling: each arrow of the exchange's picture, and what is no arrow.
#include "exchange_world.h"

namespace telvar::tests {

using namespace desk;

struct ExchangeArrows : ExchangeWorld, testing::WithParamInterface<Command> {
    [[nodiscard]] bool loads() const { return GetParam() == Command::RadioLoad; }
    [[nodiscard]] std::string call() const { return loads() ? "load" : "send"; }
    [[nodiscard]] Task task() const { return loads() ? Task::Load : Task::Send; }
    [[nodiscard]] std::string text() const { return loads() ? "Loading from the radio" : "Sending to the radio"; }
    // What the link and the control do inside the control's call, after `more`.
    void duringCall(const std::function<void()>& more, bool takesOver) {
        control.during(call(), [this, more, takesOver] {
            more();
            program->commandsAllowed(!takesOver);
            link.running = takesOver;
        });
    }
};

INSTANTIATE_TEST_SUITE_P(Of, ExchangeArrows, testing::Values(Command::RadioSend, Command::RadioLoad),
                         [](const auto& tested) { return tested.param == Command::RadioSend ? "Send" : "Load"; });

TEST_P(ExchangeArrows, WhileTheControlPreparesOnlyCancellingIsOffered) {
    bool looked = false;
    duringCall(
        [&] {
            looked = true;
            EXPECT_FALSE(idle());
            EXPECT_TRUE(cancelOffered());
            EXPECT_FALSE(program->allowed(Command::RadioConnection));
        },
        false);
    run(GetParam());
    EXPECT_TRUE(looked);
    expectGivenBackOnce();
}

TEST_P(ExchangeArrows, AnExchangeThatTheControlGivesUpGivesEverythingBack) {
    duringCall([this] { program->commandsAllowed(false); }, false);
    run(GetParam());
    Notes expected = loads() ? Notes{"control leave edits"} : Notes{};
    expected.insert(expected.end(), {"control " + call(), "window arrow", "control enable commands"});
    EXPECT_EQ(notes(), expected);
    EXPECT_TRUE(idle());
    EXPECT_EQ(line.progressEnds, 1);
    EXPECT_EQ(line.messages, Notes());
    EXPECT_TRUE(window.wanted);
}

TEST_P(ExchangeArrows, AControlThatFailsIsToldAndEverythingComesBack) {
    control.fails(call(), "It does not answer");
    run(GetParam());
    EXPECT_EQ(journal.count("ask tell: It does not answer."), 1);
    expectGivenBackOnce();
}

TEST_P(ExchangeArrows, WhatTheLinkHasTakenOverOnlyTheLinkEnds) {
    linkTakesOver();
    run(GetParam());
    expectNothingGivenBack();
    EXPECT_TRUE(window.hourglass);
    program->goOn();
    expectNothingGivenBack();
}

TEST_P(ExchangeArrows, ASuccessIsShownInTheStatusLineAndGivesEverythingBack) {
    begin(GetParam());
    end(task(), true, "It is done.");
    expectGivenBackOnce();
    EXPECT_EQ(line.messages, Notes{"It is done."});
    forget();
    runLater();
    EXPECT_EQ(notesOf({"ask", "window"}), Notes());
    EXPECT_EQ(journal.count("control enable commands"), 0);
}

TEST_P(ExchangeArrows, ASuccessWithoutAWordLeavesTheStatusLine) {
    begin(GetParam());
    end(task(), true);
    expectGivenBackOnce();
    EXPECT_EQ(line.messages, Notes());
}

TEST_P(ExchangeArrows, AFailureIsToldOnceAfterTheLinksEvent) {
    begin(GetParam());
    end(task(), false, "The radio is silent.");
    expectGivenBackOnce();
    EXPECT_EQ(line.messages, Notes{"The radio is silent."});
    EXPECT_EQ(journal.count("ask tell: The radio is silent."), 0);
    runLater();
    program->goOn();
    EXPECT_EQ(journal.count("ask tell: The radio is silent."), 1);
    EXPECT_EQ(journal.count("control refresh"), 0);
}

TEST_P(ExchangeArrows, AFailureWithoutAWordIsNotTold) {
    begin(GetParam());
    end(task(), false);
    runLater();
    EXPECT_EQ(notesOf({"ask"}), Notes());
    EXPECT_EQ(line.messages, Notes());
}

TEST_P(ExchangeArrows, CancellingCutsWhatRunsAndWaitsForItsEnd) {
    begin(GetParam());
    cancel();
    EXPECT_EQ(notes(), Notes{"link abort"});
    EXPECT_EQ(line.messages, Notes{cancelling});
    expectNothingGivenBack();
    end(task(), false);
    expectGivenBackOnce();
    EXPECT_EQ(line.message(), cancelled);
    runLater();
    EXPECT_EQ(notesOf({"ask"}), Notes());
}

TEST_P(ExchangeArrows, ACancelledOneThatTellsItsEndIsToldWithThat) {
    begin(GetParam());
    cancel();
    end(task(), false, "The exchange was aborted.");
    EXPECT_EQ(line.message(), "The exchange was aborted.");
    runLater();
    EXPECT_EQ(journal.count("ask tell: The exchange was aborted."), 1);
}

TEST_P(ExchangeArrows, ACancellationIsForgottenWithItsExchange) {
    begin(GetParam());
    cancel();
    end(task(), false);
    forget();
    link.running = true;
    end(Task::ChannelSelection, false);
    EXPECT_EQ(line.messages, Notes());
    begin(GetParam());
    end(task(), false);
    EXPECT_EQ(line.messages, Notes());
}

TEST_P(ExchangeArrows, ALinkThatCannotBeCutIsTold) {
    begin(GetParam());
    link.fails("abort", "It hangs");
    cancel();
    EXPECT_EQ(notes(), (Notes{"link abort", "ask tell: It hangs."}));
    end(task(), true, "It is done.");
    EXPECT_TRUE(idle());
}

// The control waits for the link meanwhile: what keeps it is cut, and the exchange that the control begins then.
TEST_P(ExchangeArrows, CancellingWhileTheControlWaitsForTheLinkCutsBoth) {
    link.running = true;
    duringCall([this] { cancel(); }, true);
    run(GetParam());
    EXPECT_EQ(journal.count("link abort"), 2);
    EXPECT_EQ(line.messages, Notes{cancelling});
    expectNothingGivenBack();
    end(task(), false);
    expectGivenBackOnce();
    EXPECT_EQ(line.message(), cancelled);
}

TEST_P(ExchangeArrows, CancellingWhileTheControlWaitsForNobodyTakesTheMarkAway) {
    store.busy = true;
    duringCall([this] { cancel(); }, false);
    run(GetParam());
    EXPECT_FALSE(store.busy);
    EXPECT_EQ(journal.count("store clear busy"), 1);
    EXPECT_EQ(journal.count("link abort"), 0);
    expectGivenBackOnce();
}

TEST_P(ExchangeArrows, AMarkThatCannotBeTakenAwayIsTold) {
    store.fails("clear busy", "The store is gone");
    duringCall([this] { cancel(); }, false);
    run(GetParam());
    EXPECT_EQ(journal.count("ask tell: The store is gone."), 1);
    expectGivenBackOnce();
}

TEST_P(ExchangeArrows, ACutThatFailsAfterTheWaitIsTold) {
    duringCall([this] { cancel(); }, true);
    link.fails("abort", "It hangs");
    run(GetParam());
    EXPECT_EQ(journal.count("ask tell: It hangs."), 1);
    expectNothingGivenBack();
}

TEST_P(ExchangeArrows, ACancelledPreparationThatTheControlGivesUpIsForgotten) {
    duringCall([this] { cancel(); }, false);
    run(GetParam());
    linkTakesOver();
    forget();
    run(GetParam());
    EXPECT_EQ(journal.count("link abort"), 0);
    end(task(), false);
    EXPECT_EQ(line.messages, Notes());
}

TEST_P(ExchangeArrows, WhatEndsDuringTheWaitIsAnotherAndReleasesNothing) {
    bool looked = false;
    duringCall(
        [&] {
            program->commandsAllowed(false);
            end(Task::ChannelSelection, true, "Channel 7.");
            looked = true;
            expectNothingGivenBack();
        },
        true);
    run(GetParam());
    EXPECT_TRUE(looked);
    expectNothingGivenBack();
    EXPECT_EQ(line.messages, Notes{"Channel 7."});
    end(task(), true);
    runLater();
    EXPECT_EQ(journal.count("control follow radio"), 1);
}

TEST_P(ExchangeArrows, AnExchangeThatEndsInsideTheCallIsReleasedOnce) {
    duringCall(
        [this] {
            program->commandsAllowed(false);
            end(task(), false, "The radio is silent.");
        },
        false);
    run(GetParam());
    expectGivenBackOnce();
    runLater();
    EXPECT_EQ(journal.count("ask tell: The radio is silent."), 1);
}

TEST_P(ExchangeArrows, AWindowThatGoesInsideTheCallIsLeftAlone) {
    duringCall([this] { window.isOpen = false; }, false);
    run(GetParam());
    EXPECT_EQ(notesOf({"window", "control enable"}), Notes());
    EXPECT_EQ(line.progressEnds, 0);
    EXPECT_FALSE(window.wanted);
}

TEST_P(ExchangeArrows, ProgressIsShownAsPercentAndText) {
    begin(GetParam());
    program->linkProgressed(0);
    program->linkProgressed(42);
    program->linkProgressed(100);
    EXPECT_EQ(line.percents, (std::vector{0, 42, 100}));
    EXPECT_EQ(line.messages, (Notes{text() + ": 0 %", text() + ": 42 %", text() + ": 100 %"}));
    end(task(), true);
    forget();
    program->linkProgressed(50);
    EXPECT_EQ(line.percents, std::vector<int>());
    EXPECT_EQ(line.messages, Notes());
}

TEST_P(ExchangeArrows, TwoCanFollowEachOther) {
    begin(GetParam());
    end(task(), true);
    runLater();
    store.dirty = false;
    forget();
    begin(GetParam());
    expectNothingGivenBack();
    end(task(), true);
    expectGivenBackOnce();
}

TEST_P(ExchangeArrows, WhatTheCallChangedIsShown) {
    duringCall([this] { store.dirty = true; }, false);
    run(GetParam());
    EXPECT_TRUE(line.modified);
}

// ---- cancelling

struct Cancelling : ExchangeWorld {};

TEST_F(Cancelling, IsNotOfferedWithNothingToCancel) {
    EXPECT_FALSE(cancelOffered());
    cancel();
    EXPECT_EQ(notes(), Notes());
    EXPECT_EQ(line.messages, Notes());
}

TEST_F(Cancelling, IsNotOfferedWhileSomethingModalIsOpen) {
    begin(Command::RadioSend);
    whileModal([this] { EXPECT_FALSE(cancelOffered()); });
    EXPECT_TRUE(cancelOffered());
    control.during("send", [this] { whileModal([this] { EXPECT_FALSE(cancelOffered()); }); });
    end(Task::Send, true);
    run(Command::RadioSend);
}

TEST_F(Cancelling, IsNotOfferedForAQuestionHowTheRadioIs) {
    poll();
    ASSERT_TRUE(link.running);
    EXPECT_FALSE(cancelOffered());
}

TEST_F(Cancelling, IsNotOfferedInsideAnotherCallOfTheControl) {
    begin(Command::RadioSend);
    control.during("follow radio", [this] {
        link.running = true;
        EXPECT_FALSE(cancelOffered());
    });
    end(Task::ChannelSelection, true);
    runLater();
    EXPECT_TRUE(cancelOffered());
}

TEST_F(Cancelling, AlsoCutsWhatSomebodyElseHasBegun) {
    link.running = true;
    cancel();
    EXPECT_EQ(notes(), Notes{"link abort"});
    end(Task::ChannelSelection, false);
    EXPECT_EQ(line.messages, (Notes{cancelling, cancelled}));
    EXPECT_FALSE(cancelOffered());
}

// ---- loading takes the open table's place

struct Loading : ExchangeWorld {};

TEST_F(Loading, AsksAboutUnsavedChangesFirst) {
    linkTakesOver();
    store.dirty = true;
    run(Command::RadioLoad);
    EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: the new channel table"}));
    ask.save = SaveAnswer::DontSave;
    run(Command::RadioLoad);
    EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: the new channel table", "control load"}));
    EXPECT_FALSE(idle());
}

TEST_F(Loading, AsksNothingOfALockedTableWhichTheControlRefuses) {
    store.dirty = true;
    control.locked = true;
    run(Command::RadioLoad);
    EXPECT_EQ(notes(), (Notes{"control load", "window arrow", "control enable commands"}));
    EXPECT_TRUE(idle());
}

TEST_F(Loading, ShowsTheLoadedTableAfterTheLinksEventWithoutScrolling) {
    begin(Command::RadioLoad);
    ++store.changes;
    store.channels = 1;
    end(Task::Load, true, "The table was loaded from the radio.");
    EXPECT_EQ(journal.count("control refresh"), 0);
    forget();
    runLater();
    EXPECT_EQ(notes(), (Notes{"store count channels", "control refresh", "control access: Everything"}));
    EXPECT_EQ(line.channels, "1 channel");
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Loading, SendingAsksNothing) {
    store.dirty = true;
    linkTakesOver();
    run(Command::RadioSend);
    EXPECT_EQ(notes(), Notes{"control send"});
}

// ---- what somebody else has begun

struct Foreign : ExchangeWorld {};

TEST_F(Foreign, AnEndGivesBackWhatTheControlHasTaken) {
    program->commandsAllowed(false);
    window.hourglass = true;
    end(Task::ChannelSelection, true);
    expectGivenBackOnce();
}

TEST_F(Foreign, ASelectedChannelIsFollowedByTheControl) {
    end(Task::ChannelSelection, true);
    forget();
    control.during("follow radio", [this] { store.dirty = true; });
    runLater();
    EXPECT_EQ(notes(), Notes{"control follow radio"});
    EXPECT_TRUE(line.modified);
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Foreign, AControlThatCannotFollowIsTold) {
    control.fails("follow radio", "It is lost");
    end(Task::ChannelSelection, true);
    runLater();
    EXPECT_EQ(journal.count("ask tell: It is lost."), 1);
}

TEST_F(Foreign, ASelectionThatFailsIsToldAndNotFollowed) {
    end(Task::ChannelSelection, false, "There is no channel 300.");
    forget();
    runLater();
    EXPECT_EQ(notes(), Notes{"ask tell: There is no channel 300."});
}

// They are sent again and again while a slider moves.
TEST_F(Foreign, LevelsThatFailAreNotTold) {
    end(Task::Levels, false, "The radio does not answer.");
    EXPECT_EQ(line.messages, Notes{"The radio does not answer."});
    forget();
    runLater();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Foreign, LevelsThatWereSentChangeNothing) {
    end(Task::Levels, true);
    forget();
    runLater();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Foreign, ATableThatAScriptLoadsIsShown) {
    end(Task::Load, true);
    runLater();
    EXPECT_EQ(journal.count("control refresh"), 1);
}

TEST_F(Foreign, ProgressIsNotShown) {
    link.running = true;
    program->linkProgressed(42);
    EXPECT_EQ(line.percents, std::vector<int>());
    EXPECT_EQ(line.messages, Notes());
}

// ---- news

struct News : ExchangeWorld {
    void leaveAllNews() {
        end(Task::Load, true);
        end(Task::ChannelSelection, true);
        end(Task::Send, false, "First.");
        end(Task::Levels, false, "Not told.");
        forget();
    }
    const Notes all{"control refresh", "control access: Everything", "control follow radio", "ask tell: First."};
};

TEST_F(News, AreShownInOneOrderAndOnce) {
    leaveAllNews();
    runLater();
    EXPECT_EQ(notes(), all);
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(News, WaitWhileSomethingElseIsUnderWay) {
    leaveAllNews();
    whileModal([this] { program->goOn(); });
    program->commandsAllowed(false);
    program->goOn();
    program->commandsAllowed(true);
    EXPECT_EQ(notes(), Notes());
    ask.during("about", [this] { program->goOn(); });
    run(Command::About);
    EXPECT_EQ(notes(), Notes{"ask about"});
    control.during("edit channel", [this] { program->goOn(); });
    run(Command::EditChannel);
    EXPECT_EQ(notes(), Notes{"control edit channel"});
    program->goOn();
    EXPECT_EQ(notes(), all);
}

TEST_F(News, AreAskedForAtEachEnd) {
    for (const Task task : {Task::Load, Task::Send, Task::Restore, Task::ChannelSelection, Task::Levels}) {
        window.wanted = false;
        end(task, true);
        EXPECT_TRUE(window.wanted) << static_cast<int>(task);
    }
}

// The sentence's box pumps messages, in which the desk is asked to go on again.
TEST_F(News, AreNotShownTwiceInsideTheirOwnBox) {
    leaveAllNews();
    ask.during("tell", [this] { program->goOn(); });
    runLater();
    EXPECT_EQ(journal.count("ask tell: First."), 1);
}

// ---- closing

struct ClosingAnExchange : ExchangeWorld {};

TEST_F(ClosingAnExchange, WhileItIsPreparedCutsItAndClosesAfterwards) {
    control.during("send", [this] {
        EXPECT_FALSE(program->mayClose());
        EXPECT_FALSE(program->mayClose());
    });
    store.busy = true;
    run(Command::RadioSend);
    EXPECT_FALSE(store.busy);
    EXPECT_EQ(notesOf({"ask", "window close"}), Notes());
    runLater();
    program->goOn();
    EXPECT_EQ(notes(), Notes{"window close later"});
    EXPECT_TRUE(program->mayClose());
}

TEST_F(ClosingAnExchange, WhileItIsPreparedCutsWhatTheLinkTakesOver) {
    control.during("send", [this] {
        EXPECT_FALSE(program->mayClose());
        program->commandsAllowed(false);
        link.running = true;
    });
    run(Command::RadioSend);
    EXPECT_EQ(journal.count("link abort"), 1);
    runLater();
    EXPECT_EQ(journal.count("window close later"), 0);
    end(Task::Send, false, "The exchange was aborted.");
    forget();
    runLater();
    EXPECT_EQ(notes(), (Notes{"ask tell: The exchange was aborted.", "window close later"}));
}

TEST_F(ClosingAnExchange, BehindSomethingModalOfThePreparationIsRefused) {
    control.during("send", [this] { whileModal([this] { EXPECT_FALSE(program->mayClose()); }); });
    run(Command::RadioSend);
    runLater();
    EXPECT_EQ(journal.count("window show modal"), 1);
    EXPECT_EQ(journal.count("window close later"), 0);
}

TEST_F(ClosingAnExchange, ThatRunsAsksAndStaysOnNo) {
    begin(Command::RadioSend);
    EXPECT_FALSE(program->mayClose());
    EXPECT_EQ(notes(), Notes{"ask cancel exchange"});
    end(Task::Send, true);
    runLater();
    EXPECT_EQ(journal.count("window close later"), 0);
}

TEST_F(ClosingAnExchange, ThatRunsCutsItOnYesAndClosesAtItsEnd) {
    begin(Command::RadioSend);
    store.dirty = true;
    ask.cancelExchange = true;
    EXPECT_FALSE(program->mayClose());
    EXPECT_EQ(notes(), (Notes{"ask cancel exchange", "link abort"}));
    EXPECT_EQ(line.messages, Notes{cancelling});
    end(Task::Send, false);
    EXPECT_EQ(line.message(), cancelled);
    forget();
    runLater();
    EXPECT_EQ(notes(), Notes{"window close later"});
    // Unsaved changes are asked about then.
    EXPECT_FALSE(program->mayClose());
    EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: the new channel table"}));
}

TEST_F(ClosingAnExchange, ThatEndsInsideTheQuestionClosesAtOnceOnYes) {
    begin(Command::RadioSend);
    ask.cancelExchange = true;
    ask.during("cancel exchange", [this] { end(Task::Send, true); });
    EXPECT_TRUE(program->mayClose());
    EXPECT_EQ(notes(),
              (Notes{"ask cancel exchange", "window arrow", "control enable commands", "control leave edits"}));
}

TEST_F(ClosingAnExchange, ThatEndsInsideTheQuestionStaysOnNo) {
    begin(Command::RadioSend);
    ask.during("cancel exchange", [this] { end(Task::Send, true); });
    EXPECT_FALSE(program->mayClose());
    runLater();
    EXPECT_EQ(journal.count("window close later"), 0);
}

TEST_F(ClosingAnExchange, AsksAlsoAboutWhatSomebodyElseHasBegun) {
    link.running = true;
    EXPECT_FALSE(program->mayClose());
    EXPECT_EQ(notes(), Notes{"ask cancel exchange"});
}

TEST_F(ClosingAnExchange, AQuestionHowTheRadioIsDoesNotKeepTheWindowOpen) {
    poll();
    ASSERT_TRUE(link.running);
    EXPECT_TRUE(program->mayClose());
}

TEST_F(ClosingAnExchange, TheEndOfTheSessionDoesNotAskAboutIt) {
    begin(Command::RadioSend);
    EXPECT_TRUE(program->mayEndSession());
    EXPECT_EQ(notes(), Notes{"control leave edits"});
}

}  // namespace telvar::tests
