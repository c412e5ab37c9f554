#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixmo {

/// Numbers at any place of a block of bytes; places outside read as 0.
class ByteReader {
public:
    explicit ByteReader(std::span<const uint8_t> bytes, bool bigEndian = false)
        : bytes_(bytes), bigEndian_(bigEndian) {}

    uint8_t byte(size_t at) const { return at < bytes_.size() ? bytes_[at] : uint8_t{0}; }
    uint16_t word(size_t at) const { return static_cast<uint16_t>(number(at, 2)); }
    uint32_t dword(size_t at) const { return number(at, 4); }
    int32_t signedDword(size_t at) const { return static_cast<int32_t>(number(at, 4)); }

    size_t size() const { return bytes_.size(); }

private:
    uint32_t number(size_t at, size_t length) const;

    std::span<const uint8_t> bytes_;
    bool bigEndian_;
};

} // namespace pixmo
