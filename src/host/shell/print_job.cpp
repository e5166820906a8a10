#include "host/shell/print_job.h"

#include <algorithm>

#include "base/failure.h"
#include "base/pinned.h"
#include "host/shell/print_cancel_box.h"
#include "win/text.h"

namespace telvar::host {

namespace {

// Gives the document up unless it was ended.
class OpenDocument : private base::Pinned {
public:
    explicit OpenDocument(PrintDevice& device) noexcept : device_(device) {}
    ~OpenDocument() {
        if (!ended_) {
            device_.giveUp();
        }
    }

    void ended() noexcept { ended_ = true; }

private:
    PrintDevice& device_;
    bool ended_ = false;
};

class Job {
public:
    Job(HWND owner, const PrintOrder& order, const PagePainter& painter, const PrintDocument& document)
        : device_(*order.device), painter_(painter), document_(document) {
        const int count = static_cast<int>(document.pages.size());
        first_ = std::clamp(order.firstPage, 1, count);
        last_ = std::clamp(order.lastPage, first_, count);
        if (last_ > first_) {
            box_.emplace(owner);
        }
    }

    bool run(const std::wstring& name) {
        const std::function<bool()> goesOn = [this] { return !box_ || box_->goesOn(); };
        if (!done(device_.begin(name, goesOn), "The printer did not take the document")) {
            return false;
        }
        OpenDocument open(device_);
        for (int page = first_; page <= last_; ++page) {
            const std::string number = std::to_string(page);
            if (box_) {
                box_->show(
                    win::wide("Printing page " + number + " of " + std::to_string(document_.pages.size()) + "..."));
            }
            if (!goesOn() || !done(printPage(page), "Page " + number +
                                                        " could not be printed, and the rest of the "
                                                        "document was given up")) {
                return false;
            }
        }
        if (!goesOn()) {
            return false;
        }
        open.ended();
        return done(device_.end(), "The printer did not take the end of the document");
    }

private:
    DeviceAnswer printPage(int page) {
        const DeviceAnswer started = device_.startPage();
        if (started != DeviceAnswer::Done) {
            return started;
        }
        painter_.paint(device_.canvas(), document_, static_cast<std::size_t>(page) - 1);
        return device_.endPage();
    }

    // False where the user cancelled: a device that fails because of that has not failed.
    bool done(DeviceAnswer answer, const std::string& otherwise) {
        if (answer == DeviceAnswer::Refused && (!box_ || box_->goesOn())) {
            throw base::Failure(otherwise);
        }
        return answer == DeviceAnswer::Done;
    }

    PrintDevice& device_;
    const PagePainter& painter_;
    const PrintDocument& document_;
    int first_;
    int last_;
    std::optional<CancelBox> box_;
};

}  // namespace

bool printDocument(HWND owner, const PrintOrder& order, const PagePainter& painter, const PrintDocument& document,
                   const std::wstring& name) {
    return Job(owner, order, painter, document).run(name);
}

}  // namespace telvar::host
