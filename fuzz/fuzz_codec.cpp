// One decoder, which the build names: its header is PIXMO_CODEC, its function PIXMO_DECODE.
#include PIXMO_CODEC
#include "fuzz/fuzzdecode.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return pixmo::fuzzDecode(pixmo::PIXMO_DECODE, data, size);
}
