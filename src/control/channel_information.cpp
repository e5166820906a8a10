// Start-up, end, and links. The other concerns have files of their own, see the README.
#include "control/channel_information.h"

#include <chrono>
#include <utility>

#include "base/failure.h"
#include "base/skip.h"
#include "editing/columns.h"
#include "model/memory_data_store.h"
#include "model/subtones.h"

namespace telvar::control {

namespace {

constexpr auto blinkInterval = std::chrono::milliseconds(200);

}  // namespace

ChannelInformation::ChannelInformation(Surroundings surroundings)
    : session_(surroundings.desktop, surroundings.numberFormat),
      fgdDatabase("fgdDatabase", model::channelCount + 1, static_cast<int>(editing::columnCount)),
      Timer1(surroundings.desktop),
      frmCE(session_),
      confirmation(surroundings.desktop),
      makeTable_(std::move(surroundings.makeTable)),
      logPath_(std::move(surroundings.logPath)),
      rows_(session_, fgdDatabase),
      history_(rows_, frmCE.mnuPopUpMenuUndo, frmCE.mnuPopUpMenuRedo),
      clipboardEditing_(rows_, history_),
      tableTransfer_(session_, *this) {
    UserControl_Initialize();
}

ChannelInformation::~ChannelInformation() { close(); }

// frmCE exists already; it is a member.
void ChannelInformation::UserControl_Initialize() {
    for (const auto code : model::dcsCodes) {
        pcmbDCSCodes.addItem(std::string(code));
    }
    pcmbDCSCodes.setVisible(false);
    setUpLockModes();
    auto backup = makeTable();
    history_.setTables(std::move(backup), makeTable());
    Timer1.setInterval(blinkInterval);
    fillPanel();
    wire();
    panel_.setSize({ui::pixelsOf(defaultWidth, ui::standardDpi), ui::pixelsOf(defaultHeight, ui::standardDpi)},
                   ui::standardDpi);
}

void ChannelInformation::fillPanel() {
    lblSoftwareChannelSelect.setCaption("Software Channel Select");
    txtChannelSelect.setCaption("Software Channel Select");
    txtChannelSelect.setTakesEnter(true);
    cmdChannelSelect.setCaption("Select");
    frLockMode.setCaption("Lock Mode");
    ckLockData.setCaption("Lock Data");
    fgdDatabase.setCaption("Channel Information");
    panel_.setCaption("Channel Information");
    for (ui::Widget* child : std::initializer_list<ui::Widget*>{
             &fgdDatabase, &lblSoftwareChannelSelect, &txtChannelSelect, &cmdChannelSelect, &frLockMode,
             &optLockMode[0], &optLockMode[1], &optLockMode[2], &ckLockData}) {
        panel_.add(*child);
    }
    panel_.setFocusFallback(&fgdDatabase);
}

void ChannelInformation::wire() {
    ui::on(panel_.Resize, this, &ChannelInformation::UserControl_Resize);
    ui::on(fgdDatabase.KeyDown, this, &ChannelInformation::fgdDatabase_KeyDown);
    ui::on(fgdDatabase.KeyPress, this, &ChannelInformation::fgdDatabase_KeyPress);
    ui::on(fgdDatabase.MouseDown, this, &ChannelInformation::fgdDatabase_MouseDown);
    ui::on(fgdDatabase.Click, this, &ChannelInformation::followRowSoon);
    ui::on(fgdDatabase.DblClick, this, &ChannelInformation::fgdDatabase_DblClick);
    ui::on(txtChannelSelect.GotFocus, this, &ChannelInformation::txtChannelSelect_GotFocus);
    ui::on(txtChannelSelect.KeyPress, this, &ChannelInformation::txtChannelSelect_KeyPress);
    ui::on(cmdChannelSelect.Click, this, &ChannelInformation::cmdChannelSelect_Press);
    for (std::int16_t index = 0; index < static_cast<std::int16_t>(optLockMode.size()); ++index) {
        optLockMode[static_cast<std::size_t>(index)].Click.connect([this, index] { optLockMode_Click(index); });
    }
    ui::on(Timer1.Tick, this, &ChannelInformation::Timer1_Timer);
    wireEditForm();
}

model::DataStorePointer ChannelInformation::makeTable() const {
    model::DataStorePointer table;
    base::skip([&] { table = makeTable_ ? makeTable_() : nullptr; });
    return table ? table : std::make_shared<model::MemoryDataStore>();
}

void ChannelInformation::close() noexcept {
    if (session_.close()) {
        UserControl_Terminate();
    }
}

// What a released object does in its end may come back here, so each is let go when nothing of the control points to
// it.
void ChannelInformation::UserControl_Terminate() {
    Timer1.setEnabled(false);
    setBlinking(false);
    closeForms();
    frmCE.setCentralDataStore(nullptr);
    frmCE.setRadioComms(nullptr);
    if (frmFill_) {
        frmFill_->setCentralDataStore(nullptr);
    }
    history_.setTables(nullptr, nullptr);
    session_.setStore(nullptr);
    session_.setLink(nullptr);
}

void ChannelInformation::closeForms() noexcept {
    formClosing_.happen();
    base::skip([this] { frmCE.close(); });
    base::skip([this] { confirmation.close(); });
    if (frmFill_) {
        base::skip([this] { session_.desktop().hide(*frmFill_); });
    }
}

void ChannelInformation::setCentralDataStore(model::DataStorePointer store) {
    if (session_.closed()) {
        return;
    }
    // No table's backup may land in another table.
    if (store != session_.presentStore()) {
        history_.forget();
    }
    session_.setStore(std::move(store));
}

void ChannelInformation::setRadioComms(model::RadioLinkPointer link) {
    if (!session_.closed()) {
        session_.setLink(std::move(link));
    }
}

editing::frmFill& ChannelInformation::frmFill() {
    if (!frmFill_) {
        frmFill_ = std::make_unique<editing::frmFill>(rows_, history_);
        ui::on(frmFill_->FillRequested, this, &ChannelInformation::frmFill_FillRequested);
        frmFill_->setCentralDataStore(session_.presentStore());
    }
    return *frmFill_;
}

void ChannelInformation::DistributeDataStoreLink() {
    session_.trap("DistributeDataStoreLink", [&] {
        distributeStoreToEditForm();
        frmFill().setCentralDataStore(session_.presentStore());
    });
}

void ChannelInformation::DistributeRadioCommsLink() {
    session_.trap("DistributeRadioCommsLink", [&] { frmCE.setRadioComms(session_.presentLink()); });
}

void ChannelInformation::HideAdvancedButton() {}

}  // namespace telvar::control
