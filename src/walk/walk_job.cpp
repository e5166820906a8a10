#include "walk/walk_job.h"

#include <fstream>
#include <iterator>

#include "com/kit/failure.h"
#include "com/kit/variant.h"
#include "walk/keyboard.h"

namespace telvar::walk {

namespace {

// The file name's box in the system's dialogs for files: a combo box or a plain text box.
constexpr int nameCombo = 0x047C;
constexpr int nameBox = 0x0480;

long numberOf(com::Variant value) {
    value.convertTo(VT_I4);
    return V_I4(&value.get());
}

}  // namespace

std::string contentsOf(const std::wstring& path) {
    std::ifstream file(path.c_str(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::wstring> expectEqual(const std::wstring& what, const std::wstring& expected,
                                      const std::wstring& found) {
    if (expected == found) {
        return {};
    }
    return {what + L": expected \"" + expected + L"\", found \"" + found + L"\""};
}

com::ComPointer<IChannelGrid> WalkJob::grid() const {
    auto grid = com::ComPointer<IChannelGrid>::from(program_.components().control);
    if (!grid) {
        throw com::ComFailure(E_NOINTERFACE, "The control does not show its grid to its host");
    }
    return grid;
}

std::wstring WalkJob::cell(int row, int column) const {
    com::Bstr text;
    com::checkCall(grid()->get_Cell(row, column, text.put()));
    return std::wstring(text.view());
}

long WalkJob::gridNumber(HRESULT (STDMETHODCALLTYPE IChannelGrid::*property)(long*)) const {
    long number = 0;
    com::checkCall((grid().get()->*property)(&number));
    return number;
}

std::wstring WalkJob::title() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(program_.window())) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(program_.window(), text.data(), static_cast<int>(text.size()))));
    return text;
}

bool WalkJob::opened(const std::wstring& path) const {
    return idle() && CompareStringOrdinal(program_.path().c_str(), -1, path.c_str(), -1, TRUE) == CSTR_EQUAL;
}

void WalkJob::enterFileName(const std::wstring& path) {
    const HWND dialog = Walk::dialog();
    const int box = GetDlgItem(dialog, nameCombo) != nullptr ? nameCombo : nameBox;
    SetDlgItemTextW(dialog, box, path.c_str());
    SetFocus(GetDlgItem(dialog, box));
    press({VK_RETURN});
}

// The caption, and every frequency cell as the store's own value would be written.
WalkJob::Lines WalkJob::checkOpened() {
    com::Bstr title;
    com::checkCall(program_.components().store->get_DatabaseTitle(title.put()));
    Lines wrong =
        expectEqual(L"the window's title", L"Channel Information - " + std::wstring(title.view()), WalkJob::title());
    const Lines cells = checkCells();
    wrong.insert(wrong.end(), cells.begin(), cells.end());
    expected_ = copyTable(program_, *grid());
    return wrong;
}

WalkJob::Lines WalkJob::checkCells() {
    Lines wrong;
    for (int channel = 1; channel <= TableCopy::channels; ++channel) {
        com::Variant frequency;
        com::checkCall(program_.record(channel)->get_TxFreq(frequency.put()));
        const long hertz = numberOf(std::move(frequency));
        const Lines lines = expectEqual(L"transmit frequency of channel " + std::to_wstring(channel),
                                        hertz == 0 ? L"X" : megahertz(hertz), cell(channel, transmitColumn));
        wrong.insert(wrong.end(), lines.begin(), lines.end());
    }
    return wrong;
}

// The first one.
Transmitting WalkJob::firstTransmitting() const {
    for (int channel = 1; channel <= TableCopy::channels; ++channel) {
        const auto record = program_.record(channel);
        com::Variant frequency;
        com::checkCall(record->get_TxFreq(frequency.put()));
        com::Variant step;
        com::checkCall(record->get_SynthStep(step.put()));
        if (const long hertz = numberOf(std::move(frequency)); hertz != 0) {
            return {.channel = channel, .hertz = hertz, .step = numberOf(std::move(step))};
        }
    }
    throw com::ComFailure(E_FAIL, "The table has no channel with a transmit frequency");
}

void WalkJob::changeFrequency() {
    const Transmitting first = firstTransmitting();
    const long hertz = first.hertz + first.step;
    com::checkCall(program_.record(first.channel)->put_TxFreq(com::Variant(std::int32_t{hertz}).get()));
    changedChannel_ = first.channel;
    changedText_ = megahertz(hertz);
    expected_.value(first.channel, L"TxFreq") = std::to_wstring(hertz);
    expected_.cell(first.channel, transmitColumn) = changedText_;
}

WalkJob::Lines WalkJob::checkUnchanged() { return differences(expected_, copyTable(program_, *grid())); }

}  // namespace telvar::walk
