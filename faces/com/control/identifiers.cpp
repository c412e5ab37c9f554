// Gives the identities of the type library their one place.
#include <windows.h>

#include <ole2.h>
#include <olectl.h>

#include <initguid.h>

#include "vellaneinet2.h"
