#include "recording_printer.h"

#include <algorithm>

namespace telvar::tests {

using host::DeviceAnswer;

namespace {

constexpr int usualDpi = 600;

int CALLBACK collect(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM found) noexcept {
    if (record->iType == EMR_EXTTEXTOUTW) {
        const auto* const written = reinterpret_cast<const EMREXTTEXTOUTW*>(record);
        if (written->emrtext.nChars > 0) {
            const auto* const text =
                reinterpret_cast<const wchar_t*>(reinterpret_cast<const BYTE*>(record) + written->emrtext.offString);
            reinterpret_cast<std::vector<PrintedText>*>(found)->push_back(
                {{text, written->emrtext.nChars}, {written->emrtext.ptlReference.x, written->emrtext.ptlReference.y}});
        }
    }
    return 1;
}

std::vector<PrintedText> closeAndRead(HDC metafile) {
    std::vector<PrintedText> found;
    const HENHMETAFILE closed = CloseEnhMetaFile(metafile);
    EnumEnhMetaFile(nullptr, closed, collect, &found, nullptr);
    DeleteEnhMetaFile(closed);
    return found;
}

}  // namespace

std::vector<PrintedText> printedTexts(const host::PagePainter& painter, const host::PrintDocument& document,
                                      std::size_t page, int dpi) {
    const HDC metafile = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    painter.paint({.context = metafile, .corner = {0, 0}, .dpi = {dpi, dpi}}, document, page);
    return closeAndRead(metafile);
}

std::vector<std::wstring> textsOf(const std::vector<PrintedText>& printed) {
    std::vector<std::wstring> texts;
    for (const PrintedText& each : printed) {
        texts.push_back(each.text);
    }
    return texts;
}

RecordingPrinter::~RecordingPrinter() {
    if (page_ != nullptr) {
        DeleteEnhMetaFile(CloseEnhMetaFile(page_));
    }
}

DeviceAnswer RecordingPrinter::begin(const std::wstring& name, const std::function<bool()>&) {
    record_.calls.emplace_back(L"begin");
    record_.name = name;
    return record_.begin;
}

DeviceAnswer RecordingPrinter::startPage() {
    record_.calls.emplace_back(L"startPage");
    if (record_.startPage == DeviceAnswer::Done) {
        page_ = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    }
    return record_.startPage;
}

host::PageCanvas RecordingPrinter::canvas() const {
    return {.context = page_, .corner = {0, 0}, .dpi = {usualDpi, usualDpi}};
}

DeviceAnswer RecordingPrinter::endPage() {
    record_.calls.emplace_back(L"endPage");
    record_.pages.push_back(textsOf(closeAndRead(page_)));
    page_ = nullptr;
    if (record_.duringPage) {
        record_.duringPage(static_cast<int>(record_.pages.size()));
    }
    return record_.endPage;
}

DeviceAnswer RecordingPrinter::end() {
    record_.calls.emplace_back(L"end");
    return record_.end;
}

void RecordingPrinter::giveUp() noexcept { record_.calls.emplace_back(L"giveUp"); }

bool RecordingPrinters::setUpPage(HWND, desk::PageSetup& setup) { return setUp && setUp(setup); }

std::optional<host::PrintOrder> RecordingPrinters::choose(HWND, desk::PageSetup& setup, int pages) {
    host::PrintOrder chosen;
    desk::Paper sheet = paperOf(setup);
    sheet.margins = {};
    chosen.device = std::make_unique<RecordingPrinter>(record_, sheet);
    return order(chosen, pages) ? std::optional(std::move(chosen)) : std::nullopt;
}

}  // namespace telvar::tests
