// Checks the form's fields in a fixed order and writes what is accepted into the store and into the channel's row of
// the grid. A refused field is told, turns red and does not end the walk; a statement that fails is passed over.
//
// Anything may happen while a message is shown. Where the channel is not the one edited any more, the walk ends at once
// and counts as failed, so that nothing of one table lands in another.
#pragma once

#include <expected>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/skip.h"
#include "editform/channel_edit_controls.h"
#include "editform/edited_channel.h"
#include "editform/field_notes.h"

namespace telvar::editform {

// What the control gives for one storing.
struct StoringRequest {
    // Channels that get the shared settings as well; the edited one among them is skipped.
    std::vector<std::int16_t> alsoTo;
    // Only the levels may be changed: nothing is copied to other channels.
    bool potentiometersOnly = false;
};

class ChannelStoring {
public:
    // The controls and the session must outlive the storing.
    ChannelStoring(ChannelEditControls& controls, const session::Session& session, EditedChannel channel,
                   const ChannelTicket& stillEdited, StoringRequest request);

    // Answers whether no field was refused.
    [[nodiscard]] bool StoreControlsToMemory();

    // The fields whose text was not accepted, in the order of the walk.
    [[nodiscard]] const FieldNotesList& notes() const noexcept { return notes_; }

    // The channels that settings were copied to.
    [[nodiscard]] const std::vector<std::int16_t>& copiedTo() const noexcept { return copiedTo_; }

private:
    struct Abandoned {};
    struct SideKeys;
    struct NumberField;

    void frequency(ui::TextBox& box, model::ChannelKey key, int column, const char* message,
                   std::optional<double>& read);
    void transmitSubtone();
    void receiveSubtone();
    [[nodiscard]] bool storeDcs(const ui::ComboBox& list, const SideKeys& keys);
    [[nodiscard]] bool storeTone(ui::ComboBox& list, const SideKeys& keys);
    void channelMode();
    void scan();
    void bandwidth();
    void dataMode();
    void numbers();
    void store(const NumberField& field);
    void stepSize(ui::TextBox& box, model::ChannelKey key);
    void lists();
    void levels();
    void p25();
    void code(ui::TextBox& box, model::ChannelKey key, const char* message);
    void conclude();

    void CopyToSelectedChannels();
    void copyKeys(std::int16_t channel);
    void copyTexts(std::int16_t channel);

    // One statement, unless the channel is not the edited one any more.
    template <class Statement>
    void step(Statement&& statement) {
        if (!stillEdited_.valid()) {
            throw Abandoned{};
        }
        base::skip(std::forward<Statement>(statement));
    }
    void put(model::ChannelKey key, const base::Value& value);
    void putIndex(const ui::ComboBox& list, model::ChannelKey key);
    void changeModeBits(std::int64_t set, std::int64_t clear);
    void show(int column, const std::string& text);
    void refuse(ui::Widget& field, const std::string& message);
    [[nodiscard]] std::optional<bool> bandwidthSwitchable();
    // Nothing where the text is no number, which is noted.
    template <class Number>
    [[nodiscard]] std::optional<Number> noted(ui::Widget& field, const std::string& text,
                                              const std::expected<Number, base::NumberError>& number);

    ChannelEditControls& controls_;
    const session::Session& session_;
    EditedChannel channel_;
    const ChannelTicket& stillEdited_;
    StoringRequest request_;
    std::optional<double> transmits_;  // MHz, as read
    std::optional<double> receives_;
    FieldNotesList notes_;
    std::vector<std::int16_t> copiedTo_;
    bool failed_ = false;
};

}  // namespace telvar::editform
