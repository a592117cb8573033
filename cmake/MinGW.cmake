# Builds for 64-bit Windows with MinGW-w64 (posix threads) and runs the results under Wine.
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

# The runtime goes into each program and module: none of its libraries travels beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

# A Wine of the build folder's own, silent and without a display.
get_property(isTryCompile GLOBAL PROPERTY IN_TRY_COMPILE)
if(NOT isTryCompile)
  set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_BINARY_DIR}/wine-run")
  file(WRITE "${CMAKE_CROSSCOMPILING_EMULATOR}" "#!/bin/sh
export WINEPREFIX='${CMAKE_BINARY_DIR}/wine' WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' WINEARCH=win64
unset DISPLAY TEMP TMP
for program in wine64 /usr/lib/wine/wine64 wine; do
    command -v \"$program\" >/dev/null && exec \"$program\" \"$@\"
done
echo 'wine-run: there is no Wine' >&2
exit 127
")
  file(CHMOD "${CMAKE_CROSSCOMPILING_EMULATOR}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endif()
