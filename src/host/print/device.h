// What documents are printed on, and how the user chooses it: an interface, so that whatever takes pages can stand in
// for the system's printers.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/pinned.h"
#include "desk/page_setup.h"
#include "host/print/painter.h"

namespace telvar::host {

enum class DeviceAnswer {
    Done,
    Refused,
    Cancelled,  // by the user, in a window of the device's own
};

// One document's way to paper, in this order: begin; startPage, canvas, endPage for each page; end. giveUp instead of
// the rest at any place after begin.
class PrintDevice : private base::Pinned {
public:
    virtual ~PrintDevice() = default;

    // The sheet as it will be fed, in twips; its margins are what cannot be printed on.
    [[nodiscard]] virtual desk::Paper sheet() const = 0;
    // `goesOn` is asked now and then while the device is slow; the document ends when it answers false. It outlives the
    // document.
    [[nodiscard]] virtual DeviceAnswer begin(const std::wstring& name, const std::function<bool()>& goesOn) = 0;
    [[nodiscard]] virtual DeviceAnswer startPage() = 0;
    [[nodiscard]] virtual PageCanvas canvas() const = 0;
    [[nodiscard]] virtual DeviceAnswer endPage() = 0;
    [[nodiscard]] virtual DeviceAnswer end() = 0;
    virtual void giveUp() noexcept = 0;
};

struct PrintOrder {
    std::unique_ptr<PrintDevice> device;
    // Counted from 1, both included; held to the pages that there are.
    int firstPage = 1;
    int lastPage = 0x7FFF;
};

class Printers : private base::Pinned {
public:
    virtual ~Printers() = default;

    // The user's changes of the set-up; false when cancelled.
    [[nodiscard]] virtual bool setUpPage(HWND owner, desk::PageSetup& setup) = 0;
    // A printer of the user's choice; nothing when cancelled. May change the paper. Throws base::Failure with one
    // sentence where there is none.
    [[nodiscard]] virtual std::optional<PrintOrder> choose(HWND owner, desk::PageSetup& setup, int pages) = 0;
};

}  // namespace telvar::host
