// Owning handle of a registry key. Missing keys and values are no failures when they are to be removed.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "com/kit/automation.h"

namespace telvar::com {

class RegistryKey {
public:
    // One of the system's own roots, which is never closed.
    [[nodiscard]] static RegistryKey root(HKEY root) noexcept { return RegistryKey(root, false); }

    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    RegistryKey(RegistryKey&& other) noexcept
        : key_(std::exchange(other.key_, nullptr)), owned_(std::exchange(other.owned_, false)) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept {
        std::swap(key_, other.key_);
        std::swap(owned_, other.owned_);
        return *this;
    }
    ~RegistryKey();

    // Throws a ComFailure where the user may not.
    [[nodiscard]] RegistryKey create(const std::wstring& path) const;
    [[nodiscard]] std::optional<RegistryKey> open(const std::wstring& path, REGSAM rights = KEY_READ | KEY_WRITE) const;

    // An empty name is the key's default value.
    void set(const std::wstring& name, const std::wstring& text) const;
    [[nodiscard]] std::optional<std::wstring> text(const std::wstring& name) const;
    [[nodiscard]] bool empty() const noexcept;

    // With everything below it.
    void removeTree(const std::wstring& path) const;
    // Only when nothing is left in it.
    void removeIfEmpty(const std::wstring& path) const;

private:
    RegistryKey(HKEY key, bool owned) noexcept : key_(key), owned_(owned) {}

    HKEY key_;
    bool owned_;
};

}  // namespace telvar::com
