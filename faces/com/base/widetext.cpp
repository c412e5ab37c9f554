#include "faces/com/base/widetext.h"

#include <algorithm>
#include <new>
#include <windows.h>

namespace pixmo::com {

std::wstring toWide(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::wstring linesToWide(std::string_view utf8) {
    std::wstring lines;
    for (const wchar_t character : toWide(utf8)) {
        if (character == L'\n' && (lines.empty() || lines.back() != L'\r'))
            lines += L'\r';
        lines += character;
    }
    return lines;
}

std::string toUtf8(std::wstring_view wide) {
    const int units = static_cast<int>(wide.size());
    std::string utf8(static_cast<size_t>(
                         WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), static_cast<int>(utf8.size()), nullptr,
                        nullptr);
    return utf8;
}

wchar_t* copyForHost(std::wstring_view text) {
    auto* const copy = static_cast<wchar_t*>(CoTaskMemAlloc((text.size() + 1) * sizeof(wchar_t)));
    if (!copy)
        throw std::bad_alloc();
    *std::ranges::copy(text, copy).out = L'\0';
    return copy;
}

} // namespace pixmo::com
