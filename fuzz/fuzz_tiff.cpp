#include "codecs/tiffcodec.h"
#include "fuzz/fuzzdecode.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    return pixmo::fuzzDecode(pixmo::decodeTiff, data, size);
}
