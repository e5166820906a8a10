// Printing: what the user asks for goes through the control, which knows whether a table is open, and comes back as its
// event.
#include <utility>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "com/kit/text.h"
#include "host/shell/dialogs.h"
#include "host/shell/main_window.h"
#include "host/shell/main_window_scopes.h"
#include "host/shell/print_source.h"
#include "host/shell/resource.h"

namespace telvar::host {

// Whether the command was one of these.
bool MainWindow::runForPrinting(int command) {
    switch (command) {
    case COMMAND_PAGE_SETUP:
        setUpPage();
        return true;
    case COMMAND_PRINT_PREVIEW:
        requestPrint(PrintWish::Preview);
        return true;
    case COMMAND_PRINT:
        requestPrint(PrintWish::Print);
        return true;
    case COMMAND_SAVE_HTML:
        requestPrint(PrintWish::Html);
        return true;
    default:
        return false;
    }
}

void MainWindow::requestPrint(PrintWish wish) {
    printWish_ = wish;
    callControl(&_ChannelInformation::PrintInfo);
    printWish_ = PrintWish::Preview;
}

// Comes from inside a call of the control, ours or a script's. What may open a window waits until that has returned.
void MainWindow::PrintChannelData() {
    printRequest_ = printWish_;
    PostMessageW(window_, printMessage, 0, 0);
}

// Does nothing while something else is under way; the state timer comes back to it.
void MainWindow::answerPrint() {
    if (!printRequest_ || !mayAct()) {
        return;
    }
    const PrintWish wish = *std::exchange(printRequest_, std::nullopt);
    attempt([&] {
        switch (wish) {
        case PrintWish::Preview: {
            const Modal modal(*this);
            printing_.preview(window_, [this] { return printedTable(); });
            break;
        }
        case PrintWish::Print:
            print();
            break;
        case PrintWish::Html:
            saveHtml();
            break;
        }
    });
}

void MainWindow::print() {
    bool printed = false;
    {
        const Modal modal(*this);
        printed = printing_.print(window_, [this] { return printedTable(); });
    }
    if (printed && window_ != nullptr) {
        showStatus(L"The table was printed.");
    }
}

void MainWindow::saveHtml() {
    std::wstring suggested = document_->path();
    const std::size_t dot = suggested.find_last_of(L'.');
    const std::size_t name = suggested.find_last_of(L"\\/");
    if (dot != std::wstring::npos && (name == std::wstring::npos || dot > name)) {
        suggested.resize(dot);
    }
    suggested = (suggested.empty() ? L"Channel table" : suggested) + L".html";
    std::optional<std::wstring> path;
    {
        const Modal modal(*this);
        path = askHtmlPath(window_, suggested);
    }
    if (path && window_ != nullptr) {
        printing_.saveHtml(*path, [this] { return printedTable(); });
        showStatus(L"The table was saved as " + *path + L".");
    }
}

void MainWindow::setUpPage() {
    attempt([this] {
        const Modal modal(*this);
        printing_.setUpPage(window_);
    });
}

desk::PrintedTable MainWindow::printedTable() const {
    const auto grid = com::ComPointer<IChannelGrid>::from(channels_);
    if (!grid) {
        throw com::ComFailure(E_NOINTERFACE, "The channel table control does not tell what it shows");
    }
    desk::PrintedTable table = readShownTable(*grid);
    com::Bstr title;
    com::checkCall(document_->store()->get_DatabaseTitle(title.put()));
    table.title = title.view().empty() ? "Channel table" : title.text();
    table.made = com::narrow(presentDateAndTime());
    return table;
}

}  // namespace telvar::host
