#include "apps/windows/viewer/screenshot.h"

#include <filesystem>
#include <fstream>
#include <vector>

namespace pixmo::viewer {

namespace {

constexpr WORD Signature = 0x4D42; // "BM"

} // namespace

bool saveScreenshot(HWND window, const std::wstring& file) {
    RECT area{};
    GetWindowRect(window, &area);
    const int width = static_cast<int>(area.right - area.left);
    const int height = static_cast<int>(area.bottom - area.top);
    const size_t rowBytes = (static_cast<size_t>(width) * 3 + 3) / 4 * 4;
    std::vector<char> pixels(rowBytes * static_cast<size_t>(height));
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER),          width, height, 1, 24, BI_RGB,
                      static_cast<DWORD>(pixels.size()), 0,     0,      0, 0};
    const HDC source = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(source);
    const HBITMAP bitmap = CreateCompatibleBitmap(source, width, height);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, source, area.left, area.top, SRCCOPY);
    SelectObject(memory, previous);
    const int rows =
        GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, source);
    BITMAPFILEHEADER head{};
    head.bfType = Signature;
    head.bfOffBits = sizeof head + sizeof info.bmiHeader;
    head.bfSize = head.bfOffBits + static_cast<DWORD>(pixels.size());
    std::ofstream out(std::filesystem::path(file), std::ios::binary);
    out.write(reinterpret_cast<const char*>(&head), sizeof head);
    out.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
    out.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
    return rows == height && out.good();
}

} // namespace pixmo::viewer
