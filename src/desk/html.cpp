#include "desk/html.h"

#include <cstddef>
#include <string_view>

namespace telvar::desk {

namespace {

constexpr std::string_view style = R"(
:root { color-scheme: light; }
body { margin: 2em; color: #111; background: #fff; font: 14px/1.4 "Segoe UI", Arial, sans-serif; }
h1 { margin: 0; font-size: 1.4em; }
p { margin: 0.2em 0 1em; color: #555; }
table { border-collapse: collapse; font-variant-numeric: tabular-nums; }
thead { display: table-header-group; }
th, td { padding: 0.2em 0.7em; text-align: left; white-space: nowrap; }
thead th { position: sticky; top: 0; white-space: normal; vertical-align: bottom; background: #dfe6ef; }
tbody tr { break-inside: avoid; border-bottom: 1px solid #d5dbe3; }
tbody tr:nth-child(even) { background: #f3f5f8; }
tbody th { font-weight: 600; }
.centred { text-align: center; }
@page { margin: 15mm; }
@media print {
  body { margin: 0; font-size: 8pt; print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  thead th { position: static; }
  th, td { padding: 0.1em 0.5em; }
}
)";

// Usable between tags and inside quoted attributes. What no HTML text may hold becomes U+FFFD.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char each : text) {
        switch (each) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\'':
            result += "&#39;";
            break;
        case '\t':
        case '\n':
        case '\r':
            result += each;
            break;
        default:
            if (static_cast<unsigned char>(each) < 0x20 || each == 0x7F) {
                result += "\xEF\xBF\xBD";
            } else {
                result += each;
            }
            break;
        }
    }
    return result;
}

std::string_view classOf(const Column& column) { return column.centred ? R"( class="centred")" : ""; }

void addHeaders(std::string& html, const PrintedTable& table) {
    html += "<thead>\n<tr>";
    for (const Column& column : table.columns) {
        html.append("<th scope=\"col\"").append(classOf(column)).append(">").append(escaped(column.header)) += "</th>";
    }
    html += "</tr>\n</thead>\n";
}

void addRow(std::string& html, const PrintedTable& table, const Row& row) {
    html += "<tr>";
    for (std::size_t at = 0; at < row.cells.size() && at < table.columns.size(); ++at) {
        const std::string_view tag = at == 0 ? "th" : "td";
        html.append("<").append(tag).append(at == 0 ? " scope=\"row\"" : "").append(classOf(table.columns[at]));
        html.append(">").append(escaped(row.cells[at])).append("</").append(tag) += ">";
    }
    html += "</tr>\n";
}

}  // namespace

std::string htmlOf(const PrintedTable& table) {
    const std::string title = escaped(table.title);
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
    html.append(title).append("</title>\n<style>").append(style).append("</style>\n</head>\n<body>\n<h1>");
    html.append(title).append("</h1>\n<p>").append(escaped(table.made)).append("</p>\n<table>\n");
    addHeaders(html, table);
    html += "<tbody>\n";
    for (const Row& row : table.rows) {
        addRow(html, table, row);
    }
    return html + "</tbody>\n</table>\n</body>\n</html>\n";
}

}  // namespace telvar::desk
