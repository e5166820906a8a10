#include "base/failure.h"
#include "control_world.h"
#include "support/answering_store.h"
#include "support/failing_store.h"

namespace telvar::tests {
namespace {

class Services : public ControlWorld {};

TEST_F(Services, LogLinesAreAppendedToWhatIsThere) {
    TemporaryFolder::write(logPath, "earlier run\r\n");
    control->logMessage("one");
    control->logMessage("two");
    EXPECT_EQ(TemporaryFolder::read(logPath), "earlier run\r\none\r\ntwo\r\n");
}

TEST_F(Services, ALogIsMadeWhereThereIsNone) {
    control->logMessage("");
    EXPECT_EQ(TemporaryFolder::read(logPath), "\r\n");
}

TEST_F(Services, TextsAndPathsAreUtf8) {
    const auto path = folder / "Protokoll \xC3\xA4\xE2\x82\xAC.txt";
    ChannelInformation other(control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = path});
    other.logMessage("Gr\xC3\xBC\xC3\x9F"
                     "e");
    EXPECT_EQ(TemporaryFolder::read(path), "Gr\xC3\xBC\xC3\x9F"
                                           "e\r\n");
}

TEST_F(Services, AFailureToLogIsTheCallers) {
    for (const auto& path : {folder / "missing/msglog.txt", folder.name(), std::string()}) {
        ChannelInformation other(control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = path});
        EXPECT_THROW(other.logMessage("x"), base::Failure) << path;
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Services, AnOpenTableIsHandedToTheHostToPrint) {
    store->put(StoreMember::TableOpen, true);
    control->PrintInfo();
    EXPECT_EQ(events, (Log{"PrintChannelData"}));
    EXPECT_EQ(boxes(), Boxes{});
}

const ui::MessageBox nothingToPrint{.text = "No channel information open to print. Please open a channel database.",
                                    .title = "Telvar",
                                    .icon = ui::Icon::Exclamation};

TEST_F(Services, WithoutAnOpenTableThereIsNothingToPrint) {
    control->PrintInfo();
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), (Boxes{nothingToPrint}));
}

TEST_F(Services, ATableWhoseStateCannotBeReadCountsAsNotOpen) {
    store->put(StoreMember::TableOpen, true);
    const auto failing = decorate<FailingStore>();
    failing->failAt(1);
    control->PrintInfo();
    EXPECT_EQ(boxes(), (Boxes{nothingToPrint}));
    decorate<AnsweringStore>()->answer(StoreMember::TableOpen, base::Unusable{});
    control->PrintInfo();
    EXPECT_EQ(boxes(), (Boxes{nothingToPrint}));
    EXPECT_EQ(events, Log{});
}

TEST_F(Services, ATitleThatCannotBeReadIsTheDefaultOne) {
    auto untitled = nothingToPrint;
    untitled.title = "Tesslin";
    decorate<FailingStore>()->failAt(1, FailureSpan::FromThereOn);
    control->PrintInfo();
    control->setCentralDataStore(nullptr);
    control->PrintInfo();
    EXPECT_EQ(boxes(), (Boxes{untitled, untitled}));
}

}  // namespace
}  // namespace telvar::tests
