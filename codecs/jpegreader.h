#pragma once

#include "codecs/jumpguard.h"
#include "core/imaging/pagedecoder.h"

#include <array>
#include <cstdio>

#include <jpeglib.h>

namespace pixmo {

/// libjpeg's decompressor over bytes in memory. Every call of the library goes through call(), which turns
/// its failures into invalid picture (481), and with them every warning that the data are damaged.
class JpegReader {
public:
    /// Reads the markers before the first scan and keeps APP1.
    JpegReader(std::span<const uint8_t> bytes, const DecodeLimits& limits);
    ~JpegReader();
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    jpeg_decompress_struct& jpeg() { return jpeg_; }

    /// `use` calls libjpeg and owns nothing. Throws invalid picture.
    template <typename Use>
    void call(Use use) {
        if (!guard_.run(use))
            fail();
    }

private:
    static JpegReader& of(j_common_ptr jpeg) { return *static_cast<JpegReader*>(jpeg->client_data); }
    static void onError(j_common_ptr jpeg);
    static void onMessage(j_common_ptr jpeg, int level);
    static void onProgress(j_common_ptr jpeg);
    static boolean onNeedOfBytes(j_decompress_ptr jpeg);
    static void onSkip(j_decompress_ptr jpeg, long count);
    [[noreturn]] void leave(const char* problem);
    [[noreturn]] void fail() const;
    void open(std::span<const uint8_t> bytes, const DecodeLimits& limits);

    jpeg_decompress_struct jpeg_{};
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr progress_{};
    jpeg_source_mgr source_{};
    JumpGuard guard_;
    bool mayLackEnd_ = false;
    std::array<char, JMSG_LENGTH_MAX> problem_{};
};

} // namespace pixmo
