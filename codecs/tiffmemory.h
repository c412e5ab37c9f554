#pragma once

#include "codecs/tiffmessages.h"

#include <cstdint>
#include <memory>
#include <vector>

#include <tiffio.h>

namespace pixmo {

struct CloseTiff {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

/// An open TIFF file, which is closed with it.
using TiffHandle = std::unique_ptr<TIFF, CloseTiff>;

/// A TIFF file that libtiff writes into a growing block of memory. It outlives the handle.
class TiffMemory {
public:
    /// The mode is that of TIFFOpen. What the library says goes to `messages`. Empty when it fails; throws
    /// std::bad_alloc.
    TiffHandle open(const char* mode, TiffMessages& messages);

    /// All there is once the handle is closed.
    std::vector<uint8_t> bytes;
    /// Something could not be written for want of memory: `bytes` is not whole.
    bool outOfMemory = false;

private:
    static TiffMemory& of(thandle_t handle) { return *static_cast<TiffMemory*>(handle); }
    static tmsize_t read(thandle_t handle, void* to, tmsize_t count);
    static tmsize_t write(thandle_t handle, void* from, tmsize_t count) noexcept;
    static toff_t seek(thandle_t handle, toff_t offset, int origin);
    static int close(thandle_t) { return 0; }
    static toff_t size(thandle_t handle) { return of(handle).bytes.size(); }

    size_t position_ = 0;
};

} // namespace pixmo
