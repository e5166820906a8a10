#include "host/shell/print_system.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <string>
#include <utility>

#include "base/failure.h"
#include "host/print/printer.h"
#include "host/shell/print_page_dialogs.h"
#include "win/global_memory.h"

namespace telvar::host {

namespace {

bool meansNoPrinter(DWORD error) noexcept { return error == PDERR_NODEFAULTPRN || error == PDERR_NODEVICES; }

// The printer was taken away or exchanged since it was chosen.
bool meansAnotherPrinter(DWORD error) noexcept {
    return error == PDERR_PRINTERNOTFOUND || error == PDERR_DNDMMISMATCH || error == PDERR_DEFAULTDIFFERENT ||
           error == PDERR_INITFAILURE;
}

const desk::KnownSheet* knownSheet(int code) noexcept {
    const auto* const found =
        std::ranges::find_if(desk::knownSheets, [code](const desk::KnownSheet& sheet) { return sheet.code == code; });
    return found == std::end(desk::knownSheets) ? nullptr : found;
}

[[noreturn]] void failed(DWORD error) {
    throw base::Failure("The system's dialog for printers does not open (error " + std::to_string(error) + ")");
}

}  // namespace

bool SystemPrinters::findPrinter() {
    if (mode_ && names_) {
        return true;
    }
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
    const BOOL found = PrintDlgW(&dialog);
    mode_.reset(dialog.hDevMode);
    names_.reset(dialog.hDevNames);
    return found && mode_ && names_;
}

void SystemPrinters::forgetPrinter() noexcept {
    mode_.reset();
    names_.reset();
}

void SystemPrinters::giveSetup(const desk::PageSetup& setup) {
    const win::Locked<DEVMODEW> locked(mode_.get());
    DEVMODEW* const mode = locked.get();
    if (mode == nullptr) {
        return;
    }
    constexpr int perTenth = 10;  // hundredths of a millimetre in the driver's unit
    mode->dmFields |= DM_ORIENTATION;
    mode->dmOrientation = static_cast<short>(setup.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT);
    if (setup.sheetCode != 0) {
        mode->dmFields |= DM_PAPERSIZE;
        mode->dmPaperSize = static_cast<short>(setup.sheetCode);
    } else {
        mode->dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
        mode->dmPaperWidth = static_cast<short>(setup.sheet.width / perTenth);
        mode->dmPaperLength = static_cast<short>(setup.sheet.height / perTenth);
    }
}

void SystemPrinters::takeSetup(desk::PageSetup& setup) const {
    const win::Locked<DEVMODEW> locked(mode_.get());
    const DEVMODEW* const mode = locked.get();
    if (mode == nullptr) {
        return;
    }
    if ((mode->dmFields & DM_ORIENTATION) != 0) {
        setup.landscape = mode->dmOrientation == DMORIENT_LANDSCAPE;
    }
    if ((mode->dmFields & DM_PAPERSIZE) != 0) {
        setup.sheetCode = mode->dmPaperSize;
        if (const desk::KnownSheet* const known = knownSheet(setup.sheetCode)) {
            setup.sheet = known->size;
        }
    }
}

bool SystemPrinters::setUpPage(HWND owner, desk::PageSetup& setup) {
    if (!findPrinter()) {
        return askPageSetup(owner, setup);
    }
    giveSetup(setup);
    desk::PageSetup changed = setup;
    PAGESETUPDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags = PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS | PSD_NOWARNING | PSD_ENABLEPAGESETUPHOOK;
    dialog.rtMargin = {setup.margins.left, setup.margins.top, setup.margins.right, setup.margins.bottom};
    dialog.lpfnPageSetupHook = addChannelChoice;
    dialog.lCustData = reinterpret_cast<LPARAM>(&changed.onlyInUse);
    dialog.hDevMode = mode_.release();
    dialog.hDevNames = names_.release();
    const BOOL taken = PageSetupDlgW(&dialog);
    const DWORD error = taken ? 0 : CommDlgExtendedError();
    mode_.reset(dialog.hDevMode);
    names_.reset(dialog.hDevNames);
    if (!taken) {
        if (meansNoPrinter(error) || meansAnotherPrinter(error)) {
            forgetPrinter();
            return askPageSetup(owner, setup);
        }
        if (error != 0) {
            failed(error);
        }
        return false;
    }
    changed.margins = {static_cast<int>(dialog.rtMargin.left), static_cast<int>(dialog.rtMargin.top),
                       static_cast<int>(dialog.rtMargin.right), static_cast<int>(dialog.rtMargin.bottom)};
    // The sheet as it is turned.
    const auto [shorter, longer] =
        std::minmax({static_cast<int>(dialog.ptPaperSize.x), static_cast<int>(dialog.ptPaperSize.y)});
    if (shorter > 0) {
        changed.sheet = {shorter, longer};
    }
    takeSetup(changed);
    if (!desk::leavesRoom(changed)) {
        changed.margins = desk::PageSetup().margins;
    }
    setup = changed;
    return true;
}

std::optional<PrintOrder> SystemPrinters::choose(HWND owner, desk::PageSetup& setup, int pages) {
    if (!findPrinter()) {
        throw base::Failure(noPrinter);
    }
    giveSetup(setup);
    const auto last = static_cast<WORD>(std::clamp(pages, 1, 0xFFFF));
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags = PD_RETURNDC | PD_USEDEVMODECOPIESANDCOLLATE | PD_NOSELECTION;
    dialog.nMinPage = 1;
    dialog.nMaxPage = last;
    dialog.nFromPage = 1;
    dialog.nToPage = last;
    dialog.nCopies = 1;
    dialog.hDevMode = mode_.release();
    dialog.hDevNames = names_.release();
    const BOOL taken = PrintDlgW(&dialog);
    const DWORD error = taken ? 0 : CommDlgExtendedError();
    mode_.reset(dialog.hDevMode);
    names_.reset(dialog.hDevNames);
    if (!taken) {
        if (error != 0) {
            forgetPrinter();
            failed(error);
        }
        return std::nullopt;
    }
    if (dialog.hDC == nullptr) {
        throw base::Failure("The printer cannot be reached");
    }
    takeSetup(setup);
    PrintOrder order;
    order.device = std::make_unique<Printer>(dialog.hDC);
    if ((dialog.Flags & PD_PAGENUMS) != 0) {
        order.firstPage = dialog.nFromPage;
        order.lastPage = dialog.nToPage;
    }
    return order;
}

}  // namespace telvar::host
