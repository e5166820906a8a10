// Table files. What the store says of a file that it refuses reaches the caller as the call's error information.
#include "com/store/data_store.h"

#include <cstdint>
#include <expected>
#include <string>

#include "com/kit/bstr.h"
#include "win/text.h"

namespace telvar::com {

namespace {

// Absolute, and told apart from what a later change of the present folder would make of it.
[[nodiscard]] std::string fullPath(const OLECHAR* path) {
    const std::wstring given(viewOf(path));
    if (given.empty() || given.find(L'\0') != std::wstring::npos) {
        throw base::Failure("The name of the file is missing");
    }
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length == 0) {
            throw ComFailure(HRESULT_FROM_WIN32(GetLastError()));
        }
        if (length < full.size()) {
            full.resize(length);
            return win::narrow(full);
        }
        full.resize(length);
    }
}

void succeedOrFail(const std::expected<void, os::FileError>& outcome) {
    if (!outcome) {
        throw base::Failure(outcome.error().sentence());
    }
}

}  // namespace

STDMETHODIMP DataStore::NewTable() noexcept {
    return guarded([&] { store().newTable(); });
}

STDMETHODIMP DataStore::Open(BSTR path) noexcept {
    return guarded([&] {
        refuseToTheDistrusted();
        succeedOrFail(store().open(fullPath(path)));
    });
}

STDMETHODIMP DataStore::Save() noexcept {
    return guarded([&] {
        refuseToTheDistrusted();
        succeedOrFail(store().save());
    });
}

STDMETHODIMP DataStore::SaveAs(BSTR path) noexcept {
    return guarded([&] {
        refuseToTheDistrusted();
        succeedOrFail(store().saveAs(fullPath(path)));
    });
}

STDMETHODIMP DataStore::Close() noexcept {
    return guarded([&] { store().close(); });
}

STDMETHODIMP DataStore::get_FilePath(BSTR* path) noexcept {
    return guarded([&] {
        deref(path) = nullptr;
        *path = Bstr(store().path()).detach();
    });
}

STDMETHODIMP DataStore::get_Revision(long* revision) noexcept {
    constexpr std::uint64_t positive = 0x7FFFFFFF;
    return guarded([&] { deref(revision) = static_cast<long>(store().revision() & positive); });
}

STDMETHODIMP DataStore::get_Modified(VARIANT_BOOL* modified) noexcept {
    return guarded([&] { deref(modified) = store().modified() ? VARIANT_TRUE : VARIANT_FALSE; });
}

void DataStore::refuseToTheDistrusted() const {
    if (isDistrusted()) {
        throw ComFailure(E_ACCESSDENIED, "Files are not open to a caller that is not trusted");
    }
}

}  // namespace telvar::com
