// Requests to end the program (Ctrl+C, the system's polite signals, a console that is closed) raise an interrupt, so
// that the program ends in order; the standard input may be such a request too, by its end.
#pragma once

#include <memory>

#include "base/pinned.h"
#include "os/interrupt.h"

namespace telvar::os {

// One at a time. While it lives, such a request raises the interrupt instead of ending the program, and a pipe that
// nobody reads any more is an error of writing. The interrupt outlives it.
class EndRequests : private base::Pinned {
public:
    explicit EndRequests(Interrupt& interrupt);
    ~EndRequests();

private:
    struct Former;
    std::unique_ptr<Former> former_;
};

// Reads the standard input and drops it, on a thread that lasts until its end or the program's; then raises the
// interrupt. An input that cannot be read, as in the background of a terminal, never ends.
void raiseAtEndOfInput(const std::shared_ptr<Interrupt>& interrupt);

}  // namespace telvar::os
