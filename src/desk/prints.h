// Printing: what the user asks for goes through the control, which knows whether a table is open, and comes back as its
// event. The page set-up is remembered.
#pragma once

#include <cstdint>
#include <optional>

#include "desk/bench.h"
#include "desk/page_setup.h"
#include "desk/settings.h"

namespace telvar::desk {

class Prints {
public:
    enum class Wish : std::uint8_t { Preview, Print, Html };

    // Both outlive this.
    Prints(Bench& bench, SettingsStore& settings);

    void ask(Wish wish);
    void setUpPage();

    // The control's event, from inside a call of ours or a script's; a script that asks gets the preview. What may open
    // a window waits until that has returned.
    void requested();
    // Answers what is requested. Does nothing while something else is under way; to be called again then.
    void goOn();

private:
    void answer(Wish wish);
    void saveHtml();
    // The channels that are wanted, with title and date.
    [[nodiscard]] PrintedTable table() const;
    // Asks something in which the set-up may change, and remembers it.
    template <class Question>
    auto askAboutPages(Question&& question);

    Bench& bench_;
    SettingsStore& settings_;
    PageSetup setup_;
    Wish wish_ = Wish::Preview;
    std::optional<Wish> requested_;
};

}  // namespace telvar::desk
