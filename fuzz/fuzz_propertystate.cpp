#include "core/base/error.h"
#include "faces/com/control/propertystate.h"

#include <cstdint>
#include <cstdlib>

// What a host has kept of a control and hands back. Whatever is taken is written again as what it was.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using pixmo::com::PropertyState;
    try {
        const PropertyState read = PropertyState::fromBytes({data, size});
        const auto written = read.toBytes();
        if (PropertyState::fromBytes(written).toBytes() != written)
            std::abort();
    } catch (const pixmo::Error& error) {
        if (error.Number != pixmo::error_number::InvalidPropertyValue)
            std::abort();
    }
    return 0;
}
