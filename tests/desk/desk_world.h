// A desk and everything outside it. The journal begins when the desk has begun, with a new table and everybody at the
// level Everything.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "desk/desk.h"
#include "fakes.h"

namespace telvar::tests {

struct DeskWorld : testing::Test {
    Journal journal;
    FakeStore store{journal};
    FakeControl control{journal};
    FakeLink link{journal};
    FakeWindow window{journal};
    FakeSystem system;
    FakeSettings settings;
    FakeHasher hasher;
    std::unique_ptr<desk::Desk> program;

    FakeStatusLine& line = window.line;
    FakeQuestions& ask = window.asked;

    DeskWorld() { begin(); }

    // Another run of the program.
    void begin(const std::string& file = {}) {
        program = std::make_unique<desk::Desk>(
            desk::World{.store = store, .control = control, .link = link, .window = window, .system = system}, settings,
            hasher);
        program->begin([] {}, file);
        window.wanted = false;
        forget();
    }
    void TearDown() override { EXPECT_EQ(window.modal, 0) << "modal scopes that were not ended"; }

    // What was noted since the last look.
    [[nodiscard]] Notes notes() { return journal.take(); }
    // Only that of the journal's parts.
    [[nodiscard]] Notes notesOf(std::initializer_list<std::string_view> parts) {
        Notes lines = journal.take();
        std::erase_if(lines, [&](const std::string& noted) {
            return std::ranges::none_of(parts, [&](std::string_view part) { return noted.starts_with(part); });
        });
        return lines;
    }
    void forget() {
        journal.clear();
        line.messages.clear();
        line.percents.clear();
        line.progressEnds = 0;
    }
    void run(desk::Command command) { program->run(command); }

    // ---- the message loop
    void runLater() {
        for (int times = 0; std::exchange(window.wanted, false); ++times) {
            ASSERT_LT(times, 10) << "the desk never comes to rest";
            program->goOn();
        }
    }
    void poll(int times = 1) {
        for (int time = 0; time < times; ++time) {
            program->poll();
        }
    }
    // While something modal of the control's is open.
    template <class Body>
    void whileModal(Body&& body) {
        program->windowEnabled(false);
        body();
        program->windowEnabled(true);
    }

    // ---- the link
    void answerStatus(bool answers = true, const std::string& sentence = "It is fine.") {
        link.running = false;
        program->statusReported(answers, sentence);
    }
    void end(desk::Task task, bool succeeded, const std::string& message = {}) {
        link.running = false;
        program->exchangeEnded(task, succeeded, message);
    }
    // Sends and loads get over to the link inside the control's call, as the control does it.
    void linkTakesOver() {
        for (const char* const call : {"send", "load"}) {
            control.during(call, [this] {
                program->commandsAllowed(false);
                program->diagnosticsPaused();
                window.hourglass = true;
                link.running = true;
            });
        }
    }
};

}  // namespace telvar::tests
