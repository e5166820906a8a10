// Comma-separated text taken apart as RFC 4180 has it, one record at a time. What the fields mean is the reader's
// business.
#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace telvar::interchange {

struct CsvField {
    std::string text;
    bool quoted = false;

    // Nothing at all between two separators; "" in quotation marks is an empty text.
    [[nodiscard]] bool missing() const noexcept { return text.empty() && !quoted; }
};

struct CsvRecord {
    int line = 1;  // on which it begins
    std::vector<CsvField> fields;
};

// Why a text cannot be taken apart, beginning with the line: "line 7: holds a zero byte".
using CsvRefusal = std::string;

// Nothing where every line is UTF-8 without a zero byte.
[[nodiscard]] std::optional<CsvRefusal> refusedBytes(std::string_view text);

class CsvRecords {
public:
    // The text must outlive this. A byte-order mark is skipped. Fields are separated by the first comma, semicolon or
    // tab outside quotation marks in the first line, since spreadsheets use semicolons where the comma is the decimal
    // separator.
    explicit CsvRecords(std::string_view text);

    // Lines end in CR LF, LF or CR; a line break inside quotation marks belongs to its field. Nothing at the text's
    // end. A record of more than `mostFields` is refused.
    [[nodiscard]] std::expected<std::optional<CsvRecord>, CsvRefusal> next(std::size_t mostFields);

private:
    [[nodiscard]] char separatorOf(std::string_view text) const noexcept;
    [[nodiscard]] std::expected<CsvField, std::string> takeField();
    [[nodiscard]] std::expected<CsvField, std::string> takeQuoted();
    [[nodiscard]] bool atFieldEnd() const noexcept;
    [[nodiscard]] bool take(char c) noexcept;
    void takeBreak() noexcept;

    std::string_view text_;
    std::size_t at_ = 0;
    int line_ = 1;
    char separator_;
};

}  // namespace telvar::interchange
