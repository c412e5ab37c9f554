#include "codecs/bytereader.h"

namespace pixmo {

uint32_t ByteReader::number(size_t at, size_t length) const {
    if (at > bytes_.size() || length > bytes_.size() - at)
        return 0;
    uint32_t value = 0;
    for (size_t i = 0; i < length; ++i)
        value = value << 8 | bytes_[at + (bigEndian_ ? i : length - 1 - i)];
    return value;
}

} // namespace pixmo
