#include "win32/controls_context.h"

#include <array>

#include "win32/module.h"

namespace telvar::win32 {

ControlsContext::ControlsContext() noexcept : context_(INVALID_HANDLE_VALUE) {
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameW(moduleHandle(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length == path.size()) {
        return;
    }
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    wanted.lpSource = path.data();
    wanted.lpResourceName = MAKEINTRESOURCEW(controlsManifest);
    wanted.hModule = moduleHandle();
    context_ = CreateActCtxW(&wanted);
}

ControlsContext::~ControlsContext() {
    if (context_ != INVALID_HANDLE_VALUE) {
        ReleaseActCtx(context_);
    }
}

ControlsContext::Active::Active(const ControlsContext& context) noexcept
    : active_(context.context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context.context_, &cookie_) != FALSE) {}

ControlsContext::Active::~Active() {
    if (active_) {
        DeactivateActCtx(0, cookie_);
    }
}

}  // namespace telvar::win32
