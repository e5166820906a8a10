// The system's printers and its dialogs for them.
#pragma once

#include <windows.h>

#include "host/print/device.h"
#include "win/handle.h"

namespace telvar::host {

class SystemPrinters final : public Printers {
public:
    // What is told where there is none; a sentence without its full stop.
    static constexpr char noPrinter[] =
        "There is no printer on this computer; File > Save as HTML writes the same table for a browser";

    [[nodiscard]] bool setUpPage(HWND owner, desk::PageSetup& setup) override;
    [[nodiscard]] std::optional<PrintOrder> choose(HWND owner, desk::PageSetup& setup, int pages) override;

private:
    // The printer of the last choice, else the default one; false where there is none.
    bool findPrinter();
    void forgetPrinter() noexcept;
    void giveSetup(const desk::PageSetup& setup);
    void takeSetup(desk::PageSetup& setup) const;

    // As the system's dialogs exchange them: the printer's settings, and which printer it is.
    win::GlobalMemory mode_;
    win::GlobalMemory names_;
};

}  // namespace telvar::host
