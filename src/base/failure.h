// The world's failures: a store that answers an error, a file that cannot be opened, a value that does not convert.
// They travel as exceptions with a description that a person can read; each public routine decides what the user sees.
#pragma once

#include <stdexcept>
#include <string>

namespace telvar::base {

class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& description) : std::runtime_error(description) {}

    // UTF-8, one sentence or phrase without a final full stop.
    [[nodiscard]] std::string description() const { return what(); }
};

// A value that is no number where one is needed: "Type mismatch"; or one that is too large for its type: "Overflow".
class ConversionFailure : public Failure {
public:
    using Failure::Failure;
    [[nodiscard]] static ConversionFailure typeMismatch() { return ConversionFailure("Type mismatch"); }
    [[nodiscard]] static ConversionFailure overflow() { return ConversionFailure("Overflow"); }
};

// A fault of checked integer arithmetic: "Overflow" or "Division by zero".
class ArithmeticFault : public Failure {
public:
    using Failure::Failure;
    [[nodiscard]] static ArithmeticFault overflow() { return ArithmeticFault("Overflow"); }
    [[nodiscard]] static ArithmeticFault divisionByZero() { return ArithmeticFault("Division by zero"); }
};

// An index outside a table: "Subscript out of range".
class SubscriptFailure : public Failure {
public:
    SubscriptFailure() : Failure("Subscript out of range") {}
};

}  // namespace telvar::base
