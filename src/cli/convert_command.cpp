// telvar convert: a table in another format.
#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_files.h"
#include "os/file_lock.h"
#include "os/files.h"
#include "store/table_file.h"

namespace telvar::cli {

namespace {

class ConvertCommand : public Command {
public:
    std::string name() const override { return "convert"; }
    std::string summary() const override { return "Write a table in the format that the other name tells"; }

    void declare(CLI::App& app) override {
        app.add_option("IN", in_, "The table to read (.telvar or .csv), or - for standard input")->required();
        app.add_option("OUT", out_, "The file to write (.telvar or .csv), or - for standard output")->required();
        app.add_option("--from", from_, "The format to read, whatever the name tells: telvar or csv")
            ->type_name("FORMAT")
            ->check(CLI::IsMember({"telvar", "csv"}));
        app.add_option("--like", like_,
                       "The table that has what CSV has not: the radio and the title; OUT otherwise "
                       "where it is a table already, else a default radio")
            ->type_name("FILE");
        app.add_option("--to", to_, "The format to write, whatever the name tells: telvar or csv")
            ->type_name("FORMAT")
            ->check(CLI::IsMember({"telvar", "csv"}));
    }

    Outcome execute(const Console& console) override {
        const auto input = formatNamed(from_, in_);
        const auto output = formatNamed(to_, out_);
        if (!input || !output) {
            return console.refuse(os::FileError{!input ? in_ : out_, "The name must end in .telvar or .csv"});
        }
        if (const auto problem = problemWith(*input)) {
            return console.refuse(*problem);
        }
        // What is written depends on what OUT holds, so that nobody may change it in between.
        std::optional<os::FileLock> lock;
        if (takesRadioOfOutput(*input, *output)) {
            auto acquired = os::FileLock::acquire(os::lockFileFor(out_));
            if (!acquired) {
                return console.refuse(acquired.error());
            }
            lock.emplace(*std::move(acquired));
        }
        const auto contents = *input == FileFormat::Csv ? readCsv(console, *output) : readInput(console);
        if (!contents) {
            return console.refuse(contents.error());
        }
        if (const auto done = writeTable(console, out_, *contents, *output); !done) {
            return console.refuse(done.error());
        }
        if (console.json && out_ != standardStream) {
            const char* const format = *output == FileFormat::Csv ? "csv" : "telvar";
            console.out << Json().add("in", in_).add("out", out_).add("format", format).line();
        }
        return Outcome::Fine;
    }

private:
    using Contents = std::expected<store::TableContents, os::FileError>;

    [[nodiscard]] static std::optional<FileFormat> formatNamed(const std::string& option, const std::string& path) {
        if (!option.empty()) {
            return option == "csv" ? FileFormat::Csv : FileFormat::Table;
        }
        return formatOf(path);
    }

    [[nodiscard]] std::optional<std::string> problemWith(FileFormat input) const {
        if (!like_.empty() && input != FileFormat::Csv) {
            return "--like is for a table that is read from CSV";
        }
        if (like_ == standardStream && in_ == standardStream) {
            return "IN and --like cannot both come from standard input";
        }
        return std::nullopt;
    }

    [[nodiscard]] bool takesRadioOfOutput(FileFormat input, FileFormat output) const {
        return input == FileFormat::Csv && output == FileFormat::Table && like_.empty() && out_ != standardStream &&
               os::fileExists(out_);
    }

    [[nodiscard]] Contents readInput(const Console& console) const {
        const auto text = readText(console, in_);
        return text ? store::parseTable(*text, shownName(in_, "standard input")) : std::unexpected(text.error());
    }

    [[nodiscard]] Contents readCsv(const Console& console, FileFormat output) const {
        Contents around = store::emptyTable();
        if (!like_.empty()) {
            around = readTable(console, like_);
        } else if (takesRadioOfOutput(FileFormat::Csv, output)) {
            around = store::loadTable(out_);
        }
        return around ? readCsvTable(console, in_, *around) : around;
    }

    std::string in_;
    std::string out_;
    std::string from_;
    std::string to_;
    std::string like_;
};

}  // namespace

std::unique_ptr<Command> convertCommand() { return std::make_unique<ConvertCommand>(); }

}  // namespace telvar::cli
