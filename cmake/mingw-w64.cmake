# Builds for Windows on Debian, and runs the results under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
get_filename_component(root ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
set(CMAKE_CROSSCOMPILING_EMULATOR ${root}/scripts/wine)

# Qt for Windows is built once per machine. Its tools are the native ones.
execute_process(COMMAND ${root}/scripts/build-qt-for-windows --where
    OUTPUT_VARIABLE qt_for_windows OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${qt_for_windows}/qt)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Debian lacks these libraries for Windows. The modules use their headers and sources from its native packages.
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/mingw-w64)

# Users get programs without other libraries.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
# Neither debug symbols nor times, so that builds are reproducible.
foreach(kind EXE MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_RELEASE_INIT "-s -Wl,--no-insert-timestamp")
endforeach()
