#include "codecs/pagecodecs.h"

#include "codecs/bmpcodec.h"
#include "codecs/codecerror.h"
#include "codecs/gifcodec.h"
#include "codecs/jpegcodec.h"
#include "codecs/pngcodec.h"
#include "codecs/tiffcodec.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace pixmo {

namespace {

using namespace std::string_view_literals;

struct Format {
    std::string_view signature;
    Raster (*decode)(std::span<const uint8_t>, const DecodeLimits&);
};

constexpr std::array<Format, 9> Formats = {{
    {"II*\0"sv, decodeTiff},
    {"MM\0*"sv, decodeTiff},
    {"II+\0"sv, decodeTiff},
    {"MM\0+"sv, decodeTiff},
    {"\xFF\xD8\xFF"sv, decodeJpeg},
    {"\x89PNG\r\n\x1A\n"sv, decodePng},
    {"GIF87a"sv, decodeGif},
    {"GIF89a"sv, decodeGif},
    {"BM"sv, decodeBmp},
}};

bool startsWith(std::span<const uint8_t> bytes, std::string_view signature) {
    return bytes.size() >= signature.size() &&
           std::memcmp(bytes.data(), signature.data(), signature.size()) == 0;
}

/// "25 50 44 46 ...": what a reader of the message needs to guess what the server sent instead.
std::string firstBytes(std::span<const uint8_t> bytes) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    constexpr size_t Shown = 8;
    std::string text;
    for (const uint8_t byte : bytes.first(std::min(Shown, bytes.size()))) {
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
        text += ' ';
    }
    text.pop_back();
    return text;
}

} // namespace

Raster PageCodecs::decode(std::span<const uint8_t> bytes) const {
    if (bytes.empty())
        throw pictureError("The page is empty.");
    for (const Format& format : Formats)
        if (startsWith(bytes, format.signature))
            return format.decode(bytes, limits_);
    throw pictureError("The page is no picture of a known format: it begins with " + firstBytes(bytes) + ".");
}

} // namespace pixmo
