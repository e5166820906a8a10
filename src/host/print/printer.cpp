#include "host/print/printer.h"

#include <algorithm>

namespace telvar::host {

namespace {

constexpr int twipsPerInch = 1440;

// The system hands the abort procedure nothing of ours. One document is printed at a time.
const std::function<bool()>* asked = nullptr;

DeviceAnswer answerOf(int result) noexcept {
    if (result > 0) {
        return DeviceAnswer::Done;
    }
    const DWORD error = GetLastError();
    const bool cancelled =
        error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED || result == SP_APPABORT || result == SP_USERABORT;
    return cancelled ? DeviceAnswer::Cancelled : DeviceAnswer::Refused;
}

}  // namespace

desk::Paper Printer::sheet() const {
    const HDC context = context_.get();
    const int across = std::max(GetDeviceCaps(context, LOGPIXELSX), 1);
    const int down = std::max(GetDeviceCaps(context, LOGPIXELSY), 1);
    const int width = GetDeviceCaps(context, PHYSICALWIDTH);
    const int height = GetDeviceCaps(context, PHYSICALHEIGHT);
    const int left = GetDeviceCaps(context, PHYSICALOFFSETX);
    const int top = GetDeviceCaps(context, PHYSICALOFFSETY);
    const auto twips = [](int pixels, int dpi) { return MulDiv(std::max(pixels, 0), twipsPerInch, dpi); };
    return {.size = {twips(width, across), twips(height, down)},
            .margins = {twips(left, across), twips(top, down),
                        twips(width - left - GetDeviceCaps(context, HORZRES), across),
                        twips(height - top - GetDeviceCaps(context, VERTRES), down)}};
}

DeviceAnswer Printer::begin(const std::wstring& name, const std::function<bool()>& goesOn) {
    asked = &goesOn;
    SetAbortProc(context_.get(), abortProcedure);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    SetLastError(ERROR_SUCCESS);
    const DeviceAnswer answer = answerOf(StartDocW(context_.get(), &document));
    if (answer != DeviceAnswer::Done) {
        asked = nullptr;
    }
    return answer;
}

DeviceAnswer Printer::startPage() {
    SetLastError(ERROR_SUCCESS);
    return answerOf(StartPage(context_.get()));
}

PageCanvas Printer::canvas() const {
    const HDC context = context_.get();
    return {.context = context,
            .corner = {-GetDeviceCaps(context, PHYSICALOFFSETX), -GetDeviceCaps(context, PHYSICALOFFSETY)},
            .dpi = {GetDeviceCaps(context, LOGPIXELSX), GetDeviceCaps(context, LOGPIXELSY)}};
}

DeviceAnswer Printer::endPage() {
    SetLastError(ERROR_SUCCESS);
    return answerOf(EndPage(context_.get()));
}

DeviceAnswer Printer::end() {
    SetLastError(ERROR_SUCCESS);
    const DeviceAnswer answer = answerOf(EndDoc(context_.get()));
    asked = nullptr;
    return answer;
}

void Printer::giveUp() noexcept {
    AbortDoc(context_.get());
    asked = nullptr;
}

BOOL CALLBACK Printer::abortProcedure(HDC, int) noexcept {
    try {
        return asked == nullptr || (*asked)() ? TRUE : FALSE;
    } catch (...) {
        return FALSE;
    }
}

}  // namespace telvar::host
