#pragma once

#include "codecs/tiffmemory.h"
#include "core/imaging/pagedecoder.h"

namespace pixmo {

/// A TIFF file in memory, opened at its first page. libtiff reads the bytes where they lie.
class TiffFile {
public:
    /// Throws invalid picture.
    TiffFile(std::span<const uint8_t> bytes, const DecodeLimits& limits);
    TiffFile(const TiffFile&) = delete;
    TiffFile& operator=(const TiffFile&) = delete;

    TIFF* tiff() const { return tiff_.get(); }
    TiffMessages& messages() { return messages_; }

    /// A number tag, or its default, or `otherwise`.
    uint16_t word(uint32_t tag, uint16_t otherwise) const;
    uint32_t dword(uint32_t tag, uint32_t otherwise) const;
    float real(uint32_t tag) const;

    /// Throws invalid picture when a strip or tile lies outside the file. Costs no memory.
    void requireBlocksInside() const;

    /// Decodes a whole strip or tile of `rows` rows, the first of which is row `y` of the page.
    /// Throws invalid picture unless all of it was there.
    void readBlock(uint32_t block, bool tiled, std::span<uint8_t> to, uint32_t rows, uint32_t y);

    /// What the library complained about, as an error.
    [[noreturn]] void fail(const std::string& what) const;

private:
    std::span<const uint8_t> bytes_;
    TiffMessages messages_;
    uint64_t position_ = 0;
    TiffHandle tiff_;

    friend struct TiffCallbacks;
};

} // namespace pixmo
