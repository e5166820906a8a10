// Shows a document's pages before they are printed, in a window over its owner, which does not answer meanwhile.
#pragma once

#include <windows.h>

#include <functional>

#include "host/print/painter.h"

namespace telvar::host {

// What the preview's buttons do; each is given the window that its dialogs belong to.
struct PreviewActions {
    // The document as the page set-up has it now.
    std::function<PrintDocument()> compose;
    std::function<void(HWND owner)> print;
    // Whether the set-up has changed.
    std::function<bool(HWND owner)> setUpPage;
};

// Until the user closes it or the owner is destroyed. Throws what composing throws.
void showPreview(HWND owner, const PagePainter& painter, const PreviewActions& actions);

}  // namespace telvar::host
