#include "host/shell/printing.h"

#include <algorithm>
#include <optional>

#include "com/kit/text.h"
#include "desk/html.h"
#include "host/shell/print_job.h"
#include "host/shell/print_preview.h"
#include "host/shell/print_system.h"
#include "host/shell/replace_file.h"

namespace telvar::host {

namespace {

// What the printer cannot reach is margin in any case.
desk::Paper withMargins(desk::Paper sheet, const desk::Margins& wanted) {
    sheet.margins = {std::max(sheet.margins.left, wanted.left), std::max(sheet.margins.top, wanted.top),
                     std::max(sheet.margins.right, wanted.right), std::max(sheet.margins.bottom, wanted.bottom)};
    return sheet;
}

}  // namespace

Printing::Printing(win::Settings& settings)
    : settings_(settings), setup_(loadPageSetup(settings)), printers_(std::make_unique<SystemPrinters>()) {}

desk::PrintedTable Printing::tableOf(const ReadTable& read) const {
    desk::PrintedTable table = read();
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
    desk::PrintedTable table = tableOf(read);
    const std::wstring name = com::wide(table.title);
    const auto expected = static_cast<int>(painter_.compose(table, paperOf(setup_)).pages.size());
    PageSetup changed = setup_;
    const std::optional<PrintOrder> order = printers_->choose(owner, changed, expected);
    if (!order) {
        return false;
    }
    keep(changed);
    // On the sheet that the printer will really feed.
    const desk::Paper paper = withMargins(order->device->sheet(), paperOf(setup_).margins);
    return printDocument(owner, *order, painter_, painter_.compose(std::move(table), paper), name);
}

void Printing::preview(HWND owner, const ReadTable& read) {
    showPreview(owner, painter_,
                {.compose = [&] { return painter_.compose(tableOf(read), paperOf(setup_)); },
                 .print = [&](HWND over) { (void)print(over, read); },
                 .setUpPage = [&](HWND over) { return setUpPage(over); }});
}

void Printing::saveHtml(const std::wstring& path, const ReadTable& read) const {
    replaceFile(path, desk::htmlOf(tableOf(read)));
}

}  // namespace telvar::host
