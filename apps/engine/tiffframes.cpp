#include "apps/engine/tiffframes.h"

#include "codecs/tiffmemory.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <tiffio.h>

namespace pixmo {

namespace {

/// Damaged files are no news here: whoever asked hears of it by the result.
int stayQuiet(TIFF*, void*, const char*, const char*, va_list) {
    return 1;
}

struct OptionsFreer {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

std::unique_ptr<TIFFOpenOptions, OptionsFreer> quietOptions() {
    std::unique_ptr<TIFFOpenOptions, OptionsFreer> options(TIFFOpenOptionsAlloc());
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), stayQuiet, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), stayQuiet, nullptr);
    return options;
}

TiffHandle openTiff(const std::filesystem::path& file) {
    return TiffHandle(TIFFOpenExt(file.c_str(), "rm", quietOptions().get()));
}

constexpr std::array<uint32_t, 18> ShortTags = {
    TIFFTAG_BITSPERSAMPLE,  TIFFTAG_SAMPLESPERPIXEL, TIFFTAG_PHOTOMETRIC,    TIFFTAG_PLANARCONFIG,
    TIFFTAG_FILLORDER,      TIFFTAG_ORIENTATION,     TIFFTAG_RESOLUTIONUNIT, TIFFTAG_THRESHHOLDING,
    TIFFTAG_MINSAMPLEVALUE, TIFFTAG_MAXSAMPLEVALUE,  TIFFTAG_SAMPLEFORMAT,   TIFFTAG_YCBCRPOSITIONING,
    TIFFTAG_INKSET,         TIFFTAG_PREDICTOR,       TIFFTAG_CELLWIDTH,      TIFFTAG_CELLLENGTH,
    TIFFTAG_CLEANFAXDATA,   TIFFTAG_NUMBEROFINKS};
constexpr std::array<uint32_t, 7> LongTags = {
    TIFFTAG_SUBFILETYPE,   TIFFTAG_IMAGEWIDTH,    TIFFTAG_IMAGELENGTH, TIFFTAG_ROWSPERSTRIP,
    TIFFTAG_GROUP3OPTIONS, TIFFTAG_GROUP4OPTIONS, TIFFTAG_BADFAXLINES};
constexpr std::array<uint32_t, 2> TileTags = {TIFFTAG_TILEWIDTH, TIFFTAG_TILELENGTH};
constexpr std::array<uint32_t, 2> FloatTags = {TIFFTAG_XRESOLUTION, TIFFTAG_YRESOLUTION};
constexpr std::array<uint32_t, 7> TextTags = {
    TIFFTAG_DOCUMENTNAME, TIFFTAG_IMAGEDESCRIPTION, TIFFTAG_SOFTWARE, TIFFTAG_DATETIME,
    TIFFTAG_ARTIST,       TIFFTAG_PAGENAME,         TIFFTAG_COPYRIGHT};
constexpr std::array<uint32_t, 2> BytesTags = {TIFFTAG_JPEGTABLES, TIFFTAG_ICCPROFILE};
constexpr std::array<uint32_t, 3> FloatArrayTags = {TIFFTAG_REFERENCEBLACKWHITE, TIFFTAG_WHITEPOINT,
                                                    TIFFTAG_PRIMARYCHROMATICITIES};

template <typename Value, typename Passed = Value, size_t Count>
void copyTags(TIFF* from, TIFF* to, const std::array<uint32_t, Count>& tags) {
    for (const uint32_t tag : tags)
        if (Value value{}; TIFFGetField(from, tag, &value) == 1)
            TIFFSetField(to, tag, static_cast<Passed>(value));
}

void copyCountedTags(TIFF* from, TIFF* to) {
    for (const uint32_t tag : BytesTags) {
        uint32_t count = 0;
        const void* bytes = nullptr;
        if (TIFFGetField(from, tag, &count, &bytes) == 1)
            TIFFSetField(to, tag, count, bytes);
    }
    uint16_t samples = 0;
    const uint16_t* kinds = nullptr;
    if (TIFFGetField(from, TIFFTAG_EXTRASAMPLES, &samples, &kinds) == 1)
        TIFFSetField(to, TIFFTAG_EXTRASAMPLES, samples, kinds);
}

void copyColorTags(TIFF* from, TIFF* to) {
    uint16_t across = 0;
    uint16_t down = 0;
    if (TIFFGetField(from, TIFFTAG_YCBCRSUBSAMPLING, &across, &down) == 1)
        TIFFSetField(to, TIFFTAG_YCBCRSUBSAMPLING, across, down);
    const uint16_t* red = nullptr;
    const uint16_t* green = nullptr;
    const uint16_t* blue = nullptr;
    if (TIFFGetField(from, TIFFTAG_COLORMAP, &red, &green, &blue) == 1)
        TIFFSetField(to, TIFFTAG_COLORMAP, red, green, blue);
}

/// The compression comes first: it brings the tags of its own kind with it.
void copyAllTags(TIFF* from, TIFF* to, uint16_t compression) {
    TIFFSetField(to, TIFFTAG_COMPRESSION, compression);
    copyTags<uint16_t, int>(from, to, ShortTags);
    copyTags<uint32_t>(from, to, LongTags);
    if (TIFFIsTiled(from) != 0)
        copyTags<uint32_t>(from, to, TileTags);
    copyTags<float, double>(from, to, FloatTags);
    copyTags<const char*>(from, to, TextTags);
    copyTags<const float*>(from, to, FloatArrayTags);
    copyCountedTags(from, to);
    copyColorTags(from, to);
}

/// Strips or tiles as they are stored; false when one cannot be read whole.
bool copyData(TIFF* from, TIFF* to, uint64_t fileSize) {
    const bool tiled = TIFFIsTiled(from) != 0;
    const uint32_t pieces = tiled ? TIFFNumberOfTiles(from) : TIFFNumberOfStrips(from);
    if (pieces > fileSize)
        return false;
    std::vector<uint8_t> piece;
    for (uint32_t index = 0; index < pieces; ++index) {
        const uint64_t length = TIFFGetStrileByteCount(from, index);
        if (length > fileSize)
            return false;
        if (length == 0)
            continue;
        piece.resize(static_cast<size_t>(length));
        const auto size = static_cast<tmsize_t>(length);
        const auto readPiece = tiled ? TIFFReadRawTile : TIFFReadRawStrip;
        const auto writePiece = tiled ? TIFFWriteRawTile : TIFFWriteRawStrip;
        if (readPiece(from, index, piece.data(), size) != size ||
            writePiece(to, index, piece.data(), size) != size)
            return false;
    }
    return true;
}

} // namespace

size_t countTiffFrames(const std::filesystem::path& file) {
    const TiffHandle tiff = openTiff(file);
    return tiff ? TIFFNumberOfDirectories(tiff.get()) : 0;
}

std::optional<std::vector<uint8_t>> extractTiffFrame(const std::filesystem::path& file, size_t index) {
    const TiffHandle from = openTiff(file);
    if (!from || index > std::numeric_limits<tdir_t>::max() ||
        TIFFSetDirectory(from.get(), static_cast<tdir_t>(index)) == 0)
        return std::nullopt;
    uint16_t compression = COMPRESSION_NONE;
    TIFFGetFieldDefaulted(from.get(), TIFFTAG_COMPRESSION, &compression);
    if (compression == COMPRESSION_OJPEG)
        return std::nullopt;
    TiffMemory frame;
    TiffMessages unheard;
    // The stored data may be in the byte order of its file.
    TiffHandle to = frame.open(TIFFIsBigEndian(from.get()) != 0 ? "wb" : "wl", unheard);
    if (!to)
        return std::nullopt;
    copyAllTags(from.get(), to.get(), compression);
    std::error_code problem;
    const uint64_t fileSize = std::filesystem::file_size(file, problem);
    if (problem || !copyData(from.get(), to.get(), fileSize) || TIFFWriteDirectory(to.get()) == 0)
        return std::nullopt;
    to.reset();
    if (frame.outOfMemory)
        return std::nullopt;
    return std::move(frame.bytes);
}

} // namespace pixmo
