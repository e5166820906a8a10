// A whole send over TCP on this machine (reading and keeping what the radio holds, writing, committing, reading back)
// against the time that its bytes alone would take: the same numbers of bytes, there and back, in the same order, over
// the same kind of connection, with nobody who makes or reads them. What the radio held goes to the disk in a send;
// without that the rest is the link's own.
//
// Everything runs on one processor. Both sides take turns, so nothing is lost by that; left to the system, the two
// threads lie on one processor or on two from one run to the next, and waking the other processor a hundred times takes
// longer than the send.
#include <benchmark/benchmark.h>
#include <sched.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <memory>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "os/interrupt.h"
#include "os/tcp.h"
#include "radio/image_file.h"
#include "radio/radio_client.h"
#include "store_calls.h"
#include "support/served_radio.h"
#include "support/temporary_folder.h"

namespace {

using namespace telvar;

constexpr std::chrono::milliseconds patience{5000};

// For this thread and those that it starts.
void stayOnOneProcessor(benchmark::State& state) {
    cpu_set_t present;
    CPU_ZERO(&present);
    const int here = ::sched_getcpu();
    if (here >= 0) {
        CPU_SET(static_cast<std::size_t>(here), &present);
    }
    if (here < 0 || ::sched_setaffinity(0, sizeof present, &present) != 0) {
        state.SkipWithError("the processor cannot be chosen");
    }
}

// Sizes of the frames of one exchange on the line, a request and its answer.
struct Turn {
    std::size_t asked;
    std::size_t answered;
};

// A served radio, and what goes over its line.
struct NotedRadio {
    // Of the radio's thread until it is stopped.
    std::vector<Turn> turns;
    tests::ServedRadio served{
        {}, [this](const radio::Frame& request, const radio::Frame& answer) {
            turns.push_back({.asked = radio::encoded(request).size(), .answered = radio::encoded(answer).size()});
        }};
};

[[nodiscard]] bool readWhole(os::ByteStream& stream, std::size_t bytes) {
    std::array<std::uint8_t, 4096> buffer{};
    while (bytes > 0) {
        const auto got = stream.read(std::span(buffer).first(std::min(bytes, buffer.size())), patience);
        if (!got || *got == 0) {
            return false;
        }
        bytes -= *got;
    }
    return true;
}

// Answers so many bytes with so many others, for the whole of each exchange, until its partner leaves.
class Answerer {
public:
    explicit Answerer(const std::vector<Turn>& turns) : thread_([this, &turns] { serve(turns); }) {}
    Answerer(const Answerer&) = delete;
    Answerer& operator=(const Answerer&) = delete;
    Answerer(Answerer&&) = delete;
    Answerer& operator=(Answerer&&) = delete;
    ~Answerer() {
        interrupt_.raise();
        thread_.join();
    }
    [[nodiscard]] std::uint16_t port() const { return listener_.port(); }

private:
    void serve(const std::vector<Turn>& turns) {
        const auto partner = listener_.accept(interrupt_);
        if (!partner || *partner == nullptr) {
            return;
        }
        const std::vector<std::uint8_t> bytes(4096);
        for (;;) {
            for (const Turn& turn : turns) {
                if (!readWhole(**partner, turn.asked) ||
                    !(*partner)->write(std::span(bytes).first(turn.answered), patience)) {
                    return;
                }
            }
        }
    }

    os::Interrupt interrupt_;
    os::TcpListener listener_ = *os::TcpListener::open(0);
    std::thread thread_;
};

[[nodiscard]] std::expected<std::string, os::FileError> keepNothing(const std::string& /*folder*/,
                                                                    const radio::TableImage& /*image*/) {
    return "nowhere";
}

struct Client {
    explicit Client(const tests::ServedRadio& served, radio::KeepTable keep = radio::saveDated)
        : client(clock, interrupt, std::move(keep)) {
        client.configure({.address = served.address(), .backupFolder = folder.name()});
    }
    [[nodiscard]] bool send() {
        return client.sendTable(image, [](int) {}).succeeded;
    }

    tests::TemporaryFolder folder;
    radio::TableImage image = radio::imageOf(*bench::configuredTable());
    radio::SystemClock clock;
    os::Interrupt interrupt;
    radio::RadioClient client;
};

// What one send puts on the line.
[[nodiscard]] std::vector<Turn> turnsOfASend() {
    NotedRadio noted;
    Client client(noted.served);
    const bool good = client.send();
    noted.served.stop();
    return good ? noted.turns : std::vector<Turn>();
}

void count(benchmark::State& state, const std::vector<Turn>& turns) {
    std::size_t bytes = 0;
    for (const Turn& turn : turns) {
        bytes += turn.asked + turn.answered;
    }
    state.counters["bytes"] = static_cast<double>(bytes);
    state.counters["requests"] = static_cast<double>(turns.size());
}

void bytesAlone(benchmark::State& state) {
    stayOnOneProcessor(state);
    const std::vector<Turn> turns = turnsOfASend();
    const Answerer answerer(turns);
    const os::Interrupt interrupt;
    const auto stream = os::connectTcp("127.0.0.1", answerer.port(), patience, interrupt);
    const std::vector<std::uint8_t> bytes(4096);
    for (auto _ : state) {
        for (const Turn& turn : turns) {
            if (!stream || !(*stream)->write(std::span(bytes).first(turn.asked), patience) ||
                !readWhole(**stream, turn.answered)) {
                state.SkipWithError("the line broke");
                return;
            }
        }
    }
    count(state, turns);
}
BENCHMARK(bytesAlone)->Unit(benchmark::kMillisecond)->UseRealTime();

void sends(benchmark::State& state, const radio::KeepTable& keep) {
    stayOnOneProcessor(state);
    const std::vector<Turn> turns = turnsOfASend();
    const tests::ServedRadio served;
    Client client(served, keep);
    for (auto _ : state) {
        if (!client.send()) {
            state.SkipWithError("a send failed");
            return;
        }
    }
    count(state, turns);
}

void sendOverTcp(benchmark::State& state) { sends(state, radio::saveDated); }
BENCHMARK(sendOverTcp)->Unit(benchmark::kMillisecond)->UseRealTime();

void sendWithoutTheDisk(benchmark::State& state) { sends(state, keepNothing); }
BENCHMARK(sendWithoutTheDisk)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
