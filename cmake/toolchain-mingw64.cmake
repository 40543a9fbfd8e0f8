# Cross build for 64-bit Windows with mingw-w64 (Debian's x86_64-w64-mingw32 tools).
# The programs link libgcc and libstdc++ statically, so a bare Wine prefix runs them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(VEX_MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${VEX_MINGW_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${VEX_MINGW_TRIPLE}-g++)
set(CMAKE_RC_COMPILER ${VEX_MINGW_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${VEX_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
