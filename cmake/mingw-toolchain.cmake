# Builds for 64-bit Windows with Debian's cross compiler, and runs what was built under Wine.
# MARLOWICK_QT_WINDOWS names the folder of the static Qt (packaging/windows/qt.sh makes it).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The posix flavour of the compilers: the other one has no std::mutex.
set(MARLOWICK_MINGW x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${MARLOWICK_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MARLOWICK_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${MARLOWICK_MINGW}-windres)

get_filename_component(MARLOWICK_ROOT ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
set(MARLOWICK_QT_WINDOWS ${MARLOWICK_ROOT}/build/qt-windows/qt CACHE PATH
    "Folder of the static Qt for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MARLOWICK_QT_WINDOWS)

set(CMAKE_FIND_ROOT_PATH /usr/${MARLOWICK_MINGW} ${MARLOWICK_QT_WINDOWS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

list(APPEND CMAKE_PREFIX_PATH ${MARLOWICK_QT_WINDOWS})
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)

# Nothing has to be installed beside the program.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

set(CMAKE_CROSSCOMPILING_EMULATOR ${MARLOWICK_ROOT}/packaging/windows/wine.sh)
