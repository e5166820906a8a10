// Printing as the program offers it: page set-up, preview, print. Knows neither the
// control nor the store: the table is read for each of them when it is needed.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "desk/printed_table.h"
#include "host/print/device.h"
#include "host/print/painter.h"

namespace telvar::host {

// The channels that are wanted, with title and date. May throw.
using ReadTable = std::function<desk::PrintedTable()>;

class Printing {
public:
    Printing();

    // Others than the system's.
    void setPrinters(std::unique_ptr<Printers> printers) { printers_ = std::move(printers); }

    // Each throws base::Failure with one sentence, and what reading the table throws. The set-up is the user's to
    // change.
    void setUpPage(HWND owner, desk::PageSetup& setup);
    // False when the user cancelled.
    [[nodiscard]] bool print(HWND owner, const ReadTable& read, desk::PageSetup& setup);
    void preview(HWND owner, const ReadTable& read, desk::PageSetup& setup);

private:
    PagePainter painter_;
    std::unique_ptr<Printers> printers_;
};

}  // namespace telvar::host
