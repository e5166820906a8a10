// telvar show: the grid as text, cell by cell what the control shows.
#include <CLI/CLI.hpp>

#include "base/failure.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_files.h"
#include "interchange/row_cells.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

class ShowCommand : public Command {
public:
    std::string name() const override { return "show"; }
    std::string summary() const override { return "Print a table as tab-separated text, with the cells of the grid"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", file_, "The table, or - for standard input")->required();
        app.add_flag("--all-columns", allColumns_, "Also the columns that the grid hides at first, 27 in all");
        app.add_option("--channels", channels_, "Only these, for instance 1-20,25")->type_name("LIST");
    }

    Outcome execute(const Console& console) override {
        const auto channels = channelList(channels_);
        if (!channels) {
            return console.refuse("--channels takes numbers and ranges of 1 to 255 such as 1-20,25, not " +
                                  store::jsonQuoted(channels_));
        }
        const auto contents = readTable(console, file_);
        if (!contents) {
            return console.refuse(contents.error());
        }
        model::MemoryDataStore table;
        store::putInto(table, *contents);
        auto rows = renderedRows(table, *channels, console.format);
        if (!rows) {
            return console.refuse(os::FileError{shownName(file_, "standard input"), rows.error()});
        }
        if (console.json) {
            printJson(console, contents->title, *rows);
        } else {
            printText(console, *rows);
        }
        return Outcome::Fine;
    }

private:
    using Rows = std::vector<interchange::RowCells>;

    [[nodiscard]] std::size_t columnsShown() const noexcept {
        return allColumns_ ? editing::columnCount : static_cast<std::size_t>(editing::firstHiddenColumn);
    }

    [[nodiscard]] static std::expected<Rows, std::string>
    renderedRows(model::DataStore& table, const std::vector<std::int16_t>& channels, const base::NumberFormat& format) {
        Rows rows;
        for (const auto channel : channels) {
            try {
                rows.push_back(interchange::rowCells(table, channel, format));
            } catch (const base::Failure& failure) {
                return std::unexpected("channel " + std::to_string(channel) + ": " + failure.description());
            }
        }
        return rows;
    }

    // The grid's corner cell is empty, so the first line begins with a tab.
    [[nodiscard]] static interchange::RowCells headings() {
        interchange::RowCells cells;
        for (std::size_t column = 1; column < cells.size(); ++column) {
            cells[column] = editing::columns[column].header;
        }
        return cells;
    }

    void printText(const Console& console, const Rows& rows) const {
        const auto printRow = [&](const interchange::RowCells& cells) {
            for (std::size_t column = 0; column < columnsShown(); ++column) {
                console.out << (column > 0 ? "\t" : "") << cells[column];
            }
            console.out << '\n';
        };
        printRow(headings());
        std::ranges::for_each(rows, printRow);
    }

    [[nodiscard]] auto shown(const interchange::RowCells& cells) const {
        return std::span(cells).first(columnsShown());
    }

    void printJson(const Console& console, const std::string& title, const Rows& rows) const {
        const auto headings = this->headings();
        const auto cells = rows | std::views::transform([this](const auto& row) { return shown(row); });
        console.out << Json()
                           .add("file", file_)
                           .add("title", title)
                           .add("headings", shown(headings))
                           .add("rows", std::vector(cells.begin(), cells.end()))
                           .line();
    }

    std::string file_;
    bool allColumns_ = false;
    std::string channels_ = "1-255";
};

}  // namespace

std::unique_ptr<Command> showCommand() { return std::make_unique<ShowCommand>(); }

}  // namespace telvar::cli
