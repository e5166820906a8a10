#include "win32/clipboard.h"

#include <string_view>
#include <utility>

#include "base/failure.h"
#include "win32/convert.h"

namespace telvar::win32 {

namespace {

class OpenClipboardGuard {
public:
    explicit OpenClipboardGuard(HWND owner) {
        // Nothing tells when the clipboard becomes free.
        constexpr int attempts = 20;
        constexpr DWORD pause = 10;
        for (int attempt = 0; OpenClipboard(owner) == FALSE; ++attempt) {
            if (attempt == attempts) {
                throw base::Failure("The clipboard is in use by another program");
            }
            Sleep(pause);
        }
    }
    OpenClipboardGuard(const OpenClipboardGuard&) = delete;
    OpenClipboardGuard& operator=(const OpenClipboardGuard&) = delete;
    OpenClipboardGuard(OpenClipboardGuard&&) = delete;
    OpenClipboardGuard& operator=(OpenClipboardGuard&&) = delete;
    ~OpenClipboardGuard() { CloseClipboard(); }
};

class LockedMemory {
public:
    explicit LockedMemory(HGLOBAL memory) noexcept : memory_(memory), data_(GlobalLock(memory)) {}
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;
    LockedMemory(LockedMemory&&) = delete;
    LockedMemory& operator=(LockedMemory&&) = delete;
    ~LockedMemory() {
        if (data_ != nullptr) {
            GlobalUnlock(memory_);
        }
    }
    [[nodiscard]] wchar_t* text() const noexcept { return static_cast<wchar_t*>(data_); }

private:
    HGLOBAL memory_;
    void* data_;
};

// Memory that becomes the clipboard's when it is taken over.
class ClipboardMemory {
public:
    explicit ClipboardMemory(std::wstring_view text)
        : memory_(GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t))) {
        const LockedMemory locked(memory_);
        if (locked.text() == nullptr) {
            throw base::Failure("The text is too long for the clipboard");
        }
        locked.text()[text.copy(locked.text(), text.size())] = L'\0';
    }
    ClipboardMemory(const ClipboardMemory&) = delete;
    ClipboardMemory& operator=(const ClipboardMemory&) = delete;
    ClipboardMemory(ClipboardMemory&&) = delete;
    ClipboardMemory& operator=(ClipboardMemory&&) = delete;
    ~ClipboardMemory() {
        if (memory_ != nullptr) {
            GlobalFree(memory_);
        }
    }
    void handOver() {
        if (SetClipboardData(CF_UNICODETEXT, memory_) == nullptr) {
            throw base::Failure("The clipboard did not take the text");
        }
        memory_ = nullptr;
    }

private:
    HGLOBAL memory_;
};

}  // namespace

std::optional<std::string> readClipboardText(HWND owner) {
    if (IsClipboardFormatAvailable(CF_UNICODETEXT) == FALSE) {
        return std::nullopt;
    }
    const OpenClipboardGuard open(owner);
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    if (data == nullptr) {
        return std::nullopt;
    }
    return textOfClipboardBlock(data);
}

std::optional<std::string> textOfClipboardBlock(HGLOBAL block) {
    const LockedMemory locked(block);
    if (locked.text() == nullptr) {
        return std::nullopt;
    }
    const std::wstring_view text(locked.text(), GlobalSize(block) / sizeof(wchar_t));
    return narrowed(text.substr(0, text.find(L'\0')));
}

void writeClipboardText(HWND owner, const std::string& text) {
    ClipboardMemory memory(widened(text));
    const OpenClipboardGuard open(owner);
    if (EmptyClipboard() == FALSE) {
        throw base::Failure("The clipboard could not be emptied");
    }
    memory.handOver();
}

}  // namespace telvar::win32
