#include "codecs/pngcodec.h"

#include "codecs/bits.h"
#include "codecs/codecerror.h"
#include "codecs/newraster.h"
#include "codecs/palette.h"
#include "codecs/pixelmath.h"
#include "codecs/pngreader.h"
#include "codecs/resolution.h"

#include <optional>
#include <utility>
#include <vector>

namespace pixmo {

namespace {

/// One row of gray or colour with alpha, 8 bits a sample, on white.
void blendRow(const uint8_t* stored, size_t colours, std::span<uint8_t> row, size_t width) {
    uint8_t* to = row.data();
    for (size_t x = 0; x < width; ++x) {
        const uint8_t alpha = stored[colours];
        for (size_t i = 0; i < colours; ++i)
            *to++ = onWhite(*stored++, alpha);
        ++stored;
    }
}

class PngPicture {
public:
    PngPicture(std::span<const uint8_t> bytes, const DecodeLimits& limits) : reader_(bytes), limits_(limits) {
        reader_.call([this] {
            int colourType = 0;
            int interlace = 0;
            png_get_IHDR(png(), info(), &width_, &height_, &depth_, &colourType, &interlace, nullptr,
                         nullptr);
            colourType_ = colourType;
            interlaced_ = interlace != PNG_INTERLACE_NONE;
            storedChannels_ = png_get_channels(png(), info());
        });
    }

    Raster decode() {
        checkSize(width_, height_, PixelFormat::Bilevel, limits_);
        if (isIndexed())
            palette_ = readPalette();
        prepareRows();
        const PixelFormat format = palette_        ? palette_->format()
                                   : channels_ < 3 ? PixelFormat::Gray
                                                   : PixelFormat::Rgb;
        raster_ = newRaster(format, width_, height_, limits_);
        raster_.bitsPerPixel = depth_ * storedChannels_;
        if (palette_)
            palette_->dress(raster_);
        readResolution();
        readRows();
        return std::move(raster_);
    }

private:
    png_structp png() const { return reader_.png(); }
    png_infop info() const { return reader_.info(); }

    bool isIndexed() const {
        return colourType_ == PNG_COLOR_TYPE_PALETTE || (colourType_ == PNG_COLOR_TYPE_GRAY && depth_ <= 8);
    }

    Palette readPalette() {
        png_bytep alphas = nullptr;
        png_color_16p transparent = nullptr;
        int alphaCount = 0;
        png_colorp colours = nullptr;
        int colourCount = 0;
        reader_.call([&] {
            png_get_tRNS(png(), info(), &alphas, &alphaCount, &transparent);
            png_get_PLTE(png(), info(), &colours, &colourCount);
        });
        if (colourType_ == PNG_COLOR_TYPE_GRAY)
            return grayPalette(alphaCount > 0 ? transparent : nullptr);
        std::vector<uint32_t> table;
        for (int i = 0; i < colourCount; ++i) {
            const uint8_t alpha = i < alphaCount && alphas != nullptr ? alphas[i] : uint8_t{255};
            table.push_back(packRgb(onWhite(colours[i].red, alpha), onWhite(colours[i].green, alpha),
                                    onWhite(colours[i].blue, alpha)));
        }
        return {table, depth_};
    }

    Palette grayPalette(const png_color_16* transparent) const {
        if (transparent == nullptr)
            return Palette::gray(depth_);
        std::vector<uint32_t> table;
        const uint32_t last = (1U << depth_) - 1;
        for (uint32_t index = 0; index <= last; ++index)
            table.push_back(index == transparent->gray ? 0xFFFFFFU : index * 255 / last * 0x010101U);
        return {table, depth_};
    }

    void prepareRows() {
        reader_.call([this] {
            if (!palette_) {
                png_set_scale_16(png());
                if (png_get_valid(png(), info(), PNG_INFO_tRNS) != 0)
                    png_set_tRNS_to_alpha(png());
            }
            passes_ = png_set_interlace_handling(png());
            png_read_update_info(png(), info());
            channels_ = png_get_channels(png(), info());
            rowSize_ = png_get_rowbytes(png(), info());
        });
    }

    void readResolution() {
        png_uint_32 x = 0;
        png_uint_32 y = 0;
        int unit = PNG_RESOLUTION_UNKNOWN;
        bool given = false;
        reader_.call([&] { given = png_get_pHYs(png(), info(), &x, &y, &unit) != 0; });
        if (given && unit == PNG_RESOLUTION_METER)
            setResolution(raster_, x * MetresPerInch, y * MetresPerInch);
        else if (given)
            setPixelShape(raster_, x, y);
    }

    /// The rows come in the form that the raster has.
    bool isDirect() const {
        if (palette_)
            return palette_->format() == PixelFormat::Bilevel || palette_->isIdentity();
        return channels_ == 1 || channels_ == 3;
    }

    void readRows() {
        std::vector<uint8_t> stored;
        size_t stride = 0;
        if (!isDirect()) {
            stride = interlaced_ ? rowSize_ : 0;
            checkWorkingMemory(uint64_t{stride} * height_, "its interlaced rows", limits_);
            stored.resize(interlaced_ ? rowSize_ * height_ : rowSize_);
        }
        for (int pass = 0; pass < passes_; ++pass)
            for (uint32_t y = 0; y < height_; ++y) {
                uint8_t* const row = isDirect() ? target(y).data() : stored.data() + y * stride;
                reader_.call([this, row] { png_read_row(png(), row, nullptr); });
                if (pass == passes_ - 1)
                    convertRow(row, target(y));
            }
        reader_.call([this] { png_read_end(png(), nullptr); });
    }

    std::span<uint8_t> target(uint32_t y) { return raster_.row(static_cast<int32_t>(y)); }

    void convertRow(const uint8_t* stored, std::span<uint8_t> row) {
        if (palette_ && palette_->format() == PixelFormat::Bilevel) {
            copyBits(stored, width_, row.data(), 0, palette_->inverted());
        } else if (palette_ && !palette_->isIdentity()) {
            indices_.resize(width_);
            unpackSamples(stored, depth_, indices_);
            palette_->write(indices_, row, 0);
        } else if (channels_ == 2 || channels_ == 4) {
            blendRow(stored, static_cast<size_t>(channels_) - 1, row, width_);
        }
    }

    PngReader reader_;
    const DecodeLimits& limits_;
    png_uint_32 width_ = 0;
    png_uint_32 height_ = 0;
    int depth_ = 0;
    int colourType_ = 0;
    bool interlaced_ = false;
    int32_t storedChannels_ = 0;
    int32_t channels_ = 0; ///< of a row as libpng hands it over
    int passes_ = 1;
    size_t rowSize_ = 0; ///< bytes of such a row
    std::optional<Palette> palette_;
    std::vector<uint8_t> indices_;
    Raster raster_;
};

} // namespace

Raster decodePng(std::span<const uint8_t> bytes, const DecodeLimits& limits) {
    return PngPicture(bytes, limits).decode();
}

} // namespace pixmo
