// One command of the program.
#pragma once

#include <string>

#include "base/pinned.h"
#include "cli/console.h"

namespace CLI {
class App;
}

namespace telvar::cli {

class Command : private base::Pinned {
public:
    virtual ~Command() = default;

    [[nodiscard]] virtual std::string name() const = 0;
    [[nodiscard]] virtual std::string summary() const = 0;
    // Declares positional arguments and options; they are filled before execute() is called.
    virtual void declare(CLI::App& app) = 0;
    [[nodiscard]] virtual Outcome execute(const Console& console) = 0;
};

}  // namespace telvar::cli
