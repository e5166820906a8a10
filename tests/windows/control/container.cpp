#include "container.h"

#include <algorithm>

namespace telvar::tests {

Container::Container(IUnknown& control)
    : object_(ComPointer<IOleObject>::from(&control)),
      window_(CreateWindowExW(0, L"STATIC", L"Container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 600, nullptr,
                              nullptr, nullptr, nullptr)) {
    if (window_ == nullptr) {
        throw std::runtime_error("no window; is there a display?");
    }
}

Container::~Container() { DestroyWindow(window_); }

HRESULT Container::activate(LONG verb) {
    com::check(object_->SetClientSite(this));
    const RECT at = area();
    const HRESULT answer = object_->DoVerb(verb, nullptr, this, 0, window_, &at);
    inPlace_ = ComPointer<IOleInPlaceObject>::from(object_);
    return answer;
}

void Container::close() {
    if (inPlace_) {
        inPlace_->InPlaceDeactivate();
    }
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
    inPlace_.reset();
    object_.reset();
}

void Container::resize(int width, int height) {
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    const RECT at = area();
    com::check(inPlace_->SetObjectRects(&at, &at));
}

HWND Container::controlWindow() const {
    HWND window = nullptr;
    return inPlace_ && SUCCEEDED(inPlace_->GetWindow(&window)) ? window : nullptr;
}

int Container::count(const std::string& what) const {
    return static_cast<int>(std::count(told_.begin(), told_.end(), what));
}

RECT Container::area() const {
    RECT area{};
    GetClientRect(window_, &area);
    return area;
}

HRESULT Container::tell(const std::string& what) noexcept {
    const auto alive = com::keepAlive(this);
    told_.push_back(what);
    if (reaction) {
        reaction(what);
    }
    return S_OK;
}

HRESULT Container::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                    LPRECT clip, LPOLEINPLACEFRAMEINFO info) noexcept {
    *frame = ComPointer<IOleInPlaceFrame>(this).detach();
    *document = nullptr;
    *position = area();
    *clip = area();
    info->fMDIApp = FALSE;
    info->hwndFrame = window_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

HRESULT Container::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR /*name*/) noexcept {
    activeObject_ = ComPointer<IOleInPlaceActiveObject>(object);
    return tell(object != nullptr ? "SetActiveObject" : "ClearActiveObject");
}

HRESULT Container::Invoke(DISPID property, REFIID /*iid*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* /*arguments*/,
                          VARIANT* result, EXCEPINFO* /*exception*/, UINT* /*wrongArgument*/) noexcept {
    switch (property) {
    case DISPID_AMBIENT_USERMODE:
        *result = Variant(userMode).detach();
        return S_OK;
    case DISPID_AMBIENT_UIDEAD:
        *result = Variant(uiDead).detach();
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

}  // namespace telvar::tests
