#include "desk/prints.h"

#include <utility>

#include "base/pinned.h"
#include "desk/html.h"
#include "desk/paths.h"

namespace telvar::desk {

namespace {

// Remembers the set-up if it is another one when this ends.
class Remembered : private base::Pinned {
public:
    Remembered(SettingsStore& settings, const PageSetup& setup) : settings_(settings), setup_(setup), before_(setup) {}
    ~Remembered() {
        if (setup_ != before_) {
            savePageSetup(settings_, setup_);
        }
    }

private:
    SettingsStore& settings_;
    const PageSetup& setup_;
    PageSetup before_;
};

}  // namespace

Prints::Prints(Bench& bench, SettingsStore& settings)
    : bench_(bench), settings_(settings), setup_(loadPageSetup(settings, usualPageSetup(bench.system.usualSheet()))) {}

template <class Question>
auto Prints::askAboutPages(Question&& question) {
    const Remembered remembered(settings_, setup_);
    return bench_.ask(question);
}

void Prints::ask(Wish wish) {
    wish_ = wish;
    bench_.attemptCall([](Control& control) { control.print(); });
    wish_ = Wish::Preview;
}

void Prints::requested() {
    requested_ = wish_;
    bench_.window.later();
}

void Prints::goOn() {
    if (requested_ && bench_.free()) {
        const Wish wish = *std::exchange(requested_, std::nullopt);
        bench_.attempt([&] { answer(wish); });
    }
}

void Prints::answer(Wish wish) {
    const auto read = [this] { return table(); };
    switch (wish) {
    case Wish::Preview:
        askAboutPages([&](Questions& questions) { questions.previewPages(read, setup_); });
        break;
    case Wish::Print:
        if (askAboutPages([&](Questions& questions) { return questions.print(read, setup_); }) &&
            bench_.window.open()) {
            bench_.window.status().setMessage("The table was printed.");
        }
        break;
    case Wish::Html:
        saveHtml();
        break;
    }
}

void Prints::saveHtml() {
    const std::string present = bench_.store.path();
    const std::string suggested =
        (present.empty() ? "Channel table" : std::string(withoutExtension(present))) + ".html";
    const auto path = bench_.ask([&](Questions& questions) { return questions.askHtmlPath(suggested); });
    if (path && bench_.window.open()) {
        bench_.system.replaceFile(*path, htmlOf(table()));
        bench_.window.status().setMessage("The table was saved as " + *path + ".");
    }
}

void Prints::setUpPage() {
    bench_.attempt([this] { askAboutPages([this](Questions& questions) { questions.setUpPage(setup_); }); });
}

PrintedTable Prints::table() const {
    PrintedTable table = bench_.control.shownTable();
    const std::string title = bench_.store.title();
    table.title = title.empty() ? "Channel table" : title;
    table.made = bench_.system.now();
    if (setup_.onlyInUse) {
        keepRowsInUse(table);
    }
    return table;
}

}  // namespace telvar::desk
