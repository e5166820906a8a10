// The two ways in which a routine meets a failure: tell the user under the routine's name, or go on with the next
// statement.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "ui/desktop.h"

namespace telvar::ui {

// "Error in X()": OK only, exclamation icon, default title.
inline void tellFailureOf(Desktop& desktop, std::string_view routine) {
    desktop.show({.text = "Error in " + std::string(routine) + "()", .icon = Icon::Exclamation});
}

// Trap and tell. Answers whether the body ran to its end.
template <class Body>
bool trapped(Desktop& desktop, std::string_view routine, Body&& body) {
    try {
        body();
        return true;
    } catch (const std::exception&) {
        tellFailureOf(desktop, routine);
        return false;
    }
}

// One statement of a routine that resumes at the next one after a failure. What is no std::exception, such as the
// sudden end of a control, goes through.
template <class Statement>
bool resumed(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace telvar::ui
