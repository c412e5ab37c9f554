#include "tests/codecs/samplegif.h"

#include "tests/codecs/pattern.h"

#include <array>

#include <gif_lib.h>

namespace pixmo {

namespace {

int append(GifFileType* gif, const GifByteType* from, int count) {
    auto& bytes = *static_cast<std::vector<uint8_t>*>(gif->UserData);
    bytes.insert(bytes.end(), from, from + count);
    return count;
}

void putFrame(GifFileType* gif, const GifSpec& spec, ColorMapObject* colours, bool blank) {
    if (spec.transparent >= 0) {
        GraphicsControlBlock control{};
        control.TransparentColor = spec.transparent;
        std::array<GifByteType, 4> block{};
        EGifGCBToExtension(&control, block.data());
        EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, 4, block.data());
    }
    EGifPutImageDesc(gif, spec.left, spec.top, spec.width, spec.height, spec.interlaced,
                     spec.localColours ? colours : nullptr);
    struct Pass {
        int first;
        int step;
    };
    const std::vector<Pass> passes =
        spec.interlaced ? std::vector<Pass>{{0, 8}, {4, 8}, {2, 4}, {1, 2}} : std::vector<Pass>{{0, 1}};
    for (const Pass& pass : passes)
        for (int y = pass.first; y < spec.height; y += pass.step) {
            std::vector<GifPixelType> row;
            for (int x = 0; x < spec.width; ++x)
                row.push_back(blank ? GifPixelType{0}
                                    : static_cast<GifPixelType>(patternSample(
                                          static_cast<uint32_t>(x), static_cast<uint32_t>(y), 0, spec.bits)));
            EGifPutLine(gif, row.data(), spec.width);
        }
}

} // namespace

uint32_t gifColour(uint32_t index) {
    return (index * 0x0D2F13U + 0x1E0A3CU) & 0xFFFFFFU;
}

std::vector<uint8_t> makeGif(const GifSpec& spec) {
    std::vector<uint8_t> bytes;
    int problem = 0;
    GifFileType* const gif = EGifOpen(&bytes, append, &problem);
    EGifSetGifVersion(gif, true);
    std::array<GifColorType, 256> table{};
    for (uint32_t index = 0; index < table.size(); ++index)
        table[index] = {static_cast<GifByteType>(gifColour(index) >> 16),
                        static_cast<GifByteType>(gifColour(index) >> 8),
                        static_cast<GifByteType>(gifColour(index))};
    ColorMapObject* const colours = GifMakeMapObject(1 << spec.bits, table.data());
    EGifPutScreenDesc(gif, spec.screenWidth, spec.screenHeight, static_cast<int>(spec.bits), 0,
                      spec.localColours ? nullptr : colours);
    for (int frame = 0; frame < spec.frames; ++frame)
        putFrame(gif, spec, colours, frame > 0);
    GifFreeMapObject(colours);
    EGifCloseFile(gif, &problem);
    return bytes;
}

} // namespace pixmo
