// telvar send: a table into a radio, after the checks, with the radio's former table kept and everything read back.
#include <CLI/CLI.hpp>

#include "base/failure.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/link_options.h"
#include "cli/table_files.h"
#include "cli/table_verdict.h"
#include "model/memory_data_store.h"

namespace telvar::cli {

namespace {

class SendCommand : public Command {
public:
    std::string name() const override { return "send"; }
    std::string summary() const override { return "Check a table, send it to a radio and read it back"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", file_, "The table; - is standard input")->required();
        link_.declare(app);
        link_.declareBackupFolder(app);
    }

    Outcome execute(const Console& console) override {
        const auto settings = link_.settings();
        if (!settings) {
            return console.refuse(settings.error());
        }
        const auto contents = readTable(console, file_);
        if (!contents) {
            return console.refuse(contents.error());
        }
        const auto verdict = verdictOn(*contents);
        Sent sent{.radio = radio::textOf(settings->address), .verdict = verdict};
        tell(console, shownName(file_, "standard input"), verdict);
        if (!verdict.good()) {
            printJson(console, sent);
            return Outcome::Findings;
        }
        const auto image = imageOf(*contents);
        if (!image) {
            return console.refuse(image.error());
        }
        link_.run(console, *settings, [&](radio::RadioClient& client, const radio::Percent& percent) {
            sent.outcome = client.sendTable(*image, percent);
            sent.backup = client.lastBackup();
        });
        return answer(console, sent);
    }

private:
    struct Sent {
        std::string radio;
        TableVerdict verdict;
        radio::Outcome outcome{};
        std::string backup{};
    };

    [[nodiscard]] std::expected<radio::TableImage, os::FileError> imageOf(const store::TableContents& contents) const {
        model::MemoryDataStore table;
        store::putInto(table, contents);
        try {
            return radio::imageOf(table);
        } catch (const base::Failure& failure) {
            return std::unexpected(os::FileError{shownName(file_, "standard input"), failure.description()});
        }
    }

    [[nodiscard]] Outcome answer(const Console& console, const Sent& sent) const {
        if (!sent.outcome.succeeded) {
            console.err << "telvar: " << sent.outcome.sentence << '\n';
        } else if (!console.json) {
            console.out << sent.outcome.sentence << '\n';
        }
        printJson(console, sent);
        return sent.outcome.succeeded ? Outcome::Fine : Outcome::Unusable;
    }

    void printJson(const Console& console, const Sent& sent) const {
        if (console.json) {
            const auto& [succeeded, sentence] = sent.outcome;
            console.out << Json()
                               .add("file", file_)
                               .add("radio", sent.radio)
                               .add("ok", succeeded)
                               .add(jsonOf(sent.verdict))
                               .add("backup", sent.backup)
                               .add(succeeded || sentence.empty() ? "sentence" : "error", sentence)
                               .line();
        }
    }

    std::string file_;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> sendCommand() { return std::make_unique<SendCommand>(); }

}  // namespace telvar::cli
