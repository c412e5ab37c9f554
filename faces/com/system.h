#pragma once

// The system's headers, for every file of this face before anything else. They define macros under names that
// the core's classes use for their own members; those would have other names wherever windows.h comes first.

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <objbase.h>
#include <ole2.h>
#include <olectl.h>
#include <urlmon.h>
#include <winspool.h>

#undef CreateFontIndirect
#undef DecryptFile
#undef EncryptFile
#undef GetTextExtentPoint32
#undef MessageBox
#undef StartDoc
#undef TextOut
#undef small
