#include "codecs/tiffcodec.h"

#include "codecs/newraster.h"
#include "codecs/orientation.h"
#include "codecs/resolution.h"
#include "codecs/tifffile.h"
#include "codecs/tiffpixels.h"
#include "codecs/tiffrgba.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace pixmo {

namespace {

void readResolution(const TiffFile& file, Raster& raster) {
    const double x = file.real(TIFFTAG_XRESOLUTION);
    const double y = file.real(TIFFTAG_YRESOLUTION);
    switch (file.word(TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH)) {
    case RESUNIT_NONE:
        setPixelShape(raster, x, y);
        break;
    case RESUNIT_CENTIMETER:
        setResolution(raster, x * CentimetresPerInch, y * CentimetresPerInch);
        break;
    default:
        setResolution(raster, x, y);
    }
}

class TiffPage {
public:
    TiffPage(std::span<const uint8_t> bytes, const DecodeLimits& limits)
        : file_(bytes, limits), layout_(readTiffLayout(file_, limits)), limits_(limits) {}

    Raster decode() {
        // Old-style JPEG data need not lie in strips at all.
        if (layout_.compression != COMPRESSION_OJPEG)
            file_.requireBlocksInside();
        Raster raster = layout_.colours == TiffLayout::Colours::Other
                            ? decodeTiffRgba(file_, layout_, limits_)
                            : decodeSamples();
        raster.bitsPerPixel = layout_.bits * layout_.samples;
        readResolution(file_, raster);
        return upright(std::move(raster), layout_.orientation);
    }

private:
    Raster decodeSamples() {
        TiffPixels pixels(file_, layout_);
        Raster raster = newRaster(pixels.format(), layout_.width, layout_.height, limits_);
        pixels.dress(raster);
        if (pixels.isDirect())
            readStrips(pixels, raster);
        else
            readBlocks(pixels, raster);
        return raster;
    }

    /// A tile always has all its rows, the last strip only those of the page.
    uint32_t rowsOfBlock(uint32_t y) const {
        return layout_.tiled ? layout_.blockHeight : std::min(layout_.blockHeight, layout_.height - y);
    }

    /// Strips lie one after the other in the raster itself.
    void readStrips(const TiffPixels& pixels, Raster& raster) {
        uint32_t strip = 0;
        for (uint32_t y = 0; y < layout_.height; y += layout_.blockHeight, ++strip) {
            const uint32_t rows = rowsOfBlock(y);
            const auto at = std::span(raster.pixels).subspan(y * raster.stride, layout_.blockRowBytes * rows);
            file_.readBlock(strip, false, at, rows, y);
            pixels.settle(raster, y, rows);
            if (layout_.height - y <= layout_.blockHeight)
                break;
        }
    }

    void readBlocks(TiffPixels& pixels, Raster& raster) {
        const size_t blockSize = layout_.blockRowBytes * layout_.blockHeight;
        std::vector<uint8_t> blocks(blockSize * layout_.planes());
        const uint32_t blocksOfPlane = layout_.blocksAcross() * layout_.blocksDown();
        for (uint32_t down = 0; down < layout_.blocksDown(); ++down)
            for (uint32_t across = 0; across < layout_.blocksAcross(); ++across) {
                const uint32_t y = down * layout_.blockHeight;
                const size_t size = layout_.blockRowBytes * rowsOfBlock(y);
                for (uint32_t plane = 0; plane < layout_.planes(); ++plane)
                    file_.readBlock(plane * blocksOfPlane + down * layout_.blocksAcross() + across,
                                    layout_.tiled, std::span(blocks).subspan(plane * blockSize, size),
                                    rowsOfBlock(y), y);
                writeBlock(blocks, across * layout_.blockWidth, y, pixels, raster);
            }
    }

    void writeBlock(const std::vector<uint8_t>& blocks, uint32_t x, uint32_t y, TiffPixels& pixels,
                    Raster& raster) const {
        const size_t blockSize = layout_.blockRowBytes * layout_.blockHeight;
        const uint32_t rows = std::min(layout_.blockHeight, layout_.height - y);
        const uint32_t columns = std::min(layout_.blockWidth, layout_.width - x);
        std::vector<const uint8_t*> planes(layout_.planes());
        for (uint32_t row = 0; row < rows; ++row) {
            for (size_t plane = 0; plane < planes.size(); ++plane)
                planes[plane] = blocks.data() + plane * blockSize + row * layout_.blockRowBytes;
            pixels.write(planes, columns, raster, x, y + row);
        }
    }

    TiffFile file_;
    TiffLayout layout_;
    const DecodeLimits& limits_;
};

} // namespace

Raster decodeTiff(std::span<const uint8_t> bytes, const DecodeLimits& limits) {
    return TiffPage(bytes, limits).decode();
}

} // namespace pixmo
