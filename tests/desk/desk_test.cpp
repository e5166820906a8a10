// How the program begins, the radio's connection and faults, and what is told of failures.
#include "desk_world.h"

#include "desk/paths.h"
#include "desk/sentences.h"

namespace telvar::tests {

using namespace desk;

struct Begin : DeskWorld {
    static constexpr char stateFile[] = "link state file: C:\\Users\\me\\Telvar\\simulated-radio.telvar-radio";

    std::function<void()> joining = [this] { journal.note("join"); };

    // As begin(), and all that is noted.
    Notes beginning(const std::string& file = {}) {
        program = std::make_unique<Desk>(
            World{.store = store, .control = control, .link = link, .window = window, .system = system}, settings,
            hasher);
        forget();
        program->begin([this] { joining(); }, file);
        return notes();
    }
};

TEST_F(Begin, IsANewTableShownAtTheLevelInForce) {
    EXPECT_EQ(beginning(), (Notes{stateFile, "join", "control access: Everything", "store new", "control refresh",
                                  "control access: Everything", "store count channels", "control show top"}));
    EXPECT_EQ(line.level, "Everything");
    EXPECT_EQ(line.messages, Notes{"New channel table"});
    EXPECT_EQ(line.channels, "2 channels");
    EXPECT_EQ(window.title, "Telvar");
}

TEST_F(Begin, JoinsInsideACallSoThatNoCommandRunsMeanwhile) {
    joining = [this] {
        EXPECT_FALSE(program->allowed(Command::New));
        EXPECT_FALSE(program->mayClose());
    };
    beginning();
    EXPECT_TRUE(program->allowed(Command::New));
}

TEST_F(Begin, AJoinThatFailsGoesThrough) {
    joining = [] { throw base::Failure("They do not fit"); };
    EXPECT_THROW(beginning(), base::Failure);
    EXPECT_EQ(notes(), Notes{stateFile});
}

TEST_F(Begin, OpensTheFileThatItIsGiven) {
    const Notes all = beginning("C:\\a.telvar");
    EXPECT_EQ(std::ranges::count(all, "store new"), 1);
    EXPECT_EQ(std::ranges::count(all, "store open: C:\\a.telvar"), 1);
    EXPECT_EQ(line.message(), "C:\\a.telvar");
    EXPECT_EQ(settings.list("RecentFiles"), Notes{"C:\\a.telvar"});
}

TEST_F(Begin, AFileThatCannotBeOpenedLeavesANewTable) {
    store.fails("open", "It cannot be found");
    settings.setList("RecentFiles", {"C:\\a.telvar"});
    const Notes all = beginning("C:\\a.telvar");
    EXPECT_EQ(std::ranges::count(all, "ask tell: It cannot be found."), 1);
    EXPECT_EQ(line.message(), "New channel table");
    EXPECT_EQ(settings.list("RecentFiles"), Notes());
}

TEST_F(Begin, AStoreThatMakesNoTableIsToldAndTheFileIsStillOpened) {
    store.fails("new", "There is no memory");
    const Notes all = beginning("C:\\a.telvar");
    EXPECT_EQ(std::ranges::count(all, "ask tell: There is no memory."), 1);
    EXPECT_EQ(store.file, "C:\\a.telvar");
}

TEST_F(Begin, ReachesTheRadioThatIsRemembered) {
    settings.setText("RadioConnection", "tcp:10.0.0.1:4001");
    settings.setText("SimulatedRadioFile", "D:\\radio");
    const Notes all = beginning();
    EXPECT_EQ(all[0], "link state file: D:\\radio");
    EXPECT_EQ(all[1], "link connect: tcp:10.0.0.1:4001");
}

TEST_F(Begin, AnEmptyFileOfTheSimulatedRadioIsAChoice) {
    settings.setText("SimulatedRadioFile", "");
    EXPECT_EQ(beginning()[0], "link state file");
    settings.remove("SimulatedRadioFile");
    system.user.clear();
    EXPECT_EQ(beginning()[0], "link state file");
}

TEST_F(Begin, WhatTheLinkRefusesIsTold) {
    settings.setText("RadioConnection", "nonsense");
    link.fails("state file", "The folder is missing");
    link.fails("connect", "\"nonsense\" is no radio");
    const Notes all = beginning();
    EXPECT_EQ(std::ranges::count(all, "ask tell: The folder is missing."), 1);
    EXPECT_EQ(std::ranges::count(all, "ask tell: \"nonsense\" is no radio."), 1);
    EXPECT_EQ(std::ranges::count(all, "store new"), 1);
}

TEST_F(Begin, WithoutALinkNothingIsAskedOfIt) {
    link.there = false;
    settings.setText("RadioConnection", "tcp:10.0.0.1:4001");
    EXPECT_EQ(beginning()[0], "join");
    poll(3);
    EXPECT_EQ(notesOf({"link"}), Notes());
    EXPECT_TRUE(program->mayClose());
}

TEST_F(Begin, ClosingTheEditFormGoesBackToTheTable) {
    program->editWindowClosed();
    EXPECT_EQ(notes(), Notes{"control focus"});
}

struct Connections : DeskWorld {};

TEST_F(Connections, AChoiceIsTakenRememberedAndTold) {
    link.trace = "C:\\old.txt";
    program->statusReported(false, "Nobody answers.");
    ask.connection = Connection{.address = "tcp:10.0.0.1:4001", .trace = ""};
    run(Command::RadioConnection);
    EXPECT_EQ(notes(), (Notes{"ask connection: simulated|C:\\old.txt|Nobody answers.",
                              "link connect: tcp:10.0.0.1:4001", "link trace", "control access: Everything"}));
    EXPECT_EQ(settings.text("RadioConnection"), "tcp:10.0.0.1:4001");
    EXPECT_EQ(line.messages, Notes{"The radio is now at tcp:10.0.0.1:4001."});
}

TEST_F(Connections, AChoiceThatCannotBeRememberedLastsUntilTheEnd) {
    settings.keeps = false;
    ask.connection = Connection{.address = "tcp:10.0.0.1:4001", .trace = ""};
    run(Command::RadioConnection);
    EXPECT_EQ(line.messages, Notes{"The radio is now at tcp:10.0.0.1:4001, until the program ends."});
}

TEST_F(Connections, ARefusedChoiceChangesNothing) {
    link.fails("connect", "\"x\" is no radio");
    ask.connection = Connection{.address = "x", .trace = "C:\\trace.txt"};
    run(Command::RadioConnection);
    EXPECT_EQ(ask.refused, "\"x\" is no radio");
    EXPECT_EQ(notesOf({"link trace", "control", "ask tell"}), Notes());
    EXPECT_EQ(line.messages, Notes());
    EXPECT_FALSE(settings.has("RadioConnection"));
}

TEST_F(Connections, ACancelledChoiceChangesNothing) {
    run(Command::RadioConnection);
    run(Command::RadioFaults);
    EXPECT_EQ(notes(), (Notes{"ask connection: simulated||", "ask faults: none"}));
    EXPECT_EQ(ask.offeredFaults, (std::vector<std::string>{"silence", "echo"}));
    EXPECT_EQ(line.messages, Notes());
    EXPECT_FALSE(settings.has("RadioConnection"));
}

TEST_F(Connections, AFaultOfTheSimulatedRadioIsTakenAndTold) {
    ask.faults = "drop@12";
    run(Command::RadioFaults);
    EXPECT_EQ(notes(), (Notes{"ask faults: none", "link faults: drop@12"}));
    EXPECT_EQ(line.messages, Notes{"Fault of the simulated radio: drop@12"});
    link.fails("faults", "\"laziness\" is not a fault of the simulated radio");
    ask.faults = "laziness";
    run(Command::RadioFaults);
    EXPECT_EQ(ask.refused, "\"laziness\" is not a fault of the simulated radio");
    EXPECT_EQ(line.messages.size(), 1U);
}

TEST(Sentences, EndWithOneFullStop) {
    struct Case {
        const char* description;
        const char* sentence;
    };
    for (const Case& each : {Case{"The disk is full", "The disk is full."},
                             Case{"The disk is full.", "The disk is full."}, Case{"Really?", "Really?"},
                             Case{"No!", "No!"}, Case{"Wait:", "Wait:."}, Case{"", "The program ran out of memory."}}) {
        EXPECT_EQ(sentenceFor(base::Failure(each.description)), each.sentence);
    }
    EXPECT_EQ(sentenceFor(std::bad_alloc()), "The program ran out of memory.");
    EXPECT_EQ(sentenceFor(base::SubscriptFailure()), "Subscript out of range.");
}

TEST(Paths, ArePartedByBothSlashes) {
    struct Case {
        const char* path;
        const char* name;
        char separator;
        const char* withoutExtension;
    };
    for (const Case& each :
         {Case{"C:\\tables\\marine.telvar", "marine.telvar", '\\', "C:\\tables\\marine"},
          Case{"/home/me/marine.telvar", "marine.telvar", '/', "/home/me/marine"},
          Case{"C:\\a/b.c.d", "b.c.d", '/', "C:\\a/b.c"}, Case{"marine", "marine", '\\', "marine"},
          Case{"C:\\v1.2\\marine", "marine", '\\', "C:\\v1.2\\marine"}, Case{"C:\\tables\\", "", '\\', "C:\\tables\\"},
          Case{"", "", '\\', ""}, Case{"a.b", "a.b", '\\', "a"}, Case{"/.hidden", ".hidden", '/', "/"}}) {
        EXPECT_EQ(fileNameOf(each.path), each.name);
        EXPECT_EQ(separatorOf(each.path), each.separator) << each.path;
        EXPECT_EQ(withoutExtension(each.path), each.withoutExtension);
    }
}

TEST(SettingValues, HaveTheirNamesAndWhatHoldsWhereNothingIsRemembered) {
    FakeSettings settings;
    EXPECT_EQ(setting::left.in(settings), 0);
    EXPECT_FALSE(setting::maximised.in(settings));
    EXPECT_TRUE(setting::statusBar.in(settings));
    EXPECT_EQ(setting::recentFiles.in(settings), Notes());
    EXPECT_EQ(setting::radioConnection.in(settings), std::nullopt);
    EXPECT_FALSE(setting::printLandscape.in(settings));
    EXPECT_FALSE(setting::printOnlyInUse.in(settings));
    for (const auto& [name, value] :
         std::map<std::string_view, std::string_view>{{setting::left.name, "Left"},
                                                      {setting::top.name, "Top"},
                                                      {setting::width.name, "Width"},
                                                      {setting::height.name, "Height"},
                                                      {setting::maximised.name, "Maximised"},
                                                      {setting::statusBar.name, "StatusBar"},
                                                      {setting::recentFiles.name, "RecentFiles"},
                                                      {setting::radioConnection.name, "RadioConnection"},
                                                      {setting::simulatedRadioFile.name, "SimulatedRadioFile"},
                                                      {setting::editPassword.name, "Password3"},
                                                      {setting::everythingPassword.name, "Password5"},
                                                      {setting::printSheet.name, "PrintSheet"},
                                                      {setting::printSheetWidth.name, "PrintSheetWidth"},
                                                      {setting::printSheetHeight.name, "PrintSheetHeight"},
                                                      {setting::printLandscape.name, "PrintLandscape"},
                                                      {setting::printOnlyInUse.name, "PrintOnlyInUse"},
                                                      {setting::printMarginLeft.name, "PrintMarginLeft"},
                                                      {setting::printMarginTop.name, "PrintMarginTop"},
                                                      {setting::printMarginRight.name, "PrintMarginRight"},
                                                      {setting::printMarginBottom.name, "PrintMarginBottom"}}) {
        EXPECT_EQ(name, value);
    }
}

TEST(SettingValues, AreReadAndOfAnotherKindAreNone) {
    FakeSettings settings;
    settings.setNumber("Left", -12);
    settings.setNumber("StatusBar", 0);
    settings.setText("RadioConnection", "");
    EXPECT_EQ(setting::left.in(settings), -12);
    EXPECT_FALSE(setting::statusBar.in(settings));
    EXPECT_EQ(setting::radioConnection.in(settings), "");
    settings.setText("StatusBar", "0");
    settings.setNumber("RadioConnection", 1);
    settings.setText("RecentFiles", "C:\\a");
    EXPECT_TRUE(setting::statusBar.in(settings));
    EXPECT_EQ(setting::radioConnection.in(settings), std::nullopt);
    EXPECT_EQ(setting::recentFiles.in(settings), Notes());
    setting::maximised.put(settings, true);
    EXPECT_EQ(settings.number("Maximised"), 1);
    setting::maximised.put(settings, false);
    EXPECT_EQ(settings.number("Maximised"), 0);
}

TEST_F(Begin, ALinkThatFailsWhenACommandAsksItIsTold) {
    link.fails("connection", "The link is gone");
    run(Command::RadioFaults);
    EXPECT_EQ(notesOf({"ask"}), Notes{"ask tell: The link is gone."});
}

TEST_F(Begin, AStoreThatCannotSayWhetherItHoldsChangesIsToldAndLetsTheWindowClose) {
    store.fails("modified", "The store is gone");
    EXPECT_TRUE(program->mayClose());
    EXPECT_EQ(notesOf({"ask"}), Notes{"ask tell: The store is gone."});
}

}  // namespace telvar::tests
