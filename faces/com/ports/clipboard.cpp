#include "faces/com/ports/clipboard.h"

#include "core/base/error.h"
#include "faces/com/base/dib.h"
#include "faces/com/base/widetext.h"

#include <algorithm>
#include <memory>
#include <span>

namespace pixmo::com {

namespace {

struct FreeGlobal {
    void operator()(void* block) const { GlobalFree(block); }
};

using GlobalBlock = std::unique_ptr<void, FreeGlobal>;

/// A block of the clipboard's memory that holds one after the other.
GlobalBlock blockOf(std::span<const uint8_t> first, std::span<const uint8_t> second) {
    GlobalBlock block(GlobalAlloc(GMEM_MOVEABLE, first.size() + second.size()));
    auto* const bytes = block ? static_cast<uint8_t*>(GlobalLock(block.get())) : nullptr;
    if (!bytes)
        throw outOfMemoryError();
    std::ranges::copy(first, bytes);
    std::ranges::copy(second, bytes + first.size());
    GlobalUnlock(block.get());
    return block;
}

/// Another program keeps it for moments only.
bool openClipboard() {
    constexpr int Tries = 10;
    constexpr DWORD Pause = 20; // milliseconds
    for (int turn = 0; turn < Tries; ++turn) {
        if (OpenClipboard(nullptr))
            return true;
        Sleep(Pause);
    }
    return false;
}

/// Throws path/file access (75) while another program keeps the clipboard.
void give(UINT format, GlobalBlock block) {
    if (!openClipboard())
        throw pathFileAccessError();
    EmptyClipboard();
    if (SetClipboardData(format, block.get()))
        static_cast<void>(block.release()); // the clipboard's own now
    CloseClipboard();
    if (block)
        throw pathFileAccessError();
}

} // namespace

void Clipboard::setPicture(const Raster& picture) {
    const Dib dib = makeDib(picture);
    give(CF_DIB, blockOf(dib.header, dib.bits));
}

void Clipboard::setText(const std::string& text) {
    const std::wstring lines = linesToWide(text) + L'\0';
    const auto* const bytes = reinterpret_cast<const uint8_t*>(lines.data());
    try {
        give(CF_UNICODETEXT, blockOf({bytes, lines.size() * sizeof(wchar_t)}, {}));
    } catch (const Error&) {
        OutputDebugStringW(L"A text was not copied.\n");
    }
}

} // namespace pixmo::com
