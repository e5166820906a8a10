// Native tests only: limits that a normal user meets and the administrator does not.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace telvar::tests {

// While it lives, the process has the rights of a user who owns nothing; for whoever is no administrator it does
// nothing.
class Unprivileged {
public:
    Unprivileged() {
        if (own_ == 0 && ::seteuid(nobody) != 0) {
            std::abort();
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    Unprivileged(Unprivileged&&) = delete;
    Unprivileged& operator=(Unprivileged&&) = delete;
    ~Unprivileged() {
        if (own_ == 0 && ::seteuid(own_) != 0) {
            std::abort();
        }
    }

private:
    static constexpr uid_t nobody = 65534;
    uid_t own_ = ::geteuid();
};

// While it lives, no file can grow beyond `bytes`: writing fails half way, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        // Without this the signal would end the process.
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limited{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    FileSizeLimit(FileSizeLimit&&) = delete;
    FileSizeLimit& operator=(FileSizeLimit&&) = delete;
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int) = SIG_DFL;
};

}  // namespace telvar::tests
