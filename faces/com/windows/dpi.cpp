#include "faces/com/windows/dpi.h"

#include "faces/com/base/gdi.h"

namespace pixmo::com {

namespace {

/// Functions that only newer systems have.
template <typename Function>
Function userFunction(const char* name) {
    const FARPROC address = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

int desktopDpi() {
    const ScreenDc screen;
    return GetDeviceCaps(screen.get(), LOGPIXELSX);
}

int& standIn() {
    static int instance = 0;
    return instance;
}

} // namespace

void setDpiStandIn(int dpi) {
    standIn() = dpi;
}

int dpiOf(HWND window) {
    if (window && standIn() > 0)
        return standIn();
    using DpiForWindow = UINT(WINAPI*)(HWND);
    static const auto dpiForWindow = userFunction<DpiForWindow>("GetDpiForWindow");
    const UINT dpi = window && dpiForWindow ? dpiForWindow(window) : 0;
    return dpi > 0 ? static_cast<int>(dpi) : desktopDpi();
}

int systemMetric(int index, int dpi) {
    using MetricsForDpi = int(WINAPI*)(int, UINT);
    static const auto metricsForDpi = userFunction<MetricsForDpi>("GetSystemMetricsForDpi");
    return metricsForDpi ? metricsForDpi(index, static_cast<UINT>(dpi))
                         : MulDiv(GetSystemMetrics(index), dpi, desktopDpi());
}

} // namespace pixmo::com
