// The built program as a process that runs beside the test: with its input held open, its output read line by line, and
// signals.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>
#include <vector>

#include "os/posix/descriptor.h"
#include "support/build_paths.h"

namespace telvar::tests {

class ChildProgram {
public:
    explicit ChildProgram(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), TELVAR_BIN_DIR "/telvar");
        std::vector<char*> pointers;
        for (auto& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        const auto [inRead, inWrite] = pipe();
        const auto [outRead, outWrite] = pipe();
        const auto [errRead, errWrite] = pipe();
        posix_spawn_file_actions_t actions{};
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, inRead, STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, outWrite, STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, errWrite, STDERR_FILENO);
        EXPECT_EQ(::posix_spawn(&process_, pointers.front(), &actions, nullptr, pointers.data(), environ), 0);
        ::posix_spawn_file_actions_destroy(&actions);
        for (const int theirs : {inRead, outWrite, errWrite}) {
            ::close(theirs);
        }
        in_ = os::Descriptor(inWrite);
        out_ = os::Descriptor(outRead);
        err_ = os::Descriptor(errRead);
    }
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;
    ChildProgram(ChildProgram&&) = delete;
    ChildProgram& operator=(ChildProgram&&) = delete;
    ~ChildProgram() {
        if (process_ > 0) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
    }

    // Without their ends; empty where the stream has ended.
    [[nodiscard]] std::string line() { return lineOf(out_.get()); }
    [[nodiscard]] std::string errorLine() { return lineOf(err_.get()); }
    // Everything that is said until the program ends.
    [[nodiscard]] std::string rest() { return restOf(out_.get()); }
    [[nodiscard]] std::string errorRest() { return restOf(err_.get()); }

    void closeInput() { in_ = os::Descriptor(); }
    void signal(int number) const { ::kill(process_, number); }
    // The exit status, or minus the signal that ended it.
    [[nodiscard]] int wait() {
        int ended = 0;
        ::waitpid(std::exchange(process_, 0), &ended, 0);
        return WIFEXITED(ended) ? WEXITSTATUS(ended) : -WTERMSIG(ended);
    }

private:
    [[nodiscard]] static std::array<int, 2> pipe() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        return ends;
    }
    [[nodiscard]] static std::string lineOf(int stream) {
        std::string text;
        for (char c = 0; ::read(stream, &c, 1) == 1 && c != '\n';) {
            text += c;
        }
        return text;
    }
    [[nodiscard]] static std::string restOf(int stream) {
        std::string text;
        std::array<char, 4096> part{};
        for (ssize_t got = 0; (got = ::read(stream, part.data(), part.size())) > 0;) {
            text.append(part.data(), static_cast<std::size_t>(got));
        }
        return text;
    }

    pid_t process_ = 0;
    os::Descriptor in_;
    os::Descriptor out_;
    os::Descriptor err_;
};

}  // namespace telvar::tests
