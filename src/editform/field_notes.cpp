#include "editform/field_notes.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "ui/combo_box.h"
#include "ui/text_box.h"

namespace telvar::editform {

namespace {

constexpr std::size_t longestQuotation = 20;  // characters of what the user typed

[[nodiscard]] std::string quoted(const std::string& text) { return "\"" + text + "\""; }

// Cut between characters, never inside one.
[[nodiscard]] std::string shortened(const std::string& text) {
    std::size_t characters = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool begins = (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U;
        if (begins && characters++ == longestQuotation) {
            return text.substr(0, at) + "...";
        }
    }
    return text;
}

// A field that is hidden itself belongs to the other band or kind of subtone, which is not stored.
[[nodiscard]] bool hiddenByLevel(const ui::Widget& field) {
    return field.frame() != nullptr && !field.frame()->isShown();
}

[[nodiscard]] std::string passedOver(const FieldNote& note) {
    const std::string name = quoted(note.field->caption());
    const std::string text = quoted(shortened(enteredText(*note.field))) + " in " + name;
    switch (note.kind) {
    case NoteKind::Empty:
        return name + " is empty";
    case NoteKind::TooLarge:
        return text + " is too large";
    case NoteKind::NoTone:
        return text + " is not a tone";
    case NoteKind::NoNumber:
    case NoteKind::Refused:
        break;
    }
    return text + " is not a number";
}

}  // namespace

std::string enteredText(const ui::Widget& field) {
    if (const auto* const box = dynamic_cast<const ui::TextBox*>(&field)) {
        return box->text();
    }
    const auto* const list = dynamic_cast<const ui::ComboBox*>(&field);
    return list != nullptr ? list->text() : std::string();
}

NoteKind whyNoNumber(std::string_view text, base::NumberError error) {
    if (base::trimmed(text).empty()) {
        return NoteKind::Empty;
    }
    return error == base::NumberError::TooLarge ? NoteKind::TooLarge : NoteKind::NoNumber;
}

NoteKind whyNoTone(std::string_view text, base::NumberError error) {
    const auto why = whyNoNumber(text, error);
    return why == NoteKind::NoNumber ? NoteKind::NoTone : why;
}

void FieldNotes::add(const FieldNote& note) {
    remove(*note.field);
    notes_.insert(notes_.begin(), note);
}

void FieldNotes::remove(const ui::Widget& field) {
    std::erase_if(notes_, [&](const FieldNote& note) { return note.field == &field; });
}

bool FieldNotes::has(const ui::Widget& field) const noexcept {
    return std::ranges::any_of(notes_, [&](const FieldNote& note) { return note.field == &field; });
}

std::string FieldNotes::sentence(const ui::Widget* focused,
                                 const std::function<int(const ui::Widget&)>& levelShowing) const {
    FieldNotesList worthTelling;
    std::ranges::copy_if(notes_, std::back_inserter(worthTelling), [](const FieldNote& note) {
        return note.field->visible() && (note.kind != NoteKind::Refused || hiddenByLevel(*note.field));
    });
    if (worthTelling.empty()) {
        return {};
    }
    const auto focusedOne =
        std::ranges::find_if(worthTelling, [&](const FieldNote& note) { return note.field == focused; });
    const FieldNote& told = focusedOne != worthTelling.end() ? *focusedOne : worthTelling.front();
    std::string text = told.kind == NoteKind::Refused ? quoted(told.field->caption()) + " was refused"
                                                      : passedOver(told) + " and is not stored";
    if (hiddenByLevel(*told.field)) {
        text += "; access level " + std::to_string(levelShowing(*told.field)) + " shows it";
    }
    const auto more = worthTelling.size() - 1;
    return text + (more > 0 ? " (and " + std::to_string(more) + " more)." : ".");
}

}  // namespace telvar::editform
