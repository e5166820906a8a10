// Showing forms: who owns their windows, who takes no input meanwhile, and waiting for a modal one.
#include <algorithm>
#include <ranges>
#include <utility>

#include "base/failure.h"
#include "win32/form_window.h"
#include "win32/modal_time.h"
#include "win32/windows_desktop.h"

namespace telvar::win32 {

namespace {

BOOL CALLBACK addVisible(HWND window, LPARAM windows) noexcept {
    if (IsWindowVisible(window) != FALSE) {
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    }
    return TRUE;
}

}  // namespace

std::shared_ptr<FormWindow> WindowsDesktop::formWindowOf(const ui::Form& form) const noexcept {
    const auto found = std::ranges::find_if(forms_, [&form](const auto& window) { return window->form() == &form; });
    return found != forms_.end() ? *found : nullptr;
}

void WindowsDesktop::formGone(const FormWindow& window) noexcept {
    std::erase_if(forms_, [&window](const auto& other) { return other.get() == &window; });
}

// Each close may give the focus to a window of the host, which may do anything then.
void WindowsDesktop::closeForms() noexcept {
    while (!forms_.empty()) {
        const auto last = forms_.back();
        last->close();
        formGone(*last);
    }
}

HWND WindowsDesktop::ownerOfNext() const {
    const HWND active = GetActiveWindow();
    for (const auto& window : forms_ | std::views::reverse) {
        if (window->isModal() || window->handle() == active) {
            return window->handle();
        }
    }
    return site_.owner ? site_.owner() : nullptr;
}

std::vector<HWND> WindowsDesktop::othersThan(HWND window) const {
    std::vector<HWND> others;
    for (const auto& form : forms_) {
        others.push_back(form->handle());
    }
    if (const HWND owner = site_.owner ? site_.owner() : nullptr) {
        others.push_back(owner);
    } else {
        EnumThreadWindows(GetCurrentThreadId(), addVisible, reinterpret_cast<LPARAM>(&others));
    }
    std::erase(others, window);
    return others;
}

// Empty when the form ended, or was hidden, in its own Load.
std::shared_ptr<FormWindow> WindowsDesktop::openWindow(const std::shared_ptr<FormWindow>& window, HWND owner) {
    forms_.push_back(window);
    try {
        window->open(owner);
    } catch (...) {
        window->close();
        formGone(*window);
        throw;
    }
    return window->handle() != nullptr ? window : nullptr;
}

void WindowsDesktop::showModal(ui::Form& form) {
    if (formWindowOf(form)) {
        throw base::Failure("The form is open already");
    }
    const auto window = openWindow(std::make_shared<FormWindow>(*this, form, FormWindow::Kind::Modal), ownerOfNext());
    if (!window) {
        return;
    }
    const ModalTime modal(site_.enableModeless);
    if (window->handle() != nullptr) {
        window->appear(othersThan(window->handle()));
    }
    pumpUntil([&window] { return window->handle() == nullptr; });
    // The message loop is quitting.
    window->close();
}

void WindowsDesktop::showModeless(ui::Form& form) {
    if (const auto open = formWindowOf(form)) {
        open->bringToFront();
        return;
    }
    const auto window =
        openWindow(std::make_shared<FormWindow>(*this, form, FormWindow::Kind::Modeless), ownerOfNext());
    if (window) {
        window->appear({});
    }
}

void WindowsDesktop::hide(ui::Form& form) {
    if (const auto window = formWindowOf(form)) {
        window->close();
    }
}

bool WindowsDesktop::isOpen(const ui::Form& form) const { return formWindowOf(form) != nullptr; }

}  // namespace telvar::win32
