#pragma once

// Numbers that the resources share with the program; the resource compiler knows nothing but macros.
#define IDM_VIEWER 1
#define ID_NEIGHBOUR_MANIFEST 3
#define IDM_OPEN 100
#define IDM_CLOSE 101
#define IDM_EXIT 102
#define IDM_NEXT 103
#define IDM_PREVIOUS 104
#define IDM_REFRESH 105
#define IDM_ABOUT 106
#define IDM_PROPERTIES 107
#define ID_ADDRESS 200
#define ID_DOCUMENT 201
#define ID_STATUS 202
