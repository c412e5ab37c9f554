#include "apps/engine/pageprotection.h"

#include <algorithm>

namespace pixmo {

void padPage(std::vector<uint8_t>& page) {
    page.resize(std::max(page.size(), SmallestPage));
}

void protectPage(std::span<uint8_t> page, int32_t count) {
    if (count < -1)
        return;
    const size_t length = count == -1 ? page.size() : std::min(page.size(), static_cast<size_t>(count));
    std::reverse(page.begin(), page.begin() + static_cast<std::ptrdiff_t>(length));
}

} // namespace pixmo
