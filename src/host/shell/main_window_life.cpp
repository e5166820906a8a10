// How the program starts and ends: the window, the three components and how they are joined.
#include <algorithm>
#include <array>
#include <vector>

#include "com/kit/failure.h"
#include "com/kit/text.h"
#include "host/shell/dialogs.h"
#include "host/shell/main_window.h"
#include "host/shell/main_window_scopes.h"
#include "host/shell/resource.h"
#include "host/shell/window_placement.h"
#include "win/scaling.h"
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

// From the control's edit form the program's commands are reached as from its window, but for those that act on the
// grid's selection: whoever types in a form does not look there.
constexpr std::array commandsOfForms{COMMAND_NEW,   COMMAND_OPEN,   COMMAND_SAVE,    COMMAND_SAVE_AS,    COMMAND_PRINT,
                                     COMMAND_GO_TO, COMMAND_LOG_IN, COMMAND_REFRESH, COMMAND_FOCUS_TABLE};

HACCEL acceleratorsOfForms(HACCEL all) {
    std::vector<ACCEL> table(static_cast<std::size_t>(CopyAcceleratorTableW(all, nullptr, 0)));
    CopyAcceleratorTableW(all, table.data(), static_cast<int>(table.size()));
    std::erase_if(table, [](const ACCEL& key) {
        return std::ranges::find(commandsOfForms, static_cast<int>(key.cmd)) == commandsOfForms.end();
    });
    return CreateAcceleratorTableW(table.data(), static_cast<int>(table.size()));
}

ATOM registerClass(WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hIcon = LoadIconW(description.hInstance, MAKEINTRESOURCEW(RESOURCE_MAIN));
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    // The control and the status bar cover everything.
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszMenuName = MAKEINTRESOURCEW(RESOURCE_MAIN);
    description.lpszClassName = MainWindow::className;
    return RegisterClassExW(&description);
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

// The class may be missing altogether, or be one of another bitness.
template <class Interface>
com::ComPointer<Interface> create(REFCLSID identifier, const std::string& what) {
    com::ComPointer<Interface> object;
    const HRESULT result =
        CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.putVoid());
    if (FAILED(result)) {
        throw com::ComFailure(result, "The " + what + " is not installed on this computer");
    }
    return object;
}

}  // namespace

MainWindow::MainWindow(const std::wstring& settingsKey)
    : settings_(settingsKey), recent_(settings_), access_(settings_), printing_(settings_), caption_(programTitle) {}

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

void MainWindow::open(const std::wstring& file) {
    createWindow();
    createComponents();
    joinComponents();
    attempt([&] { document_->create(); });
    showTable();
    if (!file.empty()) {
        openPath(file);
    }
}

void MainWindow::createWindow() {
    static const ATOM windowClass = registerClass(procedure);
    accelerators_ = LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(RESOURCE_MAIN));
    formAccelerators_ = acceleratorsOfForms(accelerators_);
    const std::optional<Placement> remembered = loadPlacement(settings_);
    const RECT place = remembered ? remembered->rectangle : firstPlace();
    placedMaximised_ = remembered && remembered->maximised;
    CreateWindowExW(WS_EX_ACCEPTFILES, MAKEINTATOM(windowClass), programTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                    place.left, place.top, place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                    GetModuleHandleW(nullptr), this);
    if (window_ == nullptr) {
        throw com::ComFailure(HRESULT_FROM_WIN32(GetLastError()), "The program found no display to show its window on");
    }
    statusBar_.create(window_, settings_.number(L"StatusBar").value_or(1) != 0);
    SetTimer(window_, stateTimer, stateInterval, nullptr);
    SetTimer(window_, pollTimer, pollInterval, nullptr);
}

void MainWindow::createComponents() {
    document_.emplace(create<IDataStore>(__uuidof(::DataStore), "channel data store VexloDataStore.DataStore"));
    const auto control =
        create<IUnknown>(__uuidof(::ChannelInformation), "channel table control Tesslin.ChannelInformation");
    channels_ = com::ComPointer<_ChannelInformation>::from(control);
    if (!channels_) {
        throw com::ComFailure(E_NOINTERFACE, "The installed channel table control is of another version");
    }
    controlEvents_ = connectControl(control.get(), *this);
    control_ = std::make_unique<EmbeddedControl>(control, *this);
    try {
        radio_.attach(create<IRadioLink>(__uuidof(::RadioLink), "radio link VexloRadioLink.RadioLink"));
        rememberRadio();
    } catch (const com::ComFailure& failure) {
        // Tables can be edited without it.
        tell(com::wide(failure.description()) + L", so no radio can be reached.");
    }
}

// In the order that the control expects of its host.
void MainWindow::joinComponents() {
    const ControlCall call(*this);
    if (IRadioLink* const link = radio_.link()) {
        com::checkCall(link->putref_DataStore(document_->store()));
    }
    com::checkCall(channels_->putref_pCentralDataStore(document_->store()));
    com::checkCall(channels_->putref_plibRadioComms(radio_.link()));
    com::checkCall(channels_->DistributeDataStoreLink());
    com::checkCall(channels_->DistributeRadioCommsLink());
    com::checkCall(channels_->Prepare());
    applyAccess();
}

void MainWindow::closeComponents() noexcept {
    controlEvents_.end();
    channels_.reset();
    if (control_) {
        control_->close();
    }
    radio_.close();
    if (document_) {
        document_->close();
    }
}

void MainWindow::show(int command) {
    ShowWindow(window_, placedMaximised_ ? SW_SHOWMAXIMIZED : command);
    UpdateWindow(window_);
    restoreFocus();
}

}  // namespace telvar::host
