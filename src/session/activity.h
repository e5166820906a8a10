// What the control and its forms can be in the middle of, and what may begin inside it. In every message box, event and
// wait the user or the host may ask for something else; whether that begins is decided here and nowhere else.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/pinned.h"

namespace telvar::session {

enum class Activity : std::uint8_t {
    Editing,        // paste, delete, undo, redo or the fill itself changes the table
    FillDialog,     // the fill dialog is shown
    Selecting,      // the radio is to be switched to a channel, and its link is waited for
    Sending,        // the table's way to the radio, up to the link's taking over
    Loading,        // its way back, up to the same
    Storing,        // the edit form's Apply or OK
    AskingToLeave,  // the user is asked about edits in the form that were not applied
    Updating,       // one tick of the live update
    // These two are never under way, but are not to begin in the middle of everything.
    Reloading,   // of the edit form
    Cancelling,  // of the edit form
};
inline constexpr std::size_t activityCount = 10;

// What becomes of a wish. Where several things are under way, the first in this order counts.
enum class Refusal : std::uint8_t {
    Ignored,          // nothing happens; who asked may do it later
    TableIsEdited,    // told
    TransferWaits,    // told
    TableIsReplaced,  // told
    None,             // it begins
};

// What the user is told; null where nothing is.
[[nodiscard]] const char* sentenceOf(Refusal refusal) noexcept;

// Idle is when nothing is under way. Most of these may stand inside one another, in any order; none inside itself.
//
//                     Idle --every one--> under way --its scope ends, however--> as before
//
//   to begin       | inside: Editing  FillDialog  Selecting  Sending  Loading  Storing  AskingToLeave  Updating
//   ---------------+-------------------------------------------------------------------------------------------
//   Editing        |         ignored  .           .          .        replaced .        .              .
//   FillDialog     |         ignored  ignored     .          .        replaced .        .              .
//   Selecting      |         .        .           ignored    .        .        .        .              .
//   Sending        |         .        .           .          waits    waits    .        .              .
//   Loading        |         edited   .           .          waits    waits    edited   .              .
//   Storing        |         ignored  .           .          .        replaced ignored  .              .
//   AskingToLeave  |         .        .           .          .        .        ignored  ignored        .
//   Updating       |         .        .           .          .        .        .        .              ignored
//   Reloading      |         .        .           .          .        .        ignored  .              .
//   Cancelling     |         .        .           .          .        .        ignored  .              .
class Activities : base::Pinned {
public:
    [[nodiscard]] bool underWay(Activity activity) const noexcept { return underWay_[indexOf(activity)]; }
    [[nodiscard]] Refusal refusalOf(Activity wanted) const noexcept;
    [[nodiscard]] bool mayBegin(Activity wanted) const noexcept { return refusalOf(wanted) == Refusal::None; }

private:
    friend class UnderWay;
    [[nodiscard]] static std::size_t indexOf(Activity activity) noexcept { return static_cast<std::size_t>(activity); }

    std::array<bool, activityCount> underWay_{};
};

// Keeps an activity under way for as long as it lives. Who makes one has asked whether it may begin.
class UnderWay : base::Pinned {
public:
    UnderWay(Activities& activities, Activity activity) noexcept;
    ~UnderWay() { flag_ = false; }

private:
    bool& flag_;
};

}  // namespace telvar::session
