// A PostScript printer of the system's own, whose pages land in a file; installed for one test, as the default one.
#pragma once

#include <string>

namespace telvar::tests {

class InstalledPrinter {
public:
    InstalledPrinter();
    InstalledPrinter(const InstalledPrinter&) = delete;
    InstalledPrinter& operator=(const InstalledPrinter&) = delete;
    InstalledPrinter(InstalledPrinter&&) = delete;
    InstalledPrinter& operator=(InstalledPrinter&&) = delete;
    ~InstalledPrinter();

    // Where the system cannot be given one (only Wine can), this is why.
    [[nodiscard]] const std::string& refusal() const noexcept { return refusal_; }
    // What was printed so far.
    [[nodiscard]] std::string output() const;

private:
    void install();

    std::string refusal_;
    std::string file_;
    void* printer_ = nullptr;
};

}  // namespace telvar::tests
