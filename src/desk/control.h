// The control that shows the table, as the desk uses it. Each call may raise the control's events and pump messages
// before it returns, and throws base::Failure where it fails.
#pragma once

#include <cstdint>
#include <string>

#include "base/pinned.h"
#include "desk/access.h"
#include "desk/printed_table.h"

namespace telvar::desk {

// Standard commands of the control, or of the text box that the user types in.
enum class EditAction : std::uint8_t { Undo, Redo, Copy, Paste, Delete, SelectAll };

// The last paste that the control refused.
struct PasteRefusal {
    long pastes = 0;  // refused so far
    long row = 0;     // 0 once a paste has gone through since
    std::string column;
};

class Control : private base::Pinned {
public:
    virtual ~Control() = default;

    // The whole table afresh from the store.
    virtual void refresh() = 0;
    virtual void showTop() = 0;
    virtual void updateAccess(AccessLevel level) = 0;
    // The channel that the radio is on now, and the edit form with it.
    virtual void followRadioChannel() = 0;
    virtual void focus() = 0;

    [[nodiscard]] virtual bool enabled(EditAction action) const = 0;
    virtual void edit(EditAction action) = 0;
    virtual void fillDown() = 0;
    virtual void fillSeries() = 0;
    // Once a login has allowed it.
    virtual void fill() = 0;
    virtual void editChannel() = 0;
    [[nodiscard]] virtual int currentChannel() const = 0;
    // Selects a channel of 1 to 255 with some rows above it in view, and moves the edit form and the focus there.
    virtual void goTo(int channel) = 0;

    // Edits in the edit form are applied or dropped, as the user wants; false where the user stays there. A control
    // that does not answer has none.
    [[nodiscard]] virtual bool leaveEdits() = 0;
    // "Lock Data" is ticked: the control refuses every change, and tells the user.
    [[nodiscard]] virtual bool dataLocked() const = 0;
    [[nodiscard]] virtual PasteRefusal refusedPaste() const = 0;

    // Each asks, checks and waits for a quiet link inside the call, and returns when the link has taken over or the
    // exchange was given up.
    virtual void send() = 0;
    virtual void load() = 0;
    // What belongs to the radio, during an exchange that the desk begins itself. A failure is passed over, as that of
    // focus() is.
    virtual void disableCommands() = 0;
    virtual void enableCommands() = 0;

    // Answers by its event where a table is open.
    virtual void print() = 0;
    // Every channel with the columns that are visible; title and date stay empty.
    [[nodiscard]] virtual PrintedTable shownTable() const = 0;
};

}  // namespace telvar::desk
