// The place in a host where the control sits, as seen from the control: ambient properties, the window that owns its
// forms, and what the host is told about focus and keys. Empty without a site; every question then has a plain answer.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/pointer.h"

namespace telvar::com {

class Site {
public:
    void set(IOleClientSite* client) noexcept { client_ = ComPointer<IOleClientSite>(client); }
    [[nodiscard]] const ComPointer<IOleClientSite>& client() const noexcept { return client_; }

    // The host's window above the place of the control; null where there is none.
    [[nodiscard]] HWND ownerWindow() const noexcept;
    // An ambient property of type Boolean; `otherwise` for a host that does not say.
    [[nodiscard]] bool ambientTruth(DISPID property, bool otherwise) const noexcept;

    void focusChanged(bool focused) const noexcept;
    // Whether the host used a key that the control has no use for.
    [[nodiscard]] bool translate(MSG& message) const noexcept;

private:
    ComPointer<IOleClientSite> client_;
};

}  // namespace telvar::com
