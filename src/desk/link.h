// The radio link, as the desk uses it. What it is told and cannot understand throws base::Failure with one sentence.
#pragma once

#include <string>
#include <vector>

#include "base/pinned.h"

namespace telvar::desk {

// Codes of exchanges, as the link tells them.
enum class Task : std::int32_t {
    None = 0,
    ChannelSelection = 11,
    Status = 12,
    Load = 22,
    Send = 30,
    Restore = 31,
    Levels = 33
};

class Link : private base::Pinned {
public:
    virtual ~Link() = default;

    // False without an installed link; nothing else is asked of it then.
    [[nodiscard]] virtual bool installed() const noexcept = 0;
    // Something runs, a question how the radio is included; false where the link does not answer.
    [[nodiscard]] virtual bool busy() const noexcept = 0;
    // Asks how the radio is; whether the link took it.
    [[nodiscard]] virtual bool askStatus() noexcept = 0;
    // Ends what runs at its next frame; with nothing running the end is reported at once.
    virtual void abort() = 0;
    // Begins to send what an earlier send has kept.
    virtual void restore(const std::string& backup) = 0;

    // "simulated", "tcp:HOST:PORT", "serial:PORT,SPEED".
    [[nodiscard]] virtual std::string connection() const = 0;
    virtual void setConnection(const std::string& address) = 0;
    // Of the simulated radio.
    [[nodiscard]] virtual std::string faults() const = 0;
    virtual void setFaults(const std::string& faults) = 0;
    // The names of those there are.
    [[nodiscard]] virtual std::vector<std::string> knownFaults() const = 0;
    // A full path, or nothing for no trace.
    [[nodiscard]] virtual std::string traceFile() const = 0;
    virtual void setTraceFile(const std::string& path) = 0;
    // Where the simulated radio keeps its table.
    virtual void setStateFile(const std::string& path) = 0;
    // Empty where nobody has chosen one.
    [[nodiscard]] virtual std::string backupFolder() const = 0;
};

}  // namespace telvar::desk
