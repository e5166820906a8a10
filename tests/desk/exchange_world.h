// Exchanges with a radio as the control begins them and the link ends them.
#pragma once

#include "desk_world.h"

namespace telvar::tests {

struct ExchangeWorld : DeskWorld {
    static constexpr char cancelled[] = "The exchange with the radio was cancelled.";
    static constexpr char cancelling[] = "Cancelling the exchange with the radio...";

    const Notes given{"window arrow", "control enable commands"};

    void begin(desk::Command command) {
        linkTakesOver();
        run(command);
        ASSERT_TRUE(link.running);
        forget();
    }
    [[nodiscard]] bool idle() const { return program->allowed(desk::Command::New); }
    [[nodiscard]] bool cancelOffered() const { return program->allowed(desk::Command::RadioCancel); }
    void cancel() { run(desk::Command::RadioCancel); }

    // Everything that an exchange takes is given back, once.
    void expectGivenBackOnce() {
        EXPECT_EQ(journal.count("window arrow"), 1);
        EXPECT_EQ(journal.count("control enable commands"), 1);
        EXPECT_GE(line.progressEnds, 1);
        EXPECT_TRUE(idle());
        EXPECT_FALSE(cancelOffered());
        EXPECT_FALSE(window.hourglass);
    }
    void expectNothingGivenBack() {
        EXPECT_EQ(journal.count("window arrow"), 0);
        EXPECT_EQ(journal.count("control enable commands"), 0);
        EXPECT_EQ(line.progressEnds, 0);
        EXPECT_FALSE(idle());
        EXPECT_TRUE(cancelOffered());
    }

    // ---- restoring
    static constexpr char folder[] = "D:\\backups";
    static constexpr char newest[] = "D:\\backups\\radio 2024-03-01 14.05.09.telvar-radio";

    void offerBackups() {
        link.backups = folder;
        system.folders[folder] = {"radio 2023-12-31 23.59.59.telvar-radio", "radio 2024-03-01 14.05.09.telvar-radio"};
        ask.backup = 0;
        ask.restore = true;
    }
    void restore(bool show) {
        offerBackups();
        ask.showRestored = show;
        run(desk::Command::RadioRestore);
    }
    // The question how the radio is still keeps the link.
    void restoreBehindStatus(bool show) {
        poll();
        ASSERT_TRUE(link.running);
        restore(show);
    }
};

}  // namespace telvar::tests
