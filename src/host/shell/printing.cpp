#include "host/shell/printing.h"

#include <algorithm>
#include <optional>

#include "host/shell/print_job.h"
#include "host/shell/print_preview.h"
#include "host/shell/print_system.h"
#include "win/text.h"

namespace telvar::host {

namespace {

// What the printer cannot reach is margin in any case.
desk::Paper withMargins(desk::Paper sheet, const desk::Margins& wanted) {
    sheet.margins = {std::max(sheet.margins.left, wanted.left), std::max(sheet.margins.top, wanted.top),
                     std::max(sheet.margins.right, wanted.right), std::max(sheet.margins.bottom, wanted.bottom)};
    return sheet;
}

}  // namespace

Printing::Printing() : printers_(std::make_unique<SystemPrinters>()) {}

void Printing::setUpPage(HWND owner, desk::PageSetup& setup) {
    desk::PageSetup changed = setup;
    if (printers_->setUpPage(owner, changed)) {
        setup = changed;
    }
}

bool Printing::print(HWND owner, const ReadTable& read, desk::PageSetup& setup) {
    desk::PrintedTable table = read();
    const std::wstring name = win::wide(table.title);
    const auto expected = static_cast<int>(painter_.compose(table, desk::paperOf(setup)).pages.size());
    desk::PageSetup changed = setup;
    const std::optional<PrintOrder> order = printers_->choose(owner, changed, expected);
    if (!order) {
        return false;
    }
    setup = changed;
    // On the sheet that the printer will really feed.
    const desk::Paper paper = withMargins(order->device->sheet(), desk::paperOf(setup).margins);
    return printDocument(owner, *order, painter_, painter_.compose(std::move(table), paper), name);
}

void Printing::preview(HWND owner, const ReadTable& read, desk::PageSetup& setup) {
    showPreview(owner, painter_,
                {.compose = [&] { return painter_.compose(read(), desk::paperOf(setup)); },
                 .print = [&](HWND over) { (void)print(over, read, setup); },
                 .setUpPage =
                     [&](HWND over) {
                         const desk::PageSetup before = setup;
                         setUpPage(over, setup);
                         return setup != before;
                     }});
}

}  // namespace telvar::host
