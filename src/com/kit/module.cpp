#include "com/kit/module.h"

#include <algorithm>
#include <array>
#include <atomic>

#include "com/kit/failure.h"

namespace telvar::com::module {

namespace {

struct Remembered {
    GUID id;
    ITypeInfo* info;
};

constexpr std::size_t mostRemembered = 16;

HINSTANCE ownHandle = nullptr;
const wchar_t* ownName = L"";
std::atomic<long> ownUses = 0;
SRWLOCK lock = SRWLOCK_INIT;
std::array<Remembered, mostRemembered> remembered{};
std::size_t rememberedCount = 0;

class Locked {
public:
    Locked() noexcept { AcquireSRWLockExclusive(&lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    Locked(Locked&&) = delete;
    Locked& operator=(Locked&&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock); }
};

[[nodiscard]] ComPointer<ITypeInfo> recall(REFGUID id) noexcept {
    const Locked locked;
    const auto end = remembered.begin() + static_cast<std::ptrdiff_t>(rememberedCount);
    const auto found =
        std::find_if(remembered.begin(), end, [&](const Remembered& entry) { return IsEqualGUID(entry.id, id); });
    return found == end ? ComPointer<ITypeInfo>() : ComPointer<ITypeInfo>(found->info);
}

void remember(REFGUID id, const ComPointer<ITypeInfo>& info) noexcept {
    const Locked locked;
    if (rememberedCount < remembered.size()) {
        remembered[rememberedCount++] = {id, info.share()};
    }
}

}  // namespace

void attach(HINSTANCE handle, const wchar_t* name) noexcept {
    ownHandle = handle;
    ownName = name;
}

HINSTANCE handle() noexcept { return ownHandle; }

const wchar_t* name() noexcept { return ownName; }

std::wstring path() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ownHandle, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            throw ComFailure(HRESULT_FROM_WIN32(GetLastError()));
        }
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    constexpr std::wstring_view share = LR"(\\?\UNC\)";
    constexpr std::wstring_view prefix = LR"(\\?\)";
    if (path.starts_with(share)) {
        return LR"(\\)" + path.substr(share.size());
    }
    return path.starts_with(prefix) ? path.substr(prefix.size()) : path;
}

void count(int change) noexcept { ownUses += change; }

long uses() noexcept { return ownUses; }

ComPointer<ITypeLib> typeLibrary() {
    ComPointer<ITypeLib> library;
    check(LoadTypeLibEx(path().c_str(), REGKIND_NONE, library.put()));
    return library;
}

ComPointer<ITypeInfo> typeInfo(REFGUID id) {
    if (auto known = recall(id)) {
        return known;
    }
    ComPointer<ITypeInfo> info;
    check(typeLibrary()->GetTypeInfoOfGuid(id, info.put()));
    remember(id, info);
    return info;
}

void forgetTypeInfo() noexcept {
    std::array<Remembered, mostRemembered> last{};
    std::size_t lastCount = 0;
    {
        const Locked locked;
        last = remembered;
        lastCount = std::exchange(rememberedCount, 0);
    }
    for (std::size_t at = 0; at < lastCount; ++at) {
        ComPointer<ITypeInfo>::adopt(last[at].info).reset();
    }
}

}  // namespace telvar::com::module
