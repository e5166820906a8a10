#include "win32/controls_context.h"

#include <string>

#include "win/module.h"

namespace telvar::win32 {

ControlsContext::ControlsContext() {
    const std::wstring path = win::modulePath();
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    wanted.lpSource = path.c_str();
    wanted.lpResourceName = MAKEINTRESOURCEW(controlsManifest);
    wanted.hModule = win::moduleHandle();
    context_.reset(CreateActCtxW(&wanted));
}

ControlsContext::Active::Active(const ControlsContext& context) noexcept
    : active_(context.context_ && ActivateActCtx(context.context_.get(), &cookie_) != FALSE) {}

ControlsContext::Active::~Active() {
    if (active_) {
        DeactivateActCtx(0, cookie_);
    }
}

}  // namespace telvar::win32
