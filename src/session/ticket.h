// What was true before a message box, an event or a wait: taken before it, and asked afterwards.
//
//   const Ticket sameTable(session.presentStore());
//   session.show(question);
//   if (!sameTable.valid()) { ... }  // the host has given another store meanwhile
#pragma once

#include <tuple>

namespace telvar::session {

// Something that can happen again and again, for tickets that are about its not having happened.
class Occurrence {
public:
    void happen() noexcept { ++times_; }
    bool operator==(const Occurrence&) const = default;

private:
    unsigned times_ = 0;
};

// Of things that are compared with what they were; they must outlive the ticket. One that was changed and changed back
// is as it was.
template <class... Things>
class Ticket {
public:
    explicit Ticket(const Things&... things) : now_(things...), before_(things...) {}
    explicit Ticket(const Things&&... things)
        requires(sizeof...(Things) > 0)
    = delete;

    [[nodiscard]] bool valid() const { return now_ == before_; }

private:
    std::tuple<const Things&...> now_;
    std::tuple<Things...> before_;
};

}  // namespace telvar::session
