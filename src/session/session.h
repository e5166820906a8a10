// What a control, and each of its forms, works on and within: the desktop, the data store and the radio link that it
// was given, what is under way, and whether the control was closed. In every message box, event and wait all of that
// may change; here is how a routine meets it.
//
// A public routine is one `trap`: its failures are told under its name, and when the control is closed in the middle it
// ends quietly, by Closed, which `throwIfClosed`, `show`, `store` and `link` throw. Single statements that may fail are
// passed over by base::skip; what must still hold afterwards is a Ticket (ticket.h), and what may begin inside
// something else an Activity (activity.h).
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/number_text.h"
#include "base/pinned.h"
#include "model/data_store.h"
#include "model/radio_link.h"
#include "session/activity.h"
#include "session/ticket.h"
#include "ui/desktop.h"

namespace telvar::session {

// The control was closed in the middle of a routine. No std::exception, so that nothing tells or passes over it.
struct Closed {};

class Session : base::Pinned {
public:
    // The desktop must outlive it.
    Session(ui::Desktop& desktop, base::NumberFormat format);
    // For a form: closed with this one, in the middle of the same, but with links of its own, none at first.
    [[nodiscard]] Session branch() const { return Session(common_); }

    // Answers whether it was open until now. Links are let go by their owner.
    bool close() noexcept;
    [[nodiscard]] bool closed() const noexcept { return common_->closed; }
    void throwIfClosed() const;

    [[nodiscard]] ui::Desktop& desktop() const noexcept { return common_->desktop; }
    [[nodiscard]] const base::NumberFormat& format() const noexcept { return common_->format; }
    [[nodiscard]] Activities& activities() const noexcept { return common_->activities; }

    // The former one is let go when nothing points to it any more: what it does in its end may come back here.
    void setStore(model::DataStorePointer store) noexcept;
    void setLink(model::RadioLinkPointer link) noexcept;
    // Null where there is none.
    [[nodiscard]] const model::DataStorePointer& presentStore() const noexcept { return store_; }
    [[nodiscard]] const model::RadioLinkPointer& presentLink() const noexcept { return link_; }
    // Fail where there is none.
    [[nodiscard]] model::DataStorePointer store() const;
    [[nodiscard]] model::RadioLinkPointer link() const;

    // The store's MessageTitle; the default title where that cannot be read. Never fails.
    [[nodiscard]] std::string title() const;
    // The same as it is, for routines that fail where it cannot be read.
    [[nodiscard]] std::string storesTitle() const;

    ui::Answer show(const ui::MessageBox& box) const;
    // Titled boxes. These do not throw: whoever goes on asks a ticket first.
    void refuse(const std::string& text) const;
    void inform(const std::string& text) const;
    [[nodiscard]] bool confirmed(const std::string& question) const;

    // "Error in X()": OK only, exclamation icon, default title.
    void tellFailureOf(std::string_view routine) const;
    // Trap and tell, but nothing once the control is closed, nor where the ticket is valid no more. Answers whether the
    // body ran to its end.
    template <class Body, class... Things>
    bool trap(std::string_view routine, Body&& body, const Ticket<Things...>& told) const {
        if (closed()) {
            return false;
        }
        try {
            body();
            return true;
        } catch (const Closed&) {
            return false;
        } catch (const std::exception&) {
            if (!closed() && told.valid()) {
                tellFailureOf(routine);
            }
            return false;
        }
    }
    template <class Body>
    bool trap(std::string_view routine, Body&& body) const {
        return trap(routine, body, Ticket<>());
    }

    // As the desktop's, for work that is dropped when the control was closed or is gone by then.
    void whenIdle(std::function<void()> work) const;

private:
    struct Common {
        Common(ui::Desktop& where, base::NumberFormat numbers) noexcept : desktop(where), format(numbers) {}
        ui::Desktop& desktop;
        base::NumberFormat format;
        Activities activities;
        bool closed = false;
    };

    explicit Session(std::shared_ptr<Common> common) noexcept : common_(std::move(common)) {}
    ui::Answer showTitled(const std::string& text, ui::Icon icon, ui::Buttons buttons) const;

    std::shared_ptr<Common> common_;
    model::DataStorePointer store_;
    model::RadioLinkPointer link_;
};

}  // namespace telvar::session
