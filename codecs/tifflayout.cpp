#include "codecs/tifflayout.h"

#include "codecs/codecerror.h"
#include "codecs/newraster.h"
#include "codecs/tifffile.h"

#include <algorithm>

namespace pixmo {

namespace {

/// No page needs a block that outgrows it by more than the rounding of its sides.
constexpr uint64_t LargestUselessBlock = 16'000'000;

/// Four inks and what a page may carry beside them. A header of a few bytes can name 65,535 samples, each of
/// which costs time.
constexpr uint16_t MostSamples = 16;

void requireKnownCompression(uint16_t compression) {
    if (TIFFIsCODECConfigured(compression) == 0)
        throw pictureError("The TIFF page has an unknown compression: " + std::to_string(compression) + ".");
}

void requireUnsignedSamples(const TiffFile& file, const TiffLayout& layout) {
    const uint16_t format = file.word(TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
    if (format != SAMPLEFORMAT_UINT && format != SAMPLEFORMAT_VOID &&
        layout.colours != TiffLayout::Colours::Other)
        throw pictureError("The TIFF page has samples of an unsupported kind: " + std::to_string(format) +
                           ".");
    if (file.dword(TIFFTAG_IMAGEDEPTH, 1) > 1)
        throw pictureError("The TIFF page is a volume.");
}

bool isKnownDepth(uint16_t bits) {
    return (bits >= 1 && bits <= 16) || bits == 32;
}

TiffLayout::Colours coloursOf(const TiffFile& file, const TiffLayout& layout) {
    using Colours = TiffLayout::Colours;
    if (!isKnownDepth(layout.bits) || layout.compression == COMPRESSION_OJPEG)
        return Colours::Other;
    switch (layout.photometric) {
    case PHOTOMETRIC_MINISWHITE:
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_MASK:
        return Colours::Indices;
    case PHOTOMETRIC_PALETTE:
        return layout.bits <= 8 ? Colours::Indices : Colours::Other;
    case PHOTOMETRIC_RGB:
        return layout.samples >= 3 ? Colours::Rgb : Colours::Other;
    case PHOTOMETRIC_YCBCR:
        return layout.compression == COMPRESSION_JPEG && layout.samples == 3 && !layout.separate
                   ? Colours::Rgb
                   : Colours::Other;
    case PHOTOMETRIC_SEPARATED:
        return layout.samples >= 4 && file.word(TIFFTAG_INKSET, INKSET_CMYK) == INKSET_CMYK ? Colours::Inks
                                                                                            : Colours::Other;
    default:
        return Colours::Other;
    }
}

TiffLayout::Alpha alphaOf(const TiffFile& file, const TiffLayout& layout) {
    const uint16_t colours = layout.colours == TiffLayout::Colours::Rgb ? 3 : 1;
    uint16_t count = 0;
    const uint16_t* kinds = nullptr;
    if (layout.colours == TiffLayout::Colours::Inks || layout.samples <= colours ||
        TIFFGetFieldDefaulted(file.tiff(), TIFFTAG_EXTRASAMPLES, &count, &kinds) != 1 || count == 0)
        return TiffLayout::Alpha::None;
    if (kinds[0] == EXTRASAMPLE_ASSOCALPHA)
        return TiffLayout::Alpha::Premultiplied;
    return kinds[0] == EXTRASAMPLE_UNASSALPHA ? TiffLayout::Alpha::Straight : TiffLayout::Alpha::None;
}

void readBlocks(const TiffFile& file, TiffLayout& layout, const DecodeLimits& limits) {
    layout.tiled = TIFFIsTiled(file.tiff()) != 0;
    layout.blockWidth = layout.tiled ? file.dword(TIFFTAG_TILEWIDTH, 0) : layout.width;
    layout.blockHeight = layout.tiled
                             ? file.dword(TIFFTAG_TILELENGTH, 0)
                             : std::min(file.dword(TIFFTAG_ROWSPERSTRIP, layout.height), layout.height);
    if (layout.blockWidth == 0 || layout.blockHeight == 0)
        throw pictureError("The TIFF page has strips or tiles without pixels.");
    const uint64_t rowBytes = layout.tiled ? TIFFTileRowSize64(file.tiff()) : TIFFScanlineSize64(file.tiff());
    const uint64_t samples = layout.separate ? 1 : layout.samples;
    if (layout.colours != TiffLayout::Colours::Other &&
        rowBytes < (layout.blockWidth * samples * layout.bits + 7) / 8)
        file.fail("The TIFF page has rows of an impossible size");
    if (rowBytes > limits.bytes / layout.blockHeight / layout.planes())
        throw pictureError("The TIFF page has strips or tiles above the limit of " +
                           std::to_string(limits.bytes) + " bytes.");
    layout.blockRowBytes = static_cast<size_t>(rowBytes);
    const uint64_t pixels = uint64_t{layout.blockWidth} * layout.blockHeight;
    if (layout.tiled && pixels > LargestUselessBlock && pixels / 4 > uint64_t{layout.width} * layout.height)
        throw pictureError("The TIFF page has tiles of " + std::to_string(layout.blockWidth) + " x " +
                           std::to_string(layout.blockHeight) + " pixels, far larger than itself.");
}

} // namespace

TiffLayout readTiffLayout(TiffFile& file, const DecodeLimits& limits) {
    TiffLayout layout;
    layout.width = file.dword(TIFFTAG_IMAGEWIDTH, 0);
    layout.height = file.dword(TIFFTAG_IMAGELENGTH, 0);
    checkSize(layout.width, layout.height, PixelFormat::Bilevel, limits);
    layout.bits = file.word(TIFFTAG_BITSPERSAMPLE, 1);
    layout.samples = std::max<uint16_t>(1, file.word(TIFFTAG_SAMPLESPERPIXEL, 1));
    if (layout.samples > MostSamples)
        throw pictureError("The TIFF page has " + std::to_string(layout.samples) + " samples a pixel.");
    layout.compression = file.word(TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    requireKnownCompression(layout.compression);
    layout.photometric =
        file.word(TIFFTAG_PHOTOMETRIC, layout.samples >= 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISWHITE);
    layout.orientation = file.word(TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    layout.separate =
        file.word(TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) == PLANARCONFIG_SEPARATE && layout.samples > 1;
    layout.colours = coloursOf(file, layout);
    layout.alpha = alphaOf(file, layout);
    requireUnsignedSamples(file, layout);
    if (layout.photometric == PHOTOMETRIC_YCBCR && layout.compression == COMPRESSION_JPEG)
        TIFFSetField(file.tiff(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    // The library's other decoder invents the bits that a strip cut short lacks, and calls the result good.
    if (layout.compression == COMPRESSION_DEFLATE || layout.compression == COMPRESSION_ADOBE_DEFLATE)
        TIFFSetField(file.tiff(), TIFFTAG_DEFLATE_SUBCODEC, DEFLATE_SUBCODEC_ZLIB);
    readBlocks(file, layout, limits);
    return layout;
}

} // namespace pixmo
