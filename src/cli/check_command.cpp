// telvar check: the table checks before a send, with the control's own messages, over many files at once.
#include <CLI/CLI.hpp>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/table_files.h"
#include "cli/table_verdict.h"

namespace telvar::cli {

namespace {

using Checked = std::expected<TableVerdict, os::FileError>;

[[nodiscard]] Checked check(const Console& console, const std::string& file) {
    const auto contents = readTable(console, file);
    if (!contents) {
        return std::unexpected(contents.error());
    }
    return verdictOn(*contents);
}

// Checks the files on every processor and hands the results out in the files' order, each as soon as it and all before
// it are there.
class ParallelCheck {
public:
    ParallelCheck(const Console& console, const std::vector<std::string>& files)
        : console_(console), files_(files), results_(files.size()) {
        const auto processors = std::max(std::thread::hardware_concurrency(), 1U);
        const auto workers = std::min<std::size_t>(processors, files.size());
        for (std::size_t worker = 0; worker < workers; ++worker) {
            workers_.emplace_back([this](const std::stop_token& stop) { work(stop); });
        }
    }

    [[nodiscard]] Checked take(std::size_t at) {
        std::unique_lock lock(mutex_);
        done_.wait(lock, [&] { return results_[at].has_value(); });
        Checked result = *std::move(results_[at]);
        results_[at].reset();
        return result;
    }

private:
    void work(const std::stop_token& stop) {
        for (std::size_t at = next_++; at < files_.size() && !stop.stop_requested(); at = next_++) {
            Checked result = checkOrSay(files_[at]);
            const std::lock_guard lock(mutex_);
            results_[at] = std::move(result);
            done_.notify_all();
        }
    }
    [[nodiscard]] Checked checkOrSay(const std::string& file) const noexcept {
        try {
            return check(console_, file);
        } catch (const std::exception& failure) {
            return std::unexpected(os::FileError{file, failure.what()});
        }
    }

    const Console& console_;
    const std::vector<std::string>& files_;
    std::vector<std::optional<Checked>> results_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::condition_variable done_;
    std::vector<std::jthread> workers_;  // end first
};

class CheckCommand : public Command {
public:
    std::string name() const override { return "check"; }
    std::string summary() const override { return "Check tables as the control does before a send"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", files_, "The tables; - is standard input")->required();
    }

    Outcome execute(const Console& console) override {
        if (std::ranges::count(files_, standardStream) > 1) {
            return console.refuse("standard input can be checked once only");
        }
        ParallelCheck checks(console, files_);
        Outcome worst = Outcome::Fine;
        for (std::size_t at = 0; at < files_.size(); ++at) {
            worst = std::max(worst, answer(console, files_[at], checks.take(at)));
        }
        return worst;
    }

private:
    [[nodiscard]] static Outcome answer(const Console& console, const std::string& file, const Checked& checked) {
        if (!checked) {
            return console.refuse(checked.error());
        }
        if (console.json) {
            console.out << Json().add("file", file).add("ok", checked->good()).add(jsonOf(*checked)).line();
        } else {
            tell(console, shownName(file, "standard input"), *checked);
        }
        return checked->good() ? Outcome::Fine : Outcome::Findings;
    }

    std::vector<std::string> files_;
};

}  // namespace

std::unique_ptr<Command> checkCommand() { return std::make_unique<CheckCommand>(); }

}  // namespace telvar::cli
