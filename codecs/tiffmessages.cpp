#include "codecs/tiffmessages.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string_view>

namespace pixmo {

namespace {

constexpr std::array<std::string_view, 2> ResumingDecoders = {"Fax3Decode1D", "Fax3Decode2D"};

/// Their warnings are about pixels.
constexpr std::array<std::string_view, 5> StrictDecoders = {"Fax4Decode", "Fax3DecodeRLE", "JPEGLib",
                                                            "LibJpeg", "JBIG"};

template <size_t Count>
bool contains(const std::array<std::string_view, Count>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The N of "... at line N of strip ...".
std::optional<uint32_t> rowIn(std::string_view text) {
    constexpr std::string_view Mark = " at line ";
    const size_t at = text.find(Mark);
    if (at == std::string_view::npos)
        return std::nullopt;
    uint32_t row = 0;
    const char* const first = text.data() + at + Mark.size();
    if (std::from_chars(first, text.data() + text.size(), row).ec != std::errc())
        return std::nullopt;
    return row;
}

} // namespace

int TiffMessages::onError(TIFF*, void* self, const char* module, const char* format,
                          va_list arguments) noexcept {
    static_cast<TiffMessages*>(self)->note(module, format, arguments, true);
    return 1;
}

int TiffMessages::onWarning(TIFF*, void* self, const char* module, const char* format,
                            va_list arguments) noexcept {
    static_cast<TiffMessages*>(self)->note(module, format, arguments, false);
    return 1;
}

void TiffMessages::clear() {
    *this = TiffMessages();
}

bool TiffMessages::areRowsWhole(uint32_t rows) const {
    return !failed_ && (!firstDamagedRow_ || lastDamagedRow_ + 1 < rows);
}

void TiffMessages::note(const char* module, const char* format, va_list arguments, bool isError) noexcept {
    const std::string_view decoder = module == nullptr ? "" : module;
    const bool resuming = contains(ResumingDecoders, decoder);
    if (!isError && !resuming && !contains(StrictDecoders, decoder))
        return;
    decltype(text_) text{};
    std::vsnprintf(text.data(), text.size(), format, arguments);
    if (text_[0] == '\0')
        text_ = text;
    const std::optional<uint32_t> row = rowIn(text.data());
    if (row) {
        firstDamagedRow_ = std::min(*row, firstDamagedRow_.value_or(*row));
        lastDamagedRow_ = std::max(*row, lastDamagedRow_);
    }
    failed_ = failed_ || !resuming || !row;
}

} // namespace pixmo
