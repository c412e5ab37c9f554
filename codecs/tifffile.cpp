#include "codecs/tifffile.h"

#include "codecs/codecerror.h"
#include "codecs/newraster.h"
#include "codecs/tiffsize.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

namespace pixmo {

/// The system calls of libtiff, answered from memory.
struct TiffCallbacks {
    static TiffFile& of(thandle_t handle) { return *static_cast<TiffFile*>(handle); }

    static tmsize_t read(thandle_t handle, void* to, tmsize_t count) {
        TiffFile& file = of(handle);
        if (count <= 0 || file.position_ >= file.bytes_.size())
            return 0;
        const auto rest = file.bytes_.subspan(static_cast<size_t>(file.position_));
        const size_t length = std::min(rest.size(), static_cast<size_t>(count));
        std::memcpy(to, rest.data(), length);
        file.position_ += length;
        return static_cast<tmsize_t>(length);
    }

    static tmsize_t write(thandle_t, void*, tmsize_t) { return 0; }

    static toff_t seek(thandle_t handle, toff_t offset, int origin) {
        TiffFile& file = of(handle);
        const uint64_t from = origin == SEEK_CUR   ? file.position_
                              : origin == SEEK_END ? file.bytes_.size()
                                                   : 0;
        file.position_ = from + offset;
        return file.position_;
    }

    static int close(thandle_t) { return 0; }

    static toff_t size(thandle_t handle) { return of(handle).bytes_.size(); }

    /// libtiff only reads through the pointer: the file is open for reading.
    static int map(thandle_t handle, void** base, toff_t* size) {
        *base = const_cast<uint8_t*>(of(handle).bytes_.data());
        *size = of(handle).bytes_.size();
        return 1;
    }

    static void unmap(thandle_t, void*, toff_t) {}
};

namespace {

struct FreeOptions {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

} // namespace

TiffFile::TiffFile(std::span<const uint8_t> bytes, const DecodeLimits& limits) : bytes_(bytes) {
    const TiffSize size = peekTiffSize(bytes);
    checkSize(size.width, size.height, PixelFormat::Bilevel, limits);
    const std::unique_ptr<TIFFOpenOptions, FreeOptions> options(TIFFOpenOptionsAlloc());
    if (!options)
        throw std::bad_alloc();
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), TiffMessages::onError, &messages_);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), TiffMessages::onWarning, &messages_);
    constexpr uint64_t Most = std::numeric_limits<tmsize_t>::max();
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), static_cast<tmsize_t>(std::min(limits.bytes, Most)));
    // "c": strips as they are stored, not cut into smaller ones.
    tiff_.reset(TIFFClientOpenExt("page", "rc", this, TiffCallbacks::read, TiffCallbacks::write,
                                  TiffCallbacks::seek, TiffCallbacks::close, TiffCallbacks::size,
                                  TiffCallbacks::map, TiffCallbacks::unmap, options.get()));
    if (!tiff_)
        fail("The TIFF page cannot be opened");
}

void TiffFile::fail(const std::string& what) const {
    const std::string reason = messages_.text();
    throw pictureError(reason.empty() ? what + "." : what + ": " + reason);
}

uint16_t TiffFile::word(uint32_t tag, uint16_t otherwise) const {
    uint16_t value = 0;
    return TIFFGetFieldDefaulted(tiff(), tag, &value) == 1 ? value : otherwise;
}

uint32_t TiffFile::dword(uint32_t tag, uint32_t otherwise) const {
    uint32_t value = 0;
    return TIFFGetFieldDefaulted(tiff(), tag, &value) == 1 ? value : otherwise;
}

float TiffFile::real(uint32_t tag) const {
    float value = 0;
    return TIFFGetField(tiff(), tag, &value) == 1 ? value : 0.0F;
}

void TiffFile::requireBlocksInside() const {
    const bool tiled = TIFFIsTiled(tiff()) != 0;
    const uint32_t blocks = tiled ? TIFFNumberOfTiles(tiff()) : TIFFNumberOfStrips(tiff());
    const std::string kind = tiled ? "tile" : "strip";
    if (blocks == 0 || blocks > bytes_.size())
        throw pictureError("The TIFF page cannot have " + std::to_string(blocks) + " " + kind + "s in " +
                           std::to_string(bytes_.size()) + " bytes.");
    for (uint32_t block = 0; block < blocks; ++block) {
        const uint64_t offset = TIFFGetStrileOffset(tiff(), block);
        const uint64_t count = TIFFGetStrileByteCount(tiff(), block);
        if (count == 0 || count > bytes_.size() || offset > bytes_.size() - count)
            throw pictureError("The TIFF page is cut short: its " + kind + " " + std::to_string(block + 1) +
                               " of " + std::to_string(blocks) + " (" + std::to_string(count) + " bytes at " +
                               std::to_string(offset) + ") is not in the file of " +
                               std::to_string(bytes_.size()) + " bytes.");
    }
}

void TiffFile::readBlock(uint32_t block, bool tiled, std::span<uint8_t> to, uint32_t rows, uint32_t y) {
    messages_.clear();
    const auto size = static_cast<tmsize_t>(to.size());
    const tmsize_t read = tiled ? TIFFReadEncodedTile(tiff(), block, to.data(), size)
                                : TIFFReadEncodedStrip(tiff(), block, to.data(), size);
    if (read != size || !messages_.areRowsWhole(rows))
        fail("The TIFF page is damaged or cut short after row " +
             std::to_string(y + messages_.damagedRow().value_or(0)));
}

} // namespace pixmo
