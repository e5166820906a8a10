// telvar load: the table of a radio into a file, all of it or nothing.
#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/link_options.h"
#include "cli/table_files.h"
#include "os/file_lock.h"
#include "os/files.h"
#include "radio/apply_image.h"
#include "store/reference_data_store.h"
#include "store/table_file.h"

namespace telvar::cli {

namespace {

class LoadCommand : public Command {
public:
    std::string name() const override { return "load"; }
    std::string summary() const override { return "Load the table of a radio into a file"; }

    void declare(CLI::App& app) override {
        app.add_option("FILE", file_,
                       "The file (.telvar or .csv), or - for standard output; what a table file has besides its "
                       "channels stays")
            ->required();
        link_.declare(app);
    }

    Outcome execute(const Console& console) override {
        if (console.json && file_ == standardStream) {
            return console.refuse("--json and the table itself cannot both go to standard output");
        }
        const auto settings = link_.settings();
        if (!settings) {
            return console.refuse(settings.error());
        }
        if (!formatOf(file_)) {
            return console.refuse(os::FileError{file_, "The name must end in .telvar or .csv"});
        }
        // A file that could not be kept is refused before the radio is asked for a table.
        if (const auto present = around(); !present) {
            return console.refuse(present.error());
        }
        radio::RadioClient::Loaded loaded;
        link_.run(console, *settings, [&](radio::RadioClient& client, const radio::Percent& percent) {
            loaded = client.loadTable(percent);
        });
        const auto address = radio::textOf(settings->address);
        if (!loaded.image) {
            return failed(console, address, loaded.outcome.sentence);
        }
        const auto changed = save(console, *loaded.image);
        return changed ? succeeded(console, address, *changed, loaded.outcome.sentence)
                       : console.refuse(changed.error());
    }

private:
    using Contents = std::expected<store::TableContents, os::FileError>;

    // What stays as it is. A CSV file has nothing but channels.
    [[nodiscard]] Contents around() const {
        const bool stays = file_ != standardStream && formatOf(file_) == FileFormat::Table && os::fileExists(file_);
        return stays ? store::loadTable(file_) : store::emptyTable();
    }

    // Whether the file is another one now. Other programs may have changed it while the radio was talking, so that it
    // is read again, and held until it is replaced.
    [[nodiscard]] std::expected<bool, os::FileError> save(const Console& console,
                                                          const radio::TableImage& image) const {
        std::optional<os::FileLock> lock;
        if (file_ != standardStream) {
            auto acquired = os::FileLock::acquire(os::lockFileFor(file_));
            if (!acquired) {
                return std::unexpected(acquired.error());
            }
            lock.emplace(*std::move(acquired));
        }
        const auto former = around();
        if (!former) {
            return std::unexpected(former.error());
        }
        store::ReferenceDataStore table;
        table.restore(*former);
        radio::applyImage(table, image);
        const auto loaded = table.snapshot();
        const bool stands = formatOf(file_) == FileFormat::Table && os::fileExists(file_);
        if (file_ != standardStream && stands && loaded == *former) {
            return false;
        }
        if (const auto written = writeTable(console, file_, loaded, *formatOf(file_)); !written) {
            return std::unexpected(written.error());
        }
        return true;
    }

    [[nodiscard]] Json result(const std::string& address, bool ok, bool changed) const {
        return Json().add("file", file_).add("radio", address).add("ok", ok).add("changed", changed);
    }

    [[nodiscard]] Outcome succeeded(const Console& console, const std::string& address, bool changed,
                                    const std::string& sentence) const {
        if (console.json) {
            console.out << result(address, true, changed).add("sentence", sentence).line();
        } else if (file_ != standardStream) {
            console.out << sentence << '\n';
        }
        return Outcome::Fine;
    }

    [[nodiscard]] Outcome failed(const Console& console, const std::string& address,
                                 const std::string& sentence) const {
        console.err << "telvar: " << sentence << '\n';
        if (console.json) {
            console.out << result(address, false, false).add("error", sentence).line();
        }
        return Outcome::Unusable;
    }

    std::string file_;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> loadCommand() { return std::make_unique<LoadCommand>(); }

}  // namespace telvar::cli
