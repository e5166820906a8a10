// When each command is allowed, and what it does.
#include <map>

#include "desk_world.h"

namespace telvar::tests {

using namespace desk;

namespace {

const char newTable[] = "C:\\tables\\marine.telvar";

// The columns of `allowed` below.
struct Situation {
    const char* what;
    void (*enter)(DeskWorld&, const std::function<void()>& look);
};

void nothingToEdit(DeskWorld& world) {
    for (const auto action : {EditAction::Undo, EditAction::Redo, EditAction::Copy, EditAction::Paste,
                              EditAction::Delete, EditAction::SelectAll}) {
        world.control.disabled[action] = true;
    }
}

void logInAs(DeskWorld& world, AccessLevel level) {
    world.ask.login = level;
    world.run(Command::LogIn);
    world.ask.login.reset();
}

const Situation situations[] = {
    {"idle", [](DeskWorld&, const std::function<void()>& look) { look(); }},
    {"a question is open",
     [](DeskWorld& world, const std::function<void()>& look) {
         world.ask.during("about", look);
         world.run(Command::About);
     }},
    {"something modal of the control's is open",
     [](DeskWorld& world, const std::function<void()>& look) { world.whileModal(look); }},
    {"inside a call of the control",
     [](DeskWorld& world, const std::function<void()>& look) {
         world.control.during("edit channel", look);
         world.run(Command::EditChannel);
     }},
    {"the control has taken the commands away",
     [](DeskWorld& world, const std::function<void()>& look) {
         world.program->commandsAllowed(false);
         look();
         world.program->commandsAllowed(true);
     }},
    {"without a link",
     [](DeskWorld& world, const std::function<void()>& look) {
         world.link.there = false;
         look();
     }},
    {"the radio is no simulated one",
     [](DeskWorld& world, const std::function<void()>& look) {
         world.link.address = "tcp:127.0.0.1:9";
         look();
     }},
    {"at the level View",
     [](DeskWorld& world, const std::function<void()>& look) {
         world.run(Command::LogOut);
         look();
     }},
    {"at the level Edit channels",
     [](DeskWorld& world, const std::function<void()>& look) {
         logInAs(world, AccessLevel::EditChannels);
         look();
     }},
    {"the control has nothing to edit",
     [](DeskWorld& world, const std::function<void()>& look) {
         nothingToEdit(world);
         look();
     }},
    {"the user types into a text box",
     [](DeskWorld& world, const std::function<void()>& look) {
         nothingToEdit(world);
         world.window.textBox = true;
         look();
     }},
    {"an exchange is under way that is none of ours",
     [](DeskWorld& world, const std::function<void()>& look) {
         world.link.running = true;
         look();
     }},
};

constexpr char acts[] = "y....yyyyyyy";
constexpr char edits[] = "y....yyyy.yy";
constexpr char fills[] = "y....yyyy..y";
constexpr char usesRadio[] = "y.....yyyyyy";

const std::map<Command, const char*> allowedIn{
    {Command::New, acts},
    {Command::Open, acts},
    {Command::Save, acts},
    {Command::SaveAs, acts},
    {Command::SaveHtml, acts},
    {Command::PageSetup, acts},
    {Command::PrintPreview, acts},
    {Command::Print, acts},
    {Command::RecentFirst, acts},
    {Command::Exit, "yyyyyyyyyyyy"},
    {Command::Undo, edits},
    {Command::Redo, edits},
    {Command::Copy, edits},
    {Command::Paste, edits},
    {Command::Delete, edits},
    {Command::FillDown, fills},
    {Command::FillSeries, fills},
    {Command::EditChannel, acts},
    {Command::SelectAll, edits},
    {Command::GoTo, acts},
    {Command::Refresh, acts},
    {Command::FocusTable, acts},
    {Command::StatusBar, acts},
    {Command::RadioSend, usesRadio},
    {Command::RadioLoad, usesRadio},
    {Command::RadioCancel, "...........y"},
    {Command::RadioRestore, usesRadio},
    {Command::RadioConnection, usesRadio},
    {Command::RadioFaults, "y......yyyyy"},
    {Command::LogIn, acts},
    {Command::LogOut, "y....yy.yyyy"},
    {Command::SetPasswords, "y....yy..yyy"},
    {Command::About, acts},
};

// What a command does in a world where everything is answered; parts of the journal in their order.
const std::map<Command, Notes> doneBy{
    {Command::New,
     {"control leave edits", "store new", "control refresh", "control access: Everything", "store count channels",
      "control show top"}},
    {Command::Open,
     {"control leave edits", "ask open path: C:\\tables\\marine.telvar", "store open: C:\\tables\\air.telvar",
      "control refresh", "control access: Everything", "store count channels", "control show top"}},
    {Command::Save, {"control leave edits", "store save"}},
    {Command::SaveAs,
     {"control leave edits", "ask save path: C:\\tables\\marine.telvar", "store save as: C:\\tables\\copy.telvar"}},
    {Command::SaveHtml, {"control print"}},
    {Command::PageSetup, {"ask page setup"}},
    {Command::PrintPreview, {"control print"}},
    {Command::Print, {"control print"}},
    {Command::RecentFirst,
     {"control leave edits", "store open: C:\\recent\\1.telvar", "control refresh", "control access: Everything",
      "store count channels", "control show top"}},
    {Command::Exit, {"window close later"}},
    {Command::Undo, {"control edit: undo"}},
    {Command::Redo, {"control edit: redo"}},
    {Command::Copy, {"control edit: copy"}},
    {Command::Paste, {"control edit: paste"}},
    {Command::Delete, {"control edit: delete"}},
    {Command::FillDown, {"control fill down"}},
    {Command::FillSeries, {"control fill series"}},
    {Command::EditChannel, {"control edit channel"}},
    {Command::SelectAll, {"control edit: select all"}},
    {Command::GoTo, {"ask channel: 12", "control go to: 7"}},
    {Command::Refresh, {"control refresh", "control access: Everything"}},
    {Command::FocusTable, {"control focus"}},
    {Command::StatusBar, {"window layout"}},
    {Command::RadioSend, {"control send", "window arrow", "control enable commands"}},
    {Command::RadioLoad, {"control leave edits", "control load", "window arrow", "control enable commands"}},
    {Command::RadioCancel, {"link abort"}},
    {Command::RadioRestore, {"ask backup: 0 in C:\\Users\\me\\Telvar\\radio-backups"}},
    {Command::RadioConnection,
     {"ask connection: simulated||It is fine.", "link connect: tcp:10.0.0.1:4001", "link trace: C:\\trace.txt",
      "control access: Everything"}},
    {Command::RadioFaults, {"ask faults: none", "link faults: silence"}},
    {Command::LogIn,
     {"ask login: Choose the level that you want to work at. Everything", "control access: Edit channels"}},
    {Command::LogOut, {"control access: View"}},
    {Command::SetPasswords, {"ask passwords"}},
    {Command::About, {"ask about"}},
};

struct Commands : DeskWorld {
    void answerEverything() {
        store.file = newTable;
        control.current = 12;
        ask.openPath = "C:\\tables\\air.telvar";
        ask.savePath = "C:\\tables\\copy.telvar";
        ask.channel = 7;
        ask.login = AccessLevel::EditChannels;
        ask.connection = Connection{.address = "tcp:10.0.0.1:4001", .trace = "C:\\trace.txt"};
        ask.faults = "silence";
        settings.setList("RecentFiles", {"C:\\recent\\1.telvar", "C:\\recent\\2.telvar"});
        program->statusReported(true, "It is fine.");
    }
};

}  // namespace

TEST(CommandSituations, AreAllTriedWithEveryCommand) {
    for (const CommandRow& row : commands()) {
        ASSERT_TRUE(allowedIn.contains(row.command)) << menuText(row);
        ASSERT_TRUE(doneBy.contains(row.command)) << menuText(row);
        EXPECT_EQ(std::string_view(allowedIn.at(row.command)).size(), std::size(situations)) << menuText(row);
    }
}

struct CommandIn : DeskWorld, testing::WithParamInterface<std::size_t> {};

TEST_P(CommandIn, IsAllowedAsTheTableSays) {
    int looked = 0;
    situations[GetParam()].enter(*this, [&] {
        ++looked;
        for (const auto& [command, letters] : allowedIn) {
            EXPECT_EQ(program->allowed(command), letters[GetParam()] == 'y')
                << menuText(*rowOf(command)) << ": " << situations[GetParam()].what;
        }
    });
    EXPECT_EQ(looked, 1);
}

TEST_P(CommandIn, DoesNothingWhereItIsNotAllowed) {
    situations[GetParam()].enter(*this, [&] {
        forget();
        const int writes = settings.writes;
        for (const auto& [command, letters] : allowedIn) {
            if (letters[GetParam()] == '.') {
                run(command);
                EXPECT_EQ(notes(), Notes()) << menuText(*rowOf(command)) << ": " << situations[GetParam()].what;
            }
        }
        EXPECT_EQ(line.messages, Notes());
        EXPECT_EQ(settings.writes, writes);
        EXPECT_TRUE(line.shown);
        EXPECT_FALSE(window.hourglass);
    });
}

INSTANTIATE_TEST_SUITE_P(Situations, CommandIn, testing::Range<std::size_t>(0, std::size(situations)));

TEST_F(Commands, EachDoesWhatItsRowSays) {
    for (const auto& [command, expected] : doneBy) {
        begin();
        answerEverything();
        link.running = command == Command::RadioCancel;
        link.address = "simulated";
        link.plan = "none";
        link.trace.clear();
        forget();
        run(command);
        EXPECT_EQ(notes(), expected) << menuText(*rowOf(command));
    }
}

TEST_F(Commands, EditsGoToTheTextBoxWhileTheUserTypesIntoIt) {
    window.textBox = true;
    for (const auto& [command, expected] :
         std::map<Command, std::string>{{Command::Undo, "window edit text: undo"},
                                        {Command::Redo, "window edit text: redo"},
                                        {Command::Copy, "window edit text: copy"},
                                        {Command::Paste, "window edit text: paste"},
                                        {Command::Delete, "window edit text: delete"},
                                        {Command::SelectAll, "window edit text: select all"}}) {
        run(command);
        EXPECT_EQ(notes(), Notes{expected});
    }
}

TEST_F(Commands, EachEditIsAllowedByTheControlAlone) {
    for (const auto& [command, action] : std::map<Command, EditAction>{{Command::Undo, EditAction::Undo},
                                                                       {Command::Redo, EditAction::Redo},
                                                                       {Command::Copy, EditAction::Copy},
                                                                       {Command::Paste, EditAction::Paste},
                                                                       {Command::Delete, EditAction::Delete},
                                                                       {Command::SelectAll, EditAction::SelectAll},
                                                                       {Command::FillDown, EditAction::Delete},
                                                                       {Command::FillSeries, EditAction::Delete}}) {
        control.disabled = {{action, true}};
        EXPECT_FALSE(program->allowed(command)) << menuText(*rowOf(command));
        nothingToEdit(*this);
        control.disabled.erase(action);
        EXPECT_TRUE(program->allowed(command)) << menuText(*rowOf(command));
    }
}

TEST_F(Commands, EachRecentFileHasItsNumber) {
    Notes paths;
    for (int file = 1; file <= 9; ++file) {
        paths.push_back("C:\\" + std::to_string(file) + ".telvar");
    }
    for (int file = 0; file < 9; ++file) {
        settings.setList("RecentFiles", paths);
        run(static_cast<Command>(300 + file));
        EXPECT_EQ(store.file, paths[static_cast<std::size_t>(file)]);
    }
}

TEST_F(Commands, ARecentFileBehindTheLastDoesNothing) {
    settings.setList("RecentFiles", {"C:\\1.telvar"});
    run(static_cast<Command>(301));
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Commands, AFailureOfEachCallIsToldAsOneSentence) {
    struct Case {
        Command command;
        const char* call;
    };
    for (const Case& each :
         {Case{Command::Undo, "edit"}, Case{Command::FillDown, "fill down"}, Case{Command::FillSeries, "fill series"},
          Case{Command::EditChannel, "edit channel"}, Case{Command::GoTo, "go to"}, Case{Command::Refresh, "refresh"},
          Case{Command::FocusTable, "focus"}, Case{Command::LogOut, "access"}, Case{Command::Print, "print"}}) {
        begin();
        ask.channel = 7;
        control.fails(each.call, "It does not answer");
        run(each.command);
        EXPECT_EQ(notesOf({"ask tell"}), Notes{"ask tell: It does not answer."}) << each.call;
        control.works(each.call);
    }
}

TEST_F(Commands, EachChangeOfTheTableIsShownAtOnce) {
    for (const Command command : {Command::Paste, Command::FillDown, Command::FillSeries, Command::EditChannel,
                                  Command::GoTo, Command::Refresh}) {
        store.dirty = false;
        program->refreshState();
        ask.channel = 7;
        for (const char* call : {"edit", "fill down", "fill series", "edit channel", "go to", "refresh"}) {
            control.during(call, [this] { store.dirty = true; });
        }
        run(command);
        EXPECT_TRUE(line.modified) << menuText(*rowOf(command));
        EXPECT_TRUE(window.title.starts_with("*")) << menuText(*rowOf(command));
    }
}

TEST_F(Commands, GoingNowhereCallsNothing) {
    run(Command::GoTo);
    EXPECT_EQ(notes(), Notes{"ask channel: 1"});
}

TEST_F(Commands, AnUnknownNumberIsNotAllowedNotTickedAndDoesNothing) {
    for (const int number : {0, 1, 2, 199, 232, 309}) {
        const auto command = static_cast<Command>(number);
        EXPECT_FALSE(program->allowed(command)) << number;
        EXPECT_FALSE(program->ticked(command)) << number;
        run(command);
    }
    EXPECT_EQ(notes(), Notes());
}

TEST_F(Commands, OnlyTheStatusBarIsTickedWhileItShows) {
    for (const CommandRow& row : commands()) {
        EXPECT_EQ(program->ticked(row.command), row.command == Command::StatusBar) << menuText(row);
    }
    run(Command::StatusBar);
    EXPECT_FALSE(program->ticked(Command::StatusBar));
    EXPECT_FALSE(line.shown);
    EXPECT_EQ(settings.number("StatusBar"), 0);
    run(Command::StatusBar);
    EXPECT_TRUE(program->ticked(Command::StatusBar));
    EXPECT_EQ(settings.number("StatusBar"), 1);
    EXPECT_EQ(notes(), (Notes{"window layout", "window layout"}));
}

}  // namespace telvar::tests
