#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pixmo::bench {

/// One way to do the work of a row; keeps what it needs, and its result, to itself.
struct Contender {
    std::string name;
    std::function<void()> run;
};

/// The same work done by several; the first one is ours.
struct Row {
    std::string name;
    std::vector<Contender> contenders;
};

/// Runs the rows as a program: all of them by Google Benchmark, with its options, and then in pairs, which is
/// what ratios are taken from: in every round each contender has its turn, and the ratio printed is the
/// median over the rounds of the contender's time by ours. Of our own options, --paired_rounds=N sets the
/// rounds (21; 0 leaves the pairs out) and --paired_only leaves Google Benchmark out. The filter of Google
/// Benchmark chooses the pairs, too, by the row's name. Returns the exit code.
int runRows(int argc, char** argv, const std::vector<Row>& rows);

} // namespace pixmo::bench
