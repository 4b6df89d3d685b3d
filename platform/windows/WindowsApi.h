#pragma once

// The system's header, cut down as far as it allows. Macros with the names of our own functions are
// undefined again; the system's functions behind them end in "W".

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#undef CopyFile
#undef DeleteFile
#undef MoveFile
