#include "codecs/bmpcodec.h"

#include "codecs/bits.h"
#include "codecs/bmpheader.h"
#include "codecs/bmprunlength.h"
#include "codecs/bytereader.h"
#include "codecs/codecerror.h"
#include "codecs/newraster.h"
#include "codecs/palette.h"
#include "codecs/resolution.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>
#include <vector>

namespace pixmo {

namespace {

/// One colour of a pixel of 16 or 32 bits.
class MaskedChannel {
public:
    explicit MaskedChannel(uint32_t mask)
        : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)),
          surplus_(std::max(0, static_cast<int>(std::bit_width(mask >> shift_)) - 8)) {
        const uint32_t last = mask_ >> shift_ >> surplus_;
        for (uint32_t value = 0; last > 0 && value <= last; ++value)
            levels_[value] = static_cast<uint8_t>((value * 255 + last / 2) / last);
    }

    uint8_t of(uint32_t pixel) const { return levels_[(pixel & mask_) >> shift_ >> surplus_]; }

private:
    uint32_t mask_;
    int shift_;
    int surplus_;
    std::array<uint8_t, 256> levels_{};
};

class BmpPicture {
public:
    BmpPicture(std::span<const uint8_t> bytes, const DecodeLimits& limits)
        : header_(readBmpHeader(bytes)), data_(bytes.subspan(header_.pixelOffset)), limits_(limits) {}

    Raster decode() {
        const PixelFormat format = header_.bits <= 8 ? palette().format() : PixelFormat::Rgb;
        checkSize(header_.width, header_.height, format, limits_);
        if (header_.coding == BmpHeader::Coding::Plain)
            requireAllRows();
        raster_ = newRaster(format, header_.width, header_.height, limits_);
        raster_.bitsPerPixel = header_.bits;
        setResolution(raster_, header_.xDotsPerMetre * MetresPerInch, header_.yDotsPerMetre * MetresPerInch);
        if (header_.coding != BmpHeader::Coding::Plain)
            decodeRuns();
        else if (header_.bits <= 8)
            decodeIndices();
        else
            decodeColours();
        return std::move(raster_);
    }

private:
    Palette palette() const { return {header_.colours, header_.bits}; }
    /// Once the limits allow the picture, its sides fit into the memory's own measure.
    size_t width() const { return static_cast<size_t>(header_.width); }
    size_t height() const { return static_cast<size_t>(header_.height); }
    size_t rowSize() const {
        return static_cast<size_t>((header_.width * static_cast<uint64_t>(header_.bits) + 7) / 8);
    }
    size_t storedStride() const { return (rowSize() + 3) / 4 * 4; }

    void requireAllRows() const {
        // Some writers leave out the padding of the last row.
        const size_t present =
            data_.size() / storedStride() + (data_.size() % storedStride() >= rowSize() ? 1 : 0);
        if (present < header_.height)
            throw pictureError("The BMP picture is cut short after row " + std::to_string(present) + " of " +
                               std::to_string(header_.height) + ".");
    }

    std::span<uint8_t> target(size_t storedRow) {
        const auto y = static_cast<int32_t>(storedRow);
        return raster_.row(header_.topDown ? y : raster_.height - 1 - y);
    }

    void decodeRuns() {
        checkWorkingMemory(header_.width * header_.height, "its run lengths", limits_);
        std::vector<uint8_t> indices(width() * height());
        decodeRunLengths(data_, header_.bits, width(), indices);
        const Palette colours = palette();
        for (size_t y = 0; y < height(); ++y)
            colours.write(std::span(indices).subspan(y * width(), width()), target(y), 0);
    }

    void decodeIndices() {
        const Palette colours = palette();
        colours.dress(raster_);
        std::vector<uint8_t> indices(width());
        for (size_t y = 0; y < height(); ++y) {
            const uint8_t* const stored = data_.data() + y * storedStride();
            if (header_.bits == 1) {
                copyBits(stored, width(), target(y).data(), 0, colours.inverted());
            } else {
                unpackSamples(stored, header_.bits, indices);
                colours.write(indices, target(y), 0);
            }
        }
    }

    void decodeColours() {
        const std::array channels = {MaskedChannel(header_.masks[0]), MaskedChannel(header_.masks[1]),
                                     MaskedChannel(header_.masks[2])};
        const ByteReader stored(data_);
        for (size_t y = 0; y < height(); ++y) {
            size_t at = y * storedStride();
            uint8_t* pixel = target(y).data();
            for (size_t x = 0; x < width(); ++x) {
                if (header_.bits == 24) {
                    for (size_t channel = 3; channel-- > 0;)
                        *pixel++ = data_[at + channel];
                    at += 3;
                    continue;
                }
                const uint32_t value = header_.bits == 16 ? stored.word(at) : stored.dword(at);
                for (const MaskedChannel& channel : channels)
                    *pixel++ = channel.of(value);
                at += header_.bits == 16 ? 2 : 4;
            }
        }
    }

    BmpHeader header_;
    std::span<const uint8_t> data_;
    const DecodeLimits& limits_;
    Raster raster_;
};

} // namespace

Raster decodeBmp(std::span<const uint8_t> bytes, const DecodeLimits& limits) {
    return BmpPicture(bytes, limits).decode();
}

} // namespace pixmo
