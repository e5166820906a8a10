#include "walk/walk.h"

#include <algorithm>
#include <array>
#include <utility>

#include "desk/sentences.h"
#include "walk/screenshot.h"
#include "win/text.h"

namespace telvar::walk {

namespace {

constexpr UINT tickInterval = 20;          // milliseconds
constexpr ULONGLONG longestWait = 20'000;  // for one step, in milliseconds
// The screen shows a window's contents some time after they were drawn, and says nobody when.
constexpr ULONGLONG settlingTime = 300;
constexpr std::size_t longestList = 20;

// Names that the system itself gives to its window classes.
constexpr wchar_t dialogClass[] = L"#32770";
constexpr wchar_t menuClass[] = L"#32768";

using IsWanted = bool (*)(HWND window) noexcept;

struct Search {
    IsWanted wanted = nullptr;
    HWND found = nullptr;
};

BOOL CALLBACK findVisible(HWND window, LPARAM data) noexcept {
    auto& search = *reinterpret_cast<Search*>(data);
    if (IsWindowVisible(window) && search.wanted(window)) {
        search.found = window;
    }
    return search.found == nullptr;
}

HWND findWindow(IsWanted wanted) noexcept {
    Search search{wanted};
    EnumThreadWindows(GetCurrentThreadId(), findVisible, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool hasClass(HWND window, std::wstring_view className) noexcept {
    std::array<wchar_t, 16> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return className == name.data();
}

bool isMenu(HWND window) noexcept { return hasClass(window, menuClass); }

// The control's own forms are no dialogs of the system's; like these they disable whom they belong to.
bool isDialog(HWND window) noexcept {
    const HWND owner = GetWindow(window, GW_OWNER);
    return IsWindowEnabled(window) && (hasClass(window, dialogClass) || (owner != nullptr && !IsWindowEnabled(owner)));
}

BOOL CALLBACK addText(HWND child, LPARAM collected) noexcept {
    std::array<wchar_t, 512> text{};
    if (GetDlgCtrlID(child) == 0xFFFF && GetWindowTextW(child, text.data(), static_cast<int>(text.size())) > 0) {
        *reinterpret_cast<std::wstring*>(collected) += std::wstring(L": ") + text.data();
    }
    return TRUE;
}

}  // namespace

Walk::Walk(host::MainWindow& window, Transcript& transcript, std::wstring folder)
    : window_(window), transcript_(transcript), folder_(std::move(folder)) {}

Walk::~Walk() {
    if (clock_ != nullptr) {
        DestroyWindow(clock_);
    }
}

HWND Walk::dialog() noexcept { return findWindow(isDialog); }

std::wstring Walk::textOf(HWND dialog) {
    std::array<wchar_t, 256> title{};
    GetWindowTextW(dialog, title.data(), static_cast<int>(title.size()));
    std::wstring text = title.data();
    EnumChildWindows(dialog, addText, reinterpret_cast<LPARAM>(&text));
    return text;
}

bool Walk::menuShows() noexcept { return findWindow(isMenu) != nullptr; }

void Walk::start(std::vector<WalkStep> steps) {
    steps_ = std::move(steps);
    next_ = 0;
    phase_ = Phase::Acting;
    clock_ = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetTimer(clock_, reinterpret_cast<UINT_PTR>(this), tickInterval, ticked);
}

void CALLBACK Walk::ticked(HWND, UINT, UINT_PTR timer, DWORD) noexcept {
    auto* walk = reinterpret_cast<Walk*>(timer);
    try {
        walk->tick();
    } catch (const std::exception& failure) {
        walk->inside_ = false;
        walk->fail(win::wide(desk::sentenceFor(failure)));
    }
}

void Walk::tick() {
    if (inside_ || failed_ || finished()) {
        return;
    }
    inside_ = true;
    const WalkStep& step = steps_[next_];
    switch (phase_) {
    case Phase::Acting:
        phase_ = Phase::Waiting;
        since_ = GetTickCount64();
        if (step.act) {
            step.act();
        }
        break;
    case Phase::Waiting:
        waitFor(step);
        break;
    case Phase::Settling:
        if (step.picture.empty() || GetTickCount64() - since_ >= settlingTime) {
            complete(step);
        }
        break;
    }
    inside_ = false;
}

void Walk::waitFor(const WalkStep& step) {
    const HWND open = dialog();
    const std::wstring which = open == nullptr ? std::wstring() : L" (" + textOf(open) + L")";
    if (open != nullptr && !step.dialog) {
        fail(L"a dialog stands in the way" + which);
    } else if (!step.done || step.done()) {
        phase_ = Phase::Settling;
        since_ = GetTickCount64();
    } else if (GetTickCount64() - since_ > longestWait) {
        fail(L"it did not happen within " + std::to_wstring(longestWait / 1000) + L" seconds" + which);
    }
}

void Walk::complete(const WalkStep& step) {
    if (!step.picture.empty()) {
        takePicture(step.picture);
    }
    const std::vector<std::wstring> wrong = step.check ? step.check() : std::vector<std::wstring>();
    if (!wrong.empty()) {
        for (std::size_t index = 0; index < std::min(wrong.size(), longestList); ++index) {
            transcript_.line(L"      " + wrong[index]);
        }
        fail(std::to_wstring(wrong.size()) + (wrong.size() == 1 ? L" difference" : L" differences"));
        return;
    }
    transcript_.line(L"ok    " + step.text + (step.result ? L": " + step.result() : std::wstring()));
    phase_ = Phase::Acting;
    ++next_;
}

bool Walk::conclude() {
    // The step that closes the window ends the loop before the clock ticks again.
    if (!failed_ && next_ + 1 == steps_.size() && phase_ == Phase::Waiting && steps_[next_].done()) {
        complete(steps_[next_]);
    }
    if (!failed_ && !finished()) {
        fail(L"the program ended too early");
    }
    transcript_.line(failed_ ? L"The walk failed at step " + std::to_wstring(next_ + 1) + L" of " +
                                   std::to_wstring(steps_.size()) + L"."
                             : std::to_wstring(steps_.size()) + L" steps, everything as expected.");
    return !failed_;
}

void Walk::fail(const std::wstring& why) {
    failed_ = true;
    transcript_.line(L"FAIL  " + (finished() ? std::wstring() : steps_[next_].text) + L": " + why);
    if (window_.window() != nullptr) {
        takePicture(L"failure");
    }
    // A menu's loop does not end with the program's.
    EndMenu();
    PostQuitMessage(1);
}

void Walk::takePicture(const std::wstring& name) { savePicture(window_.window(), folder_ + L"\\" + name + L".png"); }

}  // namespace telvar::walk
