// Answers every message box of this thread, with OK unless told otherwise, and keeps what it said, so that a test
// neither hangs nor misses one.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include <windows.h>

namespace telvar::tests {

struct ShownBox {
    std::string text;
    std::string title;
    HWND owner = nullptr;
    std::string icon;          // as the system draws it: "none", "information", "exclamation" or "other"
    std::vector<int> buttons;  // from left to right

    // What the user sees of it, whoever owns it.
    [[nodiscard]] friend bool operator==(const ShownBox& left, const ShownBox& right) {
        return left.text == right.text && left.title == right.title && left.icon == right.icon &&
               left.buttons == right.buttons;
    }
    friend void PrintTo(const ShownBox& box, std::ostream* out) {
        *out << '"' << box.text << "\" titled \"" << box.title << "\", icon " << box.icon << ", buttons";
        for (const int button : box.buttons) {
            *out << ' ' << button;
        }
    }
};

class MessageBoxes {
public:
    MessageBoxes();
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;
    MessageBoxes(MessageBoxes&&) = delete;
    MessageBoxes& operator=(MessageBoxes&&) = delete;
    ~MessageBoxes();

    [[nodiscard]] const std::vector<ShownBox>& shown() const noexcept { return shown_; }
    [[nodiscard]] std::vector<std::string> texts() const;
    void forget() noexcept { shown_.clear(); }
    // The button that is pressed from now on.
    void answerWith(int button) noexcept { button_ = button; }

private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam);
    static void CALLBACK tick(HWND window, UINT message, UINT_PTR timer, DWORD time);
    void answer(HWND box);

    std::vector<ShownBox> shown_;
    HWND waiting_ = nullptr;
    int button_ = IDOK;
    HHOOK hook_;
};

}  // namespace telvar::tests
