#include "host/embed/embedded_control.h"

#include <utility>

#include "win/scaling.h"

namespace telvar::host {

namespace {

constexpr wchar_t programName[] = L"Telvar";

}  // namespace

EmbeddedControl::EmbeddedControl(const com::ComPointer<IUnknown>& object, SiteOwner& owner)
    : owner_(owner), control_(com::ComPointer<IOleObject>::from(object)) {
    if (!control_) {
        throw com::ComFailure(E_NOINTERFACE, "The object is no control");
    }
    frame_ = com::make<ContainerFrame>(owner);
    site_ = com::make<ControlSite>(owner, *frame_);
    frame_->setContents(object.get());
    site_->attach(control_.get());
    try {
        initialise();
        giveExtent();
        com::check(control_->SetHostNames(programName, programName));
        activate(OLEIVERB_INPLACEACTIVATE);
    } catch (...) {
        close();
        throw;
    }
}

void EmbeddedControl::initialise() {
    com::check(control_->SetClientSite(site_.get()));
    if (const auto persistent = com::ComPointer<IPersistStreamInit>::from(control_)) {
        com::checkCall(persistent->InitNew());
    }
    // Nothing here depends on the notifications, so a control without them will do.
    if (FAILED(control_->Advise(site_.get(), &advice_))) {
        advice_ = 0;
    }
}

void EmbeddedControl::giveExtent() {
    const RECT place = owner_.sitePlace();
    SIZEL extent =
        win::toHimetric({place.right - place.left, place.bottom - place.top}, win::dpiOf(owner_.siteWindow()));
    // A control of fixed size refuses, and keeps its own.
    control_->SetExtent(DVASPECT_CONTENT, &extent);
}

void EmbeddedControl::activate(LONG verb) {
    const RECT place = owner_.sitePlace();
    const auto control = control_;
    com::checkCall(control->DoVerb(verb, nullptr, site_.get(), 0, owner_.siteWindow(), &place));
}

void EmbeddedControl::move() {
    if (!control_) {
        return;
    }
    giveExtent();
    const com::ComPointer<IOleInPlaceObject> object(site_->inPlaceObject());
    if (object) {
        const RECT place = owner_.sitePlace();
        object->SetObjectRects(&place, &place);
    }
}

HWND EmbeddedControl::window() const {
    HWND result = nullptr;
    if (site_ && site_->inPlaceObject() != nullptr && FAILED(site_->inPlaceObject()->GetWindow(&result))) {
        result = nullptr;
    }
    return result;
}

void EmbeddedControl::takeFocus() {
    if (!control_) {
        return;
    }
    if (!site_->isUserInterfaceActive()) {
        activate(OLEIVERB_UIACTIVATE);
    }
    const HWND own = window();
    const HWND focus = GetFocus();
    if (own != nullptr && focus != own && !IsChild(own, focus)) {
        SetFocus(own);
    }
}

com::ComPointer<IOleInPlaceActiveObject> EmbeddedControl::activeObject() const {
    if (frame_ && frame_->activeObject() != nullptr) {
        return com::ComPointer<IOleInPlaceActiveObject>(frame_->activeObject());
    }
    return com::ComPointer<IOleInPlaceActiveObject>::from(control_);
}

bool EmbeddedControl::translate(MSG& message) {
    const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const HWND own = key ? window() : nullptr;
    if (own == nullptr || (message.hwnd != own && !IsChild(own, message.hwnd))) {
        return false;
    }
    const auto active = activeObject();
    return active && active->TranslateAccelerator(&message) == S_OK;
}

void EmbeddedControl::windowActivated(bool active) {
    if (!site_ || !site_->isUserInterfaceActive()) {
        return;
    }
    if (const auto object = activeObject()) {
        object->OnFrameWindowActivate(active ? TRUE : FALSE);
    }
}

void EmbeddedControl::enableModeless(bool enable) {
    if (!site_) {
        return;
    }
    if (const auto object = activeObject()) {
        object->EnableModeless(enable ? TRUE : FALSE);
    }
}

void EmbeddedControl::ambientsChanged() {
    if (const auto control = com::ComPointer<IOleControl>::from(control_)) {
        control->OnAmbientPropertyChange(DISPID_UNKNOWN);
    }
}

bool EmbeddedControl::commandEnabled(OLECMDID command) const {
    const auto target = com::ComPointer<IOleCommandTarget>::from(control_);
    OLECMD state{.cmdID = static_cast<ULONG>(command), .cmdf = 0};
    return target && SUCCEEDED(target->QueryStatus(nullptr, 1, &state, nullptr)) && (state.cmdf & OLECMDF_ENABLED) != 0;
}

void EmbeddedControl::execute(OLECMDID command) {
    if (const auto target = com::ComPointer<IOleCommandTarget>::from(control_)) {
        com::checkCall(target->Exec(nullptr, static_cast<DWORD>(command), OLECMDEXECOPT_DODEFAULT, nullptr, nullptr));
    }
}

void EmbeddedControl::close() noexcept {
    const auto control = std::exchange(control_, nullptr);
    if (!control) {
        return;
    }
    const auto site = std::exchange(site_, nullptr);
    const auto frame = std::exchange(frame_, nullptr);
    if (const com::ComPointer<IOleInPlaceObject> object(site->inPlaceObject()); object) {
        object->UIDeactivate();
        object->InPlaceDeactivate();
    }
    if (const DWORD advice = std::exchange(advice_, 0); advice != 0) {
        control->Unadvise(advice);
    }
    control->Close(OLECLOSE_NOSAVE);
    control->SetClientSite(nullptr);
    site->detach();
    frame->detach();
}

}  // namespace telvar::host
