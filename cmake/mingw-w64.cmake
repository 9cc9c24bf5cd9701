# Builds for Windows on a Debian machine, and runs what it builds under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Debian has no packages of the libraries for Windows; these modules take them from its packages of sources.
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/mingw-w64)

# Users get a program that needs no library beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
# Nor names for a debugger, nor the time: the same sources make the same bytes.
foreach(kind EXE MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_RELEASE_INIT "-s -Wl,--no-insert-timestamp")
endforeach()
