// `telvar check` over 10,000 tables, against reading and parsing the same files on one thread and on every processor.
// It has a main of its own, since the program under test is another process.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <thread>
#include <vector>

#include "model/memory_data_store.h"
#include "store/table_file.h"
#include "support/build_paths.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"

namespace {

using namespace telvar;

constexpr int tables = 10'000;
// A tenth of the tables has a fault, so that messages are made too.
constexpr int faultyEvery = 10;

struct Measured {
    double seconds = 0;
    double processorSeconds = 0;
    double mebibytes = 0;  // at most at one time; 0 where it is not known
};

void show(const char* what, const Measured& measured) {
    std::printf("%-34s %7.2f s %8.0f tables/s %6.2f processors", what, measured.seconds, tables / measured.seconds,
                measured.processorSeconds / measured.seconds);
    if (measured.mebibytes > 0) {
        std::printf(" %6.1f MiB at most", measured.mebibytes);
    }
    std::printf("\n");
}

[[nodiscard]] double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

[[nodiscard]] double processorSeconds(const rusage& usage) {
    return secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
}

template <class Work>
[[nodiscard]] Measured measured(Work work) {
    rusage before{};
    rusage after{};
    ::getrusage(RUSAGE_SELF, &before);
    const auto began = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - began;
    ::getrusage(RUSAGE_SELF, &after);
    return {.seconds = elapsed.count(), .processorSeconds = processorSeconds(after) - processorSeconds(before)};
}

[[nodiscard]] std::vector<std::string> generate(const tests::TemporaryFolder& folder) {
    std::vector<std::string> files;
    for (int number = 0; number < tables; ++number) {
        model::MemoryDataStore store;
        store::putInto(store, store::emptyTable());
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            const std::int32_t hertz = 400'000'000 + 100'000 * (number % 1000 + channel);
            const bool faulty = number % faultyEvery == 0 && channel % 16 == 0;
            tests::fill(store, channel,
                        {{model::ChannelKey::TxFreq, hertz + (faulty ? 1 : 0)},
                         {model::ChannelKey::RxFreq, hertz + 5'000'000},
                         {model::ChannelKey::TxSub, 88.5},
                         {model::ChannelKey::RxSub, 88.5},
                         {model::ChannelKey::scan, channel <= 40}});
        }
        files.push_back(folder / (std::to_string(number) + ".telvar"));
        tests::TemporaryFolder::write(files.back(), store::tableText(store::contentsOf(store), files.back()).value());
    }
    return files;
}

void parseAll(const std::vector<std::string>& files, unsigned threads) {
    std::atomic<std::size_t> next = 0;
    std::vector<std::jthread> workers;
    for (unsigned worker = 0; worker < threads; ++worker) {
        workers.emplace_back([&] {
            for (std::size_t at = next++; at < files.size(); at = next++) {
                if (!store::loadTable(files[at])) {
                    std::abort();
                }
            }
        });
    }
}

[[nodiscard]] Measured checkAll(std::vector<std::string> files) {
    files.insert(files.begin(), {TELVAR_BIN_DIR "/telvar", "check", "--json"});
    std::vector<char*> arguments;
    for (auto& argument : files) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    const auto began = std::chrono::steady_clock::now();
    const pid_t process = ::fork();
    if (process == 0) {
        const int nowhere = ::open("/dev/null", O_WRONLY);
        ::dup2(nowhere, STDOUT_FILENO);
        ::execv(arguments.front(), arguments.data());
        ::_exit(127);
    }
    int ended = 0;
    rusage usage{};
    ::wait4(process, &ended, 0, &usage);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - began;
    // The faulty tables are findings.
    if (!WIFEXITED(ended) || WEXITSTATUS(ended) != 1) {
        std::fprintf(stderr, "the check did not end as it should\n");
        std::exit(1);
    }
    return {.seconds = elapsed.count(),
            .processorSeconds = processorSeconds(usage),
            .mebibytes = static_cast<double>(usage.ru_maxrss) / 1024};
}

}  // namespace

int main() {
    const tests::TemporaryFolder folder;
    const auto files = generate(folder);
    const unsigned processors = std::max(std::thread::hardware_concurrency(), 1U);
    show("parsing alone, one thread", measured([&] { parseAll(files, 1); }));
    show("parsing alone, every processor", measured([&] { parseAll(files, processors); }));
    show("telvar check", checkAll(files));
    return 0;
}
