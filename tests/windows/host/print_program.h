// The open program with a printer that records, and what tests of printing and of the preview share.
#pragma once

#include <memory>
#include <string>

#include "host/print/page_view.h"
#include "open_program.h"
#include "recording_printer.h"
#include "timed_steps.h"

namespace telvar::tests {

struct PrintProgram : Program {
    static constexpr int fileMenu = 0;

    void startWith(const std::string& name) {
        start(sample(name, "a.telvar"));
        auto own = std::make_unique<RecordingPrinters>(record);
        printers = own.get();
        program->setPrinters(std::move(own));
        dialogs.ignore(L"Printing");
    }
    void useOnlyChannelsInUse() {
        printers->setUp = [](desk::PageSetup& setup) {
            setup.onlyInUse = true;
            return true;
        };
        command(desk::Command::PageSetup);
    }
    // Opens the preview, in which `steps` are taken; they close it.
    void preview(TimedSteps& steps) {
        dialogs.expect([&](HWND window) {
            previewed = window;
            steps.start(window);
        });
        command(desk::Command::PrintPreview);
        EXPECT_TRUE(IsWindowEnabled(program->window()));
    }
    [[nodiscard]] TimedSteps::Step pageIs(int page) {
        return [this, page] {
            return textOf(GetDlgItem(previewed, PREVIEW_NUMBER)).starts_with(L"Page " + std::to_wstring(page) + L" ");
        };
    }
    static std::wstring textOf(HWND window) {
        std::wstring text(200, L'\0');
        text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 200)));
        return text;
    }
    [[nodiscard]] TimedSteps::Step focusIs(int control) {
        return [this, control] { return GetFocus() == GetDlgItem(previewed, control); };
    }
    [[nodiscard]] bool columnVisible(long column) {
        VARIANT_BOOL visible = VARIANT_FALSE;
        com::check(com::ComPointer<IChannelGrid>::from(components.control)->get_ColumnVisible(column, &visible));
        return visible != VARIANT_FALSE;
    }

    PrinterRecord record;
    RecordingPrinters* printers = nullptr;
    HWND previewed = nullptr;
};

}  // namespace telvar::tests
