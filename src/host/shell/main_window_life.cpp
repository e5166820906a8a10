// How the program starts and ends: the window, the three components and how they are joined.
#include <algorithm>
#include <utility>
#include <vector>

#include "com/kit/failure.h"
#include "host/shell/dialogs.h"
#include "host/shell/main_window.h"
#include "host/shell/menu_bar.h"
#include "host/shell/resource.h"
#include "host/shell/window_placement.h"
#include "win/scaling.h"
#include "win/window_class.h"
#include "win/work_area.h"

namespace telvar::host {

namespace {

// In pixels at 96 dpi: the table's visible columns without a horizontal scroll bar.
constexpr int firstWidth = 690;
constexpr int firstHeight = 680;

// The state is also looked at while somebody else's message loop runs; in milliseconds.
constexpr UINT stateInterval = 250;
// From one question how the radio is to the next, in milliseconds.
constexpr UINT pollInterval = 1000;

// The control and the status bar cover everything.
void registerClass(WNDPROC procedure) {
    win::registerClass(MainWindow::className, procedure,
                       {.icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(RESOURCE_MAIN)),
                        .background = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1)});
}

RECT firstPlace() {
    const int dpi = win::dpiOf(nullptr);
    const std::vector<RECT> areas = win::workAreas();
    const RECT& area = areas.front();
    const int width = win::scaled(firstWidth, dpi);
    const int height = win::scaled(firstHeight, dpi);
    const int left = (area.left + area.right - width) / 2;
    const int top = (area.top + area.bottom - height) / 2;
    return win::fitted({left, top, left + width, top + height}, areas);
}

}  // namespace

MainWindow::MainWindow(const std::wstring& settingsKey) : settings_(settingsKey) {}

MainWindow::~MainWindow() {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
    for (const HACCEL table : {accelerators_, formAccelerators_}) {
        if (table != nullptr) {
            DestroyAcceleratorTable(table);
        }
    }
}

void MainWindow::open(const std::string& file, Components components) {
    createWindow();
    store_.emplace(std::move(components.store));
    desk_.emplace(desk::World{*store_, controlAdapter_, link_, *this, system_}, settings_, hasher_);
    events_.emplace(*desk_, *this);
    embed(components.control);
    attachLink(components);
    desk_->begin([this] { join(); }, file);
}

void MainWindow::createWindow() {
    registerClass(procedure);
    accelerators_ = makeAccelerators(desk::Reach::Window);
    formAccelerators_ = makeAccelerators(desk::Reach::WindowAndForms);
    const std::optional<Placement> remembered = loadPlacement(settings_);
    const RECT place = remembered ? remembered->rectangle : firstPlace();
    placedMaximised_ = remembered && remembered->maximised;
    CreateWindowExW(WS_EX_ACCEPTFILES, className, programTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, place.left,
                    place.top, place.right - place.left, place.bottom - place.top, nullptr, makeMenuBar(),
                    GetModuleHandleW(nullptr), this);
    if (window_ == nullptr) {
        throw com::ComFailure(HRESULT_FROM_WIN32(GetLastError()), "The program found no display to show its window on");
    }
    statusBar_.create(window_, desk::setting::statusBar.in(settings_));
    SetTimer(window_, stateTimer, stateInterval, nullptr);
    SetTimer(window_, pollTimer, pollInterval, nullptr);
}

void MainWindow::embed(const com::ComPointer<IUnknown>& control) {
    channels_ = com::ComPointer<_ChannelInformation>::from(control);
    if (!channels_) {
        throw com::ComFailure(E_NOINTERFACE, "The installed channel table control is of another version");
    }
    controlEvents_ = connectControl(control.get(), *events_);
    control_ = std::make_unique<EmbeddedControl>(control, *this);
    controlAdapter_.attach(channels_, *control_);
}

// Tables can be edited without it.
void MainWindow::attachLink(Components& components) {
    if (components.link) {
        try {
            link_.attach(std::move(components.link), *events_);
        } catch (const com::ComFailure& failure) {
            components.linkFailure = failure.description();
        }
    }
    if (!link_.installed()) {
        questions_.tell(components.linkFailure + ", so no radio can be reached.");
    }
}

// In the order that the control expects of its host.
void MainWindow::join() {
    if (link_.installed()) {
        com::checkCall(link_.object()->putref_DataStore(store_->object()));
    }
    com::checkCall(channels_->putref_pCentralDataStore(store_->object()));
    com::checkCall(channels_->putref_plibRadioComms(link_.object()));
    com::checkCall(channels_->DistributeDataStoreLink());
    com::checkCall(channels_->DistributeRadioCommsLink());
    com::checkCall(channels_->Prepare());
}

void MainWindow::closeComponents() noexcept {
    controlEvents_.end();
    controlAdapter_.detach();
    channels_.reset();
    if (control_) {
        control_->close();
    }
    link_.close();
    if (store_) {
        store_->close();
    }
}

void MainWindow::show(int command) {
    ShowWindow(window_, placedMaximised_ ? SW_SHOWMAXIMIZED : command);
    UpdateWindow(window_);
    restoreFocus();
}

}  // namespace telvar::host
