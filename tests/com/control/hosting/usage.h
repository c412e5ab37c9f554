#pragma once

#include <cstddef>
#include <windows.h>

namespace pixmo::com::test {

/// What this process holds of the system.
struct Usage {
    size_t drawingObjects = 0; ///< GDI objects
    DWORD handles = 0;
    size_t windows = 0;        ///< of this thread, with their children
    size_t temporaryFiles = 0; ///< files and folders in the temporary folder

    static Usage now();
};

} // namespace pixmo::com::test
