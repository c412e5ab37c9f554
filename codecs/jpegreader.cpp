#include "codecs/jpegreader.h"

#include "codecs/codecerror.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include <jerror.h>

namespace pixmo {

namespace {

/// A progressive picture of a few bytes a scan can keep a processor busy for hours.
constexpr int MostScans = 200;

/// What the reader says when asked for more than there is: the end of the picture.
constexpr std::array<JOCTET, 2> EndOfImage = {0xFF, JPEG_EOI};

void nothing(j_decompress_ptr) {}

/// Warnings about markers that do not touch the pixels.
bool isHarmless(int message) {
    return message == JWRN_ADOBE_XFORM || message == JWRN_JFIF_MAJOR || message == JWRN_BOGUS_ICC;
}

} // namespace

JpegReader::JpegReader(std::span<const uint8_t> bytes, const DecodeLimits& limits) {
    jpeg_.err = jpeg_std_error(&errors_);
    errors_.error_exit = onError;
    errors_.emit_message = onMessage;
    jpeg_.client_data = this;
    try {
        open(bytes, limits);
    } catch (...) {
        jpeg_destroy_decompress(&jpeg_);
        throw;
    }
}

JpegReader::~JpegReader() {
    jpeg_destroy_decompress(&jpeg_);
}

void JpegReader::open(std::span<const uint8_t> bytes, const DecodeLimits& limits) {
    call([&] {
        jpeg_create_decompress(&jpeg_);
        progress_.progress_monitor = onProgress;
        jpeg_.progress = &progress_;
        constexpr uint64_t Most = std::numeric_limits<long>::max();
        jpeg_.mem->max_memory_to_use = static_cast<long>(std::min(limits.bytes, Most));
        source_.next_input_byte = bytes.data();
        source_.bytes_in_buffer = bytes.size();
        source_.init_source = nothing;
        source_.term_source = nothing;
        source_.fill_input_buffer = onNeedOfBytes;
        source_.skip_input_data = onSkip;
        source_.resync_to_restart = jpeg_resync_to_restart;
        jpeg_.src = &source_;
        jpeg_save_markers(&jpeg_, JPEG_APP0 + 1, 0xFFFF);
        jpeg_read_header(&jpeg_, TRUE);
        mayLackEnd_ = jpeg_has_multiple_scans(&jpeg_) == FALSE && jpeg_.arith_code == FALSE;
    });
}

void JpegReader::leave(const char* problem) {
    std::strncpy(problem_.data(), problem, problem_.size() - 1);
    guard_.leave();
}

void JpegReader::onError(j_common_ptr jpeg) {
    std::array<char, JMSG_LENGTH_MAX> text{};
    jpeg->err->format_message(jpeg, text.data());
    of(jpeg).leave(text.data());
}

void JpegReader::onMessage(j_common_ptr jpeg, int level) {
    if (level < 0 && !isHarmless(jpeg->err->msg_code))
        onError(jpeg);
}

void JpegReader::onProgress(j_common_ptr jpeg) {
    if (jpeg->is_decompressor != FALSE &&
        reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > MostScans)
        of(jpeg).leave("there are too many scans");
}

boolean JpegReader::onNeedOfBytes(j_decompress_ptr jpeg) {
    // A picture in one Huffman-coded scan may lack its end marker: where bits themselves are missing, the
    // decoder warns. Of any other picture nobody can tell whether there was more.
    JpegReader& reader = of(reinterpret_cast<j_common_ptr>(jpeg));
    if (!reader.mayLackEnd_)
        reader.leave("the data end too soon");
    jpeg->src->next_input_byte = EndOfImage.data();
    jpeg->src->bytes_in_buffer = EndOfImage.size();
    return TRUE;
}

void JpegReader::onSkip(j_decompress_ptr jpeg, long count) {
    if (count <= 0)
        return;
    const auto skipped = static_cast<size_t>(count);
    if (skipped > jpeg->src->bytes_in_buffer)
        of(reinterpret_cast<j_common_ptr>(jpeg)).leave("the data end too soon");
    jpeg->src->next_input_byte += skipped;
    jpeg->src->bytes_in_buffer -= skipped;
}

void JpegReader::fail() const {
    std::string text = "The JPEG picture is damaged or cut short";
    if (jpeg_.output_scanline > 0)
        text += " after row " + std::to_string(jpeg_.output_scanline) + " of " +
                std::to_string(jpeg_.output_height);
    throw pictureError(text + ": " + problem_.data() + ".");
}

} // namespace pixmo
