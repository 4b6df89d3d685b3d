# Debian's cross compiler for Windows, with POSIX threads. SONGLIFT_WINDOWS_PREFIX (a list of folders) says
# where what was built for Windows lies.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Checks of the compiler are projects of their own, which ask for the same folders.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES SONGLIFT_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${SONGLIFT_WINDOWS_PREFIX})
set(CMAKE_PREFIX_PATH ${SONGLIFT_WINDOWS_PREFIX})
list(TRANSFORM SONGLIFT_WINDOWS_PREFIX APPEND /lib/pkgconfig OUTPUT_VARIABLE pkgconfig)
list(JOIN pkgconfig : pkgconfig)
set(ENV{PKG_CONFIG_LIBDIR} "${pkgconfig}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's own tools, which run while building, are Debian's.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")
