#include "com/kit/module.h"

#include <algorithm>
#include <array>

#include "base/pinned.h"
#include "com/kit/failure.h"
#include "win/files.h"
#include "win/module.h"

namespace telvar::com::module {

namespace {

struct Remembered {
    GUID id;
    ITypeInfo* info;
};

constexpr std::size_t mostRemembered = 16;

const wchar_t* ownName = L"";
SRWLOCK lock = SRWLOCK_INIT;
std::array<Remembered, mostRemembered> remembered{};
std::size_t rememberedCount = 0;

class Locked : private base::Pinned {
public:
    Locked() noexcept { AcquireSRWLockExclusive(&lock); }
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

void attach(const wchar_t* name) noexcept { ownName = name; }

const wchar_t* name() noexcept { return ownName; }

std::wstring path() { return win::plainPath(win::modulePath()); }

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
