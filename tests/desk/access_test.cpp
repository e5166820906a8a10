// Levels and their passwords, and who is logged in.
#include "desk_world.h"

namespace telvar::tests {

using namespace desk;
using enum AccessLevel;

struct AccessLevels : testing::Test {
    FakeSettings settings;
    FakeHasher hasher;

    [[nodiscard]] Access access() { return {settings, hasher}; }
    void protect(AccessLevel level) { access().setPassword(level, "secret"); }
};

TEST_F(AccessLevels, BeginAtTheHighestWithoutAPassword) {
    EXPECT_EQ(access().level(), Everything);
    protect(Everything);
    EXPECT_EQ(access().level(), EditChannels);
    protect(EditChannels);
    EXPECT_EQ(access().level(), View);
    access().setPassword(Everything, "");
    EXPECT_EQ(access().level(), Everything);
}

TEST_F(AccessLevels, HaveNamesAndNumbersThatTheControlKnows) {
    EXPECT_EQ(nameOf(View), "View");
    EXPECT_EQ(nameOf(EditChannels), "Edit channels");
    EXPECT_EQ(nameOf(Everything), "Everything");
    EXPECT_EQ(nameOf(static_cast<AccessLevel>(4)), "");
    EXPECT_EQ(static_cast<int>(View), 0);
    EXPECT_EQ(static_cast<int>(EditChannels), 3);
    EXPECT_EQ(static_cast<int>(Everything), 5);
}

TEST_F(AccessLevels, TheNextAboveIsSuggested) {
    EXPECT_EQ(levelAbove(View), EditChannels);
    EXPECT_EQ(levelAbove(EditChannels), Everything);
    EXPECT_EQ(levelAbove(Everything), Everything);
}

TEST_F(AccessLevels, AreAdmittedByTheirPasswordAlone) {
    protect(Everything);
    const Access access = this->access();
    EXPECT_TRUE(access.admits(Everything, "secret"));
    EXPECT_FALSE(access.admits(Everything, "Secret"));
    EXPECT_FALSE(access.admits(Everything, ""));
    EXPECT_TRUE(access.admits(EditChannels, "whatever"));
}

TEST_F(AccessLevels, EachHasAPasswordOfItsOwnAsAHash) {
    access().setPassword(Everything, "high");
    access().setPassword(EditChannels, "low");
    EXPECT_TRUE(access().admits(Everything, "high"));
    EXPECT_FALSE(access().admits(Everything, "low"));
    EXPECT_TRUE(access().admits(EditChannels, "low"));
    EXPECT_EQ(settings.text("Password5"), "hash of high");
    EXPECT_EQ(settings.text("Password3"), "hash of low");
}

TEST_F(AccessLevels, ViewNeverNeedsOne) {
    settings.setText("Password0", "hash of x");
    EXPECT_FALSE(access().needsPassword(View));
    EXPECT_TRUE(access().admits(View, ""));
}

TEST_F(AccessLevels, WhatIsThereButNoTextOpensNothing) {
    settings.setNumber("Password5", 1);
    EXPECT_TRUE(access().needsPassword(Everything));
    EXPECT_FALSE(access().admits(Everything, ""));
    EXPECT_EQ(access().level(), EditChannels);
}

TEST_F(AccessLevels, AnEmptyPasswordTakesItAway) {
    protect(Everything);
    access().setPassword(Everything, "");
    EXPECT_FALSE(access().needsPassword(Everything));
    EXPECT_FALSE(settings.has("Password5"));
}

TEST_F(AccessLevels, APasswordThatIsNotKeptOrNotTakenAwayFails) {
    Access access = this->access();
    settings.keeps = false;
    EXPECT_THROW(access.setPassword(Everything, "secret"), base::Failure);
    settings.keeps = true;
    access.setPassword(Everything, "secret");
    settings.keeps = false;
    try {
        access.setPassword(Everything, "");
        FAIL() << "it was told as taken away";
    } catch (const base::Failure& failure) {
        EXPECT_EQ(failure.description(), "The password could not be kept in the settings");
    }
    EXPECT_TRUE(access.needsPassword(Everything));
}

TEST_F(AccessLevels, WithoutCryptographyNothingIsProtectedAndNobodyAdmitted) {
    protect(Everything);
    hasher.works = false;
    Access access = this->access();
    EXPECT_THROW((void)access.admits(Everything, "secret"), base::Failure);
    EXPECT_THROW(access.setPassword(EditChannels, "secret"), base::Failure);
    EXPECT_FALSE(access.needsPassword(EditChannels));
    // Whoever knows no password needs none of it.
    EXPECT_TRUE(access.admits(EditChannels, ""));
}

TEST_F(AccessLevels, APasswordForLessThanEverythingWouldProtectNothing) {
    constexpr std::string_view first = "Set a password for the level Everything first; everybody can enter it now.";
    constexpr std::string_view last = "Remove the password of the level Edit channels first.";
    struct Case {
        const char* what;
        AccessLevel level;
        bool removing;
        std::string_view withNone;
        std::string_view withEverything;
        std::string_view withBoth;
    };
    for (const Case& each :
         {Case{"set edit", EditChannels, false, first, "", ""}, Case{"remove edit", EditChannels, true, "", "", ""},
          Case{"set everything", Everything, false, "", "", ""},
          Case{"remove everything", Everything, true, "", "", last}}) {
        settings.values.clear();
        EXPECT_EQ(access().gapLeftBy(each.level, each.removing), each.withNone) << each.what;
        protect(Everything);
        EXPECT_EQ(access().gapLeftBy(each.level, each.removing), each.withEverything) << each.what;
        protect(EditChannels);
        EXPECT_EQ(access().gapLeftBy(each.level, each.removing), each.withBoth) << each.what;
    }
}

// ---- logins

struct LoginWorld : DeskWorld {
    void logInAs(AccessLevel level) {
        ask.login = level;
        run(Command::LogIn);
        ask.login.reset();
        forget();
    }
};

TEST_F(LoginWorld, EnteringALevelIsShownByTheControlAndInTheLine) {
    store.file = "C:\\a.telvar";
    ask.login = EditChannels;
    run(Command::LogIn);
    EXPECT_EQ(notes(), (Notes{"ask login: Choose the level that you want to work at. Everything",
                              "control access: Edit channels"}));
    EXPECT_EQ(line.level, "Edit channels");
    EXPECT_EQ(line.messages, Notes{"C:\\a.telvar"});
}

TEST_F(LoginWorld, TheLevelAboveThePresentIsSuggested) {
    run(Command::LogOut);
    forget();
    run(Command::LogIn);
    EXPECT_EQ(notes(), Notes{"ask login: Choose the level that you want to work at. Edit channels"});
    logInAs(EditChannels);
    run(Command::LogIn);
    EXPECT_EQ(notes(), Notes{"ask login: Choose the level that you want to work at. Everything"});
    EXPECT_EQ(line.level, "Edit channels");
}

TEST_F(LoginWorld, LoggingOutLeavesView) {
    run(Command::LogOut);
    EXPECT_EQ(notes(), Notes{"control access: View"});
    EXPECT_EQ(line.level, "View");
    EXPECT_FALSE(program->allowed(Command::LogOut));
}

TEST_F(LoginWorld, AControlThatDoesNotTakeTheLevelIsTold) {
    control.fails("access", "It is deaf");
    run(Command::LogOut);
    EXPECT_EQ(notes(), (Notes{"control access: View", "ask tell: It is deaf."}));
}

TEST_F(LoginWorld, AFillThatNeedsALoginFillsAfterIt) {
    logInAs(View);
    program->loginWanted(Logins::Reason::Fill);
    EXPECT_EQ(notes(), Notes());
    ask.login = EditChannels;
    runLater();
    EXPECT_EQ(notes(), (Notes{"ask login: Filling channels needs the level Edit channels. Edit channels",
                              "control access: Edit channels", "control fill"}));
    program->goOn();
    EXPECT_EQ(notes(), Notes());
}

TEST_F(LoginWorld, AFillIsNotDoneAtALevelThatIsTooLow) {
    program->loginWanted(Logins::Reason::Fill);
    ask.login = View;
    runLater();
    EXPECT_EQ(journal.count("control access: View"), 1);
    EXPECT_EQ(journal.count("control fill"), 0);
}

TEST_F(LoginWorld, AFillIsNotDoneWithoutTheLogin) {
    program->loginWanted(Logins::Reason::Fill);
    runLater();
    EXPECT_EQ(notes(), Notes{"ask login: Filling channels needs the level Edit channels. Edit channels"});
}

TEST_F(LoginWorld, AFillIsNotDoneByAControlThatDoesNotTakeTheLevel) {
    program->loginWanted(Logins::Reason::Fill);
    ask.login = EditChannels;
    control.fails("access", "It is deaf");
    runLater();
    EXPECT_EQ(journal.count("control fill"), 0);
    EXPECT_EQ(journal.count("ask tell: It is deaf."), 1);
}

TEST_F(LoginWorld, AFillThatFailsIsTold) {
    program->loginWanted(Logins::Reason::Fill);
    ask.login = Everything;
    control.fails("fill", "It is empty");
    runLater();
    EXPECT_EQ(notesOf({"control fill", "ask tell"}), (Notes{"control fill", "ask tell: It is empty."}));
}

TEST_F(LoginWorld, TheEditFormsLoginSuggestsTheLevelAboveAndCallsNothingElse) {
    logInAs(EditChannels);
    program->loginWanted(Logins::Reason::Edit);
    ask.login = Everything;
    runLater();
    EXPECT_EQ(notes(), (Notes{"ask login: This part of the edit form needs a higher level. Everything",
                              "control access: Everything"}));
    logInAs(View);
    program->loginWanted(Logins::Reason::Edit);
    runLater();
    EXPECT_EQ(notes(), Notes{"ask login: This part of the edit form needs a higher level. Edit channels"});
}

TEST_F(LoginWorld, AWantedLoginWaitsWhileSomethingElseIsUnderWay) {
    control.during("edit channel", [this] {
        program->loginWanted(Logins::Reason::Edit);
        program->goOn();
    });
    run(Command::EditChannel);
    whileModal([this] { program->goOn(); });
    program->commandsAllowed(false);
    program->goOn();
    program->commandsAllowed(true);
    EXPECT_EQ(notesOf({"ask"}), Notes());
    program->goOn();
    EXPECT_EQ(notesOf({"ask"}).size(), 1U);
}

TEST_F(LoginWorld, TheLastWantedLoginIsAsked) {
    program->loginWanted(Logins::Reason::Edit);
    program->loginWanted(Logins::Reason::Fill);
    runLater();
    EXPECT_EQ(notes(), Notes{"ask login: Filling channels needs the level Edit channels. Edit channels"});
}

TEST_F(LoginWorld, PasswordsAreToldByTheirLevel) {
    ask.passwords = [](Access& access) {
        access.setPassword(Everything, "secret");
        return Everything;
    };
    run(Command::SetPasswords);
    EXPECT_EQ(line.messages, Notes{"The level Everything has a new password."});
    ask.passwords = [](Access& access) {
        access.setPassword(Everything, "");
        return Everything;
    };
    run(Command::SetPasswords);
    EXPECT_EQ(line.message(), "The level Everything needs no password.");
    ask.passwords = nullptr;
    forget();
    run(Command::SetPasswords);
    EXPECT_EQ(line.messages, Notes());
}

TEST_F(LoginWorld, APasswordHoldsFromTheNextRun) {
    ask.passwords = [](Access& access) {
        access.setPassword(Everything, "secret");
        return Everything;
    };
    run(Command::SetPasswords);
    EXPECT_EQ(line.level, "Everything");
    begin();
    EXPECT_EQ(line.level, "Edit channels");
    EXPECT_FALSE(program->allowed(Command::SetPasswords));
}

}  // namespace telvar::tests
