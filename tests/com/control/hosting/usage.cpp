#include "tests/com/control/hosting/usage.h"

#include <cstdint>
#include <filesystem>

namespace pixmo::com::test {

namespace {

/// One entry of the table of GDI objects that the system shows every process.
struct DrawingEntry {
    uint64_t object;
    WORD owner; ///< process, without its two lowest bits
    WORD unused;
    WORD identity;
    WORD type; ///< 0 where the entry is free
    uint64_t userData;
};

constexpr size_t TableSize = 16384;
/// Where the process's environment block holds the table's address.
constexpr size_t TableOffset = sizeof(void*) == 8 ? 0xF8 : 0x94;

const std::byte* environmentBlock() {
#ifdef _WIN64
    return reinterpret_cast<const std::byte*>(__readgsqword(0x60));
#else
    return reinterpret_cast<const std::byte*>(__readfsdword(0x30));
#endif
}

/// The system's own count is not to be had everywhere; its table is.
size_t countDrawingObjects() {
    const auto* const table = *reinterpret_cast<const DrawingEntry* const*>(environmentBlock() + TableOffset);
    size_t count = 0;
    for (size_t at = 0; table && at < TableSize; ++at)
        count += table[at].type != 0 ? 1U : 0U;
    return count;
}

BOOL CALLBACK countChild(HWND, LPARAM count) {
    ++*reinterpret_cast<size_t*>(count);
    return TRUE;
}

BOOL CALLBACK countWindow(HWND window, LPARAM count) {
    EnumChildWindows(window, countChild, count);
    return countChild(window, count);
}

} // namespace

Usage Usage::now() {
    Usage usage;
    usage.drawingObjects = countDrawingObjects();
    GetProcessHandleCount(GetCurrentProcess(), &usage.handles);
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&usage.windows));
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
        usage.temporaryFiles += entry.exists() ? 1U : 0U;
    return usage;
}

} // namespace pixmo::com::test
