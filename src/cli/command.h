// One command of the program.
#pragma once

#include <string>

#include "cli/console.h"

namespace CLI {
class App;
}

namespace telvar::cli {

class Command {
public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    Command(Command&&) = delete;
    Command& operator=(Command&&) = delete;
    virtual ~Command() = default;

    [[nodiscard]] virtual std::string name() const = 0;
    [[nodiscard]] virtual std::string summary() const = 0;
    // Declares positional arguments and options; they are filled before execute() is called.
    virtual void declare(CLI::App& app) = 0;
    [[nodiscard]] virtual Outcome execute(const Console& console) = 0;
};

}  // namespace telvar::cli
