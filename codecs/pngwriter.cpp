#include "codecs/pngwriter.h"

#include "codecs/codecerror.h"
#include "codecs/jumpguard.h"

#include <png.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <string>

namespace pixmo {

namespace {

constexpr double InchesPerMetre = 1 / 0.0254;

png_color pngColour(uint32_t rgb) {
    return {static_cast<png_byte>(rgb >> 16 & 255), static_cast<png_byte>(rgb >> 8 & 255),
            static_cast<png_byte>(rgb & 255)};
}

png_uint_32 dotsPerMetre(double dotsPerInch) {
    return static_cast<png_uint_32>(std::lround(dotsPerInch * InchesPerMetre));
}

/// libpng's writing side into memory. What runs under the guard owns nothing.
class PngWriter {
public:
    explicit PngWriter(const Raster& page) : page_(page) {
        png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, this, onError, onWarning);
        if (png_ == nullptr)
            throw std::bad_alloc();
    }
    ~PngWriter() { png_destroy_write_struct(&png_, &info_); }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    std::vector<uint8_t> encode() {
        const bool done = guard_.run([this] {
            info_ = png_create_info_struct(png_);
            png_set_write_fn(png_, this, onWrite, onFlush);
            png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
            writeHeader();
            writeRows();
            png_write_end(png_, nullptr);
        });
        if (outOfMemory_)
            throw std::bad_alloc();
        if (!done)
            throw pictureError(std::string("The page cannot be written as PNG: ") + problem_.data() + ".");
        return std::move(bytes_);
    }

private:
    static void onWarning(png_structp, png_const_charp) {}
    static void onFlush(png_structp) {}

    static void onError(png_structp png, png_const_charp text) {
        auto& writer = *static_cast<PngWriter*>(png_get_error_ptr(png));
        std::strncpy(writer.problem_.data(), text, writer.problem_.size() - 1);
        writer.guard_.leave();
    }

    // No exception passes through libpng, which is C.
    static void onWrite(png_structp png, png_bytep from, size_t count) {
        auto& writer = *static_cast<PngWriter*>(png_get_io_ptr(png));
        try {
            writer.bytes_.insert(writer.bytes_.end(), from, from + count);
        } catch (const std::bad_alloc&) {
            writer.outOfMemory_ = true;
        }
        if (writer.outOfMemory_)
            writer.guard_.leave();
    }

    bool isBlackAndWhite() const {
        const auto& [paper, ink] = page_.bilevelColours;
        return (paper == 0xFFFFFF && ink == 0) || (paper == 0 && ink == 0xFFFFFF);
    }

    int colourType() const {
        if (page_.format == PixelFormat::Rgb)
            return PNG_COLOR_TYPE_RGB;
        if (page_.format == PixelFormat::Bilevel && !isBlackAndWhite())
            return PNG_COLOR_TYPE_PALETTE;
        return PNG_COLOR_TYPE_GRAY;
    }

    void writeHeader() {
        const int type = colourType();
        png_set_IHDR(png_, info_, static_cast<png_uint_32>(page_.width),
                     static_cast<png_uint_32>(page_.height), page_.format == PixelFormat::Bilevel ? 1 : 8,
                     type, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (type == PNG_COLOR_TYPE_PALETTE) {
            const std::array<png_color, 2> colours = {pngColour(page_.bilevelColours[0]),
                                                      pngColour(page_.bilevelColours[1])};
            png_set_PLTE(png_, info_, colours.data(), 2);
        }
        png_set_pHYs(png_, info_, dotsPerMetre(page_.xResolution), dotsPerMetre(page_.yResolution),
                     PNG_RESOLUTION_METER);
        png_write_info(png_, info_);
        // A gray 0 is black.
        if (type == PNG_COLOR_TYPE_GRAY && page_.format == PixelFormat::Bilevel &&
            page_.bilevelColours[1] == 0)
            png_set_invert_mono(png_);
    }

    void writeRows() {
        for (int32_t y = 0; y < page_.height; ++y)
            png_write_row(png_, page_.row(y).data());
    }

    const Raster& page_;
    std::vector<uint8_t> bytes_;
    bool outOfMemory_ = false;
    JumpGuard guard_;
    std::array<char, 200> problem_{};
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
};

} // namespace

std::vector<uint8_t> encodePng(const Raster& page) {
    if (page.empty())
        throw pictureError("There is no page to write.");
    return PngWriter(page).encode();
}

} // namespace pixmo
