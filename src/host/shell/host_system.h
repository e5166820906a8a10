// The computer as the desk sees it.
#pragma once

#include "desk/system.h"

namespace telvar::host {

class HostSystem final : public desk::System {
public:
    [[nodiscard]] bool exists(const std::string& path) const override;
    [[nodiscard]] bool samePath(const std::string& left, const std::string& right) const override;
    [[nodiscard]] std::vector<std::string> fileNamesIn(const std::string& folder) const override;
    [[nodiscard]] std::string userFolder() const override;
    [[nodiscard]] std::string dateAndTime(std::chrono::local_seconds at) const override;
    [[nodiscard]] std::string now() const override;
    [[nodiscard]] int usualSheet() const override;
    void replaceFile(const std::string& path, const std::string& contents) const override;
};

}  // namespace telvar::host
