# 64-bit Windows, built on Debian with mingw-w64 (GCC, posix threads).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(tool x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${tool}-gcc-posix)
set(CMAKE_CXX_COMPILER ${tool}-g++-posix)
set(CMAKE_RC_COMPILER ${tool}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${tool})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The compiler takes the stack of Windows, aligned to 16 bytes, for one aligned to 32 and 64 (GCC bug 54412): wide
# vectors are moved as unaligned ones, which costs nothing where they are aligned.
set(CMAKE_CXX_FLAGS_INIT -Wa,-muse-unaligned-vector-move)
