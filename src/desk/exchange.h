// The exchange with the radio: sending, loading, restoring what the radio held before, cancelling, and what becomes of
// the commands meanwhile and afterwards.
//
//                          the control gave up
//            .----------------------------------------------.
//            |                                              |
//   send,    v    the control asks,      the link took over |         the link tells the end
//   load   Idle --> Preparing ------------------------------+--> Running --------------------> Idle
//            |                                                      ^
//   restore  '--> Waiting (the link still asks how the radio is) ---'
//                    | cancelled, or refused
//                    '--> Idle
//
// In Preparing and in Running the user may cancel: what runs is cut at its next frame, and an exchange that the control
// begins after that is cut at once. Whatever ends, also an exchange that somebody else began, leaves news (a loaded
// table, another channel, a failure), which goOn() shows once nothing else is under way.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/pinned.h"
#include "desk/bench.h"
#include "desk/link.h"
#include "desk/radio_status.h"

namespace telvar::desk {

// What the exchange asks of the rest of the desk.
class ExchangeSurroundings : private base::Pinned {
public:
    // Whether the open table may be replaced; asks the user.
    [[nodiscard]] virtual bool mayReplaceTable() = 0;
    virtual void refreshTable() = 0;
    virtual void refreshState() = 0;

protected:
    ~ExchangeSurroundings() = default;
};

class Exchange {
public:
    enum class State : std::uint8_t { Idle, Preparing, Waiting, Running };

    // All outlive this.
    Exchange(Bench& bench, RadioStatus& radio, ExchangeSurroundings& surroundings) noexcept
        : bench_(bench), radio_(radio), surroundings_(surroundings) {}

    [[nodiscard]] State state() const noexcept { return state_; }

    // ---- commands of the user's
    void send();
    void load();
    void restore();
    void cancel();
    // Also an exchange that is none of the user's, such as a channel selection.
    [[nodiscard]] bool mayCancel() const;

    // Whether the program may end as far as the radio is concerned; asks the user. If something must come to its end
    // first, the window closes by itself after that.
    [[nodiscard]] bool mayLeave();

    // ---- what the link tells
    // 0 to 100 percent.
    void progressed(long percent);
    // Whatever the outcome; `message` is one sentence or empty.
    void ended(Task task, bool succeeded, const std::string& message);

    // Shows what has happened, and begins what waits. Does nothing while something else is under way; to be called
    // again then.
    void goOn();

private:
    enum class Goal : std::uint8_t { None, Send, Load, Restore };
    // What has happened and is not shown yet.
    struct News {
        bool loaded = false;
        bool channelSelected = false;
        bool closeWanted = false;
        std::string failure;
    };

    void prepare(Goal goal, void (Control::*begin)());
    void give(const Backup& backup, bool show);
    void beginRestore();
    void giveUpWaiting();
    void release();
    void cutShort();
    [[nodiscard]] static std::string nameOf(Goal goal);

    Bench& bench_;
    RadioStatus& radio_;
    ExchangeSurroundings& surroundings_;
    State state_ = State::Idle;
    Goal goal_ = Goal::None;     // of the exchange that is the user's own
    bool cancelWanted_ = false;  // of that one
    bool showRestored_ = false;  // once the radio holds what is being restored, it is shown here
    std::string backup_;         // that waits to be restored
    News news_;
};

}  // namespace telvar::desk
