// Answers the dialogs and message boxes of this thread in the order in which a test expects them, from inside their own
// message loops. One that nobody expects fails the test and is cancelled, so that no test hangs.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace telvar::tests {

class DialogAnswers {
public:
    using Answer = std::function<void(HWND dialog)>;

    DialogAnswers();
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;
    DialogAnswers(DialogAnswers&&) = delete;
    DialogAnswers& operator=(DialogAnswers&&) = delete;
    // An answer that was never asked for is a failure.
    ~DialogAnswers();

    void expect(Answer answer) { answers_.push_back(std::move(answer)); }
    // A message box's button.
    void expectBox(int button);
    // A button of the question about unsaved changes.
    void expectQuestion(int button);
    // A name for the system's dialog for files.
    void expectFile(std::wstring path);

    // Windows of that title come and go by themselves.
    void ignore(std::wstring title) { ignored_ = std::move(title); }

    // Title and texts of each dialog that was answered, e.g. "Telvar: The file ...".
    [[nodiscard]] const std::vector<std::wstring>& shown() const noexcept { return shown_; }

private:
    static void CALLBACK ticked(HWND window, UINT message, UINT_PTR timer, DWORD time) noexcept;
    void tick();

    std::deque<Answer> answers_;
    std::vector<std::wstring> shown_;
    std::wstring ignored_;
    HWND answered_ = nullptr;
    UINT_PTR timer_;
};

}  // namespace telvar::tests
