// telvar validate: whether a cell of the grid would take a text.
#include <CLI/CLI.hpp>

#include "cli/column_name.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_files.h"
#include "editing/validators.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

class ValidateCommand : public Command {
public:
    std::string name() const override { return "validate"; }
    std::string summary() const override { return "Say whether a column of the grid would take a text"; }

    void declare(CLI::App& app) override {
        app.add_option("COLUMN", column_, "The column, by its number (1 to 26) or its heading")->required();
        app.add_option("TEXT", text_, "What a cell would hold, as it is; -- before a text that begins with -")
            ->required();
        app.add_option("--file", file_,
                       "The table whose radio is asked, or - for standard input; a default radio "
                       "otherwise")
            ->type_name("FILE");
    }

    Outcome execute(const Console& console) override {
        const auto column = columnNamed(column_);
        if (!column) {
            return console.refuse("there is no column " + store::jsonQuoted(column_));
        }
        if (!store::isUtf8(text_)) {
            return console.refuse("the text must be in UTF-8");
        }
        const auto contents = file_.empty() ? store::emptyTable() : readTable(console, file_);
        if (!contents) {
            return console.refuse(contents.error());
        }
        model::MemoryDataStore table;
        store::putInto(table, *contents);
        // No verdict depends on which channel it is.
        const auto error =
            editing::validateCell({.store = table, .channel = 1, .format = console.format}, *column, text_);
        if (console.json) {
            console.out << Json().add("error", error).line();
        } else if (!error.empty()) {
            console.out << error << '\n';
        }
        return error.empty() ? Outcome::Fine : Outcome::Findings;
    }

private:
    std::string column_;
    std::string text_;
    std::string file_;
};

}  // namespace

std::unique_ptr<Command> validateCommand() { return std::make_unique<ValidateCommand>(); }

}  // namespace telvar::cli
