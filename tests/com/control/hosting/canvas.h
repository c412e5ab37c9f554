#pragma once

#include <cstdint>
#include <windows.h>

namespace pixmo::com::test {

/// A picture in memory that everything can be drawn on.
class Canvas {
public:
    Canvas(int width, int height) : width_(width), height_(height), target_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(target_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels_ = static_cast<uint32_t*>(bits);
        SelectObject(target_, bitmap_);
        const RECT all{0, 0, width, height};
        FillRect(target_, &all, brush_);
    }
    ~Canvas() {
        DeleteDC(target_);
        DeleteObject(bitmap_);
        DeleteObject(brush_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC target() const { return target_; }
    uint32_t at(int x, int y) const { return pixels_[y * width_ + x] & 0xFFFFFFU; }
    /// How many pixels in the rectangle have still the colour that nothing draws.
    int untouched(const RECT& area) const {
        int count = 0;
        for (int y = static_cast<int>(area.top); y < area.bottom; ++y)
            for (int x = static_cast<int>(area.left); x < area.right; ++x)
                count += at(x, y) == Untouched ? 1 : 0;
        return count;
    }
    RECT all() const { return {0, 0, width_, height_}; }

private:
    static constexpr uint32_t Untouched = 0x00FE01FE;

    int width_;
    int height_;
    HDC target_;
    HBRUSH brush_ = CreateSolidBrush(RGB(0xFE, 0x01, 0xFE));
    HBITMAP bitmap_ = nullptr;
    uint32_t* pixels_ = nullptr;
};

} // namespace pixmo::com::test
