# Cross build for 32-bit Windows with mingw-w64 (Debian's i686-w64-mingw32 tools): classic
# containers are 32-bit, so the ActiveX control is also built for x86. It cannot run here (the
# test prefix is 64-bit only); its exports and type library are checked from the x64 side.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)

set(VEX_MINGW_TRIPLE i686-w64-mingw32)
set(CMAKE_C_COMPILER ${VEX_MINGW_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${VEX_MINGW_TRIPLE}-g++)
set(CMAKE_RC_COMPILER ${VEX_MINGW_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${VEX_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
# The server's entry points are stdcall: exported under their plain names.
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++ -Wl,--kill-at,--enable-stdcall-fixup")
