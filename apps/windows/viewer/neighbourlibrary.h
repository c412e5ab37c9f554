#pragma once

#include <windows.h>

namespace pixmo::viewer {

/// While it lives, classes are those that the control library beside the program names in its manifest; what
/// is registered counts only for the others. Throws when that manifest is not there. Ends in the function
/// where it began.
class NeighbourLibrary {
public:
    NeighbourLibrary();
    ~NeighbourLibrary();
    NeighbourLibrary(const NeighbourLibrary&) = delete;
    NeighbourLibrary& operator=(const NeighbourLibrary&) = delete;

private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

} // namespace pixmo::viewer
