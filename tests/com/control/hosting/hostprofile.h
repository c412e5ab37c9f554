#pragma once

#include <array>
#include <ostream>

namespace pixmo::com::test {

/// What a kind of host does and offers.
struct HostProfile {
    const char* name;
    bool hasPlace;        ///< gives the control a site and a window
    bool userMode = true; ///< false: the host designs a form
    bool hasAmbients = true;
    bool isPage = false;        ///< its site offers a page's services
    bool asksForSafety = false; ///< by IObjectSafety, before the control gets its properties
    bool quickActivates = false;
    bool takesKeys = false; ///< its site takes every key that it is offered
};

inline constexpr HostProfile ScriptOnly{"script", false};
inline constexpr HostProfile Browser{"browser", true, true, true, true, true, true};
inline constexpr HostProfile FormDesign{"formDesign", true, false};
inline constexpr HostProfile FormRun{"formRun", true};
inline constexpr HostProfile DatabaseForm{"databaseForm", true, true, true, false, false, false};
inline constexpr HostProfile KeyboardStrict{"keyboardStrict", true, true, false, false, false, false, true};

inline constexpr std::array AllProfiles{ScriptOnly, Browser,      FormDesign,
                                        FormRun,    DatabaseForm, KeyboardStrict};
inline constexpr std::array PlacedProfiles{Browser, FormDesign, FormRun, DatabaseForm, KeyboardStrict};

inline void PrintTo(const HostProfile& profile, std::ostream* out) {
    *out << profile.name;
}

} // namespace pixmo::com::test
