#include "codecs/exif.h"

#include "codecs/bytereader.h"
#include "codecs/resolution.h"

namespace pixmo {

namespace {

constexpr uint16_t OrientationTag = 0x0112;
constexpr uint16_t XResolutionTag = 0x011A;
constexpr uint16_t YResolutionTag = 0x011B;
constexpr uint16_t ResolutionUnitTag = 0x0128;
constexpr uint16_t UnitCentimetre = 3;
constexpr size_t EntrySize = 12;

double rational(const ByteReader& block, size_t at) {
    const uint32_t divisor = block.dword(at + 4);
    return divisor == 0 ? 0 : static_cast<double>(block.dword(at)) / divisor;
}

} // namespace

ExifFacts readExif(std::span<const uint8_t> block) {
    ExifFacts facts;
    if (block.size() < 8 || block[0] != block[1] || (block[0] != 'I' && block[0] != 'M'))
        return facts;
    const ByteReader reader(block, block[0] == 'M');
    const size_t directory = reader.dword(4);
    const size_t entries = reader.word(directory);
    double unit = 1;
    for (size_t i = 0; i < entries && directory + 2 + (i + 1) * EntrySize <= reader.size(); ++i) {
        const size_t entry = directory + 2 + i * EntrySize;
        const uint16_t tag = reader.word(entry);
        if (tag == OrientationTag)
            facts.orientation = reader.word(entry + 8);
        else if (tag == XResolutionTag)
            facts.xResolution = rational(reader, reader.dword(entry + 8));
        else if (tag == YResolutionTag)
            facts.yResolution = rational(reader, reader.dword(entry + 8));
        else if (tag == ResolutionUnitTag && reader.word(entry + 8) == UnitCentimetre)
            unit = CentimetresPerInch;
    }
    facts.xResolution *= unit;
    facts.yResolution *= unit;
    if (facts.orientation < 1 || facts.orientation > 8)
        facts.orientation = 1;
    return facts;
}

} // namespace pixmo
