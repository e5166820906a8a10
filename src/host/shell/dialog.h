// One of the program's own dialogs with fields: shows a template from the resources, modally, and tells beside the
// fields what is wrong with them. Texts are UTF-8. Controls with the number DIALOG_NOTE show that sentence.
#pragma once

#include <windows.h>

#include <string>

#include "base/pinned.h"

namespace telvar::host {

class Dialog : private base::Pinned {
public:
    // Shows it over the owner until it is closed; whether with OK.
    [[nodiscard]] bool run(HWND owner, int resource);

protected:
    Dialog() = default;
    ~Dialog() = default;

    // The controls exist; answers the one that gets the focus.
    virtual HWND begin() = 0;
    // Whether the fields will do. If not, refuse() has told why.
    virtual bool accept() = 0;
    // A field or list reports a change by the user.
    virtual void changed(int /*control*/) {}

    [[nodiscard]] HWND item(int control) const noexcept { return GetDlgItem(window_, control); }
    [[nodiscard]] std::string textOf(int control) const;
    void setText(int control, const std::string& text);
    // A hint, in the colour of every label.
    void note(const std::string& sentence);
    // What is wrong, and the field in which it is put right.
    void refuse(int control, const std::string& sentence);

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    INT_PTR handle(UINT message, WPARAM wparam, LPARAM lparam);
    void command(int control, int notification);

    HWND window_ = nullptr;
    bool refused_ = false;
};

}  // namespace telvar::host
