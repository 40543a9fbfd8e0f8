# The Windows side of a native build: the mingw-w64 cross build of the same sources, made as a
# sub-build in <build>/win32 so that building the native tree also builds the Windows programs
# that the differential tests run under Wine (ctest label win32).
#
# VEXPANEL_WINDOWS is on by default in native test builds. When it is on, the cross compiler and
# Wine must be present: a missing tool stops the configure rather than skipping the suite
# (scripts/bootstrap installs them).

include(ExternalProject)

set(VEX_WIN32_BINARY_DIR ${CMAKE_BINARY_DIR}/win32)
set(VEX_WINE_PREFIX ${CMAKE_BINARY_DIR}/wineprefix)

find_program(VEX_MINGW_CXX x86_64-w64-mingw32-g++)
find_program(VEX_WINE wine)
if(NOT VEX_MINGW_CXX OR NOT VEX_WINE)
  message(FATAL_ERROR "The Windows tests need mingw-w64 and Wine (run scripts/bootstrap as root), "
    "or configure with -DVEXPANEL_WINDOWS=OFF to build without them.")
endif()

set(vex_win32_args
  -DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/toolchain-mingw64.cmake
  -DCMAKE_BUILD_TYPE=RelWithDebInfo
  -DVEXPANEL_TESTS=ON
  -DVEXPANEL_BENCH=${VEXPANEL_BENCH})
if(CMAKE_CXX_COMPILER_LAUNCHER)
  list(APPEND vex_win32_args -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
    -DCMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER})
endif()

ExternalProject_Add(vexpanel-win32
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${VEX_WIN32_BINARY_DIR}
  CMAKE_GENERATOR ${CMAKE_GENERATOR}
  CMAKE_ARGS ${vex_win32_args}
  INSTALL_COMMAND ""
  BUILD_ALWAYS ON
  USES_TERMINAL_BUILD ON)

# The x86 build of the ActiveX control (classic containers are 32-bit): only the server is built
# there. It cannot run under the 64-bit test prefix; tests/activex reads its exports and its type
# library.
set(VEX_WIN32_X86_BINARY_DIR ${CMAKE_BINARY_DIR}/win32-x86)
find_program(VEX_MINGW32_CXX i686-w64-mingw32-g++)
if(NOT VEX_MINGW32_CXX)
  message(FATAL_ERROR "The x86 ActiveX build needs i686-w64-mingw32-g++ (mingw-w64; run scripts/bootstrap).")
endif()
set(vex_win32_x86_args ${vex_win32_args})
list(TRANSFORM vex_win32_x86_args REPLACE "toolchain-mingw64" "toolchain-mingw32")
list(APPEND vex_win32_x86_args -DVEXPANEL_TESTS=OFF -DVEXPANEL_BENCH=OFF)
ExternalProject_Add(vexpanel-win32-x86
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${VEX_WIN32_X86_BINARY_DIR}
  CMAKE_GENERATOR ${CMAKE_GENERATOR}
  CMAKE_ARGS ${vex_win32_x86_args}
  BUILD_COMMAND ${CMAKE_COMMAND} --build <BINARY_DIR> --target vexpanel-activex
  INSTALL_COMMAND ""
  BUILD_ALWAYS ON
  USES_TERMINAL_BUILD ON)
