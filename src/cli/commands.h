// Every command, each in a file of its own.
#pragma once

#include <memory>

#include "cli/command.h"

namespace telvar::cli {

[[nodiscard]] std::unique_ptr<Command> newCommand();
[[nodiscard]] std::unique_ptr<Command> showCommand();
[[nodiscard]] std::unique_ptr<Command> checkCommand();
[[nodiscard]] std::unique_ptr<Command> setCommand();
[[nodiscard]] std::unique_ptr<Command> validateCommand();
[[nodiscard]] std::unique_ptr<Command> pasteCommand();
[[nodiscard]] std::unique_ptr<Command> fillCommand();
[[nodiscard]] std::unique_ptr<Command> pllCommand();
[[nodiscard]] std::unique_ptr<Command> proposeCommand();
[[nodiscard]] std::unique_ptr<Command> convertCommand();
[[nodiscard]] std::unique_ptr<Command> sendCommand();
[[nodiscard]] std::unique_ptr<Command> loadCommand();
[[nodiscard]] std::unique_ptr<Command> radioCommand();

}  // namespace telvar::cli
