// Who is logged in: the login when the control or the user asks for it, and the passwords. The control shows what the
// level in force allows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "desk/access.h"
#include "desk/bench.h"
#include "desk/document.h"

namespace telvar::desk {

class Logins {
public:
    // For what the control wants a login.
    enum class Reason : std::uint8_t { Fill, Edit };

    // All outlive this.
    Logins(Bench& bench, Access& access, TableView& view) noexcept : bench_(bench), access_(access), view_(view) {}

    [[nodiscard]] AccessLevel level() const noexcept { return access_.level(); }

    void logIn();
    void logOut();
    void setPasswords();

    // The control wants one, from inside a call or a handler of its own. The login waits until that has returned.
    void want(Reason reason);
    // Answers what is wanted. Does nothing while something else is under way; to be called again then.
    void goOn();

    // The control shows what the level in force and the radio of the present table allow: which columns a level shows
    // depends on the radio's boards. A failure is told; answers whether there was none.
    bool apply();

private:
    // False when the user cancels, or the control fails.
    [[nodiscard]] bool ask(const std::string& why, AccessLevel suggested);
    bool enter(AccessLevel level);

    Bench& bench_;
    Access& access_;
    TableView& view_;
    std::optional<Reason> wanted_;
};

}  // namespace telvar::desk
