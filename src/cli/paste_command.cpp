// telvar paste: text into a block of cells, as the grid does it. All of it goes in, or the file stays as it was.
#include <CLI/CLI.hpp>

#include "cli/column_name.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_edit.h"
#include "cli/windowless_grid.h"
#include "editing/clipboard_editing.h"
#include "editing/columns.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

class PasteCommand : public Command {
public:
    std::string name() const override { return "paste"; }
    std::string summary() const override { return "Paste text into a table, as the grid does"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", file_, "The table to change, or - from standard input to standard output")->required();
        app.add_option("--row", row_, "The channel to begin at")
            ->type_name("R")
            ->required()
            ->check(CLI::Range(1, int{model::channelCount}));
        app.add_option("--column", column_, "The column to begin at, by its number (1 to 26) or its heading")
            ->type_name("C")
            ->required();
        app.add_option("--rows", rows_, "How many rows are selected: one line alone goes into each of them")
            ->type_name("N")
            ->check(CLI::Range(1, int{model::channelCount}));
        app.add_option("--text", text_,
                       "The file with the text, - for standard input (so otherwise): cells separated "
                       "by tabs, rows by line breaks")
            ->type_name("FILE");
    }

    Outcome execute(const Console& console) override {
        const auto column = columnNamed(column_);
        if (const auto problem = problemWith(console, column)) {
            return console.refuse(*problem);
        }
        const auto text = readText(console, text_);
        if (!text) {
            return console.refuse(text.error());
        }
        if (!store::isUtf8(*text)) {
            return console.refuse(os::FileError{shownName(text_, "standard input"), "Is not text in UTF-8"});
        }
        auto edit = TableEdit::begin(console, file_);
        if (!edit) {
            return console.refuse(edit.error());
        }
        WindowlessGrid grid(console, shownName(file_, "standard input"), edit->contents);
        grid.desktop().setClipboardText(*text);
        grid.grid().select({row_, *column}, {row_ + rows_ - 1, *column});
        editing::ClipboardEditing clipboard(grid.rows(), grid.history());
        grid.desktop().setPlace([&clipboard] {
            const auto& refused = clipboard.lastRefusal();
            return refused ? editing::placeOf(*refused) : std::string();
        });
        clipboard.PasteToCells();
        return keepEdit(console, file_, *edit, grid, asJson(clipboard.lastRefusal()));
    }

private:
    [[nodiscard]] static Json asJson(const std::optional<editing::RefusedCell>& refused) {
        Json place;
        if (refused) {
            place.add("refused", Json().add("channel", refused->row).add("column", refused->column));
        }
        return place;
    }

    [[nodiscard]] std::optional<std::string> problemWith(const Console& console,
                                                         std::optional<std::int16_t> column) const {
        if (!column || *column < 1 || *column > editing::lastColumn) {
            return "there is no column " + store::jsonQuoted(column_) + " to paste into";
        }
        if (row_ + rows_ - 1 > model::channelCount) {
            return "--rows reaches beyond channel 255";
        }
        if (file_ == standardStream && text_ == standardStream) {
            return "the table and the text cannot both come from standard input; --text names a file";
        }
        if (file_ == standardStream && console.json) {
            return "--json and the table itself cannot both go to standard output";
        }
        return std::nullopt;
    }

    std::string file_;
    int row_ = 1;
    std::string column_;
    int rows_ = 1;
    std::string text_ = std::string(standardStream);
};

}  // namespace

std::unique_ptr<Command> pasteCommand() { return std::make_unique<PasteCommand>(); }

}  // namespace telvar::cli
