// A printer that keeps the texts of its pages, fails where it is told to, and needs no window.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/print/device.h"

namespace telvar::tests {

// A text and the place of its first character's baseline, in pixels.
struct PrintedText {
    std::wstring text;
    POINT at{};
};

// What a page says when it is painted at that resolution, in the order of painting.
std::vector<PrintedText> printedTexts(const host::PagePainter& painter, const host::PrintDocument& document,
                                      std::size_t page, int dpi);
std::vector<std::wstring> textsOf(const std::vector<PrintedText>& printed);

struct PrinterRecord {
    using Answer = host::DeviceAnswer;

    // What each call answers from now on.
    Answer begin = Answer::Done;
    Answer startPage = Answer::Done;
    Answer endPage = Answer::Done;
    Answer end = Answer::Done;
    // Runs inside endPage, with the number of the page.
    std::function<void(int page)> duringPage;
    // Of the sheet that is fed, whatever the set-up wants; in twips.
    std::optional<desk::Paper> sheet;

    std::wstring name;
    std::vector<std::wstring> calls;
    std::vector<std::vector<std::wstring>> pages;
};

class RecordingPrinter final : public host::PrintDevice {
public:
    explicit RecordingPrinter(PrinterRecord& record, const desk::Paper& sheet)
        : record_(record), sheet_(record.sheet.value_or(sheet)) {}
    ~RecordingPrinter() override;

    [[nodiscard]] desk::Paper sheet() const override { return sheet_; }
    [[nodiscard]] host::DeviceAnswer begin(const std::wstring& name, const std::function<bool()>& goesOn) override;
    [[nodiscard]] host::DeviceAnswer startPage() override;
    [[nodiscard]] host::PageCanvas canvas() const override;
    [[nodiscard]] host::DeviceAnswer endPage() override;
    [[nodiscard]] host::DeviceAnswer end() override;
    void giveUp() noexcept override;

private:
    PrinterRecord& record_;
    desk::Paper sheet_;
    HDC page_ = nullptr;
};

// Prints on it without a question.
class RecordingPrinters final : public host::Printers {
public:
    explicit RecordingPrinters(PrinterRecord& record) : record_(record) {}

    [[nodiscard]] bool setUpPage(HWND owner, desk::PageSetup& setup) override;
    [[nodiscard]] std::optional<host::PrintOrder> choose(HWND owner, desk::PageSetup& setup, int pages) override;

    // Nothing: cancelled.
    std::function<bool(desk::PageSetup&)> setUp;
    std::function<bool(host::PrintOrder&, int pages)> order = [](host::PrintOrder&, int) { return true; };

private:
    PrinterRecord& record_;
};

}  // namespace telvar::tests
