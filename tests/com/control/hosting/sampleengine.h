#pragma once

#include "tests/transfers/enginecontrol.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace pixmo::com::test {

/// Of the sample engine that runs beside the tests.
inline std::string engineAddress() {
    const char* const address = std::getenv("PIXMO_ENGINE");
    if (!address)
        throw std::runtime_error("PIXMO_ENGINE is to be the address of a sample engine");
    return address;
}

inline const transfers::EngineControl& sampleEngine() {
    static const transfers::EngineControl engine(engineAddress());
    return engine;
}

} // namespace pixmo::com::test
