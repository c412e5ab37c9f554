#pragma once

#include "vellaneinet2.h"

#include <olectl.h>
#include <windows.h>

namespace pixmo::com {

/// The identity of the property page. It is no part of the type library.
inline constexpr CLSID ClassOfPage{
    0xB25FFBEC, 0x5CA4, 0x4C36, {0x8F, 0x71, 0x2E, 0x44, 0x7D, 0x21, 0xD6, 0x22}};

inline constexpr LONG TypeLibraryMajor = 1;
inline constexpr LONG TypeLibraryMinor = 0;

/// What hosts may expect of the control: it draws itself anew for each size, cannot be linked, may be active
/// without being in use, wants to be active while it is seen, and needs its host before its properties.
inline constexpr DWORD ControlStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                       OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                       OLEMISC_SETCLIENTSITEFIRST;

/// Resource of the picture in a form designer's toolbox, 16 by 15 pixels.
inline constexpr int ToolboxBitmap = 101;

} // namespace pixmo::com
