#include "codecs/pngreader.h"

#include "codecs/codecerror.h"

#include <cstring>
#include <new>

namespace pixmo {

namespace {

/// Chunks that change nothing a page shows; unpacking them would only cost time and memory.
constexpr char SkippedChunks[] = "iCCP\0iTXt\0sPLT\0tEXt\0zTXt";
constexpr int SkippedChunkCount = sizeof SkippedChunks / 5;

} // namespace

PngReader::PngReader(std::span<const uint8_t> bytes) : rest_(bytes) {
    try {
        open();
    } catch (...) {
        png_destroy_read_struct(&png_, &info_, nullptr);
        throw;
    }
}

PngReader::~PngReader() {
    png_destroy_read_struct(&png_, &info_, nullptr);
}

void PngReader::open() {
    png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, onError, onWarning);
    if (png_ == nullptr)
        throw std::bad_alloc();
    call([this] {
        info_ = png_create_info_struct(png_);
        png_set_read_fn(png_, this, onRead);
        // The size of the picture is judged by the decode limits alone.
        png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
        png_set_crc_action(png_, PNG_CRC_ERROR_QUIT, PNG_CRC_ERROR_QUIT);
        png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER,
                                    reinterpret_cast<png_const_bytep>(SkippedChunks), SkippedChunkCount);
        png_read_info(png_, info_);
    });
}

void PngReader::onError(png_structp png, png_const_charp text) {
    auto& reader = *static_cast<PngReader*>(png_get_error_ptr(png));
    std::strncpy(reader.problem_.data(), text, reader.problem_.size() - 1);
    reader.guard_.leave();
}

void PngReader::onRead(png_structp png, png_bytep to, size_t count) {
    auto& rest = static_cast<PngReader*>(png_get_io_ptr(png))->rest_;
    if (count > rest.size())
        png_error(png, "the data end too soon");
    std::memcpy(to, rest.data(), count);
    rest = rest.subspan(count);
}

void PngReader::fail() const {
    throw pictureError(std::string("The PNG picture is damaged or cut short: ") + problem_.data() + ".");
}

} // namespace pixmo
