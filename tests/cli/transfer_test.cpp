// Sending, loading and the radio as a program: the built programs talk to each other over TCP.
#include <gtest/gtest.h>

#include <filesystem>

#include "child_program.h"
#include "command_line.h"
#include "os/tcp.h"
#include "radio/image_file.h"
#include "store/table_file.h"
#include "support/temporary_folder.h"

namespace telvar::cli {
namespace {

using tests::ChildProgram;
using tests::Ran;
using tests::telvar;
using tests::TemporaryFolder;

const std::string samples = TELVAR_SOURCE_DIR "/samples/";

class Transfer : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::copy_file(samples + "maritime.telvar", table);
        before = TemporaryFolder::read(table);
    }

    [[nodiscard]] Ran send(const std::string& file, const std::string& radio, std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"send", file, "--radio", radio, "--backup-folder", backups});
        return telvar(more);
    }
    [[nodiscard]] static Ran load(const std::string& file, const std::string& radio,
                                  std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"load", file, "--radio", radio});
        return telvar(more);
    }
    [[nodiscard]] std::size_t backupsKept() const {
        std::size_t count = 0;
        if (std::filesystem::exists(backups)) {
            for (const auto& entry : std::filesystem::directory_iterator(backups)) {
                count += entry.path().extension() == radio::imageExtension ? 1U : 0U;
            }
        }
        return count;
    }
    // An address where nobody listens.
    [[nodiscard]] static std::string nowhere() {
        return "tcp:127.0.0.1:" + std::to_string(os::TcpListener::open(0)->port());
    }

    TemporaryFolder folder;
    std::string table = folder / "table.telvar";
    std::string state = folder / "state.telvar-radio";
    std::string backups = folder / "backups";
    std::string before;
};

TEST_F(Transfer, EverySampleIsSentAndLoadedBackByteByByte) {
    ChildProgram radio({"radio", "--listen", "0"});
    const auto address = radio.line();
    ASSERT_TRUE(address.starts_with("tcp:127.0.0.1:")) << radio.errorRest();
    for (const std::string name : {"maritime", "pmr446", "gmrs", "fixed-bandwidth", "every-reading"}) {
        const auto path = folder / (name + "-copy.telvar");
        const auto sample = TemporaryFolder::read(samples + name + ".telvar");
        TemporaryFolder::write(path, sample);
        const auto sent = send(path, address);
        ASSERT_EQ(sent.status, 0) << sent.err;
        EXPECT_TRUE(sent.out.starts_with("The radio holds the table; its former one is kept in " + backups))
            << sent.out;
        ASSERT_EQ(telvar({"set", path, "TxFreq=150000000", "scan=no", "--channel", "1-255"}).status, 0);
        ASSERT_NE(TemporaryFolder::read(path), sample);
        const auto loaded = load(path, address);
        EXPECT_EQ(loaded.status, 0) << loaded.err;
        EXPECT_EQ(loaded.out, "The table was loaded from the radio.\n");
        EXPECT_EQ(TemporaryFolder::read(path), sample) << name;
    }
    EXPECT_EQ(backupsKept(), 5U);
}

TEST_F(Transfer, TheRadioKeepsItsTableWhenItEnds) {
    {
        ChildProgram radio({"radio", "--listen", "0", "--state", state, "--quiet"});
        ASSERT_EQ(send(table, radio.line()).status, 0);
        radio.signal(SIGTERM);
        EXPECT_EQ(radio.wait(), 0);
        EXPECT_EQ(radio.rest() + radio.errorRest(), "");
    }
    ChildProgram again({"radio", "--listen", "0", "--state", state});
    EXPECT_EQ(load(folder / "new.telvar", again.line()).status, 0);
    again.signal(SIGINT);
    EXPECT_EQ(again.wait(), 0);
    const auto sent = store::loadTable(table).value();
    EXPECT_EQ(store::loadTable(folder / "new.telvar").value().channels, sent.channels);
}

TEST_F(Transfer, TheRadioEndsWithItsInputAndTellsEachExchangeOnce) {
    ChildProgram radio({"radio", "--listen", "0", "--faults", "repeat/3"});
    const auto address = radio.line();
    ASSERT_EQ(load(folder / "new.telvar", address).status, 0);
    EXPECT_EQ(radio.line(), "greeted by \"telvar\"");
    EXPECT_EQ(radio.line(), "table read");
    ASSERT_EQ(send(table, address).status, 0);
    EXPECT_EQ(radio.line(), "greeted by \"telvar\"");
    EXPECT_EQ(radio.line(), "table read");
    EXPECT_TRUE(radio.line().starts_with("table taken, checksum "));
    EXPECT_EQ(radio.line(), "table read");
    radio.closeInput();
    EXPECT_EQ(radio.wait(), 0);
    EXPECT_EQ(radio.rest() + radio.errorRest(), "");
}

TEST_F(Transfer, TheRadioSaysItsPortAndExchangesAsJson) {
    ChildProgram radio({"radio", "--listen", "0", "--json"});
    const auto first = radio.line();
    const std::string head = R"({"radio": ")";
    ASSERT_TRUE(first.starts_with(head)) << first;
    const auto address = first.substr(head.size(), first.find('"', head.size()) - head.size());
    EXPECT_EQ(load(folder / "new.telvar", address).status, 0);
    EXPECT_EQ(radio.line(), R"({"exchange": "greeted by \"telvar\""})");
}

TEST_F(Transfer, APortInUseIsTold) {
    ChildProgram radio({"radio", "--listen", "0"});
    const auto address = radio.line();
    const auto port = address.substr(address.rfind(':') + 1);
    const auto second = telvar({"radio", "--listen", port});
    EXPECT_EQ(second.status, 2);
    EXPECT_EQ(second.out, "");
    EXPECT_TRUE(second.err.starts_with("telvar: port " + port + " cannot be listened on (")) << second.err;
}

TEST_F(Transfer, ARadiosFileHasOneRadio) {
    ChildProgram radio({"radio", "--listen", "0", "--state", state});
    ASSERT_NE(radio.line(), "");
    const auto second = telvar({"radio", "--listen", "0", "--state", state});
    EXPECT_EQ(second.status, 2);
    EXPECT_EQ(second.err, state + ": Is in use by another program.\n");
    const auto sent = send(table, "simulated", {"--state", state});
    EXPECT_EQ(sent.status, 2);
    EXPECT_EQ(sent.err, "telvar: The radio cannot be reached at simulated (" + state +
                            ": Is in use by another program); nothing was written to the radio.\n");
}

TEST_F(Transfer, FindingsKeepATableFromBeingSent) {
    ASSERT_EQ(telvar({"set", table, "TxFreq=156800001", "ModeBits=1", "--channel", "16"}).status, 0);
    const auto checked = telvar({"check", table});
    ASSERT_EQ(checked.status, 1);
    // Nobody is asked: there is nobody.
    const auto sent = send(table, nowhere());
    EXPECT_EQ(sent.status, 1);
    EXPECT_EQ(sent.err, checked.err);
    EXPECT_EQ(sent.out, "");
    const auto json = send(table, "tcp:127.0.0.1:9", {"--json"});
    EXPECT_EQ(json.status, 1);
    EXPECT_TRUE(json.out.starts_with("{\"file\": \"" + table +
                                     "\", \"radio\": \"tcp:127.0.0.1:9\", \"ok\": false, \"scan\": \"\", "
                                     "\"messages\": [{\"text\": \"Reference frequency divide error"))
        << json.out;
    EXPECT_TRUE(json.out.ends_with("\"backup\": \"\", \"sentence\": \"\"}\n")) << json.out;
    EXPECT_EQ(backupsKept(), 0U);
}

TEST_F(Transfer, ARadioThatIsNotThereIsToldAndChangesNothing) {
    const auto address = nowhere();
    const auto sent = send(table, address);
    EXPECT_EQ(sent.status, 2);
    EXPECT_EQ(sent.err, "telvar: The radio cannot be reached at " + address +
                            " (Connection refused); nothing was written to the radio.\n");
    const auto loaded = load(table, address, {"--json"});
    EXPECT_EQ(loaded.status, 2);
    EXPECT_EQ(loaded.out, "{\"file\": \"" + table + "\", \"radio\": \"" + address +
                              "\", \"ok\": false, \"changed\": false, \"error\": \"The radio cannot be reached at " +
                              address + " (Connection refused); the table here was not changed.\"}\n");
    EXPECT_EQ(TemporaryFolder::read(table), before);
}

TEST_F(Transfer, FaultsThatCanBeMadeGoodAreMadeGood) {
    ChildProgram radio({"radio", "--listen", "0", "--faults", "repeat/3,echo,reorder@9,cut@50,noise@90,power@900"});
    const auto address = radio.line();
    const auto sent = send(table, address);
    EXPECT_EQ(sent.status, 0) << sent.err;
    EXPECT_EQ(load(table, address).status, 0);
    EXPECT_EQ(TemporaryFolder::read(table), before);
}

TEST_F(Transfer, FaultsThatCannotAreOneSentence) {
    struct Case {
        std::string faults;
        std::string sentence;
    };
    for (const auto& [faults, sentence] : {Case{"identity", "; nothing was written to the radio."},
                                           Case{"power@10", "; nothing was written to the radio."},
                                           Case{"power@80", "; the radio keeps its former table."}}) {
        const auto sent = send(table, "simulated", {"--state", state, "--faults", faults, "--json"});
        EXPECT_EQ(sent.status, 2) << faults;
        EXPECT_TRUE(sent.err.starts_with("telvar: ") && sent.err.ends_with(sentence + "\n")) << sent.err;
        EXPECT_EQ(std::ranges::count(sent.err, '\n'), 1);
        EXPECT_NE(sent.out.find("\"ok\": false"), std::string::npos) << sent.out;
        EXPECT_TRUE(sent.out.ends_with(sentence + "\"}\n")) << sent.out;
        EXPECT_FALSE(std::filesystem::exists(state)) << faults;
    }
}

TEST_F(Transfer, ARadioKilledInTheMiddleLeavesTheFileAlone) {
    ChildProgram radio({"radio", "--listen", "0", "--state", state, "--faults", "delay:20"});
    const auto address = radio.line();
    ChildProgram load({"load", table, "--radio", address, "--progress"});
    for (std::string line; line != "30 %";) {
        line = load.errorLine();
        ASSERT_NE(line, "");
    }
    radio.signal(SIGKILL);
    EXPECT_EQ(load.wait(), 2);
    const auto said = load.errorRest();
    EXPECT_NE(said.find("telvar: The connection to the radio broke ("), std::string::npos) << said;
    EXPECT_TRUE(said.ends_with("; the table here was not changed.\n")) << said;
    EXPECT_EQ(TemporaryFolder::read(table), before);
    EXPECT_EQ(folder.entries(), (std::vector<std::string>{"state.telvar-radio.lock", "table.telvar"}));
}

TEST_F(Transfer, ASendThatIsInterruptedLeavesTheRadioItsTable) {
    ChildProgram radio({"radio", "--listen", "0", "--state", state, "--faults", "delay:20"});
    const auto address = radio.line();
    ChildProgram send({"send", table, "--radio", address, "--progress", "--backup-folder", backups});
    for (std::string line; line != "50 %";) {
        line = send.errorLine();
        ASSERT_NE(line, "");
    }
    send.signal(SIGINT);
    EXPECT_EQ(send.wait(), 2);
    const auto said = send.errorRest();
    EXPECT_TRUE(said.ends_with("telvar: The exchange was aborted; the radio keeps its former table.\n")) << said;
    EXPECT_FALSE(std::filesystem::exists(state));
    EXPECT_EQ(backupsKept(), 1U);
}

TEST_F(Transfer, LoadKeepsWhatIsNotTheRadios) {
    ASSERT_EQ(send(table, "simulated", {"--state", state}).status, 0);
    auto other = store::emptyTable();
    other.title = "Mine";
    other.unknown = {{.name = "note", .json = "\"kept\""}};
    const auto path = folder / "mine.telvar";
    ASSERT_TRUE(store::saveTable(path, other));
    const auto loaded = load(path, "simulated", {"--state", state, "--json"});
    ASSERT_EQ(loaded.status, 0) << loaded.err;
    EXPECT_EQ(loaded.out,
              "{\"file\": \"" + path +
                  "\", \"radio\": \"simulated\", \"ok\": true, \"changed\": true, \"sentence\": \"The table "
                  "was loaded from the radio.\"}\n");
    const auto result = store::loadTable(path).value();
    EXPECT_EQ(result.title, "Mine");
    EXPECT_EQ(result.unknown, other.unknown);
    EXPECT_EQ(result.radio, other.radio);
    EXPECT_EQ(result.channels, store::loadTable(table).value().channels);
    const auto again = load(path, "simulated", {"--state", state, "--json"});
    EXPECT_NE(again.out.find("\"changed\": false"), std::string::npos) << again.out;
}

TEST_F(Transfer, LoadWritesCsvAndTheStandardOutput) {
    ASSERT_EQ(send(table, "simulated", {"--state", state}).status, 0);
    const auto csv = folder / "table.csv";
    ASSERT_EQ(load(csv, "simulated", {"--state", state}).status, 0);
    EXPECT_EQ(TemporaryFolder::read(csv), telvar({"convert", table, "-", "--to", "csv"}).out);
    const auto streamed = load("-", "simulated", {"--state", state});
    EXPECT_EQ(streamed.status, 0);
    EXPECT_EQ(store::parseTable(streamed.out, "-").value().channels, store::loadTable(table).value().channels);
    EXPECT_EQ(load("-", "simulated", {"--json"}).status, 2);
}

TEST_F(Transfer, AFileThatCouldNotBeKeptIsRefusedBeforeTheRadioIsAsked) {
    TemporaryFolder::write(table, "garbage");
    const auto loaded = load(table, nowhere());
    EXPECT_EQ(loaded.status, 2);
    EXPECT_TRUE(loaded.err.starts_with(table + ": ")) << loaded.err;
    EXPECT_EQ(TemporaryFolder::read(table), "garbage");
    EXPECT_EQ(load(folder / "table.txt", nowhere()).err,
              (folder / "table.txt") + ": The name must end in .telvar or .csv.\n");
}

TEST_F(Transfer, ABackupThatCannotBeWrittenKeepsTheTableFromBeingSent) {
    TemporaryFolder::write(backups, "a file");
    const auto sent = send(table, "simulated", {"--state", state});
    EXPECT_EQ(sent.status, 2);
    EXPECT_TRUE(sent.err.starts_with("telvar: What the radio holds cannot be kept (")) << sent.err;
    EXPECT_FALSE(std::filesystem::exists(state));
}

TEST_F(Transfer, ATraceHasEveryFrame) {
    const auto trace = folder / "trace.txt";
    ASSERT_EQ(send(table, "simulated", {"--trace", trace}).status, 0);
    const auto text = TemporaryFolder::read(trace);
    EXPECT_NE(text.find("> hello "), std::string::npos) << text;
    EXPECT_NE(text.find("< commit write answered "), std::string::npos);
}

TEST_F(Transfer, ArgumentsThatMeanNothingAreRefused) {
    EXPECT_EQ(send(table, "udp:1").err,
              "telvar: \"udp:1\" is no connection: write simulated, tcp:ADDRESS:PORT or serial:PORT,SPEED.\n");
    EXPECT_EQ(send(table, "tcp:127.0.0.1:9", {"--faults", "drop"}).err,
              "telvar: --state and --faults are for the radio \"simulated\".\n");
    EXPECT_EQ(telvar({"radio", "--faults", "boredom"}).err,
              "telvar: \"boredom\" is not a fault of the simulated radio.\n");
    TemporaryFolder::write(state, "garbage");
    EXPECT_EQ(telvar({"radio", "--listen", "0", "--state", state}).err, state + ": Is not a table of a radio.\n");
    EXPECT_EQ(telvar({"send", table}).status, 2);
    EXPECT_EQ(telvar({"radio", "--listen", "65536"}).status, 2);
}

}  // namespace
}  // namespace telvar::cli
