#include "faces/com/base/pixelbuffer.h"

#include <utility>

namespace pixmo::com {

BITMAPINFO describePixels(Size size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

PixelBuffer::~PixelBuffer() {
    release();
}

void PixelBuffer::release() {
    if (dc_) {
        SelectObject(dc_, before_);
        DeleteDC(std::exchange(dc_, nullptr));
    }
    bitmap_.reset();
    pixels_ = nullptr;
    size_ = {};
}

bool PixelBuffer::resize(Size size) {
    if (size == size_)
        return pixels_ != nullptr;
    release();
    if (size.empty())
        return false;
    const BITMAPINFO info = describePixels(size);
    void* bits = nullptr;
    bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    dc_ = bitmap_ ? CreateCompatibleDC(nullptr) : nullptr;
    if (!dc_) {
        release();
        return false;
    }
    before_ = SelectObject(dc_, bitmap_.get());
    pixels_ = static_cast<uint32_t*>(bits);
    size_ = size;
    return true;
}

PixelSurface PixelBuffer::surface() const {
    GdiFlush();
    return {pixels_, size_.width, size_.height, static_cast<size_t>(size_.width)};
}

void PixelBuffer::copyTo(HDC target) const {
    BitBlt(target, 0, 0, size_.width, size_.height, dc_, 0, 0, SRCCOPY);
}

} // namespace pixmo::com
