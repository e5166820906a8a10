// JSON text as a sequence of events. Numbers are handed over as they are written, so that what is only passed on loses
// nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/pinned.h"

namespace telvar::store {

enum class JsonType { Null, Boolean, Number, Text, List, Object };

// A value that is neither list nor object. `text` holds a text's characters or a number as written.
struct JsonScalar {
    JsonType type;
    std::string_view text;
    bool truth;
};

// Every function answers whether to go on.
class JsonListener : private base::Pinned {
public:
    virtual ~JsonListener() = default;

    [[nodiscard]] virtual bool scalar(const JsonScalar& value) = 0;
    // List or Object.
    [[nodiscard]] virtual bool open(JsonType type) = 0;
    [[nodiscard]] virtual bool close(JsonType type) = 0;
    // A member's name; its value follows.
    [[nodiscard]] virtual bool name(std::string_view name) = 0;
};

struct JsonProblem {
    std::size_t offset;  // bytes from the start
    std::string what;    // a phrase in lower case; empty where the listener ended the reading
};

// Nothing when the whole text was read. The text must be one JSON value in UTF-8, without a byte-order mark; nesting is
// limited by memory only, not by the stack.
[[nodiscard]] std::optional<JsonProblem> readJson(std::string_view text, JsonListener& listener);

}  // namespace telvar::store
