// The channel-table control as the outside sees it, without a window and without COM: its published methods,
// properties, events and widgets. It keeps no channel data; everything comes from the host's data store at the moment
// it is needed.
//
// Public routines trap their failures and tell the user "Error in X()"; only logMessage lets its failure through. In
// every event, message box and wait anything may happen: the host may call back, exchange the store, or close the
// control, which ends the routine quietly; session/session.h says how. Closing is not destroying: the owner keeps the
// object until no call is inside it any more.
#pragma once

#include <array>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/event.h"
#include "base/number_text.h"
#include "control/confirmation.h"
#include "editform/frmChannelEdit.h"
#include "editing/clipboard_editing.h"
#include "editing/frmFill.h"
#include "editing/grid_rows.h"
#include "editing/undo.h"
#include "model/data_store.h"
#include "model/radio_link.h"
#include "session/session.h"
#include "transfer/table_transfer.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/desktop.h"
#include "ui/form.h"
#include "ui/frame.h"
#include "ui/grid.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/text_box.h"
#include "ui/timer.h"

namespace telvar::control {

// What the control is put into. The desktop must outlive the control.
struct Surroundings {
    ui::Desktop& desktop;
    // Makes one private table for undo or redo. Where it is missing, fails or answers null, a table in memory serves.
    std::function<model::DataStorePointer()> makeTable;
    base::NumberFormat numberFormat{};
    std::string logPath;  // of the message log
};

// The grid's editing commands, by their pop-up menu codes.
enum class GridCommand : std::uint8_t { Copy, Paste, Delete, Undo, Redo };

class ChannelInformation : transfer::TransferOwner {
    // Before everything that works within it.
    session::Session session_;

public:
    // Starts the control up (UserControl_Initialize). Never fails for want of a data-store class.
    explicit ChannelInformation(Surroundings surroundings);
    ~ChannelInformation() override;

    // Ends the control (UserControl_Terminate): the timer stops, both links and the private tables are let go, and
    // every routine, also one that is under way, does nothing more. Callable any number of times, inside any event.
    void close() noexcept;
    [[nodiscard]] bool closed() const noexcept { return session_.closed(); }

    // pCentralDataStore and plibRadioComms. The forms get the new object by the matching Distribute... method only.
    void setCentralDataStore(model::DataStorePointer store);
    [[nodiscard]] const model::DataStorePointer& centralDataStore() const noexcept { return session_.presentStore(); }
    void setRadioComms(model::RadioLinkPointer link);
    [[nodiscard]] const model::RadioLinkPointer& radioComms() const noexcept { return session_.presentLink(); }
    // Kept for the host; the control never changes them.
    bool bHidden = false;
    std::int16_t intPrevChannel = 0;

    // The published methods, in the interface's order. Channel numbers outside 1 to 255 are a failure of the routine.
    void Prepare();
    void DistributeDataStoreLink();
    void DistributeRadioCommsLink();
    void HideAdvancedButton();
    void DisplayFill();
    void ChannelFillDown();
    void ChannelFillSeries();
    bool check_Frequencies();
    void LoadFromTelvar();
    void SendToTelvar();
    void LoadChannelInfoFromTelvar();
    void SendChannelInfoToTelvar();
    std::string CheckTotalNoOfChannelScan();
    void SetRowBackColour(std::int16_t index, std::int32_t rgbBackColour);
    void HighLightChannel(std::int16_t nChannelNum);
    void UpdateChannelSelection();
    void UpdateControlsFromMemory();
    void UpdateRowData(std::int16_t i);
    void UpdateAccess(std::int16_t intAccessLvl);
    void DisableMyCommands(const std::string& sCommands);
    void EnableMyCommands(const std::string& sCommands);
    void PrintInfo();
    void RefreshEditForm();
    void ChannelKeyUp();
    void ChannelKeyDown();
    // Appends one line to the message log. A file that cannot be written is a base::Failure of the caller.
    void logMessage(const std::string& txtMessage);

    // The published events, by dispatch number 1 to 12.
    base::Event<> RestoreButtons;
    base::Event<> DisableCommands;
    base::Event<std::string&> EnableCommands;
    base::Event<> PauseDiagnostics;
    base::Event<> OpenLoginWithChannelFill;
    base::Event<> OpenLoginWithChannelEdit;
    base::Event<> DefaultOverWindow;
    base::Event<> HourglassOverWindow;
    base::Event<std::string&> NewWindowCaption;
    base::Event<> PrintChannelData;
    base::Event<> EditWindowClosed;
    base::Event<> IncrementProgressBar;

    // For the host's command target. A command that is not enabled does nothing when it is run: undo and redo while
    // their menu items are disabled, and whatever would change the table while such a command is under way.
    [[nodiscard]] bool commandEnabled(GridCommand command) const noexcept;
    void run(GridCommand command);
    // What the last paste refused, and how many were refused so far; the box that tells it does not say where.
    [[nodiscard]] const std::optional<editing::RefusedCell>& lastRefusal() const noexcept {
        return clipboardEditing_.lastRefusal();
    }
    [[nodiscard]] int refusedPastes() const noexcept { return clipboardEditing_.refusals(); }
    // Every channel and every column, headers excluded.
    void selectAll();

    // The surface with the widgets below in tab order. Its owner sets its size, which arranges them.
    [[nodiscard]] ui::Panel& panel() noexcept { return panel_; }
    // Good first extents of the surface, in twips: the first nine columns and 25 rows.
    static constexpr int defaultWidth = 9450;
    static constexpr int defaultHeight = 7800;

    ui::Grid fgdDatabase;
    ui::Label lblSoftwareChannelSelect{"lblSoftwareChannelSelect"};
    ui::TextBox txtChannelSelect{"txtChannelSelect"};
    ui::Button cmdChannelSelect{"cmdChannelSelect"};
    ui::Frame frLockMode{"frLockMode"};
    ui::OptionGroup lockModes;
    std::array<ui::OptionButton, 3> optLockMode{
        {ui::OptionButton{"optLockMode(0)"}, ui::OptionButton{"optLockMode(1)"}, ui::OptionButton{"optLockMode(2)"}}};
    ui::CheckBox ckLockData{"ckLockData"};
    ui::ComboBox pcmbDCSCodes{"pcmbDCSCodes"};  // hidden; not on the surface
    ui::Timer Timer1;
    editform::frmChannelEdit frmCE;
    // The question that the user may switch off.
    Confirmation confirmation;

    // For hosts that offer the form without the mouse: as a double-click on the current row, but a form that shows it
    // already keeps what was typed and comes to the front, after the question about other selected channels if there
    // are any.
    void editChannel();
    // The keyboard goes to the grid, from wherever it is; nothing while no window shows it.
    void focusGrid();
    // Before the table goes: the user applies or drops the edits in the open form, or wants to stay (False).
    [[nodiscard]] bool leaveEdits();

    // Hides every form, unanswered and without storing; raises nothing.
    void closeForms() noexcept;

    // The one fill dialog, made when it is first needed.
    [[nodiscard]] editing::frmFill& frmFill();

    // The level of the last UpdateAccess, 0 before the first.
    [[nodiscard]] std::int16_t accessLevel() const noexcept { return accessLevel_; }
    // The backup tables; null once the control is closed.
    [[nodiscard]] model::DataStorePointer undoTable() const noexcept { return history_.backupTable(); }
    [[nodiscard]] model::DataStorePointer redoTable() const noexcept { return history_.redoTable(); }

private:
    void UserControl_Initialize();
    void UserControl_Resize();
    void UserControl_Terminate();
    void Timer1_Timer();
    void txtChannelSelect_GotFocus();
    void txtChannelSelect_KeyPress(ui::KeyPressEvent& event);
    void cmdChannelSelect_Press();
    void cmdChannelSelect_Click();
    void optLockMode_Click(std::int16_t Index);
    void fgdDatabase_KeyDown(ui::KeyEvent& event);
    void fgdDatabase_KeyPress(ui::KeyPressEvent& event);
    void fgdDatabase_MouseDown(const ui::MouseEvent& event);
    void fgdDatabase_DblClick(const ui::DoubleClick& click);
    void fgdDatabase_SelChange();
    void frmCE_Load();
    void frmCE_DataChanged();
    void frmCE_EditClosed();
    void frmCE_NeedToUpdateFlexGrid(std::int16_t& intRowNo);
    void frmCE_OpenLoginWithChannelEdit();
    void frmCE_PauseDiagnosticsIfRunning();
    void frmCE_PopUpMenuClick(std::int16_t& intButton);
    void frmFill_FillRequested();

    template <class... Arguments, class... Given>
    void raise(base::Event<Arguments...>& event, Given&&... arguments) {
        session_.throwIfClosed();
        event(std::forward<Given>(arguments)...);
        session_.throwIfClosed();
    }

    static void checkChannel(std::int16_t channel);

    void fillPanel();
    void wire();
    void setUpLockModes();
    [[nodiscard]] model::DataStorePointer makeTable() const;

    // Of what would change the table. The user is told why, unless it stands inside something that takes no notice.
    [[nodiscard]] bool refused(session::Activity wanted);
    // The frame around every edit of the table; `edit` answers whether anything was written, `mark` sets the flags of a
    // changed table.
    void changeTable(const std::function<bool()>& edit, const std::function<void()>& mark);
    [[nodiscard]] bool editTable(GridCommand command);
    void markTableFilled();
    void markChanged(const model::DataStorePointer& table) const;
    void startFill(void (editing::frmFill::*offer)());
    void takeSelectedRows(editing::frmFill& form) const;
    void showFill();

    void setUpGrid();
    void renderAllChannels();
    void paintRow(std::int16_t row, ui::Colour colour);

    // ---- the edit form
    struct Rows {
        std::int16_t first = 0;
        std::int16_t last = 0;
        bool operator==(const Rows&) const = default;
    };
    [[nodiscard]] bool editFormShown() const { return session_.desktop().isOpen(frmCE); }
    void wireEditForm();
    void markSelected(int row);
    void openCurrentRow(const ui::CellRange& selected);
    void openEditForm(std::int16_t channel, const ui::CellRange& selection);
    [[nodiscard]] Rows rowsToCopyTo(std::int16_t channel, const ui::CellRange& selection);
    void copyTo(Rows rows);
    void keepCopying();
    [[nodiscard]] Rows selectedRows() const;
    void placeEditForm();
    void followRowSoon();
    void showRowInEditForm(const std::string& news = {});
    void returnToEditedRow(int column);
    void distributeStoreToEditForm();
    [[nodiscard]] std::vector<base::Value> valuesInEditForm() const;

    void highlight(std::int16_t channel);
    void followSelectedChannel();
    [[nodiscard]] std::string selectedChannelText() const;
    void setBlinking(bool blinking);

    [[nodiscard]] double typedNumber() const;
    void stepChannel(std::int16_t wrapAt, std::int16_t wrapTo, std::int16_t step);
    void selectOnRadio(std::int16_t channel);
    void leaveChannelForLast();
    [[nodiscard]] bool waitForQuietLink();
    void scrollToChannel(std::int16_t channel);
    void refuseTypedChannel();
    void endChannelSelect();

    [[nodiscard]] std::exception_ptr showColumnsOf(std::int16_t level);
    void markHeaders(std::int16_t mode);

    // ---- what a transfer asks for
    void disableCommands() override { raise(DisableCommands); }
    void hourglassOverWindow() override { raise(HourglassOverWindow); }
    void pauseDiagnostics() override { raise(PauseDiagnostics); }
    void restoreButtons() override { raise(RestoreButtons); }
    void enableCommands(std::string commands) override { raise(EnableCommands, commands); }
    void disableChannelSelect() override { cmdChannelSelect.setEnabled(false); }
    [[nodiscard]] bool checkFrequencies() override;
    [[nodiscard]] std::string checkScanCount() override { return CheckTotalNoOfChannelScan(); }

    std::function<model::DataStorePointer()> makeTable_;
    std::string logPath_;
    ui::Panel panel_{"ChannelInformation"};
    std::unique_ptr<editing::frmFill> frmFill_;
    editing::GridRows rows_;
    editing::UndoHistory history_;
    editing::ClipboardEditing clipboardEditing_;
    transfer::TableTransfer tableTransfer_;
    std::int16_t accessLevel_ = 0;
    session::Occurrence formClosing_;
    std::int16_t channelToSend_ = 0;  // the one that was typed last, while the link is waited for
    bool following_ = false;          // the edit form will be asked to follow the current row
    // The rows that are selected for as long as the form copies to others; nothing while it does not.
    std::optional<Rows> copyingWhile_;
    std::optional<ui::Point> placeGiven_;  // the form's upper left corner as it was opened last
    bool placeChosen_ = false;             // the user moved the form since
    bool blinking_ = false;
    bool blinkPhase_ = false;
};

}  // namespace telvar::control
