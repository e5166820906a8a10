// The variable here is a plain value: a DLL of ours runs no destructors when it is unloaded.
#include "win/module.h"

#include <atomic>

#include "win/failure.h"

namespace telvar::win {

namespace {

std::atomic<long> useCount = 0;

}  // namespace

HINSTANCE moduleHandle() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&useCount), &module);
    return module;
}

std::wstring modulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(moduleHandle(), path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            throw SystemFailure();
        }
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void countUse(int change) noexcept { useCount += change; }

long uses() noexcept { return useCount; }

}  // namespace telvar::win
