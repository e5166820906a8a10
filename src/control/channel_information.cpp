// Start-up, end, and links. The other concerns have files of their own, see the README.
#include "control/channel_information.h"

#include <chrono>
#include <utility>

#include "base/failure.h"
#include "editing/columns.h"
#include "model/memory_data_store.h"
#include "model/subtones.h"

namespace telvar::control {

namespace {

constexpr auto blinkInterval = std::chrono::milliseconds(200);

}  // namespace

ChannelInformation::ChannelInformation(Surroundings surroundings)
    : fgdDatabase("fgdDatabase", model::channelCount + 1, static_cast<int>(editing::columnCount)),
      Timer1(surroundings.desktop),
      frmCE(surroundings.desktop, surroundings.numberFormat),
      confirmation(surroundings.desktop),
      desktop_(surroundings.desktop),
      makeTable_(std::move(surroundings.makeTable)),
      numberFormat_(surroundings.numberFormat),
      logPath_(std::move(surroundings.logPath)),
      gridSurroundings_(gridSurroundings()),
      history_(gridSurroundings_, frmCE.mnuPopUpMenuUndo, frmCE.mnuPopUpMenuRedo),
      clipboardEditing_(gridSurroundings_, history_),
      tableTransfer_(transferSurroundings()) {
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
    ui::resumed([&] { table = makeTable_ ? makeTable_() : nullptr; });
    return table ? table : std::make_shared<model::MemoryDataStore>();
}

void ChannelInformation::close() noexcept {
    if (!std::exchange(closed_, true)) {
        UserControl_Terminate();
    }
}

// What a released object does in its end may come back here, so each is let go when nothing of the control points to
// it.
void ChannelInformation::UserControl_Terminate() {
    Timer1.setEnabled(false);
    setBlinking(false);
    alive_.reset();
    closeForms();
    frmCE.setCentralDataStore(nullptr);
    frmCE.setRadioComms(nullptr);
    if (frmFill_) {
        frmFill_->setCentralDataStore(nullptr);
    }
    history_.setTables(nullptr, nullptr);
    static_cast<void>(std::exchange(pCentralDataStore_, nullptr));
    static_cast<void>(std::exchange(plibRadioComms_, nullptr));
}

void ChannelInformation::closeForms() noexcept {
    ++formClosings_;
    ui::resumed([this] { frmCE.close(); });
    ui::resumed([this] { confirmation.close(); });
    if (frmFill_) {
        ui::resumed([this] { desktop_.hide(*frmFill_); });
    }
}

void ChannelInformation::setCentralDataStore(model::DataStorePointer store) {
    if (closed_) {
        return;
    }
    // No table's backup may land in another table.
    if (store != pCentralDataStore_) {
        history_.forget();
    }
    const auto former = std::exchange(pCentralDataStore_, std::move(store));
}

void ChannelInformation::setRadioComms(model::RadioLinkPointer link) {
    if (!closed_) {
        const auto former = std::exchange(plibRadioComms_, std::move(link));
    }
}

void ChannelInformation::endIfClosed() const {
    if (closed_) {
        throw Ended{};
    }
}

ui::Answer ChannelInformation::show(const ui::MessageBox& box) {
    const auto answer = desktop_.show(box);
    endIfClosed();
    return answer;
}

model::DataStorePointer ChannelInformation::store() const {
    endIfClosed();
    if (!pCentralDataStore_) {
        throw base::Failure("There is no data store");
    }
    return pCentralDataStore_;
}

model::RadioLinkPointer ChannelInformation::link() const {
    endIfClosed();
    if (!plibRadioComms_) {
        throw base::Failure("There is no radio link");
    }
    return plibRadioComms_;
}

editing::frmFill& ChannelInformation::frmFill() {
    if (!frmFill_) {
        frmFill_ = std::make_unique<editing::frmFill>(gridSurroundings_, history_);
        ui::on(frmFill_->FillRequested, this, &ChannelInformation::frmFill_FillRequested);
        frmFill_->setCentralDataStore(pCentralDataStore_);
    }
    return *frmFill_;
}

void ChannelInformation::DistributeDataStoreLink() {
    routine("DistributeDataStoreLink", [&] {
        distributeStoreToEditForm();
        frmFill().setCentralDataStore(pCentralDataStore_);
    });
}

void ChannelInformation::DistributeRadioCommsLink() {
    routine("DistributeRadioCommsLink", [&] { frmCE.setRadioComms(plibRadioComms_); });
}

void ChannelInformation::HideAdvancedButton() {}

}  // namespace telvar::control
