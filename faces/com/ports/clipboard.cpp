#include "faces/com/ports/clipboard.h"

#include "core/base/error.h"
#include "faces/com/base/dib.h"

#include <cstring>
#include <memory>

namespace pixmo::com {

namespace {

struct FreeGlobal {
    void operator()(void* block) const { GlobalFree(block); }
};

using GlobalBlock = std::unique_ptr<void, FreeGlobal>;

GlobalBlock blockOf(const Dib& dib) {
    GlobalBlock block(GlobalAlloc(GMEM_MOVEABLE, dib.header.size() + dib.bits.size()));
    auto* const bytes = block ? static_cast<uint8_t*>(GlobalLock(block.get())) : nullptr;
    if (!bytes)
        throw outOfMemoryError();
    std::memcpy(bytes, dib.header.data(), dib.header.size());
    std::memcpy(bytes + dib.header.size(), dib.bits.data(), dib.bits.size());
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

} // namespace

void Clipboard::setPicture(const Raster& picture) {
    GlobalBlock block = blockOf(makeDib(picture));
    if (!openClipboard())
        throw pathFileAccessError();
    EmptyClipboard();
    if (SetClipboardData(CF_DIB, block.get()))
        static_cast<void>(block.release()); // the clipboard's own now
    CloseClipboard();
    if (block)
        throw pathFileAccessError();
}

} // namespace pixmo::com
