#include "codecs/tiffmemory.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

namespace pixmo {

namespace {

struct FreeOptions {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

} // namespace

TiffHandle TiffMemory::open(const char* mode, TiffMessages& messages) {
    const std::unique_ptr<TIFFOpenOptions, FreeOptions> options(TIFFOpenOptionsAlloc());
    if (!options)
        throw std::bad_alloc();
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), TiffMessages::onError, &messages);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), TiffMessages::onWarning, &messages);
    return TiffHandle(TIFFClientOpenExt("page", mode, this, read, write, seek, close, size, nullptr, nullptr,
                                        options.get()));
}

tmsize_t TiffMemory::read(thandle_t handle, void* to, tmsize_t count) {
    TiffMemory& file = of(handle);
    if (count <= 0 || file.position_ >= file.bytes.size())
        return 0;
    const size_t length = std::min(file.bytes.size() - file.position_, static_cast<size_t>(count));
    std::memcpy(to, file.bytes.data() + file.position_, length);
    file.position_ += length;
    return static_cast<tmsize_t>(length);
}

// No exception passes through libtiff, which is C.
tmsize_t TiffMemory::write(thandle_t handle, void* from, tmsize_t count) noexcept {
    TiffMemory& file = of(handle);
    if (count <= 0)
        return 0;
    const size_t end = file.position_ + static_cast<size_t>(count);
    try {
        if (end > file.bytes.size())
            file.bytes.resize(end);
    } catch (const std::exception&) {
        file.outOfMemory = true;
        return -1;
    }
    std::memcpy(file.bytes.data() + file.position_, from, end - file.position_);
    file.position_ = end;
    return count;
}

toff_t TiffMemory::seek(thandle_t handle, toff_t offset, int origin) {
    TiffMemory& file = of(handle);
    const size_t from = origin == SEEK_CUR ? file.position_ : origin == SEEK_END ? file.bytes.size() : 0;
    file.position_ = from + static_cast<size_t>(offset);
    return file.position_;
}

} // namespace pixmo
