#include "faces/com/windows/cliptext.h"

#include <cstring>

namespace pixmo::com {

void copyText(HWND window, const std::wstring& text) {
    if (!OpenClipboard(window))
        return;
    EmptyClipboard();
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (void* const place = block ? GlobalLock(block) : nullptr) {
        std::memcpy(place, text.c_str(), bytes);
        GlobalUnlock(block);
        // The system owns the block when it has taken it.
        if (!SetClipboardData(CF_UNICODETEXT, block))
            GlobalFree(block);
    }
    CloseClipboard();
}

} // namespace pixmo::com
