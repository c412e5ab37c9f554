#include "bench/harness.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <regex>
#include <string_view>

namespace pixmo::bench {

namespace {

/// Processor time of all threads: other programs on the machine do not count, helpers of a contender do.
double processorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// A turn lasts at least this long, so that the clock's own cost does not count.
constexpr double TurnSeconds = 0.002;

struct Options {
    int rounds = 21;
    bool pairedOnly = false;
    std::string filter = ".";
};

/// Takes our options out of the arguments.
Options takeOptions(int& argc, char** argv) {
    constexpr std::string_view roundsOption = "--paired_rounds=";
    constexpr std::string_view filterOption = "--benchmark_filter=";
    Options options;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--paired_only") {
            options.pairedOnly = true;
            continue;
        }
        if (argument.starts_with(roundsOption)) {
            options.rounds = std::stoi(std::string(argument.substr(roundsOption.size())));
            continue;
        }
        if (argument.starts_with(filterOption))
            options.filter = argument.substr(filterOption.size());
        argv[kept++] = argv[i];
    }
    argc = kept;
    return options;
}

double secondsOf(const Contender& contender, int times) {
    const double start = processorSeconds();
    for (int i = 0; i < times; ++i)
        contender.run();
    return processorSeconds() - start;
}

/// How often a contender runs in one turn.
int timesOf(const Contender& contender) {
    contender.run();
    int times = 1;
    while (secondsOf(contender, times) < TurnSeconds)
        times *= 2;
    return times;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void printPairs(const Row& row, int rounds) {
    const size_t count = row.contenders.size();
    std::vector<int> times(count);
    std::vector<std::vector<double>> seconds(count);
    for (size_t i = 0; i < count; ++i)
        times[i] = timesOf(row.contenders[i]);
    for (int round = 0; round < rounds; ++round)
        for (size_t i = 0; i < count; ++i)
            seconds[i].push_back(secondsOf(row.contenders[i], times[i]) / times[i]);
    std::printf("%s\n", row.name.c_str());
    for (size_t i = 0; i < count; ++i) {
        std::vector<double> ratios;
        for (size_t round = 0; round < seconds[i].size(); ++round)
            ratios.push_back(seconds[i][round] / seconds[0][round]);
        std::printf("  %-36s %12.2f us min %12.2f us median %8.2f x\n", row.contenders[i].name.c_str(),
                    *std::min_element(seconds[i].begin(), seconds[i].end()) * 1e6, median(seconds[i]) * 1e6,
                    median(ratios));
    }
}

} // namespace

int runRows(int argc, char** argv, const std::vector<Row>& rows) {
    const Options options = takeOptions(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    if (!options.pairedOnly) {
        for (const Row& row : rows)
            for (const Contender& contender : row.contenders)
                benchmark::RegisterBenchmark((row.name + "/" + contender.name).c_str(),
                                             [&contender](benchmark::State& state) {
                                                 for (auto _ : state)
                                                     contender.run();
                                             });
        benchmark::RunSpecifiedBenchmarks();
    }
    if (options.rounds <= 0)
        return 0;
    std::printf("\nIn turn, %d rounds; x = time by ours, median of the rounds\n", options.rounds);
    const std::regex filter(options.filter);
    for (const Row& row : rows)
        if (std::regex_search(row.name, filter))
            printPairs(row, options.rounds);
    return 0;
}

} // namespace pixmo::bench
