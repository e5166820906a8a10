#include "session/activity.h"

#include <algorithm>
#include <cassert>

namespace telvar::session {

namespace {

struct Rule {
    Activity wanted;
    Activity inside;
    Refusal refusal;
};

// Whatever has no row here begins.
constexpr std::array rules{
    Rule{Activity::Editing, Activity::Editing, Refusal::Ignored},
    // What is changed from the beginning of a load on would be overwritten unseen.
    Rule{Activity::Editing, Activity::Loading, Refusal::TableIsReplaced},
    // There is one dialog, and it is not changed behind the user's back while it is shown. Its being open is no change
    // of the table: the host may paste meanwhile.
    Rule{Activity::FillDialog, Activity::Editing, Refusal::Ignored},
    Rule{Activity::FillDialog, Activity::FillDialog, Refusal::Ignored},
    Rule{Activity::FillDialog, Activity::Loading, Refusal::TableIsReplaced},
    // The number that was typed last is the one that is sent.
    Rule{Activity::Selecting, Activity::Selecting, Refusal::Ignored},
    Rule{Activity::Sending, Activity::Sending, Refusal::TransferWaits},
    Rule{Activity::Sending, Activity::Loading, Refusal::TransferWaits},
    // The edit would go on in a table that is about to be overwritten.
    Rule{Activity::Loading, Activity::Editing, Refusal::TableIsEdited},
    Rule{Activity::Loading, Activity::Storing, Refusal::TableIsEdited},
    Rule{Activity::Loading, Activity::Sending, Refusal::TransferWaits},
    Rule{Activity::Loading, Activity::Loading, Refusal::TransferWaits},
    Rule{Activity::Storing, Activity::Editing, Refusal::Ignored},
    Rule{Activity::Storing, Activity::Loading, Refusal::TableIsReplaced},
    Rule{Activity::Storing, Activity::Storing, Refusal::Ignored},
    // The question's own Apply is no second question.
    Rule{Activity::AskingToLeave, Activity::Storing, Refusal::Ignored},
    Rule{Activity::AskingToLeave, Activity::AskingToLeave, Refusal::Ignored},
    Rule{Activity::Updating, Activity::Updating, Refusal::Ignored},
    // Put off until the form has stored.
    Rule{Activity::Reloading, Activity::Storing, Refusal::Ignored},
    Rule{Activity::Cancelling, Activity::Storing, Refusal::Ignored},
};

}  // namespace

const char* sentenceOf(Refusal refusal) noexcept {
    switch (refusal) {
    case Refusal::TableIsEdited:
        return "The channel table is being edited. Please end that before it is loaded from the radio.";
    case Refusal::TransferWaits:
        return "Another transfer is waiting for the Telvar. Please wait until it has ended.";
    case Refusal::TableIsReplaced:
        return "The channel table is being loaded from the radio. Please wait until it has ended.";
    case Refusal::Ignored:
    case Refusal::None:
        break;
    }
    return nullptr;
}

Refusal Activities::refusalOf(Activity wanted) const noexcept {
    auto first = Refusal::None;
    for (const Rule& rule : rules) {
        if (rule.wanted == wanted && underWay(rule.inside)) {
            first = std::min(first, rule.refusal);
        }
    }
    return first;
}

UnderWay::UnderWay(Activities& activities, Activity activity) noexcept
    : flag_(activities.underWay_[Activities::indexOf(activity)]) {
    assert(!flag_);
    flag_ = true;
}

}  // namespace telvar::session
