# Settings common to the cross compilers for Windows. The variable mingw is the compiler's target. Of its two variants,
# the one with POSIX threads is used.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw}-windres)
# The folder of the libraries built by scripts/build-windows-toolkit.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES NESK_TOOLKIT)
set(CMAKE_FIND_ROOT_PATH ${NESK_TOOLKIT} /usr/${mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
