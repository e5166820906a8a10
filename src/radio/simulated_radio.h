// A radio made of memory: the other side of the link protocol, without faults of its own (those are simulated_line's).
// The table in force changes at a commit only, at once and, where it has a file, after the file was replaced.
#pragma once

#include <bitset>
#include <expected>
#include <memory>
#include <optional>
#include <string>

#include "os/file_error.h"
#include "os/file_lock.h"
#include "radio/frame.h"
#include "radio/message.h"
#include "radio/table_image.h"

namespace telvar::radio {

class SimulatedRadio {
public:
    // Holds an empty table and forgets everything in the end.
    SimulatedRadio();

    // Keeps its table in a file, which is made by the first table that the radio takes; an empty name means none. A
    // file that is no radio's table is refused, and one that another radio keeps its table in, of this program or of
    // another one: each would overwrite what the other has stored. What says so is a lock file beside it, which stays.
    [[nodiscard]] static std::expected<std::unique_ptr<SimulatedRadio>, os::FileError> open(const std::string& file);

    // What it says to a request; nothing to frames that are none, are late or belong to nothing.
    [[nodiscard]] std::optional<Frame> answer(const Frame& request);

    // The power fails and comes back: the session and a table that was being received are gone, the table in force
    // stays, channel 1 is selected.
    void losePower();

    // Answers to the next greetings under another radio's name.
    void pretendToBeAnother(bool pretend) noexcept { pretending_ = pretend; }

    [[nodiscard]] const TableImage& table() const noexcept { return table_; }
    // As if somebody else had written it; not into the file.
    void setTable(const TableImage& table) { table_ = table; }
    [[nodiscard]] std::uint8_t selected() const noexcept { return selected_; }
    [[nodiscard]] const Levels& levels() const noexcept { return levels_; }
    [[nodiscard]] bool writing() const noexcept { return staged_.has_value(); }

private:
    // A table on its way into the radio.
    struct Staged {
        std::uint32_t checksum = 0;
        TableImage image;
        std::bitset<imageCount> arrived;
    };
    using Answer = std::expected<Bytes, Refused>;

    [[nodiscard]] std::optional<Frame> greet(const Frame& request);
    [[nodiscard]] Frame say(const Frame& request, const Answer& answer);
    [[nodiscard]] Answer carryOut(const Frame& request);
    [[nodiscard]] Answer state() const;
    [[nodiscard]] Answer select(ByteView payload);
    [[nodiscard]] Answer setLevels(ByteView payload);
    [[nodiscard]] Answer readRecords(ByteView payload) const;
    [[nodiscard]] Answer beginWrite(ByteView payload);
    [[nodiscard]] Answer writeRecords(ByteView payload);
    [[nodiscard]] Answer commitWrite(ByteView payload);
    void tuneTo(std::uint8_t channel);

    std::string file_;
    std::optional<os::FileLock> lock_;
    TableImage table_ = emptyImage();
    std::optional<Staged> staged_;
    std::uint8_t selected_ = 1;
    Levels levels_{};
    bool pretending_ = false;

    std::uint16_t session_ = 0;  // 0 means none
    Frame lastAnswer_;           // repeated when a request comes again
};

}  // namespace telvar::radio
