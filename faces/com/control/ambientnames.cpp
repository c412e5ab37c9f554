#include "faces/com/control/ambientnames.h"

#include <array>
#include <olectl.h>

namespace pixmo::com {

std::span<const AmbientName> ambientNames() {
    static constexpr std::array names{
        AmbientName{DISPID_AMBIENT_BACKCOLOR, "BackColor"},
        AmbientName{DISPID_AMBIENT_FORECOLOR, "ForeColor"},
        AmbientName{DISPID_AMBIENT_FONT, "Font"},
        AmbientName{DISPID_AMBIENT_USERMODE, "UserMode"},
        AmbientName{DISPID_AMBIENT_LOCALEID, "LocaleID"},
        AmbientName{DISPID_AMBIENT_DISPLAYASDEFAULT, "DisplayAsDefault"},
        AmbientName{DISPID_AMBIENT_RIGHTTOLEFT, "RightToLeft"},
        AmbientName{DISPID_AMBIENT_UIDEAD, "UIDead"},
    };
    return names;
}

} // namespace pixmo::com
