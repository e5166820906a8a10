// A control that is closed inside a box, question, event, wait or store write of what it does, and what must not happen
// after that: no further event, write, box, or call of the link.
#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <utility>

#include "edit_form_world.h"
#include "support/store_decorator.h"

namespace telvar::tests {

// Tells of each write before it is done.
class WatchedStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::function<void(const std::string&)> onWrite;

protected:
    void onCall(const StoreCall& call) override {
        const bool writes = call.kind == StoreCall::Kind::Put || call.kind == StoreCall::Kind::WriteChannel;
        if (writes && onWrite) {
            onWrite(describe(call));
        }
    }
};

// One control with its form, and a list of everything that reaches the outside.
class Watched : public ControlEditForm {
public:
    Watched() {
        watched = decorate<WatchedStore>();
        control->DistributeDataStoreLink();
        other->put(StoreMember::MessageTitle, base::textValue("Bench 4"));
    }
    void TestBody() override {}

    // From now on everything is listed, and the control is closed inside the stop of that number, counted from 1; the
    // same thing is a stop up to three times. 0 closes it nowhere.
    void watch(int closeAt) {
        closeAt_ = closeAt;
        const auto stopsAt = [this](const char* name) { return [this, name](auto&...) { stop(name); }; };
        control->RestoreButtons.connect(stopsAt("RestoreButtons"));
        control->DisableCommands.connect(stopsAt("DisableCommands"));
        control->EnableCommands.connect(stopsAt("EnableCommands"));
        control->HourglassOverWindow.connect(stopsAt("HourglassOverWindow"));
        control->DefaultOverWindow.connect(stopsAt("DefaultOverWindow"));
        control->OpenLoginWithChannelFill.connect(stopsAt("OpenLoginWithChannelFill"));
        control->OpenLoginWithChannelEdit.connect(stopsAt("OpenLoginWithChannelEdit"));
        control->PauseDiagnostics.connect(stopsAt("PauseDiagnostics"));
        control->NewWindowCaption.connect(stopsAt("NewWindowCaption"));
        control->EditWindowClosed.connect(stopsAt("EditWindowClosed"));
        control->IncrementProgressBar.connect(stopsAt("IncrementProgressBar"));
        form().DataChanged.connect(stopsAt("form DataChanged"));
        form().EditClosed.connect(stopsAt("form EditClosed"));
        form().NeedToUpdateFlexGrid.connect(stopsAt("form NeedToUpdateFlexGrid"));
        form().OpenLoginWithChannelEdit.connect(stopsAt("form OpenLoginWithChannelEdit"));
        form().PauseDiagnosticsIfRunning.connect(stopsAt("form PauseDiagnosticsIfRunning"));
        form().PopUpMenuClick.connect(stopsAt("form PopUpMenuClick"));
        form().Load.connect(stopsAt("form Load"));
        grid().SelectionChanged.connect(stopsAt("SelectionChanged"));
        watched->onWrite = [this](const std::string& write) {
            if (!copies_ || !write.starts_with("ChannelTable")) {
                stop(write);
            }
        };
        desktop.duringBox = [this](const ui::MessageBox& box) { stop("box: " + box.text); };
        desktop.duringModal = [this](ui::Form& form) {
            stop("question");
            if (control->closed()) {
                return;
            }
            if (auto* const asked = dynamic_cast<editing::frmMsgBox*>(&form)) {
                asked->cmdYes.userPress();
            } else {
                dynamic_cast<editing::frmFill&>(form).ok_but.userPress();
            }
        };
    }

    // What writes the whole table is no stop at each of its values.
    void copiesAreNoStops() { copies_ = true; }
    // Something keeps the radio link busy for two turns of the message loop.
    void holdLink() {
        store->put(StoreMember::CommsBusy, true);
        for (const bool last : {false, true}) {
            desktop.whenPumping([this, last] {
                if (!control->closed()) {
                    stop("wait");
                }
                store->put(StoreMember::CommsBusy, !last);
            });
        }
    }

    [[nodiscard]] const Log& happenings() const { return log_; }
    [[nodiscard]] bool wasClosed() const { return closedAfter_ != 0; }
    // What reached the outside after the stop in which the control was closed: the form's own events and the grid's do
    // not, the control stands between.
    [[nodiscard]] Log after() const {
        Log outside(log_.begin() + static_cast<std::ptrdiff_t>(closedAfter_), log_.end());
        std::erase_if(outside, [](const std::string& happening) {
            return happening.starts_with("form ") || happening == "SelectionChanged";
        });
        return outside;
    }
    [[nodiscard]] std::string last() const { return log_.at(closedAfter_ - 1); }

    using ControlEditForm::answerCopying;
    using ControlEditForm::control;
    using ControlEditForm::desktop;
    using ControlEditForm::doubleClick;
    using ControlEditForm::doubleClickOn;
    using ControlEditForm::edit;
    using ControlEditForm::form;
    using ControlEditForm::grid;
    using ControlEditForm::link;
    using ControlEditForm::open;
    using ControlEditForm::press;
    using ControlEditForm::store;
    std::shared_ptr<WatchedStore> watched;
    std::shared_ptr<model::MemoryDataStore> other = std::make_shared<model::MemoryDataStore>();

private:
    void stop(const std::string& name) {
        log_.push_back(name);
        // The writes of one channel are one thing.
        if (control->closed() || seen_[name.substr(0, name.find('.'))]++ >= 3 || ++stops_ != closeAt_) {
            return;
        }
        closedAfter_ = log_.size();
        control->close();
    }

    Log log_;
    std::map<std::string, int> seen_;
    int stops_ = 0;
    bool copies_ = false;
    int closeAt_ = 0;
    std::size_t closedAfter_ = 0;
};

// `arrange` comes before anything is watched.
struct Situation {
    const char* name;
    void (*arrange)(Watched& world);
    void (*act)(Watched& world);
    Log mustHappen;  // among others, when nobody closes the control
};

// At each stop once, until none is left.
inline void expectNothingAfterEachStop(const Situation& situation) {
    const auto run = [&](Watched& world, int closeAt) {
        situation.arrange(world);
        world.watch(closeAt);
        situation.act(world);
        world.desktop.doEvents();
    };
    {
        Watched undisturbed;
        run(undisturbed, 0);
        for (const auto& happening : situation.mustHappen) {
            EXPECT_GT(std::ranges::count(undisturbed.happenings(), happening), 0) << happening;
        }
    }
    for (int closeAt = 1;; ++closeAt) {
        Watched world;
        run(world, closeAt);
        if (!world.wasClosed()) {
            EXPECT_GT(closeAt, static_cast<int>(situation.mustHappen.size()));
            return;
        }
        EXPECT_EQ(world.after(), Log{}) << "closed inside " << world.last();
        EXPECT_FALSE(world.open()) << "closed inside " << world.last();
        EXPECT_TRUE(world.grid().redraw());
        EXPECT_EQ(world.link->calls, Log{});
    }
}

}  // namespace telvar::tests
