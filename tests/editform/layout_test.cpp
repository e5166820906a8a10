// What the form looks like: captions, access keys, tab order, and that nothing overlaps or lies outside at any
// resolution and access level.
#include <map>
#include <set>

#include "base/text.h"
#include "edit_form_world.h"
#include "editform/channel_spacing.h"
#include "ui/metrics.h"

namespace telvar::tests {
namespace {

class FormLayout : public EditFormWorld {
protected:
    FormLayout() { load(); }
    void arrangeAt(int dpi) {
        form.setSize(form.wantedSize(ui::Metrics(desktop, dpi)), dpi);
        form.fit();
    }
    [[nodiscard]] std::vector<const ui::Widget*> shownChildren() const {
        std::vector<const ui::Widget*> shown;
        for (const auto* const child : form.children()) {
            if (child->isShown()) {
                shown.push_back(child);
            }
        }
        return shown;
    }
    [[nodiscard]] static bool standsIn(const ui::Widget* inner, const ui::Widget* outer) {
        for (const auto* frame = inner->frame(); frame != nullptr; frame = frame->frame()) {
            if (frame == outer) {
                return true;
            }
        }
        return false;
    }
    [[nodiscard]] static bool within(const ui::Rect& inner, const ui::Rect& outer) {
        return inner.intersected(outer) == inner;
    }
    void expectTidy(const std::string& state, int dpi) {
        const ui::Metrics metrics(desktop, dpi);
        const ui::Rect client{0, 0, form.size().width, form.size().height};
        const auto shown = shownChildren();
        for (const auto* const widget : shown) {
            const auto& at = widget->bounds();
            const auto wanted = widget->wantedSize(metrics);
            EXPECT_TRUE(within(at, client)) << state << widget->name();
            EXPECT_GE(at.width(), wanted.width) << state << widget->name() << " is clipped";
            EXPECT_GE(at.height(), wanted.height) << state << widget->name() << " is clipped";
            if (widget->frame() != nullptr) {
                EXPECT_TRUE(within(at, widget->frame()->bounds())) << state << widget->name();
            }
            for (const auto* const other : shown) {
                if (other != widget && !standsIn(other, widget) && !standsIn(widget, other)) {
                    EXPECT_TRUE(at.intersected(other->bounds()).empty())
                        << state << widget->name() << " over " << other->name();
                }
            }
        }
    }
};

TEST_F(FormLayout, NothingOverlapsNothingIsClippedNothingLiesOutside) {
    form.setSelectedChannels(1, 255);
    for (const int dpi : {96, 144, 192}) {
        for (const std::int16_t level : std::initializer_list<std::int16_t>{0, 3, 5}) {
            for (const bool board : {false, true}) {
                table->put(StoreMember::P25BoardFitted, board);
                form.UpdateAccess(level);
                for (const bool narrow : {false, true}) {
                    for (const bool dcs : {false, true}) {
                        (narrow ? form.optNarrowBand : form.optWideBand).setValue(true);
                        (dcs ? form.optTxDcs : form.optTxCtcss).setValue(true);
                        (dcs ? form.optRxDcs : form.optRxCtcss).setValue(true);
                        arrangeAt(dpi);
                        expectTidy(std::to_string(dpi) + " dpi, level " + std::to_string(level) + " ", dpi);
                    }
                }
            }
        }
    }
}

TEST_F(FormLayout, TheLongestSpacingCaptionFitsItsFrame) {
    table->put(StoreMember::FCCNarrowBandRadio, true);
    form.UpdateAccess(0);
    form.refresh();
    EXPECT_EQ(form.frChannelSpacing.caption(), "12.5 kHz Narrow Band Only Channel Spacing");
    expectTidy("", 96);
}

TEST_F(FormLayout, TheSpacingFrameKeepsItsPlaceWhateverItsCaptionIs) {
    for (const int dpi : {96, 144, 192}) {
        arrangeAt(dpi);
        const ui::Rect before = form.frChannelSpacing.bounds();
        for (const std::string& caption : editform::channelSpacingCaptions()) {
            form.frChannelSpacing.setCaption(caption);
            form.fit();
            EXPECT_EQ(form.frChannelSpacing.bounds(), before) << caption << " at " << dpi;
        }
    }
}

TEST_F(FormLayout, BothBandsLevelsStandAtTheSamePlace) {
    for (const int dpi : {96, 144, 192}) {
        arrangeAt(dpi);
        EXPECT_EQ(form.sldRefOscFreq.bounds(), form.sldNBRefOscFreq.bounds());
        EXPECT_EQ(form.txtRefOscFreq.bounds(), form.txtNBRefOscFreq.bounds());
        EXPECT_EQ(form.sldVcoDeviation.bounds(), form.sldNBVcoDeviation.bounds());
        EXPECT_EQ(form.txtVcoDeviation.bounds(), form.txtNBVcoDeviation.bounds());
        EXPECT_EQ(form.sldRefOscDev.bounds(), form.sldNBRefOscDev.bounds());
        EXPECT_EQ(form.txtRefOscDev.bounds(), form.txtNBRefOscDev.bounds());
        const auto wide = form.txtRefOscDev.bounds();
        form.optNarrowBand.setValue(true);
        EXPECT_EQ(form.txtNBRefOscDev.bounds(), wide);
        form.optWideBand.setValue(true);
    }
}

TEST_F(FormLayout, ItFitsTheSmallestUsualScreen) {
    form.setSelectedChannels(1, 255);
    const auto wanted = form.wantedSize(ui::Metrics(desktop, 96));
    EXPECT_LE(wanted.width, 1000);
    EXPECT_LE(wanted.height, 700);
}

TEST_F(FormLayout, LessAccessMakesASmallerForm) {
    const auto full = form.size();
    form.UpdateAccess(0);
    EXPECT_LT(form.size().height, full.height);
    EXPECT_LT(form.size().width, full.width);
}

TEST_F(FormLayout, NoTwoAccessKeysAreTheSame) {
    std::map<std::string, std::string> keys;
    for (const auto* const child : form.children()) {
        const auto mark = child->caption().find('&');
        if (mark != std::string::npos) {
            const auto key = base::upperCased(child->caption().substr(mark + 1, 1));
            EXPECT_TRUE(keys.emplace(key, child->name()).second)
                << key << " of " << child->name() << " and " << keys[key];
        }
    }
    EXPECT_GT(keys.size(), 25U);
}

TEST_F(FormLayout, CaptionsAreExact) {
    const std::vector<std::pair<const ui::Widget*, std::string>> captions{
        {&form, "Channel Edit"},
        {&form.lblEditChannel, "Edit Channel Number"},
        {&form.frFreqencySettings, "Frequency Settings"},
        {&form.lblTxFrequency, "Tx Frequency (MHz)"},
        {&form.lblRxFrequency, "Rx Frequency (MHz)"},
        {&form.lblRxLocalOscFreq, "Rx Local Osc Freq (MHz)"},
        {&form.frTxSubtone, "Tx CTCSS/DCS"},
        {&form.frRxSubtone, "Rx CTCSS/DCS"},
        {&form.optTxCtcss, "CTCSS"},
        {&form.optTxDcs, "DCS"},
        {&form.optRxCtcss, "CTCSS"},
        {&form.optRxDcs, "DCS"},
        {&form.lblTxSubtoneLevel, "Tx Subtone Level (0-6)"},
        {&form.frSynthesizer, "Synthesizer Settings"},
        {&form.lblTxSynthStepSize, "Synth Step Size (kHz)"},
        {&form.lblRxSynthStepSize, "Synth Step Size (kHz)"},
        {&form.lblTxAccelIntegral, "Accel Integral (0-15)"},
        {&form.lblRxAccelIntegral, "Accel Integral (0-15)"},
        {&form.lblTxBinaryMain, "Binary Main (0-255)"},
        {&form.lblRxBinaryMain, "Binary Main (0-255)"},
        {&form.lblTxModulo, "Modulo (5,8)"},
        {&form.lblRxModulo, "Modulo (5,8)"},
        {&form.lblTxAccelProportion, "Accel Proportion (0-3)"},
        {&form.lblRxAccelProportion, "Accel Proportion (0-3)"},
        {&form.frDigitalPotentiometer, "Digital Potentiometer Settings"},
        {&form.ckScanChannel, "Scan Channel"},
        {&form.ckSimplexChannel, "Simplex Channel"},
        {&form.ckTtrChannel, "TTR (Repeater) Channel"},
        {&form.ckDataMode, "Data Mode"},
        {&form.optWideBand, "Wide Band"},
        {&form.optNarrowBand, "Narrow Band"},
        {&form.frRfMode, "RF Mode"},
        {&form.optRFMode[0], "Simplex"},
        {&form.optRFMode[1], "Duplex"},
        {&form.optRFMode[2], "Analog Repeater (TTR)"},
        {&form.optRFMode[3], "P25 Digital Repeater (TTR)"},
        {&form.optRFMode[4], "Mixed P25/Analog Repeater (TTR)"},
        {&form.frP25ChannelSettings, "APCO P25 Channel Settings"},
        {&form.frP25TransmitMode, "External PTT Transmit Mode"},
        {&form.optP25TransmitMode[0], "Analogue"},
        {&form.optP25TransmitMode[1], "P25 Digital"},
        {&form.chkP25RepeaterEnable, "P25 Repeater"},
        {&form.chkTTRAnalogDataMode, "TTR Analog Data Mode"},
        {&form.lblTTRAnalogDataMode, "Note: enable for FleetSync, Analog GPS data, etc."},
        {&form.lblP25TalkgroupID, "P25 Talkgroup ID"},
        {&form.lblP25TxNetworkAccessCode, "P25 TX Network Access Code"},
        {&form.lblP25RxNetworkAccessCode, "P25 RX Network Access Code"},
        {&form.lblP25Bandwidth, "Note: P25 requires Narrow Band configuration"},
        {&form.ckLockVcoRefOscDev, "Lock VCO / Ref Osc Dev"},
        {&form.cmdOk, "OK"},
        {&form.cmdApply, "Apply"},
        {&form.cmdCancel, "Cancel"},
        {&form.cmdAdvanced, "Access"},
    };
    for (const auto& [widget, caption] : captions) {
        EXPECT_EQ(ui::shownText(widget->caption()), caption) << widget->name();
    }
}

TEST_F(FormLayout, EveryFieldHasANameForScreenReadersAndStandsOnceInTheTabOrder) {
    form.setSelectedChannels(1, 255);
    std::set<const ui::Widget*> seen;
    for (const auto* const child : form.children()) {
        EXPECT_TRUE(seen.insert(child).second) << child->name();
        EXPECT_TRUE(child == &form.lblHint || !child->caption().empty()) << child->name();
    }
}

// Left to right by columns, each from the top: what follows in tab order stands lower, or further right.
TEST_F(FormLayout, TheTabOrderIsTheReadingOrder) {
    arrangeAt(96);
    const ui::Frame* before = nullptr;
    for (const auto* const child : form.children()) {
        const auto* const frame = dynamic_cast<const ui::Frame*>(child);
        if (frame == nullptr || frame->frame() != nullptr) {
            continue;
        }
        if (before != nullptr) {
            const auto& at = frame->bounds();
            const auto& last = before->bounds();
            EXPECT_TRUE(at.top >= last.bottom || at.left >= last.right) << frame->name();
        }
        before = frame;
        const ui::Widget* former = nullptr;
        for (const auto* const inside : frame->inside()) {
            if (!inside->visible()) {
                continue;
            }
            if (former != nullptr) {
                EXPECT_TRUE(inside->bounds().top >= former->bounds().bottom ||
                            inside->bounds().left >= former->bounds().right)
                    << inside->name();
            }
            former = inside;
        }
    }
}

TEST_F(FormLayout, WhatIsOnlyShownIsReadOnly) {
    EXPECT_TRUE(form.txtEditChannel.readOnly());
    EXPECT_TRUE(form.txtRxLocalOscFreq.readOnly());
    EXPECT_FALSE(form.txtTxFrequency.readOnly());
    EXPECT_EQ(form.cmbTxSubtone.style(), ui::ComboBox::Style::DropDown);
    EXPECT_EQ(form.cmbRxSubtone.style(), ui::ComboBox::Style::DropDown);
    EXPECT_EQ(form.cmbTxDcs.style(), ui::ComboBox::Style::DropDownList);
}

}  // namespace
}  // namespace telvar::tests
