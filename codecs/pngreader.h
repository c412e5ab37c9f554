#pragma once

#include "codecs/jumpguard.h"

#include <png.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace pixmo {

/// libpng's reading side over bytes in memory. Every call of the library goes through call(), which turns
/// its failures into invalid picture (481).
class PngReader {
public:
    /// Reads all that stands before the pixels.
    explicit PngReader(std::span<const uint8_t> bytes);
    ~PngReader();
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    png_structp png() const { return png_; }
    png_infop info() const { return info_; }

    /// `use` calls libpng and owns nothing. Throws invalid picture.
    template <typename Use>
    void call(Use use) {
        if (!guard_.run(use))
            fail();
    }

private:
    static void onError(png_structp png, png_const_charp text);
    static void onWarning(png_structp, png_const_charp) {}
    static void onRead(png_structp png, png_bytep to, size_t count);
    [[noreturn]] void fail() const;
    void open();

    std::span<const uint8_t> rest_;
    JumpGuard guard_;
    std::array<char, 200> problem_{};
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
};

} // namespace pixmo
