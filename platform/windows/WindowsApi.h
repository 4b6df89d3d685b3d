#pragma once

// The system's header, with as little of it as it lets one ask for. What it defines as macros in
// the names of our own functions is taken back; the functions that it means end in "W".

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
