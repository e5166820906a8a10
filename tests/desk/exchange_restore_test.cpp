// Restoring what the radio held before: what is asked first, the wait for the link, and showing the restored table.
#include "exchange_world.h"

namespace telvar::tests {

using namespace desk;

struct Restoring : ExchangeWorld {
    const Notes asked{"ask backup: 2 in D:\\backups", std::string("ask restore: ") + newest};
    const Notes taken{"window hourglass", "control disable commands"};
    static constexpr char locked[] = "ask tell: Data is locked, so the restored table could not be shown here. Clear "
                                     "'Lock Data', or restore without "
                                     "showing it.";

    [[nodiscard]] static Notes together(std::initializer_list<Notes> parts) {
        Notes all;
        for (const Notes& part : parts) {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
    }
    const Notes begun{std::string("link restore: ") + newest};
};

TEST_F(Restoring, AsksWhichOneAndWhetherTheRadioMayBeOverwritten) {
    restore(false);
    EXPECT_EQ(notes(), together({asked, taken, begun}));
    EXPECT_FALSE(idle());
    EXPECT_TRUE(cancelOffered());
    EXPECT_TRUE(window.hourglass);
}

TEST_F(Restoring, ShowsItsProgress) {
    restore(false);
    program->linkProgressed(42);
    EXPECT_EQ(line.messages, Notes{"Restoring the radio's table: 42 %"});
    EXPECT_EQ(line.percents, std::vector{42});
}

TEST_F(Restoring, MayBeCancelledInEachQuestion) {
    offerBackups();
    ask.backup.reset();
    run(Command::RadioRestore);
    EXPECT_EQ(notes(), Notes{"ask backup: 2 in D:\\backups"});
    ask.backup = 1;
    ask.restore = false;
    run(Command::RadioRestore);
    EXPECT_EQ(notes(), (Notes{"ask backup: 2 in D:\\backups",
                              "ask restore: D:\\backups\\radio 2023-12-31 23.59.59.telvar-radio"}));
    EXPECT_TRUE(idle());
    EXPECT_FALSE(window.hourglass);
}

TEST_F(Restoring, LooksWhereLinksKeepThemThatWereToldNoFolder) {
    run(Command::RadioRestore);
    EXPECT_EQ(notes(), Notes{"ask backup: 0 in C:\\Users\\me\\Telvar\\radio-backups"});
    system.user.clear();
    run(Command::RadioRestore);
    EXPECT_EQ(notes(), Notes{"ask backup: 0 in "});
}

TEST_F(Restoring, ALinkThatDoesNotTellItsFolderIsTold) {
    link.fails("backup folder", "It does not answer");
    run(Command::RadioRestore);
    EXPECT_EQ(notes(), Notes{"ask tell: It does not answer."});
    EXPECT_TRUE(idle());
}

TEST_F(Restoring, ALockedTableIsToldBeforeAnythingIsSent) {
    control.locked = true;
    restore(true);
    EXPECT_EQ(notes(), (Notes{"ask backup: 2 in D:\\backups", locked}));
    EXPECT_TRUE(idle());
}

TEST_F(Restoring, ALockedTableDoesNotKeepTheRadioFromItsOwn) {
    control.locked = true;
    restore(false);
    EXPECT_EQ(notes(), together({asked, taken, begun}));
}

TEST_F(Restoring, UnsavedChangesAreAskedAboutBeforeAnythingIsSent) {
    store.dirty = true;
    restore(true);
    const Notes question{"control leave edits", "ask save: the new channel table"};
    EXPECT_EQ(notes(), together({asked, question}));
    EXPECT_TRUE(idle());
    ask.save = SaveAnswer::DontSave;
    restore(true);
    EXPECT_EQ(notes(), together({asked, question, taken, begun}));
}

TEST_F(Restoring, UnsavedChangesStayWhereTheTableIsNotShown) {
    store.dirty = true;
    restore(false);
    EXPECT_EQ(notes(), together({asked, taken, begun}));
}

TEST_F(Restoring, AWindowThatGoesInsideTheQuestionRestoresNothing) {
    ask.during("restore", [this] { window.isOpen = false; });
    restore(true);
    EXPECT_EQ(notes(), asked);
}

TEST_F(Restoring, ARefusedOneIsToldAndGivesEverythingBack) {
    link.fails("restore", "The file is damaged");
    restore(true);
    EXPECT_EQ(notes(),
              together({asked, {"control leave edits"}, taken, begun, {"ask tell: The file is damaged."}, given}));
    EXPECT_TRUE(idle());
    EXPECT_FALSE(cancelOffered());
    runLater();
    program->goOn();
    EXPECT_EQ(notesOf({"control load"}), Notes());
}

// ---- the link still asks how the radio is

TEST_F(Restoring, WaitsForTheAnswerHowTheRadioIs) {
    restoreBehindStatus(false);
    EXPECT_EQ(journal.count(begun.front()), 0);
    EXPECT_TRUE(window.hourglass);
    EXPECT_FALSE(idle());
    EXPECT_TRUE(cancelOffered());
    program->goOn();
    EXPECT_EQ(journal.count(begun.front()), 0);
    answerStatus();
    // Not inside the link's event.
    EXPECT_EQ(journal.count(begun.front()), 0);
    forget();
    runLater();
    EXPECT_EQ(notes(), begun);
    expectNothingGivenBack();
}

TEST_F(Restoring, BeginsWhateverElseIsUnderWayOnceTheLinkIsFree) {
    restoreBehindStatus(false);
    answerStatus(false);
    whileModal([this] { runLater(); });
    EXPECT_EQ(journal.count(begun.front()), 1);
}

TEST_F(Restoring, OnlyAWaitingOneIsWokenByTheAnswer) {
    poll();
    answerStatus();
    EXPECT_FALSE(window.wanted);
}

TEST_F(Restoring, CancellingTheWaitBeginsNothing) {
    restoreBehindStatus(true);
    forget();
    cancel();
    EXPECT_EQ(notes(), given);
    EXPECT_EQ(line.messages, Notes{cancelled});
    EXPECT_TRUE(idle());
    EXPECT_FALSE(cancelOffered());
    answerStatus();
    runLater();
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Restoring, IsNotGivenBackByTheEndOfAnotherWhileItWaits) {
    restoreBehindStatus(true);
    forget();
    program->exchangeEnded(Task::ChannelSelection, true, "");
    expectNothingGivenBack();
    answerStatus();
    runLater();
    EXPECT_EQ(journal.count(begun.front()), 1);
    end(Task::Restore, true);
    runLater();
    // It is still to be shown.
    EXPECT_EQ(journal.count("control load"), 1);
    EXPECT_EQ(journal.count("control follow radio"), 1);
}

TEST_F(Restoring, AWaitDoesNotKeepTheWindowOpen) {
    restoreBehindStatus(true);
    EXPECT_TRUE(program->mayClose());
}

// ---- its end

TEST_F(Restoring, ASuccessShowsTheRestoredTableByALoad) {
    restore(true);
    forget();
    end(Task::Restore, true, "The radio holds the table.");
    EXPECT_EQ(notes(), given);
    EXPECT_EQ(line.messages, Notes{"The radio holds the table."});
    linkTakesOver();
    runLater();
    EXPECT_EQ(notes(), (Notes{"control leave edits", "control load"}));
    program->linkProgressed(42);
    EXPECT_EQ(line.message(), "Loading from the radio: 42 %");
    end(Task::Load, true);
    forget();
    runLater();
    EXPECT_EQ(journal.count("control refresh"), 1);
    EXPECT_EQ(journal.count("control load"), 0);
}

TEST_F(Restoring, ASuccessIsNotShownWhereThatIsNotWanted) {
    restore(false);
    end(Task::Restore, true);
    forget();
    runLater();
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Restoring, AFailureIsToldAndNothingIsShown) {
    restore(true);
    end(Task::Restore, false, "The radio is silent.");
    expectGivenBackOnce();
    forget();
    runLater();
    EXPECT_EQ(notes(), Notes{"ask tell: The radio is silent."});
    end(Task::ChannelSelection, true);
    runLater();
    EXPECT_EQ(journal.count("control load"), 0);
}

TEST_F(Restoring, ACancelledOneIsNotShown) {
    restore(true);
    forget();
    cancel();
    EXPECT_EQ(notes(), Notes{"link abort"});
    end(Task::Restore, false);
    EXPECT_EQ(line.message(), cancelled);
    forget();
    runLater();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Restoring, WhatWasDoneMeanwhileIsAskedAboutBeforeItIsReplaced) {
    restore(true);
    store.dirty = true;
    end(Task::Restore, true);
    forget();
    runLater();
    EXPECT_EQ(notes(), (Notes{"control leave edits", "ask save: the new channel table"}));
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Restoring, ATableThatWasLockedMeanwhileIsLeftToTheControlToRefuse) {
    restore(true);
    store.dirty = true;
    control.locked = true;
    end(Task::Restore, true);
    forget();
    runLater();
    EXPECT_EQ(notes(), together({{"control load"}, given}));
}

TEST_F(Restoring, ShowingWaitsWhileSomethingModalIsOpen) {
    restore(true);
    end(Task::Restore, true);
    forget();
    whileModal([this] { program->goOn(); });
    EXPECT_EQ(notes(), Notes());
    program->goOn();
    EXPECT_EQ(journal.count("control load"), 1);
}

TEST_F(Restoring, ShowingSurvivesTheEndOfSomebodyElsesExchange) {
    restore(true);
    end(Task::Restore, true);
    whileModal([this] {
        end(Task::Levels, true);
        end(Task::ChannelSelection, false, "There is no channel 300.");
    });
    forget();
    runLater();
    EXPECT_EQ(journal.count("control load"), 1);
}

// The radio holds what was sent since.
TEST_F(Restoring, ShowingIsForgottenWithTheNextExchange) {
    restore(true);
    end(Task::Restore, true);
    begin(Command::RadioSend);
    end(Task::Send, true);
    runLater();
    EXPECT_EQ(journal.count("control load"), 0);
}

TEST_F(Restoring, IsNotShownInAWindowThatCloses) {
    restore(true);
    ask.cancelExchange = true;
    EXPECT_FALSE(program->mayClose());
    end(Task::Restore, true);
    forget();
    runLater();
    EXPECT_EQ(notes(), Notes{"window close later"});
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Restoring, ANewOneForgetsTheCancellationOfTheLast) {
    restore(false);
    cancel();
    end(Task::Restore, false);
    restore(false);
    forget();
    end(Task::Restore, true);
    EXPECT_EQ(line.messages, Notes());
}

}  // namespace telvar::tests
