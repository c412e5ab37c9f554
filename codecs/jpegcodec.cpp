#include "codecs/jpegcodec.h"

#include "codecs/codecerror.h"
#include "codecs/exif.h"
#include "codecs/jpegreader.h"
#include "codecs/newraster.h"
#include "codecs/orientation.h"
#include "codecs/pixelmath.h"
#include "codecs/resolution.h"

#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace pixmo {

namespace {

using namespace std::string_view_literals;

class JpegPicture {
public:
    JpegPicture(std::span<const uint8_t> bytes, const DecodeLimits& limits)
        : reader_(bytes, limits), limits_(limits) {}

    Raster decode() {
        chooseColours();
        raster_ = newRaster(jpeg().out_color_space == JCS_GRAYSCALE ? PixelFormat::Gray : PixelFormat::Rgb,
                            jpeg().image_width, jpeg().image_height, limits_);
        raster_.bitsPerPixel = 8 * jpeg().num_components;
        const ExifFacts exif = readExif(exifBlock());
        readResolution(exif);
        reader_.call([this] { jpeg_start_decompress(&jpeg()); });
        if (jpeg().out_color_space == JCS_CMYK)
            readInks();
        else
            readRows();
        return upright(std::move(raster_), exif.orientation);
    }

private:
    jpeg_decompress_struct& jpeg() { return reader_.jpeg(); }

    void chooseColours() {
        switch (jpeg().jpeg_color_space) {
        case JCS_GRAYSCALE:
            jpeg().out_color_space = JCS_GRAYSCALE;
            break;
        case JCS_RGB:
        case JCS_YCbCr:
            jpeg().out_color_space = JCS_RGB;
            break;
        case JCS_CMYK:
        case JCS_YCCK:
            jpeg().out_color_space = JCS_CMYK;
            break;
        default:
            throw pictureError("The JPEG picture has an unknown set of " +
                               std::to_string(jpeg().num_components) + " colours.");
        }
    }

    std::span<const uint8_t> exifBlock() {
        constexpr std::string_view Name = "Exif\0\0"sv;
        for (const jpeg_marker_struct* marker = jpeg().marker_list; marker != nullptr; marker = marker->next)
            if (marker->data_length > Name.size() && std::memcmp(marker->data, Name.data(), Name.size()) == 0)
                return std::span<const uint8_t>(marker->data, marker->data_length).subspan(Name.size());
        return {};
    }

    void readResolution(const ExifFacts& exif) {
        constexpr int PerInch = 1;
        constexpr int PerCentimetre = 2;
        const double x = jpeg().X_density;
        const double y = jpeg().Y_density;
        if (jpeg().saw_JFIF_marker != FALSE && jpeg().density_unit == PerInch)
            setResolution(raster_, x, y);
        else if (jpeg().saw_JFIF_marker != FALSE && jpeg().density_unit == PerCentimetre)
            setResolution(raster_, x * CentimetresPerInch, y * CentimetresPerInch);
        else if (exif.xResolution > 0 || exif.yResolution > 0)
            setResolution(raster_, exif.xResolution, exif.yResolution);
        else if (jpeg().saw_JFIF_marker != FALSE)
            setPixelShape(raster_, x, y);
    }

    void readRows() {
        uint8_t* const first = raster_.pixels.data();
        const size_t stride = raster_.stride;
        reader_.call([this, first, stride] {
            while (jpeg().output_scanline < jpeg().output_height) {
                JSAMPROW row = first + jpeg().output_scanline * stride;
                jpeg_read_scanlines(&jpeg(), &row, 1);
            }
        });
    }

    void readInks() {
        std::vector<uint8_t> inks(size_t{jpeg().output_width} * 4);
        JSAMPROW row = inks.data();
        for (int32_t y = 0; y < raster_.height; ++y) {
            reader_.call([this, &row] { jpeg_read_scanlines(&jpeg(), &row, 1); });
            // The writers that add this marker store how much of the paper each ink leaves bare.
            if (jpeg().saw_Adobe_marker != FALSE)
                printRow<scaleBy>(inks, raster_.row(y));
            else
                printRow<inkOnPaper>(inks, raster_.row(y));
        }
    }

    template <uint8_t (*Print)(uint32_t, uint32_t)>
    static void printRow(std::span<const uint8_t> inks, std::span<uint8_t> row) {
        uint8_t* to = row.data();
        for (size_t at = 0; at + 3 < inks.size(); at += 4)
            for (size_t ink = 0; ink < 3; ++ink)
                *to++ = Print(inks[at + ink], inks[at + 3]);
    }

    JpegReader reader_;
    const DecodeLimits& limits_;
    Raster raster_;
};

} // namespace

Raster decodeJpeg(std::span<const uint8_t> bytes, const DecodeLimits& limits) {
    return JpegPicture(bytes, limits).decode();
}

} // namespace pixmo
