#include "core/cipher/pageprotection.h"

#include <algorithm>
#include <cstddef>

namespace pixmo {

void reverseProtectedBytes(std::span<uint8_t> page, int32_t encBytes, int32_t lowerBound) {
    const int64_t upperBound = lowerBound + static_cast<int64_t>(page.size()) - 1;
    const int64_t last = encBytes == -1 ? upperBound : std::min<int64_t>(encBytes, upperBound);
    if (last > lowerBound)
        std::ranges::reverse(page.first(static_cast<size_t>(last - lowerBound + 1)));
}

} // namespace pixmo
