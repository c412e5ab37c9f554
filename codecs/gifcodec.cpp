#include "codecs/gifcodec.h"

#include "codecs/codecerror.h"
#include "codecs/newraster.h"
#include "codecs/palette.h"
#include "codecs/pixelmath.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pixmo {

namespace {

struct CloseGif {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

int readBytes(GifFileType* gif, GifByteType* to, int count) {
    auto& rest = *static_cast<std::span<const uint8_t>*>(gif->UserData);
    const size_t length = std::min(rest.size(), static_cast<size_t>(count));
    if (length > 0)
        std::memcpy(to, rest.data(), length);
    rest = rest.subspan(length);
    return static_cast<int>(length);
}

/// The order in which the rows of an interlaced frame follow each other.
std::vector<int32_t> rowOrder(int32_t height, bool interlaced) {
    struct Pass {
        int32_t first;
        int32_t step;
    };
    constexpr std::array Interlaced = {Pass{0, 8}, Pass{4, 8}, Pass{2, 4}, Pass{1, 2}};
    constexpr std::array Plain = {Pass{0, 1}};
    std::vector<int32_t> order;
    order.reserve(static_cast<size_t>(height));
    for (const Pass& pass : interlaced ? std::span<const Pass>(Interlaced) : std::span<const Pass>(Plain))
        for (int32_t y = pass.first; y < height; y += pass.step)
            order.push_back(y);
    return order;
}

class GifPicture {
public:
    GifPicture(std::span<const uint8_t> bytes, const DecodeLimits& limits) : rest_(bytes), limits_(limits) {
        int problem = 0;
        gif_.reset(DGifOpen(&rest_, readBytes, &problem));
        if (!gif_)
            fail(problem);
    }

    Raster decode() {
        findFirstFrame();
        const GifImageDesc& frame = gif_->Image;
        // A frame may reach over the screen it was made for; all of it is shown.
        const int32_t width = std::max(gif_->SWidth, frame.Left + frame.Width);
        const int32_t height = std::max(gif_->SHeight, frame.Top + frame.Height);
        if (frame.Width == 0 || frame.Height == 0)
            throw pictureError("The first frame of the GIF picture has no pixels.");
        Palette palette = framePalette();
        if (frame.Width != width || frame.Height != height)
            palette.avoidBilevel();
        Raster raster =
            newRaster(palette.format(), static_cast<uint64_t>(width), static_cast<uint64_t>(height), limits_);
        raster.bitsPerPixel = bits_;
        palette.dress(raster);
        if (palette.format() != PixelFormat::Bilevel)
            std::fill(raster.pixels.begin(), raster.pixels.end(), uint8_t{255});
        readRows(frame, palette, raster);
        return raster;
    }

private:
    [[noreturn]] static void fail(int problem) {
        const char* const text = GifErrorString(problem);
        throw pictureError(std::string("The GIF picture cannot be read: ") +
                           (text != nullptr ? text : "its data are damaged") + ".");
    }

    void check(int status) const {
        if (status == GIF_ERROR)
            fail(gif_->Error);
    }

    void findFirstFrame() {
        for (;;) {
            GifRecordType record = UNDEFINED_RECORD_TYPE;
            check(DGifGetRecordType(gif_.get(), &record));
            if (record == IMAGE_DESC_RECORD_TYPE)
                break;
            if (record == TERMINATE_RECORD_TYPE)
                throw pictureError("The GIF picture has no frame.");
            if (record == EXTENSION_RECORD_TYPE)
                readExtension();
        }
        check(DGifGetImageDesc(gif_.get()));
    }

    void readExtension() {
        int kind = 0;
        GifByteType* block = nullptr;
        check(DGifGetExtension(gif_.get(), &kind, &block));
        while (block != nullptr) {
            GraphicsControlBlock control{};
            if (kind == GRAPHICS_EXT_FUNC_CODE &&
                DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK &&
                control.TransparentColor != NO_TRANSPARENT_COLOR)
                transparent_ = static_cast<size_t>(control.TransparentColor);
            check(DGifGetExtensionNext(gif_.get(), &block));
        }
    }

    Palette framePalette() {
        const ColorMapObject* const map =
            gif_->Image.ColorMap != nullptr ? gif_->Image.ColorMap : gif_->SColorMap;
        if (map == nullptr || map->ColorCount < 2)
            throw pictureError("The GIF picture has no colours.");
        std::vector<uint32_t> colours;
        for (const GifColorType& colour : std::span(map->Colors, static_cast<size_t>(map->ColorCount)))
            colours.push_back(packRgb(colour.Red, colour.Green, colour.Blue));
        bits_ = static_cast<int32_t>(std::bit_width(static_cast<unsigned>(map->ColorCount - 1)));
        if (transparent_ && *transparent_ < colours.size())
            colours[*transparent_] = 0xFFFFFF;
        return {colours, bits_};
    }

    void readRows(const GifImageDesc& frame, const Palette& palette, Raster& raster) {
        std::vector<uint8_t> indices(static_cast<size_t>(frame.Width));
        int32_t done = 0;
        for (const int32_t y : rowOrder(frame.Height, frame.Interlace)) {
            if (DGifGetLine(gif_.get(), indices.data(), frame.Width) == GIF_ERROR)
                throw pictureError("The GIF picture is damaged or cut short after " + std::to_string(done) +
                                   " of " + std::to_string(frame.Height) + " rows.");
            palette.write(indices, raster.row(frame.Top + y), static_cast<size_t>(frame.Left));
            ++done;
        }
    }

    std::span<const uint8_t> rest_;
    const DecodeLimits& limits_;
    std::unique_ptr<GifFileType, CloseGif> gif_;
    std::optional<size_t> transparent_;
    int32_t bits_ = 8;
};

} // namespace

Raster decodeGif(std::span<const uint8_t> bytes, const DecodeLimits& limits) {
    return GifPicture(bytes, limits).decode();
}

} // namespace pixmo
