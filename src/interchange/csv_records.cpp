#include "interchange/csv_records.h"

#include <algorithm>

#include "store/json_text.h"

namespace telvar::interchange {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view lineBreaks = "\r\n";
constexpr char quotationMark = '"';

[[nodiscard]] CsvRefusal inLine(int line, const std::string& what) {
    return "line " + std::to_string(line) + ": " + what;
}

// Length of the line break that the text begins with, 0 where it begins with none.
[[nodiscard]] std::size_t breakLength(std::string_view text) noexcept {
    if (text.starts_with("\r\n")) {
        return 2;
    }
    return text.starts_with('\r') || text.starts_with('\n') ? 1 : 0;
}

[[nodiscard]] int breaksIn(std::string_view text) noexcept {
    int breaks = 0;
    for (auto at = text.find_first_of(lineBreaks); at != std::string_view::npos;
         at = text.find_first_of(lineBreaks, at)) {
        at += breakLength(text.substr(at));
        ++breaks;
    }
    return breaks;
}

}  // namespace

std::optional<CsvRefusal> refusedBytes(std::string_view text) {
    for (int line = 1; !text.empty(); ++line) {
        const auto part = text.substr(0, text.find_first_of(lineBreaks));
        if (!store::isUtf8(part)) {
            return inLine(line, "is not text in UTF-8");
        }
        if (part.find('\0') != std::string_view::npos) {
            return inLine(line, "holds a zero byte");
        }
        text.remove_prefix(part.size());
        text.remove_prefix(breakLength(text));
    }
    return std::nullopt;
}

CsvRecords::CsvRecords(std::string_view text)
    : text_(text.substr(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0)), separator_(separatorOf(text_)) {}

char CsvRecords::separatorOf(std::string_view text) const noexcept {
    bool quoted = false;
    for (const char c : text) {
        if (c == quotationMark) {
            quoted = !quoted;
        } else if (!quoted && (c == ',' || c == ';' || c == '\t')) {
            return c;
        } else if (!quoted && lineBreaks.contains(c)) {
            break;
        }
    }
    return ',';
}

std::expected<std::optional<CsvRecord>, CsvRefusal> CsvRecords::next(std::size_t mostFields) {
    if (at_ == text_.size()) {
        return std::nullopt;
    }
    CsvRecord record{.line = line_, .fields = {}};
    do {
        if (record.fields.size() == mostFields) {
            return std::unexpected(inLine(record.line, "has more than " + std::to_string(mostFields) + " fields"));
        }
        auto field = takeField();
        if (!field) {
            return std::unexpected(
                inLine(record.line, "field " + std::to_string(record.fields.size() + 1) + ": " + field.error()));
        }
        record.fields.push_back(*std::move(field));
    } while (take(separator_));
    takeBreak();
    return record;
}

std::expected<CsvField, std::string> CsvRecords::takeField() {
    if (take(quotationMark)) {
        return takeQuoted();
    }
    const auto rest = text_.substr(at_);
    const auto end = std::ranges::find_if(rest, [&](char c) { return c == separator_ || lineBreaks.contains(c); });
    const std::string_view field(rest.begin(), end);
    if (field.find(quotationMark) != std::string_view::npos) {
        return std::unexpected("a quotation mark stands inside a field that does not begin with one");
    }
    at_ += field.size();
    return CsvField{.text = std::string(field)};
}

// Behind the opening mark. Two marks stand for one.
std::expected<CsvField, std::string> CsvRecords::takeQuoted() {
    CsvField field{.text = {}, .quoted = true};
    while (true) {
        const auto mark = text_.find(quotationMark, at_);
        if (mark == std::string_view::npos) {
            return std::unexpected("the closing quotation mark is missing");
        }
        const auto part = text_.substr(at_, mark - at_);
        field.text += part;
        line_ += breaksIn(part);
        at_ = mark + 1;
        if (!take(quotationMark)) {
            break;
        }
        field.text += quotationMark;
    }
    if (!atFieldEnd()) {
        return std::unexpected("something stands behind the closing quotation mark");
    }
    return field;
}

bool CsvRecords::atFieldEnd() const noexcept {
    return at_ == text_.size() || text_[at_] == separator_ || lineBreaks.contains(text_[at_]);
}

bool CsvRecords::take(char c) noexcept {
    const bool there = at_ < text_.size() && text_[at_] == c;
    at_ += there ? 1 : 0;
    return there;
}

void CsvRecords::takeBreak() noexcept {
    const auto length = breakLength(text_.substr(at_));
    at_ += length;
    line_ += length > 0 ? 1 : 0;
}

}  // namespace telvar::interchange
