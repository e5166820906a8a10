// One control in a window: gives it a site, activates it in place, keeps its size, offers it keys first, and takes
// leave of it in the order that OLE asks for.
#pragma once

#include <docobj.h>

#include "base/pinned.h"
#include "com/kit/automation.h"
#include "com/kit/failure.h"
#include "com/kit/pointer.h"
#include "host/embed/container_frame.h"
#include "host/embed/control_site.h"
#include "host/embed/site_owner.h"

namespace telvar::host {

class EmbeddedControl : private base::Pinned {
public:
    // `object` is a control without a site; `owner` has its window by now and outlives this. Throws com::ComFailure
    // where the object is no control or does not activate; it is then let go again.
    EmbeddedControl(const com::ComPointer<IUnknown>& object, SiteOwner& owner);
    ~EmbeddedControl() { close(); }

    // The owner's place for it has changed.
    void move();
    // The keyboard goes to the control, which becomes active for the user.
    void takeFocus();
    // A message of the queue that is meant for the control or a window inside it: whether the control used it up.
    [[nodiscard]] bool translate(MSG& message);
    void windowActivated(bool active);
    // Around something modal of the host's.
    void enableModeless(bool enable);
    void ambientsChanged();
    // One of the standard commands (OLECMDID_COPY, ...). A control without a command target has none.
    [[nodiscard]] bool commandEnabled(OLECMDID command) const;
    // Throws com::ComFailure where the control refuses.
    void execute(OLECMDID command);

    // The control's own window; null where it has none.
    [[nodiscard]] HWND window() const;
    // Deactivates, closes and releases the control. May be called inside one of its events; a second call does nothing.
    void close() noexcept;

private:
    void initialise();
    void giveExtent();
    void activate(LONG verb);
    [[nodiscard]] com::ComPointer<IOleInPlaceActiveObject> activeObject() const;

    SiteOwner& owner_;
    com::ComPointer<IOleObject> control_;
    com::ComPointer<ContainerFrame> frame_;
    com::ComPointer<ControlSite> site_;
    DWORD advice_ = 0;
};

}  // namespace telvar::host
