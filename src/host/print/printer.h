// One printer of the system, for one document.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "host/print/device.h"

namespace telvar::host {

class Printer final : public PrintDevice {
public:
    // Takes the printer's device context over.
    explicit Printer(HDC context) noexcept : context_(context) {}

    [[nodiscard]] desk::Paper sheet() const override;
    [[nodiscard]] DeviceAnswer begin(const std::wstring& name, const std::function<bool()>& goesOn) override;
    [[nodiscard]] DeviceAnswer startPage() override;
    [[nodiscard]] PageCanvas canvas() const override;
    [[nodiscard]] DeviceAnswer endPage() override;
    [[nodiscard]] DeviceAnswer end() override;
    void giveUp() noexcept override;

private:
    static BOOL CALLBACK abortProcedure(HDC context, int error) noexcept;

    win::DeviceContext context_;
};

}  // namespace telvar::host
