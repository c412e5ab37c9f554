#pragma once

#include <objsafe.h>
#include <optional>

// The compiler's headers declare the interface without its identity.
__CRT_UUID_DECL(IObjectSafety, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64)

namespace pixmo::com {

/// Whether the control may reach beyond its window and its server: write files, read files of this machine.
///
/// What the host says in code decides: it may ask for safety, or do without it, by IObjectSafety, which no
/// script can call. A host that says nothing is trusted when it has placed the control in a form or window of
/// its own; a page, and a script that has made the control without a place, are not.
class Safety {
public:
    static constexpr DWORD Supported = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

    /// `mask` says which of the options are told.
    void tell(DWORD mask, DWORD options) { told_ = (told_.value_or(0) & ~mask) | (options & mask); }

    bool mayReachFiles(bool isPlaced, bool isPage) const { return told_ ? *told_ == 0 : isPlaced && !isPage; }

private:
    std::optional<DWORD> told_;
};

} // namespace pixmo::com
