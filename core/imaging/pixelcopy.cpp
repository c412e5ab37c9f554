#include "core/imaging/pixelcopy.h"

#include <algorithm>
#include <array>

namespace pixmo {

namespace {

/// The eight pixels of every byte.
using ByteColours = std::array<std::array<uint32_t, 8>, 256>;

void fillByteColours(ByteColours& table, const std::array<uint32_t, 2>& colours) {
    for (size_t byte = 0; byte < table.size(); ++byte)
        for (size_t i = 0; i < 8; ++i)
            table[byte][i] = 0xFF000000U | colours[(byte >> (7 - i)) & 1U];
}

void copyBits(const ByteColours& table, std::span<const uint8_t> row, size_t left, std::span<uint32_t> out) {
    const auto shift = static_cast<unsigned>(left % 8);
    const auto byteAt = [&](size_t i) {
        const unsigned byte = row[i];
        const unsigned next = i + 1 < row.size() ? row[i + 1] : 0U;
        return static_cast<uint8_t>((byte << 8U | next) >> (8 - shift));
    };
    size_t at = left / 8;
    size_t x = 0;
    for (; x + 8 <= out.size(); x += 8)
        std::copy_n(table[byteAt(at++)].data(), 8, out.data() + x);
    if (x < out.size())
        std::copy_n(table[byteAt(at)].data(), out.size() - x, out.data() + x);
}

void copyGray(std::span<const uint8_t> row, size_t left, std::span<uint32_t> out) {
    const uint8_t* in = row.data() + left;
    for (size_t x = 0; x < out.size(); ++x)
        out[x] = 0xFF000000U | in[x] * 0x010101U;
}

void copyRgb(std::span<const uint8_t> row, size_t left, std::span<uint32_t> out) {
    const uint8_t* in = row.data() + 3 * left;
    for (size_t x = 0; x < out.size(); ++x)
        out[x] = 0xFF000000U | static_cast<uint32_t>(in[3 * x]) << 16U |
                 static_cast<uint32_t>(in[3 * x + 1]) << 8U | in[3 * x + 2];
}

} // namespace

void copyPixels(const Raster& raster, int32_t left, int32_t top, const PixelSurface& surface,
                const Rectangle& target) {
    ByteColours table;
    if (raster.format == PixelFormat::Bilevel)
        fillByteColours(table, raster.bilevelColours);
    for (int32_t y = 0; y < target.height; ++y) {
        const auto row = raster.row(top + y);
        const auto out = surface.row(target.top + y)
                             .subspan(static_cast<size_t>(target.left), static_cast<size_t>(target.width));
        if (raster.format == PixelFormat::Bilevel)
            copyBits(table, row, static_cast<size_t>(left), out);
        else if (raster.format == PixelFormat::Gray)
            copyGray(row, static_cast<size_t>(left), out);
        else
            copyRgb(row, static_cast<size_t>(left), out);
    }
}

} // namespace pixmo
