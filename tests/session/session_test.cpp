// How a routine ends: as far as it gets, told under its name, or quietly where the control was closed; what titles a
// box; and which wishes are still good after it.
#include "session/session.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "base/failure.h"
#include "model/memory_data_store.h"
#include "support/answering_store.h"
#include "support/test_desktop.h"

namespace telvar::tests {
namespace {

using model::StoreMember;
using session::Closed;
using session::Occurrence;
using session::Ticket;

class Session : public testing::Test {
protected:
    Session() {
        store->put(StoreMember::MessageTitle, base::textValue("Bench 3"));
        session.setStore(store);
    }
    [[nodiscard]] std::string lastTitle() { return desktop.takeBoxes().back().title; }

    TestDesktop desktop;
    std::shared_ptr<model::MemoryDataStore> store = std::make_shared<model::MemoryDataStore>();
    session::Session session{desktop, {}};
};

TEST_F(Session, ARoutineThatFailsIsToldUnderItsName) {
    EXPECT_TRUE(session.trap("Good", [] {}));
    EXPECT_FALSE(session.trap("Bad", [] { throw std::runtime_error("any"); }));
    EXPECT_EQ(desktop.boxes(), Boxes{errorIn("Bad")});
    EXPECT_EQ(desktop.boxes().front().title, "Tesslin");
}

TEST_F(Session, ARoutineOfAClosedControlDoesNotBegin) {
    session.close();
    EXPECT_FALSE(session.trap("Any", [] { ADD_FAILURE(); }));
}

TEST_F(Session, ARoutineInWhichTheControlIsClosedEndsQuietlyWhateverItDoesThen) {
    const auto closedInside = [&](auto&& then) {
        session::Session own(desktop, {});
        own.setStore(store);
        EXPECT_FALSE(own.trap("Any", [&] {
            own.close();
            then(own);
            ADD_FAILURE() << "goes on";
        }));
    };
    closedInside([](auto& own) { own.throwIfClosed(); });
    closedInside([](auto& own) { static_cast<void>(own.store()); });
    closedInside([](auto& own) { static_cast<void>(own.link()); });
    closedInside([](auto&) { throw base::Failure("any"); });
    EXPECT_EQ(desktop.boxes(), Boxes{});
    closedInside([](auto& own) { own.show({.text = "last words"}); });
    EXPECT_EQ(desktop.boxes().size(), 1U);
}

TEST_F(Session, OfTwoRoutinesInOneAnotherBothEndWhenTheOuterOneLooks) {
    bool inner = false;
    EXPECT_FALSE(session.trap("Outer", [&] {
        session.trap("Inner", [&] {
            session.close();
            session.throwIfClosed();
        });
        inner = true;
        session.throwIfClosed();
        ADD_FAILURE();
    }));
    EXPECT_TRUE(inner);
}

TEST_F(Session, ARoutineIsNotToldWhereItsTicketIsValidNoMore) {
    const Ticket sameStore(session.presentStore());
    const auto fail = [] { throw base::Failure("any"); };
    EXPECT_FALSE(session.trap("Told", fail, sameStore));
    EXPECT_EQ(desktop.takeBoxes(), Boxes{errorIn("Told")});
    session.setStore(std::make_shared<model::MemoryDataStore>());
    EXPECT_FALSE(session.trap("Untold", fail, sameStore));
    EXPECT_EQ(desktop.takeBoxes(), Boxes{});
    session.setStore(store);
    EXPECT_TRUE(sameStore.valid()) << "changed and changed back";
}

TEST_F(Session, WithoutALinkItFailsInWords) {
    session.setStore(nullptr);
    const auto said = [](auto&& use) {
        try {
            use();
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return std::string();
    };
    EXPECT_EQ(said([&] { static_cast<void>(session.store()); }), "There is no data store");
    EXPECT_EQ(said([&] { static_cast<void>(session.link()); }), "There is no radio link");
}

TEST_F(Session, BoxesAreTitledWithTheStoresTitleElseTheDefaultOne) {
    session.refuse("No.");
    EXPECT_EQ(desktop.takeBoxes(), (Boxes{{.text = "No.", .title = "Bench 3", .icon = ui::Icon::Exclamation}}));
    session.inform("Well.");
    EXPECT_EQ(desktop.takeBoxes(), (Boxes{{.text = "Well.", .title = "Bench 3", .icon = ui::Icon::Information}}));
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_TRUE(session.confirmed("Now?"));
    EXPECT_EQ(
        desktop.takeBoxes(),
        (Boxes{{.text = "Now?", .title = "Bench 3", .icon = ui::Icon::Exclamation, .buttons = ui::Buttons::YesNo}}));
    store->put(StoreMember::MessageTitle, base::textValue(""));
    session.refuse("No.");
    EXPECT_EQ(lastTitle(), "") << "an empty title is one";
    EXPECT_EQ(session.storesTitle(), "");
    const auto untitled = std::make_shared<AnsweringStore>(*store);
    untitled->answer(StoreMember::MessageTitle, base::Unusable{});
    session.setStore(untitled);
    session.refuse("No.");
    EXPECT_EQ(lastTitle(), "Tesslin");
    EXPECT_THROW(static_cast<void>(session.storesTitle()), base::Failure);
    session.setStore(nullptr);
    session.refuse("No.");
    EXPECT_EQ(lastTitle(), "Tesslin");
}

TEST_F(Session, ABoxThatOutlivesTheControlThrowsOnlyWhereItIsShown) {
    desktop.duringBox = [this](const ui::MessageBox&) { session.close(); };
    session.refuse("No.");
    EXPECT_TRUE(session.closed());
    EXPECT_THROW(session.show({.text = "Yes."}), Closed);
}

TEST_F(Session, ABranchEndsWithItsControlAndHasLinksOfItsOwn) {
    session::Session form = session.branch();
    EXPECT_EQ(form.presentStore(), nullptr);
    const session::UnderWay storing(form.activities(), session::Activity::Storing);
    EXPECT_FALSE(session.activities().mayBegin(session::Activity::Loading));
    EXPECT_TRUE(session.close());
    EXPECT_FALSE(session.close());
    EXPECT_TRUE(form.closed());
    EXPECT_NE(session.presentStore(), nullptr) << "let go by its owner";
}

TEST_F(Session, IdleWorkIsDroppedWhenTheControlIsClosedOrGone) {
    int runs = 0;
    session.whenIdle([&] { ++runs; });
    desktop.doEvents();
    EXPECT_EQ(runs, 1);
    session.whenIdle([&] { ++runs; });
    std::make_unique<session::Session>(desktop, base::NumberFormat{})->whenIdle([&] { ++runs; });
    session.close();
    desktop.doEvents();
    EXPECT_EQ(runs, 1);
}

TEST(Tickets, AreValidForAsLongAsEverythingIsAsItWas) {
    int channel = 7;
    Occurrence closing;
    const Ticket ticket(channel, closing);
    EXPECT_TRUE(ticket.valid());
    channel = 8;
    EXPECT_FALSE(ticket.valid());
    channel = 7;
    EXPECT_TRUE(ticket.valid());
    closing.happen();
    EXPECT_FALSE(ticket.valid()) << "what has happened does not unhappen";
    EXPECT_TRUE(Ticket<>().valid());
}

}  // namespace
}  // namespace telvar::tests
