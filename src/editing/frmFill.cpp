#include "editing/frmFill.h"

#include <algorithm>
#include <exception>
#include <initializer_list>
#include <string>
#include <utility>

#include "base/checked.h"
#include "base/conversion.h"
#include "base/failure.h"
#include "base/rounding.h"
#include "base/skip.h"
#include "ui/redraw_off.h"

namespace telvar::editing {

using model::ChannelKey;

namespace {

constexpr double hertzPerMegahertz = 1e6;
constexpr double hertzPerKilohertz = 1e3;
constexpr int megahertzDecimals = 6;

// MHz; what the transmitter and the receiver can be tuned to.
constexpr float lowestFrequency = 20.0F;
constexpr float highestFrequency = 1000.0F;

constexpr std::int16_t lastStartChannel = model::channelCount - 1;

// Columns of the grid.
constexpr int txFrequencyColumn = 1;
constexpr int rxFrequencyColumn = 2;

}  // namespace

frmFill::frmFill(GridRows& rows, UndoHistory& history)
    : Form("frmFill"), rows_(rows), session_(rows.session().branch()), history_(history) {
    fillForm();
    arrange();
    wire();
}

void frmFill::fillForm() {
    setCaption("Channel Fill");
    start_chan_lab.setCaption("&Start Channel:");
    end_chan_lab.setCaption("&End Channel:");
    start_freq_lab.setCaption("Start &Freq (MHz):");
    step_cap.setCaption("Step &Value (kHz):");
    Frame1.setCaption("Module");
    module_sel[0].setCaption("&Transmitter");
    module_sel[1].setCaption("&Receiver");
    ok_but.setCaption("OK");
    cancel_but.setCaption("Cancel");
    // For screen readers.
    start_chan_val.setCaption("Start Channel");
    end_chan_val.setCaption("End Channel");
    start_freq_val.setCaption("Start Freq (MHz)");
    step_val.setCaption("Step Value (kHz)");

    setChannels(1, 2);
    start_freq_val.loadText("0");
    step_val.loadText("0");
    for (auto& option : module_sel) {
        modules.add(option);
        Frame1.surround(option);
    }
    module_sel[0].loadValue(true);
    ok_but.setDefault(true);
    cancel_but.setCancel(true);
    for (ui::Widget* child : std::initializer_list<ui::Widget*>{
             &start_chan_lab, &start_chan_val, &end_chan_lab, &end_chan_val, &start_freq_lab, &start_freq_val,
             &step_cap, &step_val, &Frame1, &module_sel[0], &module_sel[1], &ok_but, &cancel_but}) {
        add(*child);
    }
}

void frmFill::arrange() {
    using namespace ui;
    const auto field = [](TextBox& box) { return widget(box, Grow::Wide); };
    setLayout(session_.desktop(),
              withMargin(column({table(2, {widget(start_chan_lab), field(start_chan_val),  //
                                           widget(end_chan_lab), field(end_chan_val),      //
                                           widget(start_freq_lab), field(start_freq_val),  //
                                           widget(step_cap), field(step_val)}),            //
                                 framed(Frame1, row({widget(module_sel[0]), widget(module_sel[1])}, Distance::Usual)),
                                 buttonRow({&ok_but, &cancel_but})},
                                Distance::Usual)));
}

void frmFill::wire() {
    ui::on(start_chan_val.GotFocus, this, &frmFill::start_chan_val_GotFocus);
    ui::on(start_chan_val.KeyPress, this, &frmFill::start_chan_val_KeyPress);
    ui::on(start_chan_val.LostFocus, this, &frmFill::start_chan_val_LostFocus);
    ui::on(end_chan_val.GotFocus, this, &frmFill::end_chan_val_GotFocus);
    ui::on(end_chan_val.KeyPress, this, &frmFill::end_chan_val_KeyPress);
    ui::on(end_chan_val.LostFocus, this, &frmFill::end_chan_val_LostFocus);
    ui::on(start_freq_val.GotFocus, this, &frmFill::start_freq_val_GotFocus);
    ui::on(start_freq_val.KeyPress, this, &frmFill::start_freq_val_KeyPress);
    ui::on(start_freq_val.LostFocus, this, &frmFill::start_freq_val_LostFocus);
    ui::on(step_val.GotFocus, this, &frmFill::step_val_GotFocus);
    ui::on(step_val.KeyPress, this, &frmFill::step_val_KeyPress);
    ui::on(step_val.LostFocus, this, &frmFill::step_val_LostFocus);
    ui::on(ok_but.Pressing, this, &frmFill::ok_but_Pressing);
    ui::on(ok_but.Click, this, &frmFill::ok_but_Click);
    ui::on(cancel_but.Click, this, &frmFill::cancel_but_Click);
}

void frmFill::offerSeries() {
    step_cap.setVisible(true);
    step_val.setVisible(true);
    step_val.setEnabled(true);
    fit();
}

void frmFill::offerFillDown() {
    step_cap.setVisible(false);
    step_val.setVisible(false);
    step_val.setText("");
    fit();
}

void frmFill::setChannels(int first, int last) {
    start_chan_val.setText(std::to_string(first));
    end_chan_val.setText(std::to_string(last));
}

// -- entering a field: what is typed takes the place of what stands there --------------------------------------------

void frmFill::start_chan_val_GotFocus() { enter(start_chan_val); }
void frmFill::end_chan_val_GotFocus() { enter(end_chan_val); }
void frmFill::start_freq_val_GotFocus() { enter(start_freq_val); }
void frmFill::step_val_GotFocus() { enter(step_val); }

void frmFill::enter(ui::TextBox& box) {
    field_ = &box;
    box.selectAll();
}

// -- key filters -----------------------------------------------------------------------------------------------------

void frmFill::start_chan_val_KeyPress(ui::KeyPressEvent& event) { filterKey(event); }
void frmFill::end_chan_val_KeyPress(ui::KeyPressEvent& event) { filterKey(event); }
void frmFill::start_freq_val_KeyPress(ui::KeyPressEvent& event) { filterNumberKey(event); }
void frmFill::step_val_KeyPress(ui::KeyPressEvent& event) { filterNumberKey(event); }

// A store that cannot say so accepts nothing.
bool frmFill::accepts(int code) const {
    bool accepted = code == ui::key::backspace;
    if (!accepted && std::in_range<std::int16_t>(code)) {
        base::skip([&] {
            const auto store = session_.presentStore();
            accepted = store && store->CheckKey(static_cast<std::int16_t>(code));
        });
    }
    return accepted;
}

void frmFill::filterKey(ui::KeyPressEvent& event) const {
    if (!accepts(event.code)) {
        event.code = 0;
    }
}

void frmFill::filterNumberKey(ui::KeyPressEvent& event) const {
    if (event.code != session_.format().decimalSeparator) {
        filterKey(event);
    }
}

// -- leaving a field -------------------------------------------------------------------------------------------------

// A negative start channel is left as it is.
void frmFill::start_chan_val_LostFocus() {
    field_ = nullptr;
    auto start = channelIn(start_chan_val);
    auto end = channelIn(end_chan_val);
    if (start == 0) {
        start = 1;
    }
    start = std::min(start, lastStartChannel);
    if (start >= end) {
        end = static_cast<std::int16_t>(start + 1);
    }
    setChannels(start, end);
}

void frmFill::end_chan_val_LostFocus() {
    field_ = nullptr;
    auto start = channelIn(start_chan_val);
    const auto end = std::clamp<std::int16_t>(channelIn(end_chan_val), 2, model::channelCount);
    if (end <= start) {
        start = static_cast<std::int16_t>(end - 1);
    }
    setChannels(start, end);
}

// The same words serve the receiver.
void frmFill::start_freq_val_LostFocus() {
    field_ = nullptr;
    const float frequency = base::readSingle(start_freq_val.text(), session_.format()).value_or(0.0F);
    const bool inRange = frequency >= lowestFrequency && frequency <= highestFrequency;
    if (inRange || start_freq_val.text() == "0") {
        start_freq_val.setText(base::numberText(frequency, session_.format()));
        return;
    }
    refuse(start_freq_val, "Transmit frequency must be between 20 and 1000 MHz or 0 to disable.");
}

// A negative step makes a descending series.
void frmFill::step_val_LostFocus() {
    field_ = nullptr;
    const float step = base::readSingle(step_val.text(), session_.format()).value_or(0.0F);
    if (step == 0.0F && step_val.text() != "0") {
        refuse(step_val, "Invalid step value.  Please re-enter value.");
        return;
    }
    step_val.setText(base::numberText(step, session_.format()));
}

std::int16_t frmFill::channelIn(const ui::TextBox& box) const {
    return base::readInt16(box.text(), session_.format()).value_or(std::int16_t{0});
}

void frmFill::refuse(ui::TextBox& box, const std::string& reason) {
    fieldRefused_ = true;
    session_.refuse(reason);
    box.setText("0");
}

// -- OK and Cancel ---------------------------------------------------------------------------------------------------

void frmFill::ok_but_Pressing() { fieldRefused_ = false; }

// A press that took the user out of a field which was refused goes no further: what stands there now was not seen yet.
void frmFill::ok_but_Click() {
    // Enter presses the button from inside a field, which counts as leaving it though the focus stays.
    if (ui::TextBox* const field = field_) {
        field->LostFocus();
        field_ = field;
    }
    if (!fieldRefused_) {
        FillRequested();
    }
}

void frmFill::cancel_but_Click() { session_.desktop().hide(*this); }

bool frmFill::fill() {
    history_.UpdateBackUpFrequencyMemory();
    session_.throwIfClosed();
    const int first = channelIn(start_chan_val);
    const int last = channelIn(end_chan_val);
    bool changed = false;
    bool rendered = true;
    {
        const ui::RedrawOff off(rows_.grid());
        changed = fillChannels(first, last);
        rendered = renderChannels(std::max(first, 1), std::min<int>(last, model::channelCount));
    }
    session_.desktop().hide(*this);
    if (!rendered) {
        session_.throwIfClosed();
        session_.tellFailureOf("UpdateRowData");
    }
    return changed;
}

bool frmFill::fillChannels(int first, int last) {
    const bool transmitter = module_sel[0].value();
    const auto key = transmitter ? ChannelKey::TxFreq : ChannelKey::RxFreq;
    const int column = transmitter ? txFrequencyColumn : rxFrequencyColumn;
    const auto step = hertzIn(step_val, hertzPerKilohertz);
    auto frequency = hertzIn(start_freq_val, hertzPerMegahertz);
    const auto store = session_.presentStore();
    bool changed = false;
    for (int number = first; number <= last; ++number) {
        session_.throwIfClosed();
        base::skip([&] { rows_.grid().setRow(number); });
        const bool stored = store && base::skip([&] {
                                changed = changed || model::isChannel(number);
                                store->channel(static_cast<std::int16_t>(number)).put(key, frequency);
                            });
        // What was stored is shown even where the row cannot be read afterwards.
        if (stored) {
            base::skip([&] {
                rows_.grid().setText(number, column, base::scaledText(frequency, megahertzDecimals, session_.format()));
            });
        }
        base::skip([&] { frequency = base::checkedAdd(frequency, step); });
    }
    return changed;
}

// Every row that can be, so that one passing failure does not leave the rows behind it as they were.
bool frmFill::renderChannels(int first, int last) {
    bool all = true;
    for (int number = first; number <= last; ++number) {
        session_.throwIfClosed();
        all = base::skip([&] { rows_.render(static_cast<std::int16_t>(number)); }) && all;
    }
    return all;
}

std::int32_t frmFill::hertzIn(const ui::TextBox& box, double unit) const {
    std::int32_t hertz = 0;
    base::skip([&] {
        const auto number = base::readDouble(box.text(), session_.format());
        hertz = number ? base::roundTo<std::int32_t>(*number * unit) : 0;
    });
    return hertz;
}

}  // namespace telvar::editing
