#include "host/printing.h"

#include <algorithm>
#include <optional>

#include "com/kit/text.h"
#include "host/print/html.h"
#include "host/print_job.h"
#include "host/print_preview.h"
#include "host/print_system.h"
#include "host/replace_file.h"

namespace telvar::host {

namespace {

// What the printer cannot reach is margin in any case.
print::Paper withMargins(print::Paper sheet, const print::Margins& wanted) {
    sheet.margins = {std::max(sheet.margins.left, wanted.left), std::max(sheet.margins.top, wanted.top),
                     std::max(sheet.margins.right, wanted.right), std::max(sheet.margins.bottom, wanted.bottom)};
    return sheet;
}

}  // namespace

Printing::Printing(Settings& settings)
    : settings_(settings), setup_(loadPageSetup(settings)), printers_(std::make_unique<SystemPrinters>()) {}

print::Table Printing::tableOf(const ReadTable& read) const {
    print::Table table = read();
    if (setup_.onlyInUse) {
        keepRowsInUse(table);
    }
    return table;
}

void Printing::keep(const PageSetup& setup) {
    if (setup_ != setup) {
        setup_ = setup;
        savePageSetup(settings_, setup_);
    }
}

bool Printing::setUpPage(HWND owner) {
    PageSetup changed = setup_;
    if (!printers_->setUpPage(owner, changed)) {
        return false;
    }
    keep(changed);
    return true;
}

bool Printing::print(HWND owner, const ReadTable& read) {
    print::Table table = tableOf(read);
    const std::wstring name = com::wide(table.title);
    const auto expected = static_cast<int>(painter_.compose(table, paperOf(setup_)).pages.size());
    PageSetup changed = setup_;
    const std::optional<PrintOrder> order = printers_->choose(owner, changed, expected);
    if (!order) {
        return false;
    }
    keep(changed);
    // On the sheet that the printer will really feed.
    const print::Paper paper = withMargins(order->device->sheet(), paperOf(setup_).margins);
    return printDocument(owner, *order, painter_, painter_.compose(std::move(table), paper), name);
}

void Printing::preview(HWND owner, const ReadTable& read) {
    showPreview(owner, painter_,
                {.compose = [&] { return painter_.compose(tableOf(read), paperOf(setup_)); },
                 .print = [&](HWND over) { (void)print(over, read); },
                 .setUpPage = [&](HWND over) { return setUpPage(over); }});
}

void Printing::saveHtml(const std::wstring& path, const ReadTable& read) const {
    replaceFile(path, print::htmlOf(tableOf(read)));
}

}  // namespace telvar::host
