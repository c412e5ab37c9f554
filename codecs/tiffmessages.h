#pragma once

#include <array>
#include <cstdarg>
#include <cstdint>
#include <optional>

#include <tiffio.h>

namespace pixmo {

/// What libtiff says while one file is read. It returns with success from data that it only warned about;
/// this class tells from its words whether the pixels are all there.
class TiffMessages {
public:
    /// Handlers for TIFFOpenOptions; `self` is the TiffMessages. Both silence the library.
    [[gnu::format(printf, 4, 0)]] static int onError(TIFF*, void* self, const char* module,
                                                     const char* format, va_list arguments) noexcept;
    [[gnu::format(printf, 4, 0)]] static int onWarning(TIFF*, void* self, const char* module,
                                                       const char* format, va_list arguments) noexcept;

    /// Forgets everything: the next block of pixels begins.
    void clear();

    /// The first complaint, as the end of a sentence; empty when there was none.
    const char* text() const { return text_.data(); }

    /// The first row of the block that a fax decoder complained about, or none.
    std::optional<uint32_t> damagedRow() const { return firstDamagedRow_; }

    /// Whether a block of `rows` rows, which the library calls read, has them all. A damaged row of Group 3
    /// costs itself, and the decoder goes on at the next: the page is still shown. In the last row damage
    /// cannot be told from the data's end, and in every other coding it spoils what follows.
    bool areRowsWhole(uint32_t rows) const;

private:
    [[gnu::format(printf, 3, 0)]] void note(const char* module, const char* format, va_list arguments,
                                            bool isError) noexcept;

    std::array<char, 300> text_{}; ///< not a string: nothing may be thrown through the library
    bool failed_ = false;
    std::optional<uint32_t> firstDamagedRow_;
    uint32_t lastDamagedRow_ = 0;
};

} // namespace pixmo
