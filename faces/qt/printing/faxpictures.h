#pragma once

#include "core/raster/raster.h"

#include <QByteArray>
#include <QTemporaryFile>
#include <cstddef>
#include <optional>
#include <vector>

namespace pixmo::qt {

/// The 1-bit pictures of a job as ITU-T T.6, in the order in which they were drawn; kept in a file, so that
/// a long job needs no more memory than a short one.
class FaxPictures {
public:
    struct Picture {
        int32_t width = 0;  ///< pixels
        int32_t height = 0; ///< pixels
        qsizetype size = 0; ///< bytes; 0 when it could not be encoded
        qint64 offset = 0;
    };

    void add(const Raster& picture);
    size_t count() const { return pictures_.size(); }
    const Picture& operator[](size_t index) const { return pictures_[index]; }
    /// Empty where it cannot be read.
    QByteArray bytes(const Picture& picture);

private:
    QTemporaryFile file_;
    std::vector<Picture> pictures_;
};

} // namespace pixmo::qt
