// Which fields of the form hold a text that did not reach the store, and why: the hint at the foot of the form, in one
// sentence. A text that is no number is passed over without a message box, and a refused field may stand in a frame
// that the access level hides; without the hint nobody would know.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/number_text.h"
#include "ui/widget.h"

namespace telvar::editform {

// NoNumber, NoTone, TooLarge and Empty are passed over in silence; Refused was told in a box and is red.
enum class NoteKind : std::uint8_t { NoNumber, NoTone, TooLarge, Empty, Refused };

struct FieldNote {
    ui::Widget* field;
    NoteKind kind;
};

[[nodiscard]] NoteKind whyNoNumber(std::string_view text, base::NumberError error);

[[nodiscard]] NoteKind whyNoTone(std::string_view text, base::NumberError error);

using FieldNotesList = std::vector<FieldNote>;

// What is typed into a text box or a list.
[[nodiscard]] std::string enteredText(const ui::Widget& field);

class FieldNotes {
public:
    // The newest one is told first; a field has one at most.
    void add(const FieldNote& note);
    void remove(const ui::Widget& field);
    void clear() noexcept { notes_.clear(); }
    // In the order in which the fields were stored.
    void replace(FieldNotesList notes) { notes_ = std::move(notes); }
    [[nodiscard]] const FieldNotesList& all() const noexcept { return notes_; }
    [[nodiscard]] bool has(const ui::Widget& field) const noexcept;

    // One sentence about the field that has the focus, else about the first, and how many more there are; empty where
    // there is nothing to say. A refused field that is shown says it itself. `levelShowing` answers the lowest access
    // level at which a hidden field is shown.
    [[nodiscard]] std::string sentence(const ui::Widget* focused,
                                       const std::function<int(const ui::Widget&)>& levelShowing) const;

private:
    FieldNotesList notes_;
};

}  // namespace telvar::editform
