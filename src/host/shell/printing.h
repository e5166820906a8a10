// Printing as the program offers it: page set-up, preview, print, and the same table as an HTML file. Knows neither the
// control nor the store: the table is read for each of them when it is needed.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "desk/printed_table.h"
#include "host/print/device.h"
#include "host/print/painter.h"
#include "win/settings.h"

namespace telvar::host {

// All channels, with title and date. May throw.
using ReadTable = std::function<desk::PrintedTable()>;

class Printing {
public:
    // Remembers the page set-up in `settings`, which outlive this.
    explicit Printing(win::Settings& settings);

    // Others than the system's.
    void setPrinters(std::unique_ptr<Printers> printers) { printers_ = std::move(printers); }
    [[nodiscard]] const PageSetup& setup() const noexcept { return setup_; }

    // Each throws base::Failure with one sentence, and what reading the table throws.
    // False when the user cancelled.
    bool setUpPage(HWND owner);
    [[nodiscard]] bool print(HWND owner, const ReadTable& read);
    void preview(HWND owner, const ReadTable& read);
    void saveHtml(const std::wstring& path, const ReadTable& read) const;

private:
    [[nodiscard]] desk::PrintedTable tableOf(const ReadTable& read) const;
    void keep(const PageSetup& setup);

    win::Settings& settings_;
    PageSetup setup_;
    PagePainter painter_;
    std::unique_ptr<Printers> printers_;
};

}  // namespace telvar::host
