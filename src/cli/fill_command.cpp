// telvar fill: one frequency or a series into a run of channels, by the control's fill dialog. Its fields are typed
// into and left one after the other; where it complains, nothing is filled.
#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_edit.h"
#include "cli/windowless_grid.h"
#include "editing/frmFill.h"
#include "interchange/key_text.h"

namespace telvar::cli {

namespace {

class FillCommand : public Command {
public:
    std::string name() const override { return "fill"; }
    std::string summary() const override { return "Fill a run of channels with a frequency or a series"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", file_, "The table to change, or - from standard input to standard output")->required();
        app.add_option("--from", from_, "The first channel")->type_name("A")->required();
        app.add_option("--to", to_, "The last channel")->type_name("B")->required();
        app.add_option("--start", start_, "The first frequency in MHz, 20 to 1000, or 0 to disable")
            ->type_name("MHZ")
            ->required();
        app.add_option("--step", step_, "From channel to channel, in kHz; every channel gets the same otherwise")
            ->type_name("KHZ");
        app.add_flag("--rx", receiver_, "Receive frequencies instead of transmit frequencies");
    }

    Outcome execute(const Console& console) override {
        if (const auto problem = problemWith(console)) {
            return console.refuse(*problem);
        }
        auto edit = TableEdit::begin(console, file_);
        if (!edit) {
            return console.refuse(edit.error());
        }
        WindowlessGrid grid(console, shownName(file_, "standard input"), edit->contents);
        editing::frmFill form(grid.rows(), grid.history());
        form.setCentralDataStore(grid.store());
        form.FillRequested.connect([&] { form.fill(); });
        typeInto(form);
        if (grid.desktop().messages().empty()) {
            tellWhatWasTaken(console, form);
            form.ok_but.userPress();
        }
        return keepEdit(console, file_, *edit, grid, takenAsJson(form));
    }

private:
    // The dialog reads what is no number as 0, which nobody means who types a channel here.
    [[nodiscard]] std::optional<std::string> problemWith(const Console& console) const {
        for (const auto& [option, text] : {std::pair("--from", &from_), std::pair("--to", &to_)}) {
            if (!base::readInt16(*text, console.format)) {
                return std::string(option) + " takes the number of a channel, not " + interchange::quotedStart(*text);
            }
        }
        if (file_ == standardStream && console.json) {
            return "--json and the table itself cannot both go to standard output";
        }
        return std::nullopt;
    }

    void typeInto(editing::frmFill& form) const {
        const auto typeAndLeave = [](ui::TextBox& box, const std::string& text) {
            box.setFocus();
            box.userTyped(text);
            box.LostFocus();
        };
        form.module_sel[receiver_ ? 1 : 0].userClick();
        typeAndLeave(form.start_chan_val, from_);
        typeAndLeave(form.end_chan_val, to_);
        typeAndLeave(form.start_freq_val, start_);
        if (step_) {
            form.offerSeries();
            typeAndLeave(form.step_val, *step_);
        } else {
            form.offerFillDown();
        }
    }

    // The dialog corrects channels silently and holds frequencies to seven digits.
    void tellWhatWasTaken(const Console& console, const editing::frmFill& form) const {
        const auto tell = [&](std::string_view option, const std::string& given, const ui::TextBox& box) {
            if (base::readDouble(given, console.format) != base::readDouble(box.text(), console.format)) {
                console.err << shownName(file_, "standard input") << ": " << option << ' ' << given << " is taken as "
                            << box.text() << ".\n";
            }
        };
        tell("--from", from_, form.start_chan_val);
        tell("--to", to_, form.end_chan_val);
        tell("--start", start_, form.start_freq_val);
        if (step_) {
            tell("--step", *step_, form.step_val);
        }
    }

    // Channels and numbers as the dialog took them.
    [[nodiscard]] static Json takenAsJson(const editing::frmFill& form) {
        return Json()
            .add("from", std::stoi(form.start_chan_val.text()))
            .add("to", std::stoi(form.end_chan_val.text()))
            .add("start", form.start_freq_val.text())
            .add("step", form.step_val.text());
    }

    std::string file_;
    std::string from_;
    std::string to_;
    std::string start_;
    std::optional<std::string> step_;
    bool receiver_ = false;
};

}  // namespace

std::unique_ptr<Command> fillCommand() { return std::make_unique<FillCommand>(); }

}  // namespace telvar::cli
