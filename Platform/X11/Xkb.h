#pragma once

// The header names a field with a keyword of C++.
#define explicit explicitParts
#include <xcb/xkb.h>
#undef explicit
