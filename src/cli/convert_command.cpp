// telvar convert: a table in another format.
#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/table_files.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

class ConvertCommand : public Command {
public:
    std::string name() const override { return "convert"; }
    std::string summary() const override { return "Write a table in the format that the other name tells"; }

    void declare(CLI::App& app) override {
        app.add_option("IN", in_, "The table to read (.telvar), or - for standard input")->required();
        app.add_option("OUT", out_, "The file to write (.telvar or .csv), or - for standard output")->required();
        app.add_option("--to", to_, "The format to write, whatever the name tells: telvar or csv")
            ->type_name("FORMAT")
            ->check(CLI::IsMember({"telvar", "csv"}));
    }

    Outcome execute(const Console& console) override {
        const auto format = outputFormat();
        if (!format) {
            return console.refuse(os::FileError{out_, "The name must end in .telvar or .csv"});
        }
        const auto contents = readTable(console, in_);
        if (!contents) {
            return console.refuse(contents.error());
        }
        if (const auto done = writeTable(console, out_, *contents, *format); !done) {
            return console.refuse(done.error());
        }
        if (console.json && out_ != standardStream) {
            console.out << "{\"in\": " << store::jsonQuoted(in_) << ", \"out\": " << store::jsonQuoted(out_)
                        << ", \"format\": \"" << (*format == FileFormat::Csv ? "csv" : "telvar") << "\"}\n";
        }
        return Outcome::Fine;
    }

private:
    [[nodiscard]] std::optional<FileFormat> outputFormat() const {
        if (!to_.empty()) {
            return to_ == "csv" ? FileFormat::Csv : FileFormat::Table;
        }
        return formatOf(out_);
    }

    std::string in_;
    std::string out_;
    std::string to_;
};

}  // namespace

std::unique_ptr<Command> convertCommand() { return std::make_unique<ConvertCommand>(); }

}  // namespace telvar::cli
