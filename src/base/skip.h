// One statement of a routine that goes on with the next one after a failure.
#pragma once

#include <exception>

namespace telvar::base {

// Answers whether the statement ran to its end. What is no std::exception, such as the sudden end of a control, goes
// through.
template <class Statement>
bool skip(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace telvar::base
