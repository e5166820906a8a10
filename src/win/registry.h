// A key of the registry and its values. Missing keys and values are no failures when they are read or to be removed.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "win/handle.h"

namespace telvar::win {

// What changes something throws SystemFailure where the user may not. A path is below the key; an empty name is the
// key's default value.
class RegistryKey {
public:
    // One of the system's own roots, which is never closed.
    [[nodiscard]] static RegistryKey root(HKEY root) noexcept { return RegistryKey(root); }

    // There already or not.
    [[nodiscard]] RegistryKey create(const std::wstring& path) const;
    [[nodiscard]] std::optional<RegistryKey> open(const std::wstring& path, REGSAM rights = KEY_READ | KEY_WRITE) const;

    // Whether there is a value of that name, of whatever kind.
    [[nodiscard]] bool has(const std::wstring& name) const noexcept;
    // Nothing for a value of another kind.
    [[nodiscard]] std::optional<std::wstring> text(const std::wstring& name) const;
    [[nodiscard]] std::optional<std::int32_t> number(const std::wstring& name) const noexcept;
    [[nodiscard]] std::optional<std::vector<std::wstring>> list(const std::wstring& name) const;

    void set(const std::wstring& name, const std::wstring& text) const;
    void set(const std::wstring& name, std::int32_t number) const;
    // Of texts that are not empty, since an empty one would be its end.
    void set(const std::wstring& name, const std::vector<std::wstring>& list) const;
    void remove(const std::wstring& name) const;

    // Without values and keys.
    [[nodiscard]] bool empty() const noexcept;
    // With everything below it.
    void removeTree(const std::wstring& path) const;
    // Only when nothing is left in it.
    void removeIfEmpty(const std::wstring& path) const;

private:
    explicit RegistryKey(HKEY root) noexcept : key_(root) {}
    explicit RegistryKey(KeyHandle own) noexcept : own_(std::move(own)), key_(own_.get()) {}

    [[nodiscard]] std::optional<std::wstring> read(const std::wstring& name, DWORD kind) const;
    void write(const std::wstring& name, DWORD kind, const void* data, std::size_t bytes) const;

    KeyHandle own_;
    HKEY key_;
};

}  // namespace telvar::win
