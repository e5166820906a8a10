// Walks the program's main job by itself, with keys and dialogs as a user has them: a list of steps, each of which acts
// once and is done when what it waits for has happened. It is driven by a timer, so that it also goes on inside message
// boxes and menus. Transcript and pictures go to one folder.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/pinned.h"
#include "host/shell/main_window.h"
#include "walk/transcript.h"

namespace telvar::walk {

struct WalkStep {
    // What the step does, as the transcript says it.
    std::wstring text;
    std::function<void()> act;
    // Whether it has happened; asked again and again.
    std::function<bool()> done;
    // What is not as it should be once it has happened; one sentence each.
    std::function<std::vector<std::wstring>()> check;
    // Name of the picture to take afterwards, without its extension; none when empty.
    std::wstring picture;
    // What came out of it, for the transcript; asked after the check.
    std::function<std::wstring()> result;
    // A dialog may stand open while the step waits; any other is a failure.
    bool dialog = false;
};

class Walk : private base::Pinned {
public:
    // Both outlive the walk.
    Walk(host::MainWindow& window, Transcript& transcript, std::wstring folder);
    ~Walk();

    // Takes the steps in order. The last one is expected to end the message loop; the first that fails does.
    void start(std::vector<WalkStep> steps);
    // After the message loop: whether every step was taken and all was as it should be.
    [[nodiscard]] bool conclude();

    // The topmost message box or dialog of this thread, null when there is none.
    [[nodiscard]] static HWND dialog() noexcept;
    // Its title and what it says: "Telvar: The file ...".
    [[nodiscard]] static std::wstring textOf(HWND dialog);
    // Whether a menu of this thread is open.
    [[nodiscard]] static bool menuShows() noexcept;

private:
    enum class Phase { Acting, Waiting, Settling };

    static void CALLBACK ticked(HWND window, UINT message, UINT_PTR timer, DWORD time) noexcept;
    void tick();
    void waitFor(const WalkStep& step);
    void complete(const WalkStep& step);
    [[nodiscard]] bool finished() const noexcept { return next_ >= steps_.size(); }
    void fail(const std::wstring& why);
    void takePicture(const std::wstring& name);

    host::MainWindow& window_;
    Transcript& transcript_;
    std::wstring folder_;
    std::vector<WalkStep> steps_;
    std::size_t next_ = 0;
    Phase phase_ = Phase::Acting;
    ULONGLONG since_ = 0;
    bool failed_ = false;
    bool inside_ = false;
    HWND clock_ = nullptr;
};

}  // namespace telvar::walk
