// The channel fill dialog: writes one frequency, or a series that grows by a step, into a run of channels. It checks
// its fields when the user leaves them; OK checks nothing, but does not run where pressing it left a field that was
// refused. What surrounds a fill for its owner (who may start it, the
// flags of a changed table) is the business of whoever answers FillRequested.
#pragma once

#include <array>
#include <cstdint>

#include "base/event.h"
#include "editing/grid_rows.h"
#include "editing/undo.h"
#include "model/data_store.h"
#include "ui/button.h"
#include "ui/form.h"
#include "ui/frame.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/text_box.h"

namespace telvar::editing {

class frmFill : public ui::Form {
public:
    // Both must outlive the form. The backup is of the table that the rows show; the fill goes to the form's own store.
    frmFill(GridRows& rows, UndoHistory& history);

    // Whose channels are filled; null means that there is none.
    void setCentralDataStore(model::DataStorePointer store) noexcept { session_.setStore(std::move(store)); }
    [[nodiscard]] const model::DataStorePointer& centralDataStore() const noexcept { return session_.presentStore(); }

    // The step is asked for and can be typed, or is hidden and empty.
    void offerSeries();
    void offerFillDown();
    // Channels 1 to 255, unchecked.
    void setChannels(int first, int last);

    // OK was pressed and may run. Who answers it calls fill().
    base::Event<> FillRequested;
    // Takes the backup, fills the channels, renders their rows again and hides the form. A statement that fails is
    // skipped; the backup and the rendering tell their own failures. Answers whether anything was written.
    bool fill();

    ui::Label start_chan_lab{"start_chan_lab"};
    ui::TextBox start_chan_val{"start_chan_val"};
    ui::Label end_chan_lab{"end_chan_lab"};
    ui::TextBox end_chan_val{"end_chan_val"};
    ui::Label start_freq_lab{"start_freq_lab"};
    ui::TextBox start_freq_val{"start_freq_val"};  // MHz
    ui::Label step_cap{"step_cap"};
    ui::TextBox step_val{"step_val"};  // kHz
    ui::Frame Frame1{"Frame1"};
    ui::OptionGroup modules;
    std::array<ui::OptionButton, 2> module_sel{{ui::OptionButton{"module_sel(0)"}, ui::OptionButton{"module_sel(1)"}}};
    ui::Button ok_but{"ok_but"};
    ui::Button cancel_but{"cancel_but"};

private:
    void start_chan_val_GotFocus();
    void start_chan_val_KeyPress(ui::KeyPressEvent& event);
    void start_chan_val_LostFocus();
    void end_chan_val_GotFocus();
    void end_chan_val_KeyPress(ui::KeyPressEvent& event);
    void end_chan_val_LostFocus();
    void start_freq_val_GotFocus();
    void start_freq_val_KeyPress(ui::KeyPressEvent& event);
    void start_freq_val_LostFocus();
    void step_val_GotFocus();
    void step_val_KeyPress(ui::KeyPressEvent& event);
    void step_val_LostFocus();
    void ok_but_Pressing();
    void ok_but_Click();
    void cancel_but_Click();

    void fillForm();
    void arrange();
    void wire();

    void enter(ui::TextBox& box);
    [[nodiscard]] bool accepts(int code) const;
    void filterKey(ui::KeyPressEvent& event) const;
    void filterNumberKey(ui::KeyPressEvent& event) const;
    // 0 where the text is no 16-bit integer.
    [[nodiscard]] std::int16_t channelIn(const ui::TextBox& box) const;
    // Hertz, rounded half to even; 0 where the text is no number or the value does not fit.
    [[nodiscard]] std::int32_t hertzIn(const ui::TextBox& box, double unit) const;
    // Tells why and sets the field to "0".
    void refuse(ui::TextBox& box, const std::string& reason);

    [[nodiscard]] bool fillChannels(int first, int last);
    [[nodiscard]] bool renderChannels(int first, int last);

    GridRows& rows_;
    session::Session session_;
    UndoHistory& history_;
    ui::TextBox* field_ = nullptr;  // has the focus
    bool fieldRefused_ = false;     // since OK began to be pressed
};

}  // namespace telvar::editing
