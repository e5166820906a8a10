#include "cli/table_verdict.h"

#include "model/memory_data_store.h"
#include "ui/desktop.h"

namespace telvar::cli {

namespace {

// The control's line ends, of either kind, as line ends of a stream; the lines after the first stand in.
[[nodiscard]] std::string indented(const std::string& text) {
    std::string lines;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool pair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        at += pair ? 1 : 0;
        lines += text[at] == '\r' || text[at] == '\n' ? "\n    " : std::string(1, text[at]);
    }
    lines.erase(lines.find_last_not_of(" \n") + 1);
    return lines;
}

}  // namespace

TableVerdict verdictOn(const store::TableContents& contents) {
    model::MemoryDataStore table;
    store::putInto(table, contents);
    return TableVerdict{.table = synth::checkFrequencies(table), .scan = synth::checkScanCount(table)};
}

void tell(const Console& console, const std::string& name, const TableVerdict& verdict) {
    for (const synth::Finding& finding : verdict.table.findings) {
        console.err << name << ": " << indented(finding.text) << '\n';
    }
    if (!verdict.scan.empty()) {
        console.err << name << ": " << verdict.scan << '\n';
    }
}

Json jsonOf(const TableVerdict& verdict) {
    std::vector<Json> messages;
    for (const synth::Finding& finding : verdict.table.findings) {
        messages.push_back(Json()
                               .add("text", finding.text)
                               .add("title", finding.title.value_or(ui::defaultTitle))
                               .add("icon", "exclamation"));
    }
    return Json().add("scan", verdict.scan).add("messages", messages);
}

}  // namespace telvar::cli
