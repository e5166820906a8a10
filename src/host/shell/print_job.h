// Sends a document's pages to a device, with a box to cancel it when there is more than one.
#pragma once

#include <windows.h>

#include <string>

#include "host/print/device.h"

namespace telvar::host {

// `name` is what the printer's queue shows. `owner` does not answer meanwhile. False when the user cancelled; throws
// base::Failure where the device failed, and the document is given up in both cases.
[[nodiscard]] bool printDocument(HWND owner, const PrintOrder& order, const PagePainter& painter,
                                 const PrintDocument& document, const std::wstring& name);

}  // namespace telvar::host
