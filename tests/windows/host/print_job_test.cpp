// The way of a document to a device: in which order it is called, and what becomes of failures and of cancelling.
#include <gtest/gtest.h>

#include <memory>

#include "base/failure.h"
#include "host/shell/print_job.h"
#include "host/shell/resource.h"
#include "recording_printer.h"

namespace telvar::tests {

using host::DeviceAnswer;
using Calls = std::vector<std::wstring>;

namespace {

constexpr desk::Paper paper{{6000, 6000}, {300, 300, 300, 300}};
// Rows that make several pages of that paper.
constexpr int several = 60;

HWND cancelBox() { return FindWindowW(L"#32770", L"Printing"); }

}  // namespace

struct PrintJob : testing::Test {
    PrintJob()
        : owner(CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP | WS_VISIBLE, 10, 10, 300, 200, nullptr, nullptr,
                                nullptr, nullptr)) {}
    ~PrintJob() override { DestroyWindow(owner); }

    [[nodiscard]] host::PrintDocument documentOf(int rows) const {
        desk::PrintedTable table{.title = "Title", .columns = {{.header = "Channel"}, {.header = "Head"}}};
        for (int row = 1; row <= rows; ++row) {
            table.rows.push_back({.cells = {std::to_string(row), "cell"}});
        }
        return painter.compose(std::move(table), paper);
    }
    [[nodiscard]] bool print(int rows, int first = 1, int last = 0x7FFF) {
        const host::PrintDocument document = documentOf(rows);
        pageCount = static_cast<int>(document.pages.size());
        const host::PrintOrder order{std::make_unique<RecordingPrinter>(record, paper), first, last};
        return host::printDocument(owner, order, painter, document, L"The table");
    }
    // The sentence of the failure; empty where there was none.
    [[nodiscard]] std::string failureOf(int rows) {
        try {
            EXPECT_FALSE(print(rows));
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return {};
    }
    void expectOwnerBack() const {
        EXPECT_TRUE(IsWindowEnabled(owner));
        EXPECT_EQ(cancelBox(), nullptr);
    }

    HWND owner;
    host::PagePainter painter;
    PrinterRecord record;
    int pageCount = 0;
};

TEST_F(PrintJob, OnePageIsPrintedWithoutABox) {
    record.duringPage = [](int) { EXPECT_EQ(cancelBox(), nullptr); };
    EXPECT_TRUE(print(1));
    EXPECT_EQ(record.calls, (Calls{L"begin", L"startPage", L"endPage", L"end"}));
    EXPECT_EQ(record.name, L"The table");
    expectOwnerBack();
}

TEST_F(PrintJob, SeveralPagesAreToldInABoxAndTheOwnerDoesNotAnswer) {
    std::vector<std::wstring> told;
    record.duringPage = [&](int) {
        std::wstring text(100, L'\0');
        text.resize(static_cast<std::size_t>(GetDlgItemTextW(cancelBox(), DIALOG_NOTE, text.data(), 100)));
        told.push_back(text);
        EXPECT_FALSE(IsWindowEnabled(owner));
    };
    EXPECT_TRUE(print(several));
    ASSERT_GT(pageCount, 2);
    EXPECT_EQ(record.pages.size(), static_cast<std::size_t>(pageCount));
    EXPECT_EQ(told.at(1), L"Printing page 2 of " + std::to_wstring(pageCount) + L"...");
    EXPECT_EQ(record.calls.back(), L"end");
    expectOwnerBack();
}

TEST_F(PrintJob, OnlyTheWantedPagesArePrinted) {
    EXPECT_TRUE(print(several, 2, 2));
    ASSERT_EQ(record.pages.size(), 1U);
    EXPECT_EQ(record.pages.front().back(), L"Page 2 of " + std::to_wstring(pageCount));
    record.pages.clear();
    EXPECT_TRUE(print(several, -4, 1));
    EXPECT_EQ(record.pages.size(), 1U);
    record.pages.clear();
    EXPECT_TRUE(print(several, 900, 1000));
    ASSERT_EQ(record.pages.size(), 1U);
    EXPECT_EQ(record.pages.front().back(),
              L"Page " + std::to_wstring(pageCount) + L" of " + std::to_wstring(pageCount));
}

TEST_F(PrintJob, ADocumentThatIsNotTakenIsTold) {
    record.begin = DeviceAnswer::Refused;
    EXPECT_EQ(failureOf(several), "The printer did not take the document");
    EXPECT_EQ(record.calls, (Calls{L"begin"}));
    expectOwnerBack();
}

TEST_F(PrintJob, APageThatDoesNotBeginIsToldAndTheDocumentGivenUp) {
    record.startPage = DeviceAnswer::Refused;
    EXPECT_EQ(failureOf(several), "Page 1 could not be printed, and the rest of the document was given up");
    EXPECT_EQ(record.calls, (Calls{L"begin", L"startPage", L"giveUp"}));
    expectOwnerBack();
}

TEST_F(PrintJob, APageThatDoesNotEndIsToldAndTheDocumentGivenUp) {
    record.duringPage = [this](int page) { record.endPage = page == 2 ? DeviceAnswer::Refused : DeviceAnswer::Done; };
    EXPECT_EQ(failureOf(several), "Page 2 could not be printed, and the rest of the document was given up");
    EXPECT_EQ(record.calls, (Calls{L"begin", L"startPage", L"endPage", L"startPage", L"endPage", L"giveUp"}));
    expectOwnerBack();
}

TEST_F(PrintJob, AnEndThatIsNotTakenIsTold) {
    record.end = DeviceAnswer::Refused;
    EXPECT_EQ(failureOf(1), "The printer did not take the end of the document");
    EXPECT_EQ(record.calls, (Calls{L"begin", L"startPage", L"endPage", L"end"}));
}

TEST_F(PrintJob, CancellingInTheBoxGivesTheDocumentUpInSilence) {
    record.duringPage = [](int page) {
        if (page == 2) {
            PostMessageW(cancelBox(), WM_COMMAND, IDCANCEL, 0);
        }
    };
    EXPECT_FALSE(print(several));
    EXPECT_EQ(record.pages.size(), 2U);
    EXPECT_EQ(record.calls.back(), L"giveUp");
    expectOwnerBack();
}

// The system's printers fail their calls once the abort procedure has said no.
TEST_F(PrintJob, AFailureAfterCancellingIsNone) {
    record.duringPage = [this](int) {
        PostMessageW(cancelBox(), WM_COMMAND, IDCANCEL, 0);
        record.endPage = DeviceAnswer::Refused;
    };
    EXPECT_EQ(failureOf(several), "");
    EXPECT_EQ(record.calls.back(), L"giveUp");
    expectOwnerBack();
}

TEST_F(PrintJob, CancellingInTheDevicesOwnWindowIsSilent) {
    record.begin = DeviceAnswer::Cancelled;
    EXPECT_EQ(failureOf(1), "");
    EXPECT_EQ(record.calls, (Calls{L"begin"}));
}

TEST_F(PrintJob, TheEndOfTheProgramEndsTheDocumentAndIsNotSwallowed) {
    record.duringPage = [](int) { PostQuitMessage(7); };
    EXPECT_FALSE(print(several));
    EXPECT_EQ(record.calls.back(), L"giveUp");
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
    expectOwnerBack();
}

TEST_F(PrintJob, AnOwnerThatGoesAwayEndsTheDocument) {
    record.duringPage = [this](int) { DestroyWindow(owner); };
    EXPECT_FALSE(print(several));
    EXPECT_EQ(record.calls.back(), L"giveUp");
    EXPECT_EQ(cancelBox(), nullptr);
}

}  // namespace telvar::tests
