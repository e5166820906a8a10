// The exchanges with a radio from beginning to end, one at a time, on the calling thread: it blocks, reports progress
// while it does, and answers with the outcome. The link runs it on a thread of its own; a command line may call it
// as it is. No exchange outlives its patience, and none claims more than the radio has confirmed.
//
// Send: greet, read what the radio holds, keep it as a file, write, commit, read back, compare.
//   before the write --failure--> nothing was written
//   before the commit --failure--> the radio keeps its former table
//   at the commit --failure--> a new session asks which table the radio holds; the new one is then read back
#pragma once

#include <atomic>
#include <cstdint>
#include <expected>
#include <functional>
#include <optional>
#include <string>

#include "os/interrupt.h"
#include "radio/image_file.h"
#include "radio/link_connection.h"
#include "radio/table_transfer.h"

namespace telvar::radio {

struct Outcome {
    bool succeeded = false;
    std::string sentence;  // for the user, with its full stop; empty where there is nothing to tell
    bool operator==(const Outcome&) const = default;
};

// 0 to 100, growing; from the calling thread.
using Percent = std::function<void(int)>;

// Keeps a table in the folder of that name; what it is called.
using KeepTable =
    std::function<std::expected<std::string, os::FileError>(const std::string& folder, const TableImage&)>;

class RadioClient {
public:
    // Both outlive the client. Raising the interrupt aborts the exchange at the next frame. `keep` is for tests, which
    // send by the thousand.
    RadioClient(LinkClock& clock, os::Interrupt& interrupt, KeepTable keep = saveDated);

    void configure(const LinkSettings& settings) { connection_.configure(settings); }

    // Callable from any thread: nobody waits for an outcome any more. Raises the interrupt, and no exchange asks the
    // radio anything after that, not even which table it holds.
    void end() noexcept;

    // Succeeds only when what was read back is what was sent.
    [[nodiscard]] Outcome sendTable(const TableImage& image, const Percent& percent);
    // Sends a table that an earlier send has kept.
    [[nodiscard]] Outcome restore(const std::string& file, const Percent& percent);
    // The image only where all of it arrived and means something.
    struct Loaded {
        Outcome outcome;
        std::optional<TableImage> image;
    };
    [[nodiscard]] Loaded loadTable(const Percent& percent);
    // 1 to 255.
    [[nodiscard]] Outcome selectChannel(std::uint8_t channel);
    [[nodiscard]] Outcome setLevels(const Levels& levels);
    // Asks once and waits a second at most; where there is no session (any more), a second each for a partner, its
    // greeting and its answer. The sentence says who answers.
    [[nodiscard]] Outcome status();

    [[nodiscard]] bool connected() const noexcept { return connection_.isOpen(); }
    // The file that the last send has kept; empty before.
    [[nodiscard]] const std::string& lastBackup() const noexcept { return lastBackup_; }
    [[nodiscard]] LinkConnection& connection() noexcept { return connection_; }

private:
    [[nodiscard]] Outcome readBack(LinkSession& session, const TableImage& image, const Percent& percent);
    [[nodiscard]] Outcome writeFailed(const LinkFailure& failure, WriteStage stage, const TableImage& former,
                                      const TableImage& image, const Percent& percent);
    [[nodiscard]] LinkResult<Bytes> ask(Kind kind, const Bytes& payload, const Patience& patience);

    os::Interrupt& interrupt_;
    std::atomic<bool> ending_ = false;
    KeepTable keep_;
    LinkConnection connection_;
    std::string lastBackup_;
};

}  // namespace telvar::radio
