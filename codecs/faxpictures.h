#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace pixmo {

/// The 1-bit pictures of a print job as ITU-T T.6, in the order in which they were drawn; kept in a temporary
/// file without a name, so that a long job needs no more memory than a short one.
class FaxPictures {
public:
    struct Picture {
        int32_t width = 0;  ///< pixels
        int32_t height = 0; ///< pixels
        size_t size = 0;    ///< bytes; 0 when it could not be encoded or kept
        std::fpos_t place{};
    };

    void add(const Raster& picture);
    size_t count() const { return pictures_.size(); }
    const Picture& operator[](size_t index) const { return pictures_[index]; }
    /// Empty where it cannot be read.
    std::string bytes(const Picture& picture);

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_{nullptr, std::fclose};
    std::vector<Picture> pictures_;
};

} // namespace pixmo
