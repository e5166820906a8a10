// telvar new: an empty table with the default radio.
#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_files.h"
#include "os/files.h"

namespace telvar::cli {

namespace {

class NewCommand : public Command {
public:
    std::string name() const override { return "new"; }
    std::string summary() const override { return "Create an empty table with a default radio configuration"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", file_, "The table file (.telvar) to create, or - for standard output")->required();
        app.add_option("--title", title_, "What the table is called; its file's name otherwise")->type_name("TEXT");
        app.add_flag("--force", force_, "Replace an existing file, which is kept as FILE.bak");
    }

    Outcome execute(const Console& console) override {
        if (formatOf(file_) != FileFormat::Table) {
            return console.refuse(os::FileError{file_, "The name must end in .telvar"});
        }
        if (!store::isUtf8(title_)) {
            return console.refuse("the title must be text in UTF-8");
        }
        if (!force_ && file_ != standardStream && os::fileExists(file_)) {
            return console.refuse(os::FileError{file_, "Exists already; --force replaces it"});
        }
        auto contents = store::emptyTable();
        contents.title = title_;
        if (const auto done = writeTable(console, file_, contents, FileFormat::Table); !done) {
            return console.refuse(done.error());
        }
        if (console.json && file_ != standardStream) {
            console.out << Json().add("file", file_).add("title", title_).line();
        }
        return Outcome::Fine;
    }

private:
    std::string file_;
    std::string title_;
    bool force_ = false;
};

}  // namespace

std::unique_ptr<Command> newCommand() { return std::make_unique<NewCommand>(); }

}  // namespace telvar::cli
