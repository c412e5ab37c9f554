#pragma once

#include <memory>
#include <type_traits>
#include <windows.h>

namespace pixmo::com {

struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

template <typename Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;

using FontHandle = GdiObject<HFONT>;
using BrushHandle = GdiObject<HBRUSH>;
using BitmapHandle = GdiObject<HBITMAP>;

/// Selects an object into a device context, and what was there before back at its end.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, before_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ before_;
};

/// The painting of a window's invalid part.
class Painting {
public:
    explicit Painting(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
    ~Painting() { EndPaint(window_, &paint_); }
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;

    HDC dc() const { return dc_; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

/// For measuring.
class ScreenDc {
public:
    ScreenDc() : dc_(GetDC(nullptr)) {}
    ~ScreenDc() { ReleaseDC(nullptr, dc_); }
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;

    HDC get() const { return dc_; }

private:
    HDC dc_;
};

} // namespace pixmo::com
