#pragma once

#include "faces/qt/widget/imageview.h"
#include "tests/qt/boxwatcher.h"
#include "tests/qt/engineprocess.h"

#include <cstdint>
#include <filesystem>
#include <random>

namespace pixmo::qt {

/// Turns pages at random, with delays, cancels, other documents and other sizes between, and watches what
/// the process keeps.
class Soak {
public:
    explicit Soak(int changes) : changes_(changes) {}

    /// Whether memory stayed flat and no file was left. Prints what it measures.
    bool run();

private:
    void begin();
    void changePage();
    void disturb();
    void letPass();
    bool report(int64_t before, int64_t after) const;

    int chance(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }

    const int changes_;
    std::minstd_rand random_{1};
    EngineProcess engine_;
    BoxWatcher boxes_;
    std::unique_ptr<ImageView> view_;
    int displayed_ = 0;
    int cancelled_ = 0;
};

} // namespace pixmo::qt
