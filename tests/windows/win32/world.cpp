#include "world.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "win/gdi.h"
#include "win32/convert.h"

namespace telvar::win32 {

namespace {

constexpr const wchar_t* topClass = L"TelvarTestTop";

}  // namespace

TopWindow::TopWindow(int width, int height) {
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.lpszClassName = topClass;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
    RegisterClassW(&description);
    handle_ = CreateWindowW(topClass, L"Top", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 10, 10, width, height, nullptr,
                            nullptr, description.hInstance, nullptr);
    ShowWindow(handle_, SW_SHOW);
    SetForegroundWindow(handle_);
    SetFocus(handle_);
}

TopWindow::~TopWindow() { DestroyWindow(handle_); }

HWND childThatShows(HWND parent, const ui::Widget& widget) {
    const int left = widget.bounds().left - GetScrollPos(parent, SB_HORZ);
    const int top = widget.bounds().top - GetScrollPos(parent, SB_VERT);
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT at{};
        GetWindowRect(child, &at);
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&at), 2);
        const bool shown = (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) != 0;
        if (at.left == left && at.top == top && at.right - at.left == widget.bounds().width() &&
            shown == widget.isShown()) {
            return child;
        }
    }
    return nullptr;
}

Picture::Picture(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    width_ = static_cast<int>(client.right);
    height_ = static_cast<int>(client.bottom);
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    const win::WindowContext screen(window);
    const win::MemoryContext memory(screen.get());
    const win::Bitmap bitmap(CreateCompatibleBitmap(screen.get(), width_, height_));
    {
        const win::Selected selected(memory.get(), bitmap.get());
        BitBlt(memory.get(), 0, 0, width_, height_, screen.get(), 0, 0, SRCCOPY);
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width_;
    info.bmiHeader.biHeight = -height_;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    GetDIBits(screen.get(), bitmap.get(), 0, static_cast<UINT>(height_), pixels_.data(), &info, DIB_RGB_COLORS);
    for (COLORREF& pixel : pixels_) {
        pixel = RGB((pixel >> 16U) & 0xFFU, (pixel >> 8U) & 0xFFU, pixel & 0xFFU);
    }
}

int Picture::count(const ui::Rect& part, COLORREF colour) const {
    int found = 0;
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            found += at(x, y) == colour ? 1 : 0;
        }
    }
    return found;
}

int Picture::differences(const Picture& other) const {
    if (width_ != other.width_ || height_ != other.height_) {
        return static_cast<int>(pixels_.size());
    }
    int found = 0;
    for (std::size_t index = 0; index < pixels_.size(); ++index) {
        found += pixels_[index] != other.pixels_[index] ? 1 : 0;
    }
    return found;
}

ui::Rect Picture::differing(const Picture& other) const {
    ui::Rect box{width_, height_, 0, 0};
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            if (at(x, y) != other.at(x, y)) {
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
            }
        }
    }
    return box.empty() ? ui::Rect{} : box;
}

Widgets::Widgets() {
    label.setCaption("&Software Channel Select");
    button.setCaption("S&elect");
    check.setCaption("&Lock Data");
    frame.setCaption("Lock Mode");
    none.setCaption("&None");
    levels.setCaption("&Potentiometers");
    group.add(none);
    group.add(levels);
    list.addItem("023");
    list.addItem("025");
    typed.addItem("67.0");
    grid.setRedraw(false);
    for (int column = 0; column < grid.columns(); ++column) {
        grid.setColumnWidth(column, column == 0 ? 400 : column <= 8 ? 1100 : 0);
        grid.setText(0, column, column == 0 ? "" : "Header " + std::to_string(column));
    }
    for (int row = 1; row < grid.rows(); ++row) {
        grid.setText(row, 0, std::to_string(row));
    }
    grid.setRedraw(true);

    const std::array<ui::Widget*, 10> inOrder = {&grid,  &label, &text,   &button, &check,
                                                 &frame, &none,  &levels, &list,   &typed};
    int left = 8;
    for (ui::Widget* const widget : inOrder) {
        panel.add(*widget);
        if (widget == &grid) {
            widget->setBounds({8, 8, 708, 408});
            continue;
        }
        widget->setBounds({left, 420, left + 70, 441});
        left += 76;
    }
}

World::World() {
    RECT client{};
    GetClientRect(top.handle(), &client);
    panel = std::make_unique<PanelWindow>(desktop, widgets.panel, top.handle(), client);
    pump();
}

bool World::until(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    bool met = false;
    desktop.pumpUntil([&] {
        met = condition();
        return met || std::chrono::steady_clock::now() > end;
    });
    EXPECT_TRUE(met);
    return met;
}

HWND World::windowOf(const ui::Widget& widget) const { return childThatShows(panel->hwnd(), widget); }

bool World::press(WPARAM key, LPARAM character) {
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    const bool taken = panel->translateAccelerator(message);
    if (taken && character != 0) {
        message.message = WM_CHAR;
        message.wParam = static_cast<WPARAM>(character);
        panel->translateAccelerator(message);
    }
    return taken;
}

void World::click(HWND window) {
    const LPARAM at = MAKELPARAM(3, 3);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
}

BoxAnswers::BoxAnswers(WindowsDesktop& desktop, int button) : button_(button), timer_(desktop) {
    timer_.Tick.connect([this] { look(); });
    timer_.setInterval(std::chrono::milliseconds(20));
}

void BoxAnswers::look() {
    const HWND box = FindWindowW(MAKEINTRESOURCEW(32770), nullptr);
    if (box == nullptr || box == answered_) {
        return;
    }
    answered_ = box;
    constexpr int textOfBox = 0xFFFF;
    titles_.push_back(windowText(box));
    texts_.push_back(windowText(GetDlgItem(box, textOfBox)));
    owner_ = GetWindow(box, GW_OWNER);
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button_), 0);
}

void HeldKey::set(BYTE state) const noexcept {
    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    keys[static_cast<std::size_t>(code_)] = state;
    SetKeyboardState(keys.data());
}

}  // namespace telvar::win32
