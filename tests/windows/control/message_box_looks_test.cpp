// What the user really sees of every message box: text, title, icon and buttons as the system's own window has them.
#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "clipboard_keys.h"
#include "edit_form_world.h"
#include "recording_link.h"

#include <docobj.h>

namespace telvar::tests {

namespace {

using Boxes = std::vector<ShownBox>;
using Buttons = std::vector<int>;

const Buttons okOnly{IDOK};
const Buttons okCancel{IDOK, IDCANCEL};
const Buttons yesNo{IDYES, IDNO};

[[nodiscard]] ShownBox box(std::string text, std::string title, std::string icon, Buttons buttons = okOnly) {
    return {.text = std::move(text), .title = std::move(title), .icon = std::move(icon), .buttons = std::move(buttons)};
}
[[nodiscard]] ShownBox exclamation(std::string text, std::string title = "Telvar") {
    return box(std::move(text), std::move(title), "exclamation");
}

// A child of any window by its class, and by its caption without the access key's mark where that is given.
[[nodiscard]] HWND partOf(HWND window, std::wstring name, std::optional<std::string> caption = {}) {
    struct Search {
        std::wstring name;
        std::optional<std::string> caption;
        HWND found = nullptr;
    } search{std::move(name), std::move(caption)};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM wanted) -> BOOL {
            auto& it = *reinterpret_cast<Search*>(wanted);
            std::array<wchar_t, 64> className{};
            GetClassNameW(child, className.data(), static_cast<int>(className.size()));
            std::string text = EditFormDriver::textOf(child);
            std::erase(text, '&');
            if (className.data() == it.name && text == it.caption.value_or(text)) {
                it.found = child;
            }
            return it.found == nullptr ? TRUE : FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

struct MessageBoxLook : EditFormWorld {
    void SetUp() override {
        put(*store, "TableOpen", Variant(true));
        put(*control, "plibRadioComms", Variant(link.get()));
        show();
        // Of the channels in service the one that the table check would refuse.
        fill(12, firstHertz);
        boxes.forget();
    }
    [[nodiscard]] Boxes shown() const { return boxes.shown(); }

    void run(DWORD command) {
        (void)ComPointer<IOleCommandTarget>::from(control)->Exec(nullptr, command, OLECMDEXECOPT_DODEFAULT, nullptr,
                                                                 nullptr);
    }
    void paste(const std::wstring& text) {
        com::check(grid->Select(20, 1, 20, 1));
        putOnClipboard(text);
        run(OLECMDID_PASTE);
    }
    static void click(HWND button) {
        ASSERT_NE(button, nullptr);
        PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
        PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
        pump();
    }
    void click(const std::string& caption) { click(partOf(site->window(), L"Button", caption)); }
    void setKey(std::int16_t channel, const char* key, const Variant& value) {
        const Variant record = call(*store, "ChannelTable", {Variant(static_cast<std::int16_t>(channel - 1))});
        put(*V_DISPATCH(&record.get()), key, value);
    }

    Texts journal;
    ComPointer<RecordingLink> link = com::make<RecordingLink>(journal);
};

// -- the grid --------------------------------------------------------------------------------------------------------

TEST_F(MessageBoxLook, OfARoutinesFailureIsAnExclamationUnderTheDefaultTitle) {
    put(*control, "pCentralDataStore", Variant());
    call(*control, "UpdateControlsFromMemory");
    call(*control, "UpdateAccess", {Variant(std::int16_t{3})});
    for (const ShownBox& each : shown()) {
        EXPECT_EQ(each, exclamation(each.text, "Tesslin"));
    }
    ASSERT_FALSE(shown().empty());
    EXPECT_EQ(shown().front().text, "Error in UpdateControlsFromMemory()");
}

TEST_F(MessageBoxLook, OfAPrintWithoutATable) {
    put(*store, "TableOpen", Variant(false));
    call(*control, "PrintInfo");
    EXPECT_EQ(shown(), Boxes{exclamation("No channel information open to print. Please open a channel database.")});
}

TEST_F(MessageBoxLook, OfAnInvalidChannelHasNoIconAndSaysSoInItsTitle) {
    const HWND typed = partOf(site->window(), L"Edit");
    ASSERT_NE(typed, nullptr);
    type(typed, "999");
    click("Select");
    EXPECT_EQ(shown(), Boxes{box("Channel Not configured correctly or Invalid channel selection.\r\nPlease configure "
                                 "the channel (1-255) by clicking on its respective row on the grid.",
                                 "Telvar: Invalid Channel Selection", "none")});
}

TEST_F(MessageBoxLook, OfARefusedPasteHasNoIconAndNoTitleOfItsOwn) {
    paste(L"145.5\t145.5\tnonsense");
    EXPECT_EQ(shown(), Boxes{box("Error during pasting data. Invalid DCS value (not found in the table) TX Subtone. "
                                 "Unable to continue.",
                                 "Tesslin", "none")});
}

TEST_F(MessageBoxLook, OfTheQuestionBeforeDeletingHasYesAndNo) {
    boxes.answerWith(IDNO);
    run(OLECMDID_DELETE);
    EXPECT_EQ(shown(),
              Boxes{box("This will delete selected channel(s). Would you like to proceed?", "Tesslin", "none", yesNo)});
}

TEST_F(MessageBoxLook, OfLockedData) {
    click("Lock Data");
    paste(L"145.5");
    EXPECT_EQ(shown(), Boxes{exclamation("Data is locked. Clear 'Lock Data' to make changes.")});
}

TEST_F(MessageBoxLook, OfATableThatIsBeingLoaded) {
    call(*control, "LoadFromTelvar");
    put(*store, "CommsBusy", Variant(true));
    paste(L"145.5");
    EXPECT_EQ(shown(), Boxes{exclamation("The channel table is being loaded from the radio. Please wait until it has "
                                         "ended.")});
}

// -- sending and checking --------------------------------------------------------------------------------------------

TEST_F(MessageBoxLook, OfASendWithoutATable) {
    put(*store, "TableOpen", Variant(false));
    call(*control, "SendToTelvar");
    EXPECT_EQ(shown(), Boxes{exclamation("No channel information open to send. Please open a channel database.")});
}

TEST_F(MessageBoxLook, OfTheWarningBeforeASendIsAnInformationWithOkAndCancel) {
    put(*store, "ShowSendWarning", Variant(true));
    boxes.answerWith(IDCANCEL);
    call(*control, "SendToTelvar");
    EXPECT_EQ(shown(), Boxes{box("Warning: Sending data to the Telvar will overwrite the\r\n"
                                 "current memory contents within the Telvar.\r\n"
                                 "\r\n"
                                 "Recommendation: Save Telvar channel/configuration\r\n"
                                 "information to disk first.\r\n"
                                 "\r\n"
                                 "Proceed with overwrite?",
                                 "Telvar: Communicating with Telvar", "information", okCancel)});
}

TEST_F(MessageBoxLook, OfTooManyScannedChannels) {
    for (std::int16_t channel = 1; channel <= 41; ++channel) {
        fill(channel, firstHertz);
        setKey(channel, "scan", Variant(true));
    }
    put(*store, "ShowSendWarning", Variant(false));
    call(*control, "SendToTelvar");
    EXPECT_EQ(shown(), Boxes{exclamation("Total number of channel scan must not exceed 40.")});
}

TEST_F(MessageBoxLook, OfChannelsThatCannotBeTuned) {
    fill(3, firstHertz + 1);
    call(*control, "check_Frequencies");
    EXPECT_EQ(shown(), Boxes{exclamation("Reference frequency divide error or main frequency divide error in channels "
                                         "3.\rHint: Correct frequency or alter modulus or step size.\r\n")});
}

TEST_F(MessageBoxLook, OfTheOlderChipHasTheDefaultTitle) {
    put(*store, "TxSynthChipInfo", Variant("N.A."));
    setKey(2, "SynthStep", Variant(std::int32_t{3200}));
    fill(2, 150'400'000);
    call(*control, "check_Frequencies");
    ASSERT_FALSE(shown().empty());
    EXPECT_EQ(shown().front(),
              exclamation("Phillips SA 7025 PLL chip detected, synthesizer step size 5kHZ or larger is recommended to "
                          "maintain RF performance in channel 2 (TX)",
                          "Tesslin"));
}

TEST_F(MessageBoxLook, OfAMissingDcsOption) {
    put(*store, "DCSOptionFitted", Variant(false));
    setKey(1, "TxCTCSSDCS", Variant(true));
    call(*control, "check_Frequencies");
    EXPECT_EQ(shown(), Boxes{exclamation("DCS option not present.  Please remove DCS subtones from channel/s.")});
}

TEST_F(MessageBoxLook, OfAFaultInTheCheck) {
    setKey(5, "SynthStep", Variant(std::int32_t{0}));
    call(*control, "check_Frequencies");
    EXPECT_EQ(shown(),
              Boxes{exclamation("Error in channel 5.  Please check information entered.\r\nDivision by zero")});
}

// -- the fill dialog -------------------------------------------------------------------------------------------------

// Works the dialog while the call that shows it has not returned.
class FillDialog {
public:
    explicit FillDialog(std::function<void()> work) {
        work_ = std::move(work);
        timer_ = SetTimer(nullptr, 0, 15, &look);
    }
    FillDialog(const FillDialog&) = delete;
    FillDialog& operator=(const FillDialog&) = delete;
    FillDialog(FillDialog&&) = delete;
    FillDialog& operator=(FillDialog&&) = delete;
    ~FillDialog() {
        KillTimer(nullptr, timer_);
        EXPECT_FALSE(work_) << "the dialog was never seen";
        work_ = nullptr;
    }

private:
    static void CALLBACK look(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
        if (EditFormDriver::form() != nullptr && work_) {
            KillTimer(nullptr, timer);
            std::exchange(work_, nullptr)();
            PostMessageW(EditFormDriver::form(), WM_CLOSE, 0, 0);
        }
    }
    static inline std::function<void()> work_;
    UINT_PTR timer_ = 0;
};

TEST_F(MessageBoxLook, OfTheFillDialogsRefusals) {
    const FillDialog dialog([] {
        type(field(2), "5");
        type(field(3), "none");
        SetFocus(field(0));
        pump();
    });
    call(*control, "DisplayFill");
    EXPECT_EQ(shown(), (Boxes{exclamation("Transmit frequency must be between 20 and 1000 MHz or 0 to disable."),
                              exclamation("Invalid step value.  Please re-enter value.")}));
}

// -- the edit form ---------------------------------------------------------------------------------------------------

struct EditFormBoxLook : MessageBoxLook {
    void SetUp() override {
        MessageBoxLook::SetUp();
        doubleClick();
        ASSERT_NE(form(), nullptr);
        boxes.forget();
    }
};

TEST_F(EditFormBoxLook, OfARefusedField) {
    type(frequencyField(), "5");
    press("Apply");
    ASSERT_FALSE(shown().empty());
    EXPECT_EQ(shown().back(), exclamation("Transmit frequency must be between 10 and 1000 MHz or 0 to disable."));
}

TEST_F(EditFormBoxLook, OfAFrequencyWithoutAProposalIsAnInformation) {
    type(frequencyField(), "150.000001");
    SetFocus(channelField());
    pump();
    EXPECT_EQ(shown(),
              Boxes{box("Reference frequency divide error or main frequency divide error.\r\nUnable to calculate the "
                        "Synthesizer Step Size and Modulo required for the specified TX VCO frequency automatically\r\n"
                        "Hint: Correct frequency or alter modulus or step size.",
                        "Telvar", "information")});
}

TEST_F(EditFormBoxLook, OfAlteredLevelsIsAnInformation) {
    click("Lock Channel Settings");
    press("Apply");
    EXPECT_EQ(shown(), Boxes{box("Pot values have been altered.\r\nTo permanently save changes 'Send Data to Telvar'.",
                                 "Telvar", "information")});
}

TEST_F(EditFormBoxLook, OfARadioThatDoesNotAnswer) {
    press("Continuous Update");
    // The form's timer ticks five times a second.
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (shown().empty() && std::chrono::steady_clock::now() < end) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 1000, QS_ALLINPUT);
        pump();
    }
    EXPECT_EQ(shown(), Boxes{exclamation("The radio does not answer. Continuous update has been switched off.")});
}

TEST_F(EditFormBoxLook, OfTheQuestionAboutUnappliedEditsHasYesAndNo) {
    boxes.answerWith(IDNO);
    type(frequencyField(), "151");
    key(gridWindow(), VK_DOWN);
    ASSERT_FALSE(shown().empty());
    for (const ShownBox& each : shown()) {
        EXPECT_EQ(each, box(each.text, "Telvar", "exclamation", yesNo));
    }
}

}  // namespace
}  // namespace telvar::tests
