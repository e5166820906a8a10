// JSON text as this system writes it: values on one line, a blank behind every comma and colon.
#pragma once

#include <string>
#include <string_view>

#include "store/json_reader.h"

namespace telvar::store {

// Well-formed UTF-8: no overlong forms, no surrogates, nothing beyond U+10FFFF.
[[nodiscard]] bool isUtf8(std::string_view text) noexcept;

// With quotation marks; what is not UTF-8 becomes U+FFFD.
[[nodiscard]] std::string jsonQuoted(std::string_view text);

// Puts one value together from events, on one line.
class JsonLine : public JsonListener {
public:
    // Nested deeper than this is refused: no table needs it, and whoever reads the file next may use its stack.
    static constexpr int deepest = 100;

    [[nodiscard]] bool scalar(const JsonScalar& value) override;
    [[nodiscard]] bool open(JsonType type) override;
    [[nodiscard]] bool close(JsonType type) override;
    [[nodiscard]] bool name(std::string_view name) override;

    // The value is whole: its last bracket was closed, or it had none.
    [[nodiscard]] bool complete() const noexcept { return depth_ == 0 && !text_.empty(); }
    [[nodiscard]] const std::string& text() const noexcept { return text_; }

private:
    void separate();

    std::string text_;
    int depth_ = 0;
    bool first_ = true;  // nothing stands in the innermost bracket yet
    bool afterName_ = false;
};

}  // namespace telvar::store
