# Cross-builds for 64-bit Windows with Debian's MinGW. The preset `mingw` uses it.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The library and the program are self-contained: the runtime of the compiler goes into them. What guards
# the stack is a library of its own here, which the linker takes if it knows about the guard.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -fstack-protector-strong")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -fstack-protector-strong")
set(ZLIB_USE_STATIC_LIBS ON)
