// Why a conversation with the radio ended early. Whoever ends an exchange adds what it means for the tables.
#pragma once

#include <cstdint>
#include <expected>
#include <string>

namespace telvar::radio {

struct LinkFailure {
    enum class Cause : std::uint8_t {
        Aborted,      // the user wanted it so
        Unreachable,  // the way to the radio cannot be opened, or broke
        Silent,       // nothing usable came back in time, however often it was asked
        Foreign,      // somebody else answers
        Restarted,    // the radio knows nothing of this session any more
        Refused,      // the radio says no
        Differs,      // the radio holds something else than it should
        Local,        // a file of this machine
    };
    Cause cause{};
    std::string what;  // begins with a capital, ends without a full stop
};

template <class Result>
using LinkResult = std::expected<Result, LinkFailure>;

}  // namespace telvar::radio
