// An option that must be given and takes one whole number.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace telvar::cli {

template <class Integer>
void requireNumber(CLI::App& app, const std::string& name, Integer& number, const std::string& description,
                   const std::string& unit) {
    // The library would read an empty word as 0.
    const auto notEmpty = [](const std::string& text) {
        return text.empty() ? std::string("a number is missing") : std::string();
    };
    app.add_option(name, number, description)->type_name(unit)->required()->check(CLI::Validator(notEmpty, ""));
}

}  // namespace telvar::cli
