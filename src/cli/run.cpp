#include "cli/run.h"

#include <CLI/CLI.hpp>

#include <array>

#include "cli/commands.h"
#include "cli/version.h"
#include "os/locale.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

struct CommonOptions {
    bool json = false;
    std::string locale;
};

// A locale's name, "user" for the user's own, or the decimal separator itself.
[[nodiscard]] std::optional<base::NumberFormat> formatNamed(const std::string& locale) {
    if (locale.empty()) {
        return base::NumberFormat{};
    }
    if (locale == "user") {
        return os::userNumberFormat();
    }
    if (locale == "." || locale == ",") {
        return base::NumberFormat{.decimalSeparator = locale[0]};
    }
    return os::numberFormatOf(locale);
}

void declareCommon(CLI::App& app, CommonOptions& options) {
    app.set_version_flag("--version", "telvar " + std::string(version), "Print the version and end");
    app.set_help_flag("-h,--help", "Print this help and end");
    app.add_flag("--json", options.json, "Results as JSON: one object for each file or question, one a line");
    app.add_option("--locale", options.locale,
                   "How numbers are written: a locale's name such as de_DE, 'user' for your own, or the decimal "
                   "separator itself; \".\" otherwise")
        ->type_name("NAME");
    // Common options may stand before and behind the command.
    app.fallthrough();
    // A path such as /tables/marine.telvar is no option, on any system.
    app.allow_windows_style_options(false);
    app.require_subcommand(1);
}

// The library says only that a command is missing, even where one was misspelt, and lists what is too much from its
// end.
[[nodiscard]] std::string describe(const CLI::ParseError& error, const CLI::App& app) {
    const auto extras = app.remaining(true);
    if (app.get_subcommands().empty()) {
        for (const auto& word : extras) {
            if (!word.starts_with('-')) {
                return "there is no command " + store::jsonQuoted(word);
            }
        }
    }
    if (!extras.empty() && error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError)) {
        return store::jsonQuoted(extras.front()) + " was not expected";
    }
    const std::string what = error.what();
    return what.substr(0, what.find('\n'));
}

[[nodiscard]] int refuseArguments(const std::string& what, const CommonOptions& options, const Console& console) {
    const Console answering{.in = console.in, .out = console.out, .err = console.err, .json = options.json};
    const auto outcome = answering.refuse(what);
    console.err << "Run 'telvar --help' or 'telvar COMMAND --help' to see what can be said.\n";
    return static_cast<int>(outcome);
}

// Help and version come out of the library as exceptions too.
[[nodiscard]] bool isAnswer(const CLI::ParseError& error) {
    return error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
}

// Results that nobody received are no results.
[[nodiscard]] int delivered(int status, const Console& console) {
    console.out.flush();
    if (console.out) {
        return status;
    }
    console.err << "telvar: standard output cannot be written to.\n";
    return static_cast<int>(Outcome::Unusable);
}

[[nodiscard]] int execute(Command& command, const CommonOptions& options, const Console& streams) {
    Console console{.in = streams.in, .out = streams.out, .err = streams.err, .json = options.json};
    const auto format = formatNamed(options.locale);
    if (!format) {
        return static_cast<int>(console.refuse("the locale " + store::jsonQuoted(options.locale) +
                                               " is not installed here; \"--locale ,\" names the separator itself"));
    }
    console.format = *format;
    return static_cast<int>(command.execute(console));
}

}  // namespace

int run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err) {
    const Console console{.in = in, .out = out, .err = err};
    CommonOptions options;
    CLI::App app("Works with the channel tables of the Telvar base station.", "telvar");
    declareCommon(app, options);
    const std::array<std::unique_ptr<Command>, 13> commands{
        newCommand(),   showCommand(), checkCommand(), setCommand(),     validateCommand(),
        pasteCommand(), fillCommand(), pllCommand(),   proposeCommand(), convertCommand(),
        sendCommand(),  loadCommand(), radioCommand()};
    for (const auto& command : commands) {
        command->declare(*app.add_subcommand(command->name(), command->summary()));
    }
    try {
        // The library takes its arguments from the end.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        return delivered(isAnswer(error) ? app.exit(error, out, err)
                                         : refuseArguments(describe(error, app), options, console),
                         console);
    }
    for (const auto& command : commands) {
        if (app.got_subcommand(command->name())) {
            return delivered(execute(*command, options, console), console);
        }
    }
    return static_cast<int>(Outcome::Unusable);
}

}  // namespace telvar::cli
